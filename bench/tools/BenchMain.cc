// lumaro-bench: the benchmark's data and floors. bench/run drives it; see
// bench/README.md.

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <map>
#include <stdexcept>
#include <string>
#include <vector>

#include "bench/floor/ExportFloor.h"
#include "bench/floor/ImportFloor.h"
#include "bench/floor/Sqlite.h"
#include "bench/tools/ItemFile.h"
#include "bench/tools/PosData.h"
#include "bench/tools/ServerCopy.h"

namespace {

constexpr char kUsage[] =
    "usage: lumaro-bench COMMAND ARGUMENTS [--OPTION VALUE]...\n"
    "\n"
    "  items FILE [--items N] [--seed S]\n"
    "      write an import file of N items (default 100000)\n"
    "  import-references DB\n"
    "      add the price lines, families and lot rule the import file needs\n"
    "  sales DB [--documents K] [--lines L] [--customers M] [--receipts R] [--seed S]\n"
    "      add a day of pending sales, new customers and receipts\n"
    "      (defaults 20000, 3, 2000, 2000)\n"
    "  floor-import DB FILE [--now T] [--workstation N]\n"
    "      import FILE into DB with SQLite alone\n"
    "  floor-export DB FILE [--now T] [--code C] [--serial S] [--workstations LIST]\n"
    "      export DB's pending rows into FILE with SQLite alone\n"
    "  to-server DB CONNECTION\n"
    "      put DB's rows into the POS database on a server (made by lumaro --odbc init)\n"
    "\n"
    "T is \"YYYY-MM-DD HH:MM:SS\" (default \"2026-11-23 09:00:00\"); S defaults to 1.\n";

constexpr char kDefaultNow[] = "2026-11-23 09:00:00";

struct UsageError : std::runtime_error {
  using std::runtime_error::runtime_error;
};

// A command's positional arguments and its "--name value" options.
class Arguments {
 public:
  Arguments(int argc, char** argv, size_t positional, std::vector<std::string> known) {
    for (int i = 2; i < argc; ++i) {
      std::string arg = argv[i];
      if (arg.rfind("--", 0) != 0) {
        positional_.push_back(arg);
        continue;
      }
      std::string name = arg.substr(2);
      if (std::find(known.begin(), known.end(), name) == known.end()) {
        throw UsageError("unknown option " + arg);
      }
      if (i + 1 >= argc) throw UsageError(arg + " needs a value");
      options_[name] = argv[++i];
    }
    if (positional_.size() != positional) throw UsageError("wrong number of arguments");
  }

  const std::string& operator[](size_t i) const { return positional_[i]; }
  std::string Text(const std::string& name, const std::string& fallback) const {
    auto found = options_.find(name);
    return found == options_.end() ? fallback : found->second;
  }
  long Number(const std::string& name, long fallback) const {
    auto found = options_.find(name);
    if (found == options_.end()) return fallback;
    char* end = nullptr;
    long value = std::strtol(found->second.c_str(), &end, 10);
    if (found->second.empty() || *end != '\0' || value < 0) {
      throw UsageError("--" + name + " takes a whole number, not '" + found->second + "'");
    }
    return value;
  }

 private:
  std::vector<std::string> positional_;
  std::map<std::string, std::string> options_;
};

int Run(int argc, char** argv) {
  if (argc < 2) throw UsageError("no command given");
  const std::string command = argv[1];
  if (command == "items") {
    Arguments args(argc, argv, 1, {"items", "seed"});
    bench::ItemFileShape shape;
    shape.items = args.Number("items", shape.items);
    shape.seed = static_cast<uint64_t>(args.Number("seed", 1));
    long lines = bench::WriteItemFile(args[0], shape);
    std::printf("lines %ld\n", lines);
  } else if (command == "import-references") {
    Arguments args(argc, argv, 1, {});
    bench::Database db(args[0]);
    bench::AddImportReferences(db);
  } else if (command == "sales") {
    Arguments args(argc, argv, 1, {"documents", "lines", "customers", "receipts", "seed"});
    bench::SalesShape shape;
    shape.documents = args.Number("documents", shape.documents);
    shape.lines = static_cast<int>(args.Number("lines", shape.lines));
    shape.customers = args.Number("customers", shape.customers);
    shape.receipts = args.Number("receipts", shape.receipts);
    shape.seed = static_cast<uint64_t>(args.Number("seed", 1));
    bench::Database db(args[0]);
    bench::AddSales(db, shape);
  } else if (command == "floor-import") {
    Arguments args(argc, argv, 2, {"now", "workstation"});
    bench::ImportFloorCounts counts =
        bench::RunImportFloor(args[0], args[1], bench::Clock::Parse(args.Text("now", kDefaultNow)),
                              static_cast<int>(args.Number("workstation", 1)));
    std::printf("records %ld rows-written %ld\n", counts.records, counts.rows_written);
  } else if (command == "floor-export") {
    Arguments args(argc, argv, 2, {"now", "code", "serial", "workstations"});
    bench::ExportEntry entry;
    entry.code = args.Text("code", entry.code);
    entry.serial = args.Text("serial", entry.serial);
    entry.workstations = args.Text("workstations", entry.workstations);
    bench::ExportFloorCounts counts = bench::RunExportFloor(
        args[0], args[1], bench::Clock::Parse(args.Text("now", kDefaultNow)), entry);
    std::printf("lines %ld marked %ld\n", counts.lines, counts.marked);
  } else if (command == "to-server") {
    Arguments args(argc, argv, 2, {});
    std::printf("rows %ld\n", bench::CopyToServer(args[0], args[1]));
  } else if (command == "--help" || command == "-h") {
    std::fputs(kUsage, stdout);
  } else {
    throw UsageError("unknown command " + command);
  }
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  try {
    return Run(argc, argv);
  } catch (const UsageError& error) {
    std::fprintf(stderr, "lumaro-bench: %s\n\n%s", error.what(), kUsage);
    return 2;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "lumaro-bench: %s\n", error.what());
    return 1;
  }
}
