// `lumaro status`: the state of the exchange for a person, and exit 3 when
// an exchange point is stuck.

#include "app/ExportAccount.h"
#include "app/IsoDates.h"
#include "app/Paths.h"
#include "app/Program.h"
#include "connector/host/FieldConverter.h"
#include "connector/host/FileSystem.h"
#include "exchange/export/EntryExport.h"

namespace app {
namespace {

constexpr int kLastImportFiles = 5;

// "<count>[, oldest <date>]" of the rows of `table` that the point's next
// export would take: its series and workstations, not yet exported.
std::string Pending(standalone::PosEngine& db, const char* table,
                    const lumaro::Workstation& point) {
  // The list goes in as it stands, as the export puts it.
  auto rs = db.OpenRecordset(
      std::string("SELECT Count(*) AS Pending, Min(CreateDate) AS Oldest FROM ") + table +
      " WHERE AccountingExportDate Is Null AND WorkstationID IN (" + point.WorkstationList +
      ") AND TransSerial='" + db.SqlFormat().QuoteText(point.TransSerial) + "'");
  long long count = static_cast<long long>(host::FieldConverter::ToNumber(rs->Fields("Pending")));
  std::string text = std::to_string(count);
  if (count > 0) text += ", oldest " + LocalIso(host::FieldConverter::ToDate(rs->Fields("Oldest")));
  return text;
}

}  // namespace

int Program::StatusCommand() {
  RequireArguments(1, "status");
  std::optional<lumaro::LumaroConnectorSetting> settings = StoredSettings();
  if (!settings) {
    err_ << "lumaro: no settings are stored\n";
    return kFailure;
  }
  standalone::PosEngine& db = Host().Database();
  const std::string& folder = settings->ImportExportPath;
  bool folder_there = host::FolderExists(folder);
  // Absolute: a relative folder is found from where lumaro runs.
  out_ << "exchange folder: " << (folder.empty() ? "(none)" : AbsolutePath(folder))
       << (folder_there ? "" : " (missing)") << '\n';

  std::vector<std::string> stuck;
  for (int i = 1; i <= settings->LumaroWorkstationCount(); ++i) {
    lumaro::Workstation point = settings->Workstation(i);
    out_ << "point " << point.LumaroWorkstationID << ": series " << point.TransSerial
         << ", workstations " << point.WorkstationList << ", "
         << (point.Active ? "active" : "inactive") << ", last file " << point.LastExportNumber
         << '\n';
    std::string next =
        lumaro::ExportFileName(point.LumaroWorkstationID, point.LastExportNumber + 1.0);
    std::string next_path = host::BuildPath(folder, next);
    bool taken = folder_there && host::FileExists(next_path);
    out_ << "  next file: " << next
         << (taken ? " (already there: the exports of this point stop until it is removed)"
                   : " (free)")
         << '\n';
    out_ << "  pending sales: " << Pending(db, "SaleTransaction", point) << '\n';
    out_ << "  pending receipts: " << Pending(db, "TenderTransaction", point) << '\n';
    // The export checks the folder first, then the file.
    if (point.Active && !folder_there) {
      stuck.push_back(ExportAccount::StopSentence(
          point.LumaroWorkstationID, host::ExportObserver::Stop::kFolderMissing, folder));
    } else if (point.Active && taken) {
      stuck.push_back(ExportAccount::StopSentence(
          point.LumaroWorkstationID, host::ExportObserver::Stop::kFileExists, next_path));
    }
  }

  out_ << "last import files of workstation " << options_.workstation << ":\n";
  int listed = 0;
  if (db.Schema().TableExists("LumaroLog")) {
    auto rs =
        db.OpenRecordset("SELECT TOP " + std::to_string(kLastImportFiles) +
                         " Filename, ImportDate FROM LumaroLog WHERE WorkstationID=" +
                         std::to_string(options_.workstation) +
                         " AND Filename LIKE 'ITpv%' ORDER BY ImportDate DESC, Filename DESC");
    for (; !rs->Eof(); rs->MoveNext(), ++listed) {
      out_ << "  " << LocalIso(host::FieldConverter::ToDate(rs->Fields("ImportDate"))) << "  "
           << host::FieldConverter::ToText(rs->Fields("Filename")) << '\n';
    }
  }
  if (listed == 0) out_ << "  none\n";
  for (const std::string& sentence : stuck) out_ << "stuck: " << sentence << '\n';
  return stuck.empty() ? kSuccess : kStopped;
}

}  // namespace app
