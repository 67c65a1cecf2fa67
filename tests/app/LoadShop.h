#ifndef LUMARO_TESTS_APP_LOAD_SHOP_H_
#define LUMARO_TESTS_APP_LOAD_SHOP_H_

// A bench for `lumaro initial-load` end to end: a POS database made by
// `lumaro init`, the sample back office (examples/backoffice) as the file the
// settings name, and readers of what the load leaves in the POS database and
// in Migration.log.

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <memory>
#include <regex>
#include <string>
#include <utility>
#include <vector>

#include "connector/host/FieldConverter.h"
#include "standalone/sqlite/SqliteDatabase.h"
#include "tests/app/ProgramRunner.h"
#include "tests/support/PosUnderTest.h"
#include "tests/support/TestHost.h"

namespace loadshop {

inline const std::string kNow = "2026-11-23 10:00:00";

using Changes = std::vector<std::pair<std::string, std::string>>;

// A POS database in its own folder, the sample back office in "bo" beside
// it, and the example settings (EMP01, 2026, till 3, delegation 1) reaching
// that file, with `changes` to their attributes.
class Shop {
 public:
  explicit Shop(const Changes& changes = {}, bool store_settings = true) {
    EXPECT_EQ(Lumaro({"init"}).exit_code, 0);
    auto made = testsupport::RunProgram(
        folder_.Path(), {std::string(LUMARO_SOURCE_DIR) + "/examples/backoffice/make-backoffice",
                         folder_.File("bo")});
    EXPECT_EQ(made.exit_code, 0) << made.err;
    if (!store_settings) return;
    std::string xml =
        testsupport::ReadBytes(std::string(LUMARO_SOURCE_DIR) + "/examples/settings.xml");
    Changes all = {{"SQLDataSource", "sqlite:bo"}};
    all.insert(all.end(), changes.begin(), changes.end());
    for (const auto& [attribute, value] : all) {
      xml = std::regex_replace(xml, std::regex(" " + attribute + "=\"[^\"]*\""),
                               " " + attribute + "=\"" + value + "\"");
    }
    std::ofstream(folder_.File("settings.xml")) << xml;
    EXPECT_EQ(Lumaro({"settings", "load", "settings.xml"}).exit_code, 0);
  }

  testsupport::ProgramResult Lumaro(std::vector<std::string> args) {
    args.insert(args.begin(), {"--workstation", "1", "--now", kNow});
    std::vector<std::string> database = pos_.Args();
    args.insert(args.begin(), database.begin(), database.end());
    return testsupport::RunLumaro(folder_.Path(), args);
  }
  testsupport::ProgramResult Load() { return Lumaro({"initial-load"}); }

  void Pos(const std::string& sql) { pos_.Open()->ExecuteScript(sql); }
  void BackOffice(const std::string& sql) {
    Open(folder_.File("bo/EMP012026Lumaro.db"))->ExecuteScript(sql);
  }
  // Each row of a query, its columns as text joined by "|", one row a line.
  std::string Lines(const std::string& sql) {
    auto db = pos_.Open();
    std::string lines;
    for (auto rs = db->OpenRecordset(sql); !rs->Eof(); rs->MoveNext()) {
      for (int i = 0; i < rs->FieldCount(); ++i) {
        lines += (i == 0 ? "" : "|") + host::FieldConverter::ToText(rs->Fields(i));
      }
      lines += "\n";
    }
    return lines;
  }
  double Number(const std::string& sql) {
    auto db = pos_.Open();
    auto rs = db->OpenRecordset(sql);
    return rs->Eof() ? -1 : host::FieldConverter::ToNumber(rs->Fields(0));
  }
  // A path in the shop's folder, which is the POS's work folder.
  std::string File(const std::string& name) const { return folder_.File(name); }
  std::string Database() const { return folder_.File("vendara.db"); }
  std::string LogFile() const { return folder_.File("Migration.log"); }
  std::vector<std::string> LogEntries() const {
    std::vector<std::string> entries;
    std::string text = testsupport::FileExists(LogFile()) ? testsupport::ReadBytes(LogFile()) : "";
    for (size_t at = 0, end; at < text.size(); at = end + 1) {
      end = std::min(text.find('\n', at), text.size());
      std::string line = text.substr(at, end - at);
      if (!line.empty() && line.back() == '\r') line.pop_back();
      if (!line.empty()) entries.push_back(line);
    }
    return entries;
  }

 private:
  static std::unique_ptr<standalone::SqliteDatabase> Open(const std::string& path) {
    return standalone::SqliteDatabase::Open(path, standalone::SqliteDatabase::OpenMode::kExisting);
  }
  testsupport::TempFolder folder_;
  testsupport::PosUnderTest pos_{folder_.File("vendara.db")};
};

}  // namespace loadshop

#endif  // LUMARO_TESTS_APP_LOAD_SHOP_H_
