// The export file of one shop day, byte for byte against a file written by
// hand, and the marks, number and log line that the export leaves behind.
// The shop day is tests/data/export/pos-seed.sql; its comments say which row
// shows what.

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <memory>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "connector/LumaroConnector.h"
#include "connector/LumaroConnectorSetting.h"
#include "connector/host/Ansi.h"
#include "connector/host/Date.h"
#include "connector/host/FieldConverter.h"
#include "connector/host/Text.h"
#include "tests/support/TestHost.h"

namespace lumaro {
namespace {

using testsupport::ReadBytes;

constexpr char kFileName[] = "ETpv 02 0000042.txt";
constexpr int32_t kExportingMessage = 4140044;

std::string TestData(const std::string& name) {
  return std::string(LUMARO_TEST_DATA_DIR) + "/export/" + name;
}

// The lines of a Windows-1252 file, decoded, without their CR LF.
std::vector<std::string> DecodedLines(const std::string& bytes) {
  std::vector<std::string> lines = host::Split(bytes, "\r\n");
  for (std::string& line : lines) line = host::FromAnsi(line);
  return lines;
}

class ExportFileFormat : public testing::Test {
 protected:
  void SetUp() override {
    test_host_.Exec(ReadBytes(TestData("pos-seed.sql")));
    ASSERT_TRUE(connector_.LoadDefaults(ReadBytes(TestData("settings.xml"))));
    // The stored "exchange" is relative to where the program runs; the test
    // writes into its own folder instead.
    exchange_folder_ = test_host_.Folder().File("exchange");
    std::filesystem::create_directory(exchange_folder_);
    LumaroConnectorSetting setting;
    ASSERT_TRUE(test_host_.Host().Settings().Load(setting));
    setting.ImportExportPath = exchange_folder_;
    test_host_.Host().Settings().Save(setting);

    host::SetClockOverride(host::MakeDate(2026, 11, 23, 9, 30, 0));
    connector_.SetEventNotifier(notifier_);
  }

  std::string ExportedFile() const { return exchange_folder_ + "/" + kFileName; }

  // AccountingExportDate of a document of series A, read as a date.
  host::Date MarkOf(const std::string& table, const std::string& document, int number) {
    const std::string sql = "SELECT AccountingExportDate FROM " + table +
                            " WHERE TransSerial='A' AND TransDocument='" + document +
                            "' AND TransDocNumber=" + std::to_string(number);
    auto rs = test_host_.Db().OpenRecordset(sql);
    EXPECT_FALSE(rs->Eof()) << sql;
    return rs->Eof() ? host::Date{} : host::FieldConverter::ToDate(rs->Fields(0));
  }

  // The stored settings' entry at `index`.
  Workstation StoredEntry(int index) {
    LumaroConnectorSetting setting;
    EXPECT_TRUE(test_host_.Host().Settings().Load(setting));
    return setting.Workstation(index);
  }

  testsupport::TestHost test_host_;
  LumaroConnector connector_{test_host_.Host()};
  std::shared_ptr<testsupport::RecordingNotifier> notifier_ =
      std::make_shared<testsupport::RecordingNotifier>();
  std::string exchange_folder_;
};

TEST_F(ExportFileFormat, WritesTheShopDayAsTheBackOfficeReadsItAndMarksWhatItWrote) {
  connector_.ExportData();

  ASSERT_TRUE(testsupport::FileExists(ExportedFile()));
  const std::string expected = ReadBytes(TestData(kFileName));
  const std::string written = ReadBytes(ExportedFile());
  if (written != expected) {
    std::vector<std::string> want = DecodedLines(expected);
    std::vector<std::string> got = DecodedLines(written);
    size_t line = 0;
    while (line < want.size() && line < got.size() && want[line] == got[line]) ++line;
    ADD_FAILURE() << "first difference at line " << line + 1
                  << "\n  expected: " << (line < want.size() ? want[line] : "<end of file>")
                  << "\n  written:  " << (line < got.size() ? got[line] : "<end of file>");
  }

  EXPECT_EQ(notifier_->details,
            std::vector<std::string>{test_host_.UI().Messages().Text(kExportingMessage) + " (" +
                                     kFileName + ")"});
  // Three customer rows (1002 twice), six sales, two receipts. The count runs
  // on from the customers through the sales, past the sales' total.
  std::vector<std::pair<int32_t, int32_t>> steps;
  for (const auto& step : notifier_->progress) steps.emplace_back(step.current, step.total);
  const std::vector<std::pair<int32_t, int32_t>> expected_steps = {
      {1, 3}, {2, 3}, {3, 3}, {4, 6}, {5, 6}, {6, 6}, {7, 6}, {8, 6}, {9, 6}, {1, 2}, {2, 2}};
  EXPECT_EQ(steps, expected_steps);
  EXPECT_TRUE(test_host_.UI().boxes.empty());

  const std::tuple<const char*, const char*, int> exported[] = {
      {"SaleTransaction", "TGT", 1},   {"SaleTransaction", "TVD", 1},
      {"SaleTransaction", "TVD", 2},   {"SaleTransaction", "TVD", 3},
      {"SaleTransaction", "TVD", 4},   {"SaleTransaction", "TVD", 10},
      {"TenderTransaction", "REC", 1}, {"TenderTransaction", "DEV", 1}};
  for (const auto& [table, document, number] : exported) {
    EXPECT_EQ(MarkOf(table, document, number), host::MakeDate(2026, 11, 23))
        << table << " " << document << " " << number;
  }
  // Outside the selection: workstation 3, series B, exported before.
  EXPECT_EQ(test_host_.Scalar("SELECT COUNT(*) FROM SaleTransaction WHERE "
                              "AccountingExportDate IS NULL AND (WorkstationID=3 OR "
                              "TransSerial='B')"),
            "2");
  EXPECT_EQ(MarkOf("SaleTransaction", "TVD", 7), host::MakeDate(2026, 11, 20));
  EXPECT_EQ(test_host_.Scalar("SELECT COUNT(*) FROM TenderTransaction WHERE "
                              "AccountingExportDate IS NULL AND WorkstationID=3"),
            "1");
  for (const auto& [id, key] : {std::pair{"1001", "Exported"}, std::pair{"1002", "Exported"},
                                std::pair{"1003", "C0042"}, std::pair{"1004", ""}}) {
    EXPECT_EQ(
        test_host_.Scalar(std::string("SELECT CustomerKey FROM Customer WHERE CustomerID=") + id),
        key)
        << "customer " << id;
  }

  EXPECT_EQ(StoredEntry(1).LastExportNumber, 42);
  EXPECT_EQ(StoredEntry(2).LastExportNumber, 7);  // inactive: untouched
  EXPECT_EQ(test_host_.Rows("SELECT WorkstationID || '|' || Filename || '|' || ImportDate "
                            "FROM LumaroLog"),
            std::string("1|") + kFileName + "|2026-11-23 09:30:00");
}

TEST_F(ExportFileFormat, SecondRunFindsNothingAndKeepsTheNumber) {
  connector_.ExportData();
  const std::string first_file = ReadBytes(ExportedFile());
  host::SetClockOverride(host::MakeDate(2026, 11, 24, 9, 0, 0));

  connector_.ExportData();

  std::vector<std::string> files;
  for (const auto& entry : std::filesystem::directory_iterator(exchange_folder_)) {
    files.push_back(entry.path().filename().string());
  }
  EXPECT_EQ(files, std::vector<std::string>{kFileName});
  EXPECT_EQ(ReadBytes(ExportedFile()), first_file);
  EXPECT_EQ(StoredEntry(1).LastExportNumber, 42);
  EXPECT_EQ(test_host_.Scalar("SELECT COUNT(*) FROM LumaroLog"), "1");
  EXPECT_EQ(notifier_->details.size(), 1u);
  EXPECT_TRUE(test_host_.UI().boxes.empty());
}

}  // namespace
}  // namespace lumaro
