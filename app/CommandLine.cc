#include "app/CommandLine.h"

#include <cstdlib>
#include <cstring>

namespace app {

const char kUsage[] =
    "usage: lumaro [--db FILE | --odbc CONNECTION] [--workstation N]\n"
    "              [--now \"YYYY-MM-DD HH:MM:SS\"] [--yes] [--quiet] [--wait SECONDS]\n"
    "              [--plugin FILE] [--report FILE] COMMAND\n"
    "\n"
    "  --db FILE            the POS database, a SQLite file (default vendara.db)\n"
    "  --odbc CONNECTION    the POS database on a server, by its ODBC connection\n"
    "                       string (PostgreSQL through psqlODBC, SQL Server)\n"
    "\n"
    "commands:\n"
    "  init                          create or upgrade the POS database\n"
    "  info                          the connector's ConnectorID, Description, Version,\n"
    "                                FunctionalLevel\n"
    "  settings show                 the stored settings document\n"
    "  settings load FILE            replace the stored settings by FILE\n"
    "  settings password             store the SQL Server password, read from the terminal\n"
    "                                without echo (or a line of standard input)\n"
    "  settings delete               delete the stored settings\n"
    "  settings validate             exit 0 when the stored settings are valid, 1 if not\n"
    "  backoffice test               try the connection to the back office's database\n"
    "                                that the settings describe; exit 0 when reached\n"
    "  host show                     the host context\n"
    "  host set KEY VALUE            set one value of the host context\n"
    "  import [--dry-run]            import the back office's files, and say what became\n"
    "                                of each; --dry-run undoes every change at the end\n"
    "  check FILE                    list the lines of an import file that would fail\n"
    "  export                        export what is pending\n"
    "  reexport FROM TO              export again what was made from FROM to TO\n"
    "                                (YYYY-MM-DD, each at 00:00:00; or with HH:MM:SS):\n"
    "                                to take a whole day D, give D and the next day\n"
    "  log                           the files taken and made, tab-separated\n"
    "  log delete WORKSTATION FILE   forget one file, so that it is imported again\n"
    "  initial-load                  fill the POS database from the back office's\n"
    "                                database, replacing its master data\n"
    "  delete-all-records            delete every document and movement of the POS\n"
    "                                database, after a question (--yes answers it)\n"
    "  verify [integrity|nulls|relations|indexes]\n"
    "                                check the POS database: integrity (the default) reads\n"
    "                                a row of every table and names each table or column\n"
    "                                it cannot read (exit 3 then); the others repair, after\n"
    "                                a question (--yes answers it)\n"
    "  status                        each exchange point's numbers, pending documents and\n"
    "                                next file, and the last files imported; exit 3 when\n"
    "                                a point is stuck\n"
    "  trace                         open the log viewer (needs a display)\n"
    "  config                        open the settings form (needs a display)\n"
    "\n"
    "--report FILE (import, export, reexport): write what the run did as JSON to FILE\n"
    "when it ends. Exit codes: 0 all went through; 1 an error; 2 a command line it cannot\n"
    "take; 3 the run ended, but a point or a file stopped where a person must act.\n";

namespace {

int ParseWorkstation(const std::string& text) {
  char* end = nullptr;
  long value = std::strtol(text.c_str(), &end, 10);
  if (text.empty() || *end != '\0' || value < 1 || value > 32767) {
    throw UsageError("--workstation takes a number from 1 to 32767, not '" + text + "'");
  }
  return static_cast<int>(value);
}

double ParseWait(const std::string& text) {
  char* end = nullptr;
  double value = std::strtod(text.c_str(), &end);
  if (text.empty() || *end != '\0' || !(value >= 0 && value <= 86400)) {
    throw UsageError("--wait takes a number of seconds from 0 to 86400, not '" + text + "'");
  }
  return value;
}

}  // namespace

Options ParseCommandLine(int argc, char** argv) {
  Options options;
  bool db_given = false;
  int i = 1;
  auto value_of = [&](const char* option) -> std::string {
    if (i + 1 >= argc) throw UsageError(std::string(option) + " needs a value");
    return argv[++i];
  };
  for (; i < argc; ++i) {
    std::string arg = argv[i];
    if (arg == "--db") {
      if (options.odbc) throw UsageError("give --db or --odbc, not both");
      options.db = value_of("--db");
      db_given = true;
    } else if (arg == "--odbc") {
      if (db_given) throw UsageError("give --db or --odbc, not both");
      options.odbc = value_of("--odbc");
    } else if (arg == "--workstation") {
      options.workstation = ParseWorkstation(value_of("--workstation"));
    } else if (arg == "--now") {
      options.now = value_of("--now");
    } else if (arg == "--wait") {
      options.wait_seconds = ParseWait(value_of("--wait"));
    } else if (arg == "--report") {
      options.report = value_of("--report");
    } else if (arg == "--plugin") {
      options.plugin = value_of("--plugin");
    } else if (arg == "--yes") {
      options.yes = true;
    } else if (arg == "--quiet") {
      options.quiet = true;
    } else if (arg == "--help" || arg == "-h") {
      options.command = {"help"};
      return options;
    } else if (arg.rfind("--", 0) == 0) {
      throw UsageError("unknown option " + arg);
    } else {
      break;
    }
  }
  for (; i < argc; ++i) {
    if (std::strcmp(argv[i], "--report") == 0 && !options.command.empty()) {
      options.report = value_of("--report");
      continue;
    }
    options.command.emplace_back(argv[i]);
  }
  if (options.command.empty()) throw UsageError("no command given");
  const std::string& command = options.command[0];
  if (options.report && command != "import" && command != "export" && command != "reexport") {
    throw UsageError("--report is for the run commands import, export and reexport");
  }
  if (options.report && options.report->empty()) throw UsageError("--report needs a file name");
  return options;
}

}  // namespace app
