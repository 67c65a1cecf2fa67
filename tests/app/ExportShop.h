#ifndef LUMARO_TESTS_APP_EXPORT_SHOP_H_
#define LUMARO_TESTS_APP_EXPORT_SHOP_H_

// The shop of the export tests (tests/data/export): a POS database with the
// export settings (point 02, series A, POS workstations 1 and 2, last file
// 41, active; point 05, series B, workstations 1 and 3, last file 7, not
// active) and the seeded shop day, and an empty exchange folder "exchange",
// relative as the settings give it. lumaro runs in the shop's folder with
// the clock at kExportNow.

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "standalone/sqlite/SqliteDatabase.h"
#include "tests/app/ProgramRunner.h"
#include "tests/app/ReportSchema.h"
#include "tests/support/PosUnderTest.h"
#include "tests/support/TestHost.h"

namespace testsupport {

inline const std::string kExportData = std::string(LUMARO_TEST_DATA_DIR) + "/export";
inline const std::string kExportNow = "2026-11-23 09:30:00";

inline std::string ExportSettings() { return ReadBytes(kExportData + "/settings.xml"); }

class ExportShop {
 public:
  explicit ExportShop(const std::string& settings_xml = ExportSettings()) {
    EXPECT_EQ(Lumaro({"init"}).exit_code, 0);
    std::ofstream(folder_.File("settings.xml")) << settings_xml;
    EXPECT_EQ(Lumaro({"settings", "load", "settings.xml"}).exit_code, 0);
    ::mkdir(Exchange().c_str(), 0755);
    Open()->ExecuteScript(ReadBytes(kExportData + "/pos-seed.sql"));
  }

  ProgramResult Lumaro(std::vector<std::string> args, const std::string& now = kExportNow) {
    args.insert(args.begin(), {"--now", now});
    std::vector<std::string> database = pos_.Args();
    args.insert(args.begin(), database.begin(), database.end());
    return RunLumaro(folder_.Path(), args);
  }
  // A new connection to the shop's POS database.
  std::unique_ptr<standalone::PosEngine> Open() const { return pos_.Open(); }
  // A run with --report (see RunReported).
  ReportedRun Reported(std::vector<std::string> args) {
    args.insert(args.begin(), {"--now", kExportNow});
    std::vector<std::string> database = pos_.Args();
    args.insert(args.begin(), database.begin(), database.end());
    return RunReported(folder_.Path(), args);
  }

  const std::string& Path() const { return folder_.Path(); }
  std::string Database() const { return folder_.File("vendara.db"); }
  std::string Exchange() const { return folder_.File("exchange"); }
  std::string InExchange(const std::string& name) const { return Exchange() + "/" + name; }
  size_t ExchangeFileCount() const {
    size_t count = 0;
    for (std::filesystem::directory_iterator it(Exchange()), end; it != end; ++it) ++count;
    return count;
  }
  // The stored settings' number of point 02's last file.
  std::string LastExportNumber() {
    std::string shown = Lumaro({"settings", "show"}).out;
    const std::string attribute = "LastExportNumber=\"";
    size_t at = shown.find(attribute);
    if (at == std::string::npos) return "(missing)";
    at += attribute.size();
    return shown.substr(at, shown.find('"', at) - at);
  }

 private:
  TempFolder folder_;
  PosUnderTest pos_{folder_.File("vendara.db")};
};

}  // namespace testsupport

#endif  // LUMARO_TESTS_APP_EXPORT_SHOP_H_
