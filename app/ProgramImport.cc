// The import commands: the import itself (also as a dry run) and the check
// of one import file.

#include <filesystem>
#include <map>

#include "app/ImportAccount.h"
#include "app/Program.h"
#include "connector/LumaroConnectorSetting.h"
#include "connector/host/Date.h"
#include "connector/host/Error.h"
#include "connector/host/FileSystem.h"
#include "exchange/import/ImportFileCheck.h"

namespace app {
namespace {

namespace fs = std::filesystem;

constexpr char kErrorFilePrefix[] = "Erros de importação de ";

// The error files of the exchange folder and their sizes. A dry run puts
// them back as they were: the connector appends to them as it goes.
class ErrorFiles {
 public:
  explicit ErrorFiles(std::string folder) : folder_(std::move(folder)) {
    for (const auto& [path, size] : Current()) sizes_[path] = size;
  }

  void Restore() const {
    for (const auto& [path, size] : Current()) {
      auto kept = sizes_.find(path);
      std::error_code ignored;
      if (kept == sizes_.end()) {
        fs::remove(path, ignored);
      } else if (kept->second != size) {
        fs::resize_file(path, kept->second, ignored);
      }
    }
  }

 private:
  std::map<std::string, uintmax_t> Current() const {
    std::map<std::string, uintmax_t> files;
    std::error_code error;
    for (fs::directory_iterator it(folder_, error), end; !error && it != end; it.increment(error)) {
      if (it->is_regular_file() && it->path().filename().string().rfind(kErrorFilePrefix, 0) == 0) {
        files[it->path().string()] = it->file_size();
      }
    }
    return files;
  }

  std::string folder_;
  std::map<std::string, uintmax_t> sizes_;
};

}  // namespace

int Program::ImportCommand() {
  // The folder whose error files a dry run puts back; none without settings.
  auto exchange_folder = [this] {
    std::optional<lumaro::LumaroConnectorSetting> settings = StoredSettings();
    return settings ? settings->ImportExportPath : std::string();
  };
  const auto& args = options_.command;
  bool dry_run = args.size() == 2 && args[1] == "--dry-run";
  if (!dry_run) RequireArguments(1, "import [--dry-run]");
  LockForRun();
  standalone::StandaloneHost& host = Host();
  host::IConnector& connector = Connector();
  ImportAccount& account = account_.imports;
  host.SetImportObserver(&account);
  std::optional<ErrorFiles> error_files;
  if (dry_run) {
    // Everything the run writes to the POS database (its rows, the log, the
    // number of the last file) lies inside this transaction, undone below.
    error_files.emplace(exchange_folder());
    host.Database().BeginTrans();
  }
  auto finish = [&] {
    host.SetImportObserver(nullptr);
    notifier_->Finish();
    if (dry_run) {
      RollBackOpenTransaction();
      error_files->Restore();
    }
    if (!options_.quiet) account.Print(out_, dry_run);
  };
  try {
    connector.ImportData();
  } catch (...) {
    finish();
    std::string failed = account.FileNotImported();
    if (!failed.empty() && !options_.quiet) {
      err_ << "lumaro: " << failed << " was not imported; `lumaro check "
           << host::BuildPath(exchange_folder(), failed) << "` lists the lines that fail\n";
    }
    throw;
  }
  finish();
  if (dry_run && !options_.quiet) {
    out_ << "dry run: nothing was kept; the POS database, the file log, the number of the last "
            "file and the error files are as they were\n";
  }
  return EndOfRun();
}

int Program::CheckCommand() {
  RequireArguments(2, "check FILE");
  const std::string& path = options_.command[1];
  // The record rules are the connector's own, linked into this program.
  std::optional<lumaro::LumaroConnectorSetting> settings = StoredSettings();
  if (!settings) {
    err_ << "lumaro: no settings are stored: the header's company and year cannot be checked\n";
    return kFailure;
  }
  std::unique_ptr<host::CustomerService> customers = Host().NewCustomerService();
  lumaro::ImportFileCheck check(*settings, [&customers](const std::string& key) {
    return customers->GetCustomerIDFromKey(key) != 0;
  });
  std::vector<lumaro::ImportFileCheck::Problem> problems = check.Check(path, host::Today());
  std::string name = host::GetFileName(path);
  for (const auto& problem : problems) {
    out_ << name;
    if (problem.line > 0) out_ << " line " << problem.line << " (" << problem.tag << ")";
    out_ << ": " << problem.reason << '\n';
  }
  if (!options_.quiet) {
    if (problems.empty()) {
      out_ << name << ": no line would fail\n";
    } else {
      out_ << name << ": " << problems.size() << (problems.size() == 1 ? " line" : " lines")
           << " would fail\n";
    }
  }
  return problems.empty() ? kSuccess : kFailure;
}

}  // namespace app
