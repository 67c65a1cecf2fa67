#ifndef LUMARO_TESTS_APP_IMPORT_SHOP_H_
#define LUMARO_TESTS_APP_IMPORT_SHOP_H_

// A bench for import runs through the lumaro program: a shop's folder with a
// POS database (see PosUnderTest), stored settings and an exchange folder;
// builders of import records (Windows-1252 bytes, CR LF line ends) with every
// field the import reads filled; and the POS database's rows read back as
// text that is the same whichever database holds them.

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/time.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <string>
#include <vector>

#include "connector/host/Date.h"
#include "connector/host/FieldConverter.h"
#include "connector/host/Text.h"
#include "connector/host/Variant.h"
#include "standalone/schema/PosSchemaModel.h"
#include "tests/app/ProgramRunner.h"
#include "tests/app/ReportSchema.h"
#include "tests/support/PosUnderTest.h"
#include "tests/support/TestHost.h"

namespace importshop {

using testsupport::RunLumaro;

inline const std::string kNow = "2026-03-14 10:00:00";
inline const std::string kHeader = "HF^4^1^EMP01^2026";

// The fields of a record: `leading` from position 0 on, then empty ones up
// to `count` fields.
inline std::vector<std::string> Fields(size_t count, std::initializer_list<std::string> leading) {
  std::vector<std::string> fields(leading);
  fields.resize(count);
  return fields;
}

inline std::string Join(const std::vector<std::string>& fields, const std::string& between = "^") {
  std::string line;
  for (size_t i = 0; i < fields.size(); ++i) line += (i ? between : "") + fields[i];
  return line;
}

inline std::string Vn(const std::string& code, const std::string& name,
                      const std::string& remarks = "") {
  auto f = Fields(14, {"VN", code, name});
  f[13] = remarks;
  return Join(f);
}

inline std::string Cl(const std::string& number, const std::string& zone = "",
                      const std::string& group = "", const std::string& salesman = "",
                      const std::string& discount = "0", const std::string& inactive = "0") {
  auto f = Fields(24, {"CL", number, "Cliente " + number});
  f[6] = zone, f[11] = group, f[14] = salesman, f[16] = discount;
  f[20] = "C", f[21] = inactive, f[23] = "0";
  return Join(f);
}

inline std::string Fa(const std::string& key, const std::string& level1,
                      const std::string& level2) {
  auto f = Fields(10, {"FA", key, level1, level2});
  f[7] = "Familia " + key;
  return Join(f);
}

inline std::string Ar(const std::string& key, const std::string& family1 = "",
                      const std::string& family2 = "", const std::string& tip_val = "0",
                      const std::string& from = "01-01-2026",
                      const std::string& to = "31-12-2026") {
  auto f = Fields(25, {"AR", key, key, "Artigo " + key, "A", "", family1, family2});
  f[11] = "2", f[12] = "UN", f[13] = "UN", f[14] = "1", f[15] = "0";
  f[16] = tip_val, f[17] = from, f[18] = to, f[20] = "0", f[24] = "0";
  return Join(f);
}

inline std::string Ap(const std::string& item, const std::string& line, const std::string& price) {
  auto f = Fields(9, {"AP", item, line, price});
  f[8] = "0";
  return Join(f);
}

// The lines of a file, each ended by CR LF.
inline std::string Lines(const std::vector<std::string>& lines) {
  std::string bytes;
  for (const auto& line : lines) bytes += line + "\r\n";
  return bytes;
}

// A field as SQLite's || writes it, whichever database holds it: a date as
// "YYYY-MM-DD HH:MM:SS", a truth value as 1 or 0, a whole number without a
// point unless its column keeps floating values (`real`: "25.0"), other
// numbers with 15 significant digits, NULL as `null`.
inline std::string FieldText(const host::Variant& value, bool real, const std::string& null) {
  char text[32];
  if (value.IsNull() || value.IsEmpty()) return null;
  if (value.Type() == host::VariantType::kBoolean) return value.AsBoolean() ? "1" : "0";
  if (value.Type() == host::VariantType::kDate) {
    host::DateParts d = host::SplitDate(value.AsDate());
    std::snprintf(text, sizeof text, "%04d-%02d-%02d %02d:%02d:%02d", d.year, d.month, d.day,
                  d.hour, d.minute, d.second);
    return text;
  }
  if (value.Type() != host::VariantType::kDouble) return host::FieldConverter::ToText(value);
  double number = value.AsDouble();
  bool whole = number == std::floor(number) && std::fabs(number) < 1e15;
  std::snprintf(text, sizeof text, whole ? (real ? "%.1f" : "%.0f") : "%.15g", number);
  return text;
}

// Whether a column of the POS schema keeps floating values (FLOAT, REAL).
inline bool RealColumn(const std::string& table, const std::string& column) {
  for (const auto& declared : standalone::PosColumnDeclarations(table)) {
    if (host::UCase(declared.name) != host::UCase(column)) continue;
    std::string type = host::UCase(declared.type);
    return type.find("REAL") != std::string::npos || type.find("FLOA") != std::string::npos ||
           type.find("DOUB") != std::string::npos;
  }
  return false;
}

// The POS database as a run report names it: the SQLite file's path, or on
// a server the connection string of the test's database, its password (if
// any) shown as "***" and each part ended by ";".
inline std::string ReportedDatabase(standalone::PosEngine& db, const std::string& file) {
  if (!testsupport::PosUnderTest::OnServer()) return file;
  std::string name = testsupport::Rows(db, "SELECT current_database()");
  std::string connection =
      std::regex_replace(std::getenv("LUMARO_TEST_ODBC"),
                         std::regex("Database=[^;]*", std::regex::icase), "Database=" + name);
  connection = std::regex_replace(
      connection, std::regex("(^|;)(pwd|password)=[^;]*", std::regex::icase), "$1$2=***");
  return connection.ends_with(";") ? connection : connection + ";";
}

// ExpectReportHead for the POS database `db`, whose file on SQLite is
// `file`. On a server the report's connection string is checked here, and
// ExpectReportHead, which takes the database for a file, then sees the file.
inline void ExpectHead(testsupport::ReportedRun& run, standalone::PosEngine& db,
                       const std::string& file, const std::vector<std::string>& command,
                       int exit_code, const std::string& outcome, bool dry_run = false) {
  if (testsupport::PosUnderTest::OnServer()) {
    EXPECT_EQ(run.report["database"], ReportedDatabase(db, file));
    run.report["database"] = file;
  }
  testsupport::ExpectReportHead(run, command, exit_code, outcome, file, dry_run);
}

using Settings = std::map<std::string, std::string>;

// One entry of an error file: the run's date, the refused line and why.
struct ErrorEntry {
  std::string date, line, error;
};

// A shop's folder: a POS database with the settings stored, and an exchange
// folder. `settings` overrides attributes of the settings document.
class ImportShop {
 public:
  explicit ImportShop(const Settings& settings = {}, bool make_exchange = true) {
    Settings attributes = {{"ImportExportPath", Exchange()}, {"InitializeFamilyLevel", "3"}};
    for (const char* name : {"InitializeCustomerGroup", "InitializeZone", "InitializeSalesman",
                             "InitializeFamily", "InitializePriceLine"}) {
      attributes[name] = "";
    }
    attributes["LastImportNumber"] = "0";
    attributes["Active"] = "1";
    for (const auto& [name, value] : settings) attributes[name] = value;
    std::string xml =
        "<LumaroConnectorSetting LumaroDelegationID=\"1\" TillID=\"3\" SQLCompanyID=\"EMP01\" "
        "SQLCompanyYear=\"2026\"";
    for (const auto& [name, value] : attributes) {
      if (name != "Active") xml += " " + name + "=\"" + value + "\"";
    }
    xml +=
        "><Workstations><Workstation LumaroWorkstationID=\"02\" TransSerial=\"A\" "
        "WorkstationList=\"1,2\" LastExportNumber=\"0\" Active=\"" +
        attributes["Active"] + "\"/></Workstations></LumaroConnectorSetting>\n";
    std::ofstream(folder_.File("settings.xml")) << xml;
    EXPECT_EQ(Lumaro({"settings", "load", "settings.xml"}).exit_code, 0);
    if (make_exchange) ::mkdir(Exchange().c_str(), 0755);
  }

  testsupport::ProgramResult Lumaro(const std::vector<std::string>& args) {
    return RunLumaro(folder_.Path(), OnDatabase(args));
  }
  testsupport::ProgramResult Import(const std::string& now = kNow,
                                    const std::string& workstation = "1") {
    return Lumaro({"--quiet", "--workstation", workstation, "--now", now, "import"});
  }
  // A run at kNow with --report (see RunReported); ExpectHead checks its report's head.
  testsupport::ReportedRun Reported(std::vector<std::string> args) {
    args.insert(args.begin(), {"--now", kNow});
    return testsupport::RunReported(folder_.Path(), OnDatabase(args));
  }
  void ExpectHead(testsupport::ReportedRun& run, const std::vector<std::string>& command,
                  int exit_code, const std::string& outcome, bool dry_run = false) {
    importshop::ExpectHead(run, *Open(), Database(), command, exit_code, outcome, dry_run);
  }

  std::string Exchange() const { return folder_.File("exchange"); }
  std::string Database() const { return folder_.File("pos.db"); }
  std::string InExchange(const std::string& name) const { return Exchange() + "/" + name; }
  std::vector<std::string> ExchangeFiles() const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(Exchange())) {
      names.push_back(entry.path().filename().string());
    }
    std::sort(names.begin(), names.end());
    return names;
  }

  // Writes an import file; its last-modified time is set to `modified`
  // (local time) when given.
  void Write(const std::string& name, const std::string& bytes, const std::string& modified = "") {
    std::ofstream(InExchange(name), std::ios::binary) << bytes;
    if (!modified.empty()) Touch(name, modified);
  }
  void Touch(const std::string& name, const std::string& local_time) {
    std::tm tm{};
    ASSERT_NE(::strptime(local_time.c_str(), "%Y-%m-%d %H:%M:%S", &tm), nullptr);
    tm.tm_isdst = -1;
    timeval times[2] = {{std::mktime(&tm), 0}, {std::mktime(&tm), 0}};
    ASSERT_EQ(::utimes(InExchange(name).c_str(), times), 0);
  }
  long Size(const std::string& name) const {
    return static_cast<long>(std::filesystem::file_size(InExchange(name)));
  }

  // The entries of the error file of import file `name`, each three lines
  // (CR LF): the date, "Linha: " and the line, " Erro: " and why.
  std::vector<ErrorEntry> ErrorEntries(const std::string& name) {
    std::string bytes = testsupport::ReadBytes(InExchange("Erros de importação de " + name));
    std::vector<std::string> lines;
    for (size_t at = 0, end; at < bytes.size(); at = end + 2) {
      end = bytes.find("\r\n", at);
      EXPECT_NE(end, std::string::npos) << "no CR LF at the end: " << bytes;
      if (end == std::string::npos) end = bytes.size();
      lines.push_back(bytes.substr(at, end - at));
    }
    EXPECT_EQ(lines.size() % 3, 0u) << bytes;
    std::vector<ErrorEntry> entries;
    for (size_t i = 0; i + 2 < lines.size(); i += 3) {
      EXPECT_TRUE(lines[i + 1].starts_with("Linha: ")) << bytes;
      EXPECT_TRUE(lines[i + 2].starts_with(" Erro: ") && lines[i + 2].size() > 7) << bytes;
      entries.push_back({lines[i], lines[i + 1].substr(7), lines[i + 2]});
    }
    return entries;
  }

  void Seed(const std::string& sql) { Open()->ExecuteScript(sql); }
  // The first column of each row, as the host reads it, "," between rows.
  std::string Query(const std::string& sql) { return testsupport::Rows(*Open(), sql); }
  // The rows of "SELECT … FROM `from`" as `shape` with each {Column} (or
  // {Column:time}, its last 8 characters) replaced by the column's
  // FieldText, "," between the rows. `from` begins with a POS table's name.
  std::string Rows(const std::string& shape, const std::string& from,
                   const std::string& null = "NULL") {
    static const std::regex kColumn("\\{(\\w+)(:time)?\\}");
    std::vector<std::smatch> found;
    std::vector<std::string> columns;
    for (std::sregex_iterator it(shape.begin(), shape.end(), kColumn), end; it != end; ++it) {
      found.push_back(*it);
      columns.push_back((*it)[1]);
    }
    const std::string table = from.substr(0, from.find(' '));
    std::string rows;
    auto db = Open();
    for (auto rs = db->OpenRecordset("SELECT " + Join(columns, ", ") + " FROM " + from); !rs->Eof();
         rs->MoveNext()) {
      std::string row;
      size_t at = 0;
      for (size_t i = 0; i < found.size(); ++i) {
        std::string text =
            FieldText(rs->Fields(static_cast<int>(i)), RealColumn(table, columns[i]), null);
        if (found[i][2].matched && text.size() > 8) text = text.substr(text.size() - 8);
        row += shape.substr(at, found[i].position() - at) + text;
        at = found[i].position() + found[i].length();
      }
      rows += (rows.empty() ? "" : ",") + row + shape.substr(at);
    }
    return rows;
  }
  // The `columns` ("A,B,…") of each row, "|" between them.
  std::string Select(const std::string& columns, const std::string& from,
                     const std::string& null = "NULL") {
    return Rows("{" + std::regex_replace(columns, std::regex(","), "}|{") + "}", from, null);
  }
  // Every column of every row of `table` (text quoted), the rows sorted.
  std::string Dump(const std::string& table, const std::string& where = "1 = 1") {
    std::vector<std::string> rows;
    auto db = Open();
    for (auto rs = db->OpenRecordset("SELECT * FROM " + table + " WHERE " + where); !rs->Eof();
         rs->MoveNext()) {
      std::string row;
      for (int i = 0; i < rs->FieldCount(); ++i) {
        const host::Variant& value = rs->Fields(i);
        std::string text = FieldText(value, RealColumn(table, rs->FieldName(i)), "NULL");
        row +=
            (i ? "|" : "") + (value.Type() == host::VariantType::kString ? "'" + text + "'" : text);
      }
      rows.push_back(row);
    }
    std::sort(rows.begin(), rows.end());
    return table + ": " + Join(rows, "\n  ") + "\n";
  }

  std::string Salesmen() { return Query("SELECT SalesmanKey FROM Salesman ORDER BY SalesmanKey"); }
  std::string LoggedFiles() {
    return Query("SELECT Filename FROM LumaroLog ORDER BY WorkstationID, Filename");
  }
  // The log rows whole: workstation|file|import date|size|file date.
  std::string LogRows() {
    return Select("WorkstationID,Filename,ImportDate,FileSize,FileDate",
                  "LumaroLog ORDER BY WorkstationID, Filename");
  }
  std::string LastImportNumber() {
    std::string shown = Lumaro({"settings", "show"}).out;
    size_t at = shown.find("LastImportNumber=\"");
    if (at == std::string::npos) return "(missing)";
    at += 18;
    return shown.substr(at, shown.find('"', at) - at);
  }

 private:
  std::unique_ptr<standalone::PosEngine> Open() { return pos_.Open(); }
  std::vector<std::string> OnDatabase(const std::vector<std::string>& args) const {
    std::vector<std::string> all = pos_.Args();
    all.insert(all.end(), args.begin(), args.end());
    return all;
  }
  testsupport::TempFolder folder_;
  testsupport::PosUnderTest pos_{folder_.File("pos.db")};
};

}  // namespace importshop

#endif  // LUMARO_TESTS_APP_IMPORT_SHOP_H_
