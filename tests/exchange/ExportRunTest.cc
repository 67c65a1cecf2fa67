// The export run's driver: which entries make a file, how the file is named
// and numbered, what stops an entry, what a failure leaves behind, and what
// a run selects across entries and runs.

#include <gtest/gtest.h>

#include <filesystem>

#include "connector/host/Error.h"
#include "tests/exchange/ExportSeed.h"

namespace {

using exportseed::Entry;
using exportseed::ExportBench;
using exportseed::kToday;
using host::RaisedError;

// The first file of entry 02.
constexpr char kFirst[] = "ETpv 02 0000001.txt";

// The seven-digit name ("ETpv 02 0000042.txt") is the shop day's file; a
// longer number is not cut. Entry 01 has nothing to send: it keeps its
// number and the next goes on.
TEST(ExportRun, FileIsNamedByCodeAndANumberNeverCutAndLogged) {
  ExportBench bench;
  bench.Store({{.code = "01", .serial = "B", .last = 5}, {.last = 9999999}});
  bench.AddSale({});
  bench.connector.ExportData();

  EXPECT_EQ(bench.Files(), std::vector<std::string>{"ETpv 02 10000000.txt"});
  auto header = bench.Records("ETpv 02 10000000.txt").at(0);
  EXPECT_EQ(header.at(6), "02");
  EXPECT_EQ(header.at(7), "10000000");
  EXPECT_EQ(bench.LastNumber(1), 5);
  EXPECT_EQ(bench.LastNumber(2), 10000000);
  // The export's line in the log: this workstation, the bare name, now.
  EXPECT_EQ(bench.Scalar("SELECT WorkstationID || '|' || Filename || '|' || ImportDate "
                         "FROM LumaroLog"),
            "1|ETpv 02 10000000.txt|2026-03-14 10:00:00");
  EXPECT_TRUE(bench.test_host.UI().boxes.empty());
}

TEST(ExportRun, MissingFolderShowsOneBoxForEachActiveEntry) {
  ExportBench bench;
  std::string missing = bench.test_host.Folder().File("nowhere");
  bench.Store({{.code = "01"}, {.code = "02", .last = 3}, {.code = "03"}}, missing);
  bench.AddSale({});
  bench.connector.ExportData();

  const auto& boxes = bench.test_host.UI().boxes;
  ASSERT_EQ(boxes.size(), 3u);
  for (const auto& box : boxes) {
    EXPECT_EQ(box.text, bench.test_host.UI().Messages().Text(4140034));
    EXPECT_EQ(box.style, 64);
  }
  EXPECT_FALSE(std::filesystem::exists(missing));
  EXPECT_TRUE(bench.Files().empty());
  EXPECT_EQ(bench.LastNumber(2), 3);
  EXPECT_EQ(bench.Mark("SaleTransaction", 1), "");
}

TEST(ExportRun, ReceiptsAloneMakeAFileOfHeaderAndReceipts) {
  ExportBench bench;
  bench.Store({Entry{}});
  bench.AddReceipt({.number = 4});
  bench.connector.ExportData();

  ASSERT_EQ(bench.Files(), std::vector<std::string>{kFirst});
  EXPECT_EQ(bench.Tags(kFirst), "HF TC TL");
  // With no sale, the header has the date of the receipts.
  EXPECT_EQ(bench.Records(kFirst).at(0).at(8), "10-03-2026 11:00:00");
  EXPECT_EQ(bench.LastNumber(1), 1);
  EXPECT_EQ(bench.Mark("TenderTransaction", 4), kToday);
}

TEST(ExportRun, ReExportSelectsByCreateDateAndMovesTheMarks) {
  ExportBench bench;
  bench.Store({{.last = 4}});
  bench.AddCustomer(5, "Exported");
  bench.AddSale({.number = 1,
                 .created = "2026-03-02 09:00:00",
                 .party = 5,
                 .exported = "'2026-03-03 00:00:00'"});
  bench.AddSale(
      {.number = 2, .created = "2026-03-05 09:00:00", .exported = "'2026-03-06 00:00:00'"});
  bench.AddSale({.number = 3, .created = "2026-03-12 09:00:00"});
  bench.AddReceipt(
      {.number = 7, .created = "2026-03-04 09:00:00", .exported = "'2026-03-05 00:00:00'"});
  bench.connector.ReExport(host::MakeDate(2026, 3, 1), host::MakeDate(2026, 3, 10));

  ASSERT_EQ(bench.Files(), std::vector<std::string>{"ETpv 02 0000005.txt"});
  // A customer once marked is not sent again, not even by a re-export.
  EXPECT_EQ(bench.Tags("ETpv 02 0000005.txt"), "HF FC FP FL FC FP FL TC TL");
  auto heads = bench.Tagged("ETpv 02 0000005.txt", "FC");
  EXPECT_EQ(heads.at(0).at(3), "1");
  EXPECT_EQ(heads.at(1).at(3), "2");
  EXPECT_EQ(bench.LastNumber(1), 5);
  EXPECT_EQ(bench.Mark("SaleTransaction", 1), kToday);
  EXPECT_EQ(bench.Mark("SaleTransaction", 2), kToday);
  EXPECT_EQ(bench.Mark("SaleTransaction", 3), "");
  EXPECT_EQ(bench.Mark("TenderTransaction", 7), kToday);
  // The steps count as the shop day's file test shows; each says "n of total".
  EXPECT_EQ(bench.notifier->progress.at(0).text,
            bench.test_host.UI().Messages().Format(4140039, {host::Variant(1), host::Variant(2)}));

  // With a date missing, a re-export is an ordinary export of what is pending.
  bench.connector.ReExport(host::Date{0}, host::MakeDate(2026, 3, 10));
  bench.AddSale({.number = 4, .created = "2026-03-12 09:00:00"});
  bench.connector.ReExport(host::MakeDate(2026, 3, 1), host::Date{0});
  EXPECT_EQ(bench.Tagged("ETpv 02 0000006.txt", "FC").at(0).at(3), "3");
  EXPECT_EQ(bench.Tags("ETpv 02 0000006.txt"), "HF FC FP FL");
  EXPECT_EQ(bench.Tags("ETpv 02 0000007.txt"), "HF FC FP FL");
  EXPECT_EQ(bench.Tagged("ETpv 02 0000007.txt", "FC").at(0).at(3), "4");
}

// Entry 1 writes its file; entry 2 fails on its second document, whose type
// the workstation does not know; entry 3 is not reached.
TEST(ExportRun, FailureMidFileLeavesThePartialFileAndTheEarlierMarks) {
  ExportBench bench;
  bench.Store({{.code = "01", .last = 3},
               {.code = "02", .serial = "B", .last = 8},
               {.code = "03", .serial = "C"}});
  bench.AddSale({.number = 1});
  bench.AddSale({.number = 1, .serial = "B"});
  bench.AddSale({.number = 2, .serial = "B", .document = "TZZ"});
  bench.AddSale({.number = 1, .serial = "C"});
  host::Error error = RaisedError([&] { bench.connector.ExportData(); });
  EXPECT_EQ(error.Source(), "<ExportData>");

  EXPECT_EQ(bench.LastNumber(1), 4);
  EXPECT_EQ(bench.LastNumber(2), 8);
  EXPECT_EQ(bench.LastNumber(3), 0);
  EXPECT_EQ(bench.Files(),
            (std::vector<std::string>{"ETpv 01 0000004.txt", "ETpv 02 0000009.txt"}));
  // The failing document's head went out before its definition was needed.
  EXPECT_EQ(bench.Tags("ETpv 02 0000009.txt"), "HF FC FP FL FC");
  EXPECT_EQ(bench.Tagged("ETpv 02 0000009.txt", "FC").at(1).at(1), "TZZ");
  EXPECT_EQ(bench.Mark("SaleTransaction", 1, "C"), "");
  EXPECT_EQ(bench.Scalar("SELECT group_concat(Filename) FROM LumaroLog"), "ETpv 01 0000004.txt");

  // Every later run meets the partial file, which a person has to remove,
  // and leaves that entry as it was; the entries around it go on.
  std::string partial = testsupport::ReadBytes(bench.PathOf("ETpv 02 0000009.txt"));
  for (size_t run = 1; run <= 2; ++run) {
    bench.connector.ExportData();
    const auto& boxes = bench.test_host.UI().boxes;
    ASSERT_EQ(boxes.size(), run);
    EXPECT_EQ(boxes.back().text,
              "O ficheiro " + bench.PathOf("ETpv 02 0000009.txt") + " já existe!");
    EXPECT_EQ(boxes.back().style, 64);
    EXPECT_EQ(testsupport::ReadBytes(bench.PathOf("ETpv 02 0000009.txt")), partial);
    EXPECT_EQ(bench.LastNumber(2), 8);
    EXPECT_EQ(bench.Mark("SaleTransaction", 1, "B"), kToday);
    EXPECT_EQ(bench.Mark("SaleTransaction", 2, "B"), "");
  }
  EXPECT_EQ(bench.LastNumber(3), 1);
  EXPECT_EQ(bench.Scalar("SELECT group_concat(Filename) FROM LumaroLog"),
            "ETpv 01 0000004.txt,ETpv 03 0000001.txt");
}

// Detail is the last call before the file is made.
class FolderRemovingNotifier : public testsupport::RecordingNotifier {
 public:
  explicit FolderRemovingNotifier(std::string folder) : folder_(std::move(folder)) {}
  void Detail(std::string_view text) override {
    RecordingNotifier::Detail(text);
    std::filesystem::remove_all(folder_);
  }

 private:
  std::string folder_;
};

TEST(ExportRun, FolderThatVanishesAfterTheChecksFailsTheRun) {
  ExportBench bench;
  bench.connector.SetEventNotifier(std::make_shared<FolderRemovingNotifier>(bench.folder));
  bench.Store({Entry{}});
  bench.AddCustomer(5);
  bench.AddSale({.party = 5});
  host::Error error = RaisedError([&] { bench.connector.ExportData(); });
  EXPECT_EQ(error.Source(), "<ExportData>");
  EXPECT_EQ(error.Number(), host::err::kPathNotFound);
  EXPECT_FALSE(std::filesystem::exists(bench.folder));
  EXPECT_EQ(bench.Mark("SaleTransaction", 1), "");
  EXPECT_EQ(bench.Scalar("SELECT CustomerKey FROM Customer WHERE CustomerID=5"), "");
  EXPECT_EQ(bench.LastNumber(1), 0);
  EXPECT_EQ(bench.Scalar("SELECT COUNT(*) FROM LumaroLog"), "0");
}

TEST(ExportRun, WithoutNotifierOnlyARunWithSomethingToExportFails) {
  ExportBench bench(/*with_notifier=*/false);
  bench.Store({Entry{}});
  bench.connector.ExportData();  // nothing pending: nothing to report
  EXPECT_TRUE(bench.Files().empty());

  bench.AddSale({});
  host::Error error = RaisedError([&] { bench.connector.ExportData(); });
  EXPECT_EQ(error.Source(), "<ExportData>");
  EXPECT_EQ(bench.LastNumber(1), 0);
  EXPECT_EQ(bench.Mark("SaleTransaction", 1), "");
}

// A list as long as its 16-bit index goes ends its loop at its last entry.
TEST(ExportRun, TheLongestListOfPointsReachesItsLastEntry) {
  ExportBench bench;
  std::vector<Entry> entries(32766, Entry{.active = false});
  entries.push_back(Entry{});
  bench.Store(entries);
  bench.AddSale({});
  bench.connector.ExportData();

  EXPECT_EQ(bench.Files(), std::vector<std::string>{kFirst});
  EXPECT_EQ(bench.LastNumber(32767), 1);
}

// What an export selects and marks, and so what the next run leaves out,
// beyond what the shop day's file shows.
TEST(ExportSelection, FirstEntrysMarksHideSharedDocumentsFromTheSecond) {
  ExportBench bench;
  bench.Store({{.code = "01", .list = "1,2"}, {.code = "02", .list = "2,3"}});
  for (int ws = 1; ws <= 3; ++ws) bench.AddSale({.number = ws, .workstation = ws});
  bench.connector.ExportData();

  auto first = bench.Tagged("ETpv 01 0000001.txt", "FC");
  ASSERT_EQ(first.size(), 2u);
  EXPECT_EQ(first[0].at(3), "1");
  EXPECT_EQ(first[1].at(3), "2");
  auto second = bench.Tagged("ETpv 02 0000001.txt", "FC");
  ASSERT_EQ(second.size(), 1u);
  EXPECT_EQ(second[0].at(3), "3");
}

TEST(ExportSelection, ReceiptWithoutFirstTenderLineMakesAFileAtEveryRun) {
  ExportBench bench;
  bench.Store({Entry{}});
  bench.AddReceipt({.number = 4}, {});
  bench.AddTenderLine("A", "TRC", 4, /*order=*/2, /*tender=*/1, 5);
  for (int run = 1; run <= 3; ++run) bench.connector.ExportData();

  EXPECT_EQ(bench.Files(),
            (std::vector<std::string>{kFirst, "ETpv 02 0000002.txt", "ETpv 02 0000003.txt"}));
  for (const std::string& file : bench.Files()) EXPECT_EQ(bench.Tags(file), "HF") << file;
  EXPECT_EQ(bench.LastNumber(1), 3);
  EXPECT_EQ(bench.Mark("TenderTransaction", 4), "");
}

// The head names the tender of the first line, not the smallest tender.
TEST(ExportSelection, ReceiptHeadNamesTheTenderOfTheFirstLine) {
  ExportBench bench;
  bench.Store({Entry{}});
  bench.AddReceipt({.number = 1}, {{10, 5}, {1, 7}});
  bench.connector.ExportData();

  EXPECT_EQ(bench.Tags(kFirst), "HF TC TL TL");
  EXPECT_EQ(bench.Tagged(kFirst, "TC").at(0).at(7), "309");  // till 3, tender 10
  EXPECT_EQ(bench.Mark("TenderTransaction", 1), kToday);
}

}  // namespace
