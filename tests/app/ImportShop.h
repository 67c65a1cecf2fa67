#ifndef LUMARO_TESTS_APP_IMPORT_SHOP_H_
#define LUMARO_TESTS_APP_IMPORT_SHOP_H_

// A bench for import runs through the lumaro program: a shop's folder with a
// POS database, stored settings and an exchange folder, and builders of
// import records (Windows-1252 bytes, CR LF line ends) with every field the
// import reads filled.

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/time.h>

#include <ctime>
#include <filesystem>
#include <fstream>
#include <map>
#include <string>
#include <vector>

#include "standalone/sqlite/SqliteDatabase.h"
#include "tests/app/ProgramRunner.h"
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

inline std::string Join(const std::vector<std::string>& fields) {
  std::string line = fields[0];
  for (size_t i = 1; i < fields.size(); ++i) line += "^" + fields[i];
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
inline std::string Lines(std::initializer_list<std::string> lines) {
  std::string bytes;
  for (const auto& line : lines) bytes += line + "\r\n";
  return bytes;
}

using Settings = std::map<std::string, std::string>;

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

  testsupport::ProgramResult Lumaro(std::vector<std::string> args) {
    std::vector<std::string> database = pos_.Args();
    args.insert(args.begin(), database.begin(), database.end());
    return RunLumaro(folder_.Path(), args);
  }
  testsupport::ProgramResult Import(const std::string& now = kNow,
                                    const std::string& workstation = "1") {
    return Lumaro({"--quiet", "--workstation", workstation, "--now", now, "import"});
  }
  std::string Exchange() const { return folder_.File("exchange"); }
  std::string Database() const { return folder_.File("pos.db"); }
  std::string InExchange(const std::string& name) const { return Exchange() + "/" + name; }

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

  void Seed(const std::string& sql) { Open()->ExecuteScript(sql); }
  std::string Query(const std::string& sql) { return testsupport::Rows(*Open(), sql); }
  std::string Salesmen() { return Query("SELECT SalesmanKey FROM Salesman ORDER BY SalesmanKey"); }
  std::string LoggedFiles() {
    return Query("SELECT Filename FROM LumaroLog ORDER BY WorkstationID, Filename");
  }
  // The log rows whole: workstation|file|import date|size|file date.
  std::string LogRows() {
    return Query(
        "SELECT WorkstationID || '|' || Filename || '|' || ImportDate || '|' || FileSize || '|' "
        "|| FileDate FROM LumaroLog ORDER BY WorkstationID, Filename");
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
  testsupport::TempFolder folder_;
  testsupport::PosUnderTest pos_{folder_.File("pos.db")};
};

}  // namespace importshop

#endif  // LUMARO_TESTS_APP_IMPORT_SHOP_H_
