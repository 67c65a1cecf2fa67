#ifndef LUMARO_APP_PROGRAM_H_
#define LUMARO_APP_PROGRAM_H_

#include <iostream>
#include <memory>
#include <string>

#include "app/CommandLine.h"
#include "app/PluginLoader.h"
#include "app/RunLock.h"
#include "app/TerminalNotifier.h"
#include "connector/host/IConnector.h"
#include "standalone/StandaloneHost.h"

namespace app {

// Exit codes.
inline constexpr int kSuccess = 0;
inline constexpr int kFailure = 1;  // the connector or the host raised an error
inline constexpr int kUsageError = 2;

// One run of the lumaro program: opens the POS database, loads the
// connector plug-in, and carries out one command. Failures reach main() as
// exceptions: host::Error (exit 1, "error N in SOURCE: DESCRIPTION"),
// UsageError (exit 2) or std::runtime_error (exit 1).
class Program {
 public:
  Program(Options options, std::ostream& out, std::ostream& err);
  ~Program();

  // Carries out the command. When it fails, a transaction it left open on
  // the POS database is rolled back before the failure goes on.
  int Run();

 private:
  int Dispatch();
  void RollBackOpenTransaction();
  int Init();
  int Info();
  int SettingsCommand();
  int HostCommand();
  int LogCommand();
  int ImportCommand();
  int CheckCommand();
  int ExportCommand();
  int ReExportCommand();

  // The stand-alone host over the POS database, made at first use.
  standalone::StandaloneHost& Host();
  // The connector, with the notifier set, made at first use.
  host::IConnector& Connector();
  void RequireArguments(size_t count, const char* usage) const;
  // Waits for any other exchange run on the POS database to end, and keeps
  // others out until this program ends.
  void LockForRun();

  Options options_;
  std::ostream& out_;
  std::ostream& err_;
  std::unique_ptr<standalone::StandaloneHost> host_;
  std::unique_ptr<Plugin> plugin_;
  std::shared_ptr<TerminalNotifier> notifier_;
  std::unique_ptr<host::IConnector> connector_;
  std::unique_ptr<RunLock> run_lock_;
};

}  // namespace app

#endif  // LUMARO_APP_PROGRAM_H_
