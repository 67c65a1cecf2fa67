#ifndef LUMARO_TESTS_APP_LOAD_SHOP_H_
#define LUMARO_TESTS_APP_LOAD_SHOP_H_

// A bench for `lumaro initial-load` end to end: a POS database made by
// `lumaro init` (a SQLite file, or a database on the server LUMARO_TEST_ODBC
// names), the sample back office (examples/backoffice) as the file the
// settings name, and readers of what the load leaves in the POS database and
// in Migration.log. The readers show values the same way from either
// database, so a test's queries and expected rows hold for both.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <fstream>
#include <memory>
#include <optional>
#include <regex>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "connector/host/Date.h"
#include "connector/host/FieldConverter.h"
#include "standalone/sqlite/SqliteDatabase.h"
#include "tests/app/ProgramRunner.h"
#include "tests/support/PosUnderTest.h"
#include "tests/support/TestHost.h"

namespace loadshop {

inline const std::string kNow = "2026-11-23 10:00:00";

// The audit columns of a row written by statement, and what a load puts in
// them: workstation 1, session 1, user 5 and the day and time of --now. The
// run's user (1) is none of the back office's operators, so the users' step
// leaves the last one it handled (EVA, 5) as the current user.
inline const std::string kAudit = "WorkstationID, SessionID, UserAlt, DtAlt, HrAlt";
inline const std::string kAudited = "1|1|5|2026-11-23|10:00:00";

// What Migration.log holds after a load that met nothing to report.
inline const std::vector<std::string> kNoEntries;

using Changes = std::vector<std::pair<std::string, std::string>>;

// Each of `lines` followed by a line break.
inline std::string Joined(const std::vector<std::string>& lines) {
  std::string joined;
  for (const std::string& line : lines) joined += line + "\n";
  return joined;
}

// A field as the tests compare it, whichever database it comes from: NULL
// is empty, a truth value 1 or 0, a whole number its digits, another number
// as "%g" shows it (six significant digits). A date is "YYYY-MM-DD", a time
// of day (on day 0, 1899-12-30) "HH:MM:SS", one with both has both; SQLite
// keeps dates as text "YYYY-MM-DD HH:MM:SS", read the same way.
inline std::string Shown(const host::Variant& value) {
  char text[32];
  if (value.Type() == host::VariantType::kBoolean) return value.AsBoolean() ? "1" : "0";
  if (value.Type() == host::VariantType::kDouble) {
    const double number = value.AsDouble() + 0.0;  // -0 is 0
    const bool whole = number == std::nearbyint(number) && std::fabs(number) < 1e15;
    std::snprintf(text, sizeof text, whole ? "%.0f" : "%g", number);
    return text;
  }
  std::string shown = host::FieldConverter::ToText(value);
  if (value.Type() == host::VariantType::kDate) {
    host::DateParts d = host::SplitDate(value.AsDate());
    std::snprintf(text, sizeof text, "%04d-%02d-%02d %02d:%02d:%02d", d.year, d.month, d.day,
                  d.hour, d.minute, d.second);
    shown = text;
  }
  static const std::regex stored(R"(\d{4}-\d\d-\d\d \d\d:\d\d:\d\d)");
  if (!std::regex_match(shown, stored)) return shown;
  if (shown.starts_with("1899-12-30 ")) return shown.substr(11);
  return shown.ends_with(" 00:00:00") ? shown.substr(0, 10) : shown;
}

// A POS database in its own folder, the sample back office in "bo" beside
// it (or, on a test server, in a database of its own there), and the
// example settings (EMP01, 2026, till 3, delegation 1) reaching it, with
// `changes` to their attributes.
class Shop {
 public:
  explicit Shop(const Changes& changes = {}, bool store_settings = true) {
    EXPECT_EQ(Lumaro({"init"}).exit_code, 0);
    std::string source = "sqlite:bo";
    if (testsupport::PosUnderTest::OnServer()) {
      // The back office on the server too, reached as any ODBC data source.
      back_office_.emplace();
      back_office_->Open()->ExecuteScript(testsupport::ReadBytes(
          std::string(LUMARO_SOURCE_DIR) + "/examples/backoffice/backoffice.sql"));
      source = "odbc:" + back_office_->Connection();
    } else {
      auto made = testsupport::RunProgram(
          folder_.Path(), {std::string(LUMARO_SOURCE_DIR) + "/examples/backoffice/make-backoffice",
                           folder_.File("bo")});
      EXPECT_EQ(made.exit_code, 0) << made.err;
    }
    if (!store_settings) return;
    std::string xml =
        testsupport::ReadBytes(std::string(LUMARO_SOURCE_DIR) + "/examples/settings.xml");
    Changes all = {{"SQLDataSource", source}};
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
  void LoadOk() {
    auto load = Load();
    ASSERT_EQ(load.exit_code, 0) << load.out << load.err;
  }

  void Pos(const std::string& sql) { pos_.Open()->ExecuteScript(sql); }
  // Runs statements (SQLite's dialect) on the back office.
  void BackOffice(const std::string& sql) {
    if (back_office_) {
      back_office_->Open()->ExecuteScript(sql);
    } else {
      Open(folder_.File("bo/EMP012026Lumaro.db"))->ExecuteScript(sql);
    }
  }
  // Each row of a query, its columns Shown and joined by "|", one row a line.
  std::string Lines(const std::string& sql) {
    auto db = pos_.Open();
    std::string lines;
    for (auto rs = db->OpenRecordset(sql); !rs->Eof(); rs->MoveNext()) {
      for (int i = 0; i < rs->FieldCount(); ++i) lines += Shown(rs->Fields(i)) + "|";
      lines.back() = '\n';
    }
    return lines;
  }
  // Every row of each table (`tables`: names between blanks) under the
  // table's name, the rows sorted by their text: two dumps compare whatever
  // order the database gives the rows in.
  std::string Rows(const std::string& tables) {
    std::string dump;
    std::istringstream names(tables);
    for (std::string table; names >> table;) {
      std::istringstream lines(Lines("SELECT * FROM " + table));
      std::vector<std::string> rows;
      for (std::string row; std::getline(lines, row);) rows.push_back(row);
      std::sort(rows.begin(), rows.end());
      dump += table + ":\n" + Joined(rows);
    }
    return dump;
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
  std::optional<testsupport::ServerDatabase> back_office_;
};

// The fixture of tests that read what the plain shop holds after a load:
// the shop is made and loaded once for its suite, and no test writes to it.
// Every test that reads it checks that the load went well and logged
// nothing.
class LoadedShopTest : public testing::Test {
 protected:
  static Shop& Loaded() {
    if (!shop_) {
      shop_ = std::make_unique<Shop>();
      load_ = shop_->Load();
    }
    EXPECT_EQ(load_.exit_code, 0) << load_.out << load_.err;
    EXPECT_EQ(shop_->LogEntries(), kNoEntries);
    return *shop_;
  }
  static void TearDownTestSuite() { shop_.reset(); }

 private:
  static inline std::unique_ptr<Shop> shop_;
  static inline testsupport::ProgramResult load_;
};

}  // namespace loadshop

#endif  // LUMARO_TESTS_APP_LOAD_SHOP_H_
