#include "app/Program.h"

#include <unistd.h>

#include <cstdio>
#include <filesystem>

#include "app/AttachedHost.h"
#include "app/RunReport.h"
#include "connector/ModConnectorLumaro.h"
#include "connector/host/Conversions.h"
#include "connector/host/Date.h"
#include "connector/host/Error.h"
#include "standalone/TerminalUIManager.h"
#include "standalone/odbc/OdbcDatabase.h"
#include "standalone/schema/PosDatabase.h"

namespace app {
namespace {

constexpr char kClassKey[] = "Orbiva.Vendara.Connector.Lumaro";

// "YYYY-MM-DD" or "YYYY-MM-DD HH:MM:SS"; raises UsageError.
host::Date ParseDateOption(const std::string& text, const char* what) {
  int y, mo, d, h = 0, mi = 0, s = 0;
  int used = 0;
  bool ok = std::sscanf(text.c_str(), "%4d-%2d-%2d%n", &y, &mo, &d, &used) == 3 && used == 10;
  if (ok && text.size() > 10) {
    int more = 0;
    ok = std::sscanf(text.c_str() + 10, " %2d:%2d:%2d%n", &h, &mi, &s, &more) == 3 &&
         10 + static_cast<size_t>(more) == text.size();
  }
  if (ok) {
    try {
      return host::MakeDate(y, mo, d, h, mi, s);
    } catch (const host::Error&) {
    }
  }
  throw UsageError(std::string(what) + " takes a date YYYY-MM-DD" +
                   (std::string(what) == "--now" ? " HH:MM:SS" : "") + ", not '" + text + "'");
}

}  // namespace

Program::Program(Options options, std::ostream& out, std::ostream& err)
    : options_(std::move(options)), out_(out), err_(err) {}

Program::~Program() {
  // The connector goes before the plug-in that made it and the host it uses;
  // the run's lock, last.
  connector_.reset();
  plugin_.reset();
  host_.reset();
  run_lock_.reset();
}

void Program::RequireArguments(size_t count, const char* usage) const {
  if (options_.command.size() != count) throw UsageError(std::string("usage: lumaro ") + usage);
}

standalone::StandaloneHost& Program::Host() {
  if (!host_) {
    auto database = options_.odbc ? standalone::OpenPosServer(*options_.odbc)
                                  : standalone::OpenPosDatabase(options_.db);
    bool terminal = ::isatty(STDERR_FILENO) == 1;
    auto ui = std::make_unique<standalone::TerminalUIManager>(err_, options_.yes);
    standalone::TerminalUIManager& terminal_ui = *ui;
    host_ = std::make_unique<standalone::StandaloneHost>(
        std::move(database), std::move(ui), standalone::Identity{options_.workstation, 1, 1});
    notifier_ = std::make_shared<TerminalNotifier>(
        err_, terminal && !options_.quiet, options_.yes,
        [host = host_.get()] { return host->Context().Settings(); });
    terminal_ui.SetBeforeWrite([notifier = notifier_.get()] { notifier->Finish(); });
    forms_ = std::make_unique<standalone::ConnectorForms>(*host_, FormsLibraryPath());
    forms_->SetNotifier(notifier_.get());
    terminal_ui.SetForms(forms_.get());
    terminal_ui.SetBoxListener([this](std::string_view text, int style) {
      account_.boxes.push_back({std::string(text), style});
    });
  }
  return *host_;
}

host::IConnector& Program::Connector() {
  if (!connector_) {
    standalone::StandaloneHost& host = Host();
    plugin_ = std::make_unique<Plugin>(options_.plugin.value_or(DefaultPluginPath()));
    connector_ = plugin_->Create(kClassKey, host);
    connector_->SetEventNotifier(notifier_);
  }
  return *connector_;
}

int Program::Run() {
  started_ = std::chrono::system_clock::now();
  if (options_.report) {
    try {
      CheckReportCanBeWritten(*options_.report);
    } catch (const std::runtime_error& error) {
      throw UsageError(error.what());
    }
  }
  int exit_code;
  try {
    exit_code = Dispatch();
  } catch (...) {
    // A run that failed may leave its transaction open for its caller (the
    // import does, by design): the POS database is never left half-written.
    RollBackOpenTransaction();
    if (options_.report) {
      try {
        WriteReport(DescribeFailure(std::current_exception()));
      } catch (const std::exception& error) {
        err_ << "lumaro: " << error.what() << '\n';
      }
    }
    throw;
  }
  if (options_.report) WriteReport({exit_code, ""});
  return exit_code;
}

void Program::WriteReport(const Failure& failure) {
  ReportedRun run;
  run.command = options_.command;
  run.dry_run = run.command.size() == 2 && run.command[1] == "--dry-run";
  run.database = options_.odbc ? DatabaseName()
                               : std::filesystem::absolute(options_.db).lexically_normal().string();
  run.workstation = options_.workstation;
  run.started = started_;
  run.ended = std::chrono::system_clock::now();
  run.exit_code = failure.exit_code;
  run.error = failure.line;
  std::optional<lumaro::LumaroConnectorSetting> settings;
  try {
    settings = StoredSettings();
  } catch (const std::exception&) {
    // The report tells what it can: the database may be what failed.
  }
  WriteRunReport(*options_.report, run, account_, std::move(settings));
}

std::optional<lumaro::LumaroConnectorSetting> Program::StoredSettings() {
  if (!host_ && !options_.odbc && !std::filesystem::exists(options_.db)) return std::nullopt;
  standalone::StandaloneHost& host = Host();
  AttachedHost attached(host);
  lumaro::LumaroConnectorSetting settings;
  if (!host.Settings().Load(settings)) return std::nullopt;
  return settings;
}

void Program::StoreSettings(lumaro::LumaroConnectorSetting& settings) {
  standalone::StandaloneHost& host = Host();
  AttachedHost attached(host);
  host.Settings().Save(settings);
}

int Program::EndOfRun() {
  std::vector<std::string> stops = account_.Stops();
  for (const std::string& stop : stops) err_ << "lumaro: stopped: " << stop << '\n';
  return stops.empty() ? kSuccess : kStopped;
}

void Program::RollBackOpenTransaction() {
  if (!host_) return;
  standalone::PosEngine& db = host_->Database();
  while (db.InTransaction()) {
    try {
      db.RollbackTrans();
    } catch (const host::Error&) {
      return;  // the connection is gone; SQLite undoes what was not committed
    }
  }
}

int Program::Dispatch() {
  if (options_.now) host::SetClockOverride(ParseDateOption(*options_.now, "--now"));
  const std::string& command = options_.command[0];
  if (command == "help") {
    out_ << kUsage;
    return kSuccess;
  }
  if (command == "init") return Init();
  if (command == "info") return Info();
  if (command == "settings") return SettingsCommand();
  if (command == "host") return HostCommand();
  if (command == "backoffice") return BackOfficeCommand();
  if (command == "log") return LogCommand();
  if (command == "import") return ImportCommand();
  if (command == "check") return CheckCommand();
  if (command == "export") return ExportCommand();
  if (command == "reexport") return ReExportCommand();
  if (command == "status") return StatusCommand();
  if (command == "initial-load") return InitialLoadCommand();
  if (command == "delete-all-records") return DeleteAllRecordsCommand();
  if (command == "verify") return VerifyCommand();
  if (command == "trace") return TraceCommand();
  if (command == "config") return ConfigCommand();
  throw UsageError("unknown command '" + command + "'");
}

std::string Program::DatabaseName() {
  try {
    return Host().Database().Name();
  } catch (...) {
    return "(the server that could not be reached)";
  }
}

int Program::Init() {
  RequireArguments(1, "init");
  bool existed = options_.odbc ? true : ::access(options_.db.c_str(), F_OK) == 0;
  standalone::StandaloneHost& host = Host();
  if (!options_.quiet) {
    out_ << "POS database " << host.Database().Name() << (existed ? " is ready" : " created")
         << " (schema version " << host.Database().SchemaVersion() << ")\n";
  }
  return kSuccess;
}

int Program::Info() {
  RequireArguments(1, "info");
  host::IConnector& connector = Connector();
  out_ << "ConnectorID: " << connector.ConnectorID() << '\n'
       << "Description: " << connector.Description() << '\n'
       << "Version: " << connector.Version() << '\n'
       << "FunctionalLevel: " << connector.FunctionalLevel() << '\n';
  return kSuccess;
}

void Program::LockForRun() {
  if (run_lock_) return;
  if (!options_.odbc) {
    run_lock_ = std::make_unique<RunLock>(options_.db, options_.wait_seconds);
    return;
  }
  auto& server = dynamic_cast<standalone::OdbcDatabase&>(Host().Database());
  run_lock_ = std::make_unique<RunLock>(server.Name(), options_.wait_seconds,
                                        [&server] { return server.TryLockForRun(); });
}

int Program::ExportCommand() {
  RequireArguments(1, "export");
  LockForRun();
  Host().SetExportObserver(&account_.exports);
  Connector().ExportData();
  notifier_->Finish();
  return EndOfRun();
}

int Program::ReExportCommand() {
  RequireArguments(3, "reexport FROM TO (dates YYYY-MM-DD)");
  host::Date from = ParseDateOption(options_.command[1], "reexport");
  host::Date to = ParseDateOption(options_.command[2], "reexport");
  if (!(from < to)) {
    throw UsageError(
        "reexport takes FROM before TO: the documents made from FROM to TO, each "
        "at 00:00:00 unless a time is given (for a whole day D, give D and the "
        "next day)");
  }
  LockForRun();
  Host().SetExportObserver(&account_.exports);
  Connector().ReExport(from, to);
  notifier_->Finish();
  return EndOfRun();
}

}  // namespace app
