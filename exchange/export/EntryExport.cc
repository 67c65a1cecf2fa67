#include "exchange/export/EntryExport.h"

#include <algorithm>

#include "connector/ModConnectorLumaro.h"
#include "connector/host/Conversions.h"
#include "connector/host/Error.h"
#include "connector/host/FieldConverter.h"
#include "connector/host/FileSystem.h"
#include "exchange/export/ExportRecords.h"

namespace lumaro {
namespace {

constexpr int32_t kFolderMissing = 4140034;
constexpr int32_t kMakingExportFile = 4140044;
constexpr int32_t kProgressOfTotal = 4140039;

}  // namespace

EntryExport::EntryExport(const LumaroConnectorSetting& settings, const Workstation& entry,
                         std::shared_ptr<host::IConnectorEvents> notifier, KeyCaches& keys)
    : settings_(settings),
      entry_(entry),
      notifier_(std::move(notifier)),
      keys_(keys),
      host_(ModConnectorLumaro::Host()),
      db_(host_.DataManager().Connection().Database()) {}

std::string ExportFileName(const std::string& code, double number) {
  return "ETpv " + code + " " + host::FormatNumber(number, "0000000") + ".txt";
}

host::RecordsetPtr EntryExport::Query(const std::string& sql) {
  return db_.OpenRecordset(sql, 128, true);
}

std::string EntryExport::EntryFilter(const std::string& prefix) const {
  return " WHERE " + prefix + selection_ + " AND " + prefix + "WorkstationID IN (" +
         entry_.WorkstationList + ") " + " AND " + prefix + "TransSerial ='" +
         db_.SqlFormat().QuoteText(entry_.TransSerial) + "'";
}

host::IConnectorEvents& EntryExport::Notifier() {
  // The notifier is used as it stands: a run without one fails at its first
  // report.
  if (!notifier_) host::Raise(host::err::kObjectNotSet, "EventNotifier");
  return *notifier_;
}

void EntryExport::ReportProgress() {
  std::string text = host_.UIManager().Messages().Format(
      kProgressOfTotal, {host::Variant(counter_), host::Variant(total_)});
  Notifier().Progress(counter_, total_, text);
}

EntryExport::Outcome EntryExport::Run(const std::string& folder, double file_number,
                                      host::Date initial_date, host::Date final_date) {
  reader_ = host_.NewSaleDocumentReader();
  std::string name = ExportFileName(entry_.LumaroWorkstationID, file_number);
  std::string full_path = host::BuildPath(folder, name);
  host::UIManager& ui = host_.UIManager();
  Observe([&](host::ExportObserver& o) { o.PointStarted(entry_.LumaroWorkstationID); });
  if (!host::FolderExists(folder)) {
    Observe([&](host::ExportObserver& o) {
      o.Stopped(host::ExportObserver::Stop::kFolderMissing, folder);
    });
    ui.MsgBox(ui.Messages().Text(kFolderMissing), host::msgbox::kInformation);
    return {};
  }
  // The existing file stays as it is and the number does not move: this
  // entry stops here, run after run, until somebody removes the file.
  if (host::FileExists(full_path)) {
    Observe([&](host::ExportObserver& o) {
      o.Stopped(host::ExportObserver::Stop::kFileExists, full_path);
    });
    ui.MsgBox("O ficheiro " + full_path + " já existe!", host::msgbox::kInformation);
    return {};
  }
  // A re-export with one date missing is an ordinary export.
  if (initial_date.serial != 0 && final_date.serial != 0) {
    selection_ = "CreateDate BETWEEN " + db_.SqlFormat().DateLiteral(initial_date) + " AND " +
                 db_.SqlFormat().DateLiteral(final_date);
  } else {
    selection_ = "AccountingExportDate Is Null ";
  }
  FirstDate first = FindFirstDate();
  if (!first.anything) {
    Observe([](host::ExportObserver& o) { o.NothingPending(); });
    return {};
  }

  Notifier().Detail(ui.Messages().Text(kMakingExportFile) + " (" + name + ")");
  Observe([&](host::ExportObserver& o) { o.FileBegun(full_path); });
  writer_ = std::make_unique<host::AnsiTextWriter>(full_path, host::AnsiTextWriter::Mode::kCreate);
  host::SystemContext& context = host_.SystemManager().Context();
  Write(BuildHeader(settings_.SQLCompanyID, settings_.SQLCompanyYear, context.CompanyNumber(),
                    context.CurrentWorkstation().WorkstationID(), entry_.LumaroWorkstationID,
                    file_number, first.date));
  WriteCustomers();
  WriteSales();
  WriteReceipts();
  writer_->Close();
  return {true, name, first.date, std::move(records_)};
}

void EntryExport::Write(const std::string& record) {
  writer_->WriteLine(record);
  // Counted as records, not as lines of the file: a free text may hold a
  // line end of its own.
  std::string_view tag(record.data(), std::min(record.find('^'), record.size()));
  auto counted = std::find_if(records_.begin(), records_.end(),
                              [&](const auto& count) { return count.first == tag; });
  if (counted == records_.end()) {
    records_.emplace_back(std::string(tag), 1);
  } else {
    ++counted->second;
  }
}

void EntryExport::Observe(const std::function<void(host::ExportObserver&)>& tell) {
  if (host::ExportObserver* observer = host_.ExportObserver()) tell(*observer);
}

EntryExport::FirstDate EntryExport::FindFirstDate() {
  FirstDate first;
  host::RecordsetPtr rs =
      Query("SELECT Min(CreateDate) AS FirstSale FROM TenderTransaction " + EntryFilter("") +
            " GROUP BY TransSerial, TransDocument, TransDocNumber");
  int32_t receipts = rs->RecordCount();
  // The first row of a grouped result is taken as it comes: the date is the
  // first in the database's own order of groups.
  if (!rs->Eof()) first.date = host::FieldConverter::ToDate(rs->Fields("FirstSale"));
  host::RecordsetTools::CloseRecordset(rs);

  rs = Query("SELECT Min(CreateDate) AS FirstSale FROM SaleTransaction " + EntryFilter("") +
             " GROUP BY CreateDate");
  bool sales = !rs->Eof();
  // The date of the sales takes the place of the date of the receipts.
  if (sales) first.date = host::FieldConverter::ToDate(rs->Fields("FirstSale"));
  host::RecordsetTools::CloseRecordset(rs);
  first.anything = sales || receipts >= 1;
  return first;
}

}  // namespace lumaro
