// The initial load from the back office's database, and the clearing of
// every document.

#include <sys/stat.h>

#include <algorithm>
#include <fstream>
#include <sstream>

#include "app/AttachedHost.h"
#include "app/Program.h"
#include "connector/host/FieldConverter.h"
#include "connector/host/FileSystem.h"
#include "maintenance/UIRecovery.h"
#include "settingsui/InitialLoad.h"
#include "standalone/schema/PosSchemaModel.h"

namespace app {
namespace {

constexpr int32_t kLoading = 3880109;
constexpr int kMigrationEntriesShown = 5;

// The load's progress on the terminal: the table being loaded, by its
// description, and a bar of its rows.
class LoadProgress : public lumaro::LoadEvents {
 public:
  LoadProgress(TerminalNotifier& notifier, host::Host& host)
      : notifier_(notifier),
        messages_(host.UIManager().Messages()),
        connection_(host.DataManager().Connection()) {}

  void ProgressGlobal(std::string_view task, std::string_view) override {
    notifier_.Detail(
        messages_.Format(kLoading, {host::Variant(connection_.TableDescription(task))}));
  }
  void ProgressCurrent(std::string_view task, double current, double max) override {
    notifier_.Progress(static_cast<int32_t>(current), static_cast<int32_t>(max),
                       std::string(task) + " " + std::to_string(static_cast<long long>(current)) +
                           "/" + std::to_string(static_cast<long long>(max)));
  }

 private:
  TerminalNotifier& notifier_;
  const host::MessageCatalogue& messages_;
  host::DatabaseConnection& connection_;
};

// The size of a file; 0 when it is not there.
std::streamoff FileSize(const std::string& path) {
  struct stat info;
  return ::stat(path.c_str(), &info) == 0 ? info.st_size : 0;
}

// The lines of a file from `offset` on, without their line ends.
std::vector<std::string> LinesFrom(const std::string& path, std::streamoff offset) {
  std::ifstream file(path, std::ios::binary);
  file.seekg(offset);
  std::vector<std::string> lines;
  for (std::string line; std::getline(file, line);) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    if (!line.empty()) lines.push_back(line);
  }
  return lines;
}

}  // namespace

int Program::InitialLoadCommand() {
  RequireArguments(1, "initial-load");
  LockForRun();
  std::optional<lumaro::LumaroConnectorSetting> settings = StoredSettings();
  if (!settings) {
    err_ << "lumaro: no settings are stored: load them first with `lumaro settings load FILE`\n";
    return kFailure;
  }
  standalone::StandaloneHost& host = Host();
  const std::string log_path = host::BuildPath(host.Context().WorkFolder(), "Migration.log");
  std::streamoff log_start = FileSize(log_path);
  LoadProgress progress(*notifier_, host);
  bool ran;
  {
    AttachedHost attached(host);
    // The settings are the stored ones: nothing to store again.
    ran = lumaro::RunInitialLoad(*settings, &progress, false);
  }
  notifier_->Finish();
  if (!ran) return kFailure;
  if (!options_.quiet) {
    out_ << "rows in the POS database after the load:\n";
    standalone::PosEngine& db = host.Database();
    std::vector<std::string> tables;
    for (const host::TableDefinition& table : standalone::PosSchemaModel()) {
      tables.push_back(table.name);
    }
    std::sort(tables.begin(), tables.end());
    for (const std::string& table : tables) {
      auto count = db.OpenRecordset("SELECT COUNT(*) FROM [" + table + "]");
      long long rows = static_cast<long long>(host::FieldConverter::ToNumber(count->Fields(0)));
      if (rows > 0) out_ << "  " << table << ": " << rows << '\n';
    }
  }
  // What this load wrote to Migration.log: each a statement that failed and
  // was passed over.
  std::vector<std::string> entries = LinesFrom(log_path, log_start);
  if (!entries.empty()) {
    err_ << "lumaro: " << entries.size()
         << (entries.size() == 1 ? " statement of the load failed and was"
                                 : " statements of the load failed and were")
         << " passed over (" << log_path << "):\n";
    for (size_t i = 0; i < entries.size() && i < kMigrationEntriesShown; ++i) {
      err_ << "  " << entries[i] << '\n';
    }
  }
  return kSuccess;
}

int Program::DeleteAllRecordsCommand() {
  RequireArguments(1, "delete-all-records");
  LockForRun();
  standalone::StandaloneHost& host = Host();
  AttachedHost attached(host);
  // Declined, or failed (the error shown): nothing for a script to take as
  // done.
  return lumaro::UIRecovery().DBDeleteAllRecords() ? kSuccess : kFailure;
}

}  // namespace app
