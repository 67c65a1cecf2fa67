#ifndef LUMARO_APP_COMMAND_LINE_H_
#define LUMARO_APP_COMMAND_LINE_H_

#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace app {

// A command line that the program cannot take: exit code 2.
class UsageError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

struct Options {
  std::string db = "vendara.db";
  // The POS database on a server: an ODBC connection string, in place of db.
  std::optional<std::string> odbc;
  int workstation = 1;
  std::optional<std::string> now;  // "YYYY-MM-DD HH:MM:SS"
  bool yes = false;
  bool quiet = false;
  // How long an exchange run waits for another on the same POS database.
  double wait_seconds = 60;
  std::optional<std::string> plugin;  // the plug-in's file
  // Where a run command writes its report (JSON) when it ends.
  std::optional<std::string> report;
  std::vector<std::string> command;  // the command and its arguments
};

// Reads the global options, then the command words. --report FILE is taken
// among the global options and among the command's words alike, and only for
// the run commands. Raises UsageError.
Options ParseCommandLine(int argc, char** argv);

extern const char kUsage[];

}  // namespace app

#endif  // LUMARO_APP_COMMAND_LINE_H_
