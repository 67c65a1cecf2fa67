// The driver of the import: which files are read, the header, the log, the
// count, one transaction a file, the order of the passes, the error file and
// the number of the last file.

#include "exchange/import/ImportRun.h"

#include "connector/ModConnectorLumaro.h"
#include "connector/host/Ansi.h"
#include "connector/host/Conversions.h"
#include "connector/host/FileSystem.h"
#include "connector/host/Text.h"
#include "connector/host/UIManager.h"
#include "exchange/import/RecordLayouts.h"
#include "initialload/BSOUpgBrevantaLumaroTables.h"

namespace lumaro {
namespace {

constexpr int32_t kFolderMissing = 4140034;
constexpr int32_t kFileFailed = 4140035;
constexpr char kErrorFilePrefix[] = "Erros de importação de ";

host::Host& Host() { return ModConnectorLumaro::Host(); }

void ShowInformation(const std::string& text) {
  Host().UIManager().MsgBox(text, host::msgbox::kInformation);
}

}  // namespace

ImportRun::ImportRun(LumaroConnectorSetting& settings, host::SettingStore& setting_store,
                     DSOLumaroLog& log, std::shared_ptr<host::IConnectorEvents> notifier)
    : settings_(settings),
      setting_store_(setting_store),
      log_(log),
      notifier_(std::move(notifier)),
      filters_(settings) {}

ImportRun::~ImportRun() { host::RecordsetTools::CloseRecordset(price_line_rows_); }

void ImportRun::ImportData() {
  try {
    // The tax classes that the items read, by the back office's tax types.
    BSOUpgBrevantaLumaroTables tables;
    tables.Load_Taxes();

    const std::string folder = settings_.ImportExportPath;
    double last_number = settings_.LastImportNumber;
    host::ImportObserver* observer = Host().ImportObserver();
    if (!host::FolderExists(folder)) {
      if (observer) observer->FolderMissing(folder);
      ShowInformation(Host().UIManager().Messages().Text(kFolderMissing));
      return;
    }
    // Taken in the file service's order; nothing here sorts them.
    std::vector<std::string> names = host::ListFiles(folder, "*.txt");
    if (names.empty()) return;
    for (const std::string& name : names) {
      std::string path = host::BuildPath(folder, name);
      if (host::Left(name, 4) != "ITpv") {
        if (observer) observer->FileSkipped(name, "its name does not begin with ITpv");
        continue;
      }
      if (!CheckImportHeader(path)) {
        if (observer)
          observer->FileSkipped(name, "its first line is no header of this company and year");
        continue;
      }
      auto log = std::make_unique<LumaroLog>();
      log->Filename = path;
      log->WorkstationID = host::CInt(
          host::Variant(Host().SystemManager().Context().CurrentWorkstation().WorkstationID()));
      if (!CheckFileToImport(log)) {
        if (observer) observer->FileSkipped(name, "already imported, and its date has not moved");
        continue;
      }
      if (!ImportFile(path, name, std::move(log), last_number)) break;
    }

    if (import_has_errors_) {
      ShowInformation("A importação foi efectuada com erros.\r\nConsulte ficheiro log");
    }
    // The number of the file imported last, not the greatest: a lower number
    // after a higher one leaves the stored number as it was. Kept so on
    // purpose; the number plays no part in the choice of files.
    if (last_number > settings_.LastImportNumber) {
      settings_.LastImportNumber = last_number;
      setting_store_.Save(settings_);
    }
  } catch (const host::Error& error) {
    throw error.WithSource("<ImportData>");
  }
}

bool ImportRun::ImportFile(const std::string& path, const std::string& name,
                           std::unique_ptr<LumaroLog> log, double& last_number) {
  host::ImportObserver* observer = Host().ImportObserver();
  log->ImportDate = host::Now();
  CountImportRecords(path);
  host::DatabaseService& db = Database();
  db.BeginTrans();
  if (observer) observer->FileStarted(name);
  bool whole;
  try {
    whole = RunPasses(path);
  } catch (...) {
    // The transaction is left open for the caller, who rolls it back.
    if (observer) observer->FileEnded(name, false);
    throw;
  }
  if (!whole) {
    db.RollbackTrans();
    if (observer) observer->FileEnded(name, false);
    ShowInformation(Host().UIManager().Messages().Format(kFileFailed, {host::Variant(name)}));
    return false;
  }
  db.CommitTrans();
  last_number = host::Val(host::Mid(name, 5));
  log_.Save(*log);
  if (observer) observer->FileEnded(name, true);
  return true;
}

bool ImportRun::RunPasses(const std::string& path) {
  return ImportSalesman(path) && ImportCustomer(path) && ImportFamily(path) &&
         ImportItem(path, true) && ImportItem(path, false) && ImportItemSellingPrices(path) &&
         ImportBarCode(path) && ImportPropertyItem(path) && ImportItemKitComponents(path);
}

bool ImportRun::CheckImportHeader(const std::string& path) {
  host::AnsiLineReader reader(path);
  std::string line;
  if (!reader.ReadLine(line)) return false;
  Record header = SplitRecord(line);
  // Exactly five fields: the appended separator makes position 5 the last.
  if (header.size() != 6) return false;
  using namespace layout::hf;
  bool tag = host::UCase(FieldText(header, kTag)) == "HF";
  bool version = host::UCase(FieldText(header, kVersion)) == "4";
  bool kind = host::UCase(FieldText(header, kKind)) == "1";
  bool company = host::UCase(FieldText(header, kCompany)) == host::UCase(settings_.SQLCompanyID);
  // Read whatever the others say: a year that is no number fails the run.
  bool year = FieldNumber(header, kYear) == settings_.SQLCompanyYear;
  return tag && version && kind && company && year;
}

bool ImportRun::CheckFileToImport(std::unique_ptr<LumaroLog>& log) {
  // Each step goes on whatever the one before met, as the log may lack the
  // table's row or the file may have gone.
  const std::string path = log->Filename;
  std::optional<host::FileInfo> file;
  try {
    file = host::GetFile(path);
    log->Filename = file->Name;
  } catch (const host::Error&) {
  }
  std::unique_ptr<LumaroLog> stored = log_.GetLogInfo(log->WorkstationID, log->Filename);
  if (!stored) {
    try {
      log->FillFromFile(path);
    } catch (const host::Error&) {
    }
    log->IsNew = true;
    return true;
  }
  // A file whose date did not move is not read again, even if its content
  // changed.
  if (file && stored->FileDate < file->DateLastModified) {
    log = stored->Clone();
    try {
      log->FillFromFile(path);
    } catch (const host::Error&) {
    }
    return true;
  }
  return false;
}

void ImportRun::CountImportRecords(const std::string& path) {
  counters_ = Counters{};
  std::string last_ap, last_ab, last_al, last_ag;
  host::Date today = host::Today();
  // Counts a run of records of one item once: `item` is the record's item,
  // `last` the item counted last.
  auto count_item = [](const std::string& item, std::string& last, int32_t& counter) {
    if (item == last) return;
    ++counter;
    last = item;
  };
  host::AnsiLineReader reader(path);
  Record record;  // reused from line to line
  for (std::string line; reader.ReadLine(line);) {
    size_t separator = line.find('^');
    if (separator == std::string::npos) continue;
    std::string_view tag(line.data(), separator);
    auto fields = [&]() -> const Record& {
      SplitRecordInto(line, record);
      return record;
    };
    if (tag == "FA") {
      if (filters_.PassFamilyFilter(fields())) ++counters_.FA;
    } else if (tag == "VN") {
      if (filters_.PassSalesmanFilter(fields())) ++counters_.VN;
    } else if (tag == "CL") {
      if (filters_.PassCustomerFilter(fields())) ++counters_.CL;
    } else if (tag == "AR") {
      bool family = filters_.PassItemFamilyFilter(fields());
      bool valid = ImportFilters::PassValidity(record, today);
      if (family && valid) ++counters_.AR;
    } else if (tag == "AP") {
      if (filters_.PassPriceLineFilter(fields())) {
        count_item(FieldText(record, layout::ap::kItem), last_ap, counters_.AP);
      }
    } else if (tag == "AB") {
      count_item(FieldText(fields(), layout::ab::kItem), last_ab, counters_.AB);
    } else if (tag == "AL") {
      count_item(FieldText(fields(), layout::al::kItem), last_al, counters_.AL);
    } else if (tag == "AG") {
      count_item(FieldText(fields(), layout::ag::kKit), last_ag, counters_.AG);
    }
  }
}

void ImportRun::LogImportError(const std::string& path, const std::string& line,
                               const host::Error& error) {
  import_has_errors_ = true;
  // Opened for each error and closed again; never cleared, so that the
  // entries of several runs stand one after the other.
  host::AnsiTextWriter file(
      host::BuildPath(settings_.ImportExportPath, kErrorFilePrefix + host::GetFileName(path)),
      host::AnsiTextWriter::Mode::kAppend);
  file.WriteLine(host::CStr(host::Variant(host::Now())));
  file.WriteLine("Linha: " + line);
  file.WriteLine(" Erro: " + host::Replace(error.Description(), "\r\n", ""));
  file.Close();
}

bool ImportRun::ProtectedSave(const std::string& path, const std::string& line,
                              std::string_view tag, int64_t line_number,
                              host::ImportObserver::Outcome outcome,
                              const std::function<void()>& save) {
  try {
    save();
  } catch (const host::Error& error) {
    LogImportError(path, line, error);
    Observe(tag, line_number, host::ImportObserver::Outcome::kRefused, error.Description());
    return false;
  }
  Observe(tag, line_number, outcome);
  return true;
}

void ImportRun::Observe(std::string_view tag, int64_t line, host::ImportObserver::Outcome outcome,
                        std::string_view description) {
  if (host::ImportObserver* observer = Host().ImportObserver()) {
    observer->Record(tag, line, outcome, description);
  }
}

std::string ImportRun::Title(int32_t message) const {
  return Host().UIManager().Messages().Text(message);
}

double ImportRun::GetPriceLineID(const std::string& key) {
  host::KeyDictionary& keys = ModConnectorLumaro::RunDictionary();
  const std::string dictionary_key = "PriceLineID|" + key;
  host::Variant known = keys.Item(dictionary_key);
  if (!known.IsEmpty()) return host::CDbl(known);
  double id = PriceLines().GetID(key);
  if (id > 0) keys.Add(host::Variant(id), dictionary_key);
  return id;
}

host::Recordset& ImportRun::PriceLineRows() {
  if (!price_line_rows_) price_line_rows_ = PriceLines().GetPriceLines();
  return *price_line_rows_;
}

host::DatabaseService& ImportRun::Database() {
  return Host().DataManager().Connection().Database();
}

// Each service is made at its first use and kept to the end of the run.
template <typename Service, typename Make>
static Service& Lazy(std::unique_ptr<Service>& service, Make make) {
  if (!service) service = make();
  return *service;
}

host::SalesmanService& ImportRun::Salesmen() {
  return Lazy(salesmen_, [] { return Host().NewSalesmanService(); });
}
host::CustomerService& ImportRun::Customers() {
  return Lazy(customers_, [] { return Host().NewCustomerService(); });
}
host::FamilyService& ImportRun::Families() {
  return Lazy(families_, [] { return Host().NewFamilyService(); });
}
host::ItemService& ImportRun::Items() {
  return Lazy(items_, [] { return Host().NewItemService(); });
}
host::PriceLineService& ImportRun::PriceLines() {
  return Lazy(price_lines_, [] { return Host().NewPriceLineService(); });
}
host::PartyAddressService& ImportRun::Addresses() {
  return Lazy(addresses_, [] { return Host().NewPartyAddressService(); });
}
host::CustomerZoneService& ImportRun::Zones() {
  return Lazy(zones_, [] { return Host().NewCustomerZoneService(); });
}
host::CustomerGroupService& ImportRun::CustomerGroups() {
  return Lazy(customer_groups_, [] { return Host().NewCustomerGroupService(); });
}
host::CarrierService& ImportRun::Carriers() {
  return Lazy(carriers_, [] { return Host().NewCarrierService(); });
}
host::PaymentService& ImportRun::Payments() {
  return Lazy(payments_, [] { return Host().NewPaymentService(); });
}
host::TenderService& ImportRun::Tenders() {
  return Lazy(tenders_, [] { return Host().NewTenderService(); });
}
host::SupplierService& ImportRun::Suppliers() {
  return Lazy(suppliers_, [] { return Host().NewSupplierService(); });
}
host::ItemPropertyService& ImportRun::ItemProperties() {
  return Lazy(item_properties_, [] { return Host().NewItemPropertyService(); });
}

}  // namespace lumaro
