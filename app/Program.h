#ifndef LUMARO_APP_PROGRAM_H_
#define LUMARO_APP_PROGRAM_H_

#include <chrono>
#include <iostream>
#include <memory>
#include <optional>
#include <string>

#include "app/CommandLine.h"
#include "app/Failure.h"
#include "app/PluginLoader.h"
#include "app/RunAccount.h"
#include "app/RunLock.h"
#include "app/TerminalNotifier.h"
#include "connector/LumaroConnectorSetting.h"
#include "connector/host/IConnector.h"
#include "standalone/ConnectorForms.h"
#include "standalone/StandaloneHost.h"

namespace app {

// One run of the lumaro program: opens the POS database, loads the
// connector plug-in, and carries out one command. Failures reach main() as
// exceptions: host::Error (exit 1, "error N in SOURCE: DESCRIPTION"),
// UsageError (exit 2) or std::runtime_error (exit 1). A run that ends
// normally but stopped where a person must act returns kStopped.
class Program {
 public:
  Program(Options options, std::ostream& out, std::ostream& err);
  ~Program();

  // Carries out the command. When it fails, a transaction it left open on
  // the POS database is rolled back before the failure goes on. With
  // --report, the run report is written at the end, failed or not.
  int Run();

 private:
  int Dispatch();
  void RollBackOpenTransaction();
  int Init();
  int Info();
  int SettingsCommand();
  int SettingsPassword();
  // Says on stderr when the document's SQLPassword was not taken.
  void WarnOfUntakenPassword(const std::string& xml, const std::string& file);
  int HostCommand();
  int BackOfficeCommand();
  int LogCommand();
  int ImportCommand();
  int CheckCommand();
  int ExportCommand();
  int ReExportCommand();
  int StatusCommand();
  int InitialLoadCommand();
  int DeleteAllRecordsCommand();
  int VerifyCommand();
  // The connector's forms (ProgramForms.cc).
  int TraceCommand();
  int ConfigCommand();
  std::string FormsLibraryPath() const;
  // The end of an exchange run: the stops on stderr, and the exit code.
  int EndOfRun();
  void WriteReport(const Failure& failure);

  // The stand-alone host over the POS database, made at first use.
  standalone::StandaloneHost& Host();
  // The connector, with the notifier set, made at first use.
  host::IConnector& Connector();
  void RequireArguments(size_t count, const char* usage) const;
  // Waits for any other exchange run on the POS database to end, and keeps
  // others out until this program ends.
  void LockForRun();
  // The connector's settings stored in the POS database, read as the
  // connector reads them; nothing when none are stored.
  std::optional<lumaro::LumaroConnectorSetting> StoredSettings();
  // The POS database as messages name it.
  std::string DatabaseName();
  // Stores the settings as the connector writes them (the password
  // encrypted).
  void StoreSettings(lumaro::LumaroConnectorSetting& settings);

  Options options_;
  std::ostream& out_;
  std::ostream& err_;
  std::unique_ptr<standalone::ConnectorForms> forms_;  // made with the host
  std::unique_ptr<standalone::StandaloneHost> host_;
  std::unique_ptr<Plugin> plugin_;
  std::shared_ptr<TerminalNotifier> notifier_;
  std::unique_ptr<host::IConnector> connector_;
  std::unique_ptr<RunLock> run_lock_;
  RunAccount account_;
  std::chrono::system_clock::time_point started_;
};

}  // namespace app

#endif  // LUMARO_APP_PROGRAM_H_
