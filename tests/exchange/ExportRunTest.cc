// The export run's driver: which entries make a file, how the file is named
// and numbered, what stops an entry, and what a failure leaves behind.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "connector/host/Error.h"
#include "tests/exchange/ExportSeed.h"

namespace {

using exportseed::Entry;
using exportseed::ExportBench;
using exportseed::kToday;
using exportseed::RaisedError;
using exportseed::Receipt;
using exportseed::Sale;

TEST(ExportRun, FileIsNamedByCodeAndPaddedNumberAndLogged) {
  struct Case {
    int32_t last;
    const char* file;
    const char* number_text;
  };
  for (const Case& c :
       {Case{41, "ETpv 02 0000042.txt", "42"}, Case{9999999, "ETpv 02 10000000.txt", "10000000"}}) {
    SCOPED_TRACE(c.file);
    ExportBench bench;
    bench.Store({{.last = c.last}});
    bench.AddSale({});
    bench.connector.ExportData();

    EXPECT_EQ(bench.Files(), std::vector<std::string>{c.file});
    auto header = bench.Records(c.file).at(0);
    EXPECT_EQ(header.at(6), "02");
    EXPECT_EQ(header.at(7), c.number_text);
    EXPECT_EQ(bench.LastNumber(1), c.last + 1);
    // The export's line in the log: this workstation, the bare name, now.
    EXPECT_EQ(bench.Scalar("SELECT WorkstationID || '|' || Filename || '|' || ImportDate "
                           "FROM LumaroLog"),
              std::string("1|") + c.file + "|2026-03-14 10:00:00");
    EXPECT_TRUE(bench.test_host.UI().boxes.empty());
  }
}

TEST(ExportRun, EntryWithoutDataKeepsItsNumberAndTheNextGoesOn) {
  ExportBench bench;
  bench.Store({{.code = "01", .serial = "B", .last = 5}, {.code = "02", .last = 7}});
  bench.AddSale({});
  bench.connector.ExportData();

  EXPECT_EQ(bench.Files(), std::vector<std::string>{"ETpv 02 0000008.txt"});
  EXPECT_EQ(bench.LastNumber(1), 5);
  EXPECT_EQ(bench.LastNumber(2), 8);
  EXPECT_TRUE(bench.test_host.UI().boxes.empty());
}

TEST(ExportRun, NoActiveEntryWritesShowsAndSavesNothing) {
  ExportBench bench;
  bench.Store({{.active = false}, {.code = "03", .active = false}});
  bench.AddSale({});
  // A comment that a save of the settings would not write back.
  bench.Exec("UPDATE ConnectorSettings SET XMLSettings = XMLSettings || '<!-- as stored -->'");
  std::optional<std::string> before = bench.StoredSettings();
  bench.connector.ExportData();

  EXPECT_TRUE(bench.Files().empty());
  EXPECT_TRUE(bench.test_host.UI().boxes.empty());
  EXPECT_TRUE(bench.notifier->details.empty());
  EXPECT_EQ(bench.StoredSettings(), before);
  EXPECT_EQ(bench.Mark("SaleTransaction", 1), "");
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

TEST(ExportRun, ExistingFileStopsTheEntryAtEveryRun) {
  ExportBench bench;
  bench.Store({Entry{}});
  bench.AddSale({});
  std::string path = bench.PathOf("ETpv 02 0000001.txt");
  std::ofstream(path) << "written by hand";

  for (int run = 1; run <= 2; ++run) {
    SCOPED_TRACE(run);
    bench.connector.ExportData();
    const auto& boxes = bench.test_host.UI().boxes;
    ASSERT_EQ(boxes.size(), static_cast<size_t>(run));
    EXPECT_EQ(boxes.back().text, "O ficheiro " + path + " já existe!");
    EXPECT_EQ(boxes.back().style, 64);
    EXPECT_EQ(testsupport::ReadBytes(path), "written by hand");
    EXPECT_EQ(bench.LastNumber(1), 0);
    EXPECT_EQ(bench.Mark("SaleTransaction", 1), "");
    EXPECT_EQ(bench.LogRows(), 0);
  }
}

TEST(ExportRun, ReceiptsAloneMakeAFileOfHeaderAndReceipts) {
  ExportBench bench;
  bench.Store({Entry{}});
  bench.AddReceipt({.number = 4});
  bench.connector.ExportData();

  ASSERT_EQ(bench.Files(), std::vector<std::string>{"ETpv 02 0000001.txt"});
  EXPECT_EQ(bench.Tags("ETpv 02 0000001.txt"), "HF TC TL");
  // With no sale, the header has the date of the receipts.
  EXPECT_EQ(bench.Records("ETpv 02 0000001.txt").at(0).at(8), "10-03-2026 11:00:00");
  EXPECT_EQ(bench.LastNumber(1), 1);
  EXPECT_EQ(bench.Mark("TenderTransaction", 4), kToday);
}

TEST(ExportRun, ReExportWithADateMissingIsAnOrdinaryExport) {
  for (auto [initial, final] : {std::pair{0.0, 46100.0}, std::pair{46000.0, 0.0}}) {
    SCOPED_TRACE(initial);
    ExportBench bench;
    bench.Store({Entry{}});
    bench.AddSale({.number = 1, .exported = "'2026-03-11 00:00:00'"});
    bench.AddSale({.number = 2});
    bench.connector.ReExport(host::Date{initial}, host::Date{final});

    auto heads = bench.Tagged("ETpv 02 0000001.txt", "FC");
    ASSERT_EQ(heads.size(), 1u);
    EXPECT_EQ(heads[0].at(3), "2");
    EXPECT_EQ(bench.Mark("SaleTransaction", 1), "11-03-2026");
    EXPECT_EQ(bench.Mark("SaleTransaction", 2), kToday);
  }
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
}

TEST(ExportRun, NotifierGetsTheFileAndACounterThatRunsOnIntoTheSales) {
  ExportBench bench;
  bench.Store({Entry{}});
  bench.AddCustomer(5);
  bench.AddCustomer(6);
  bench.AddSale({.number = 1, .party = 5});
  bench.AddSale({.number = 2, .party = 6});
  bench.AddSale({.number = 3});
  bench.AddSale({.number = 4});
  bench.AddReceipt({.number = 9});
  bench.connector.ExportData();

  const auto& messages = bench.test_host.UI().Messages();
  EXPECT_EQ(bench.notifier->details,
            std::vector<std::string>{messages.Text(4140044) + " (ETpv 02 0000001.txt)"});
  // Customers 1..2 of 2, the sales on from there against their own total
  // of 4, the receipts from 1 again.
  std::vector<std::pair<int, int>> expected = {{1, 2}, {2, 2}, {3, 4}, {4, 4},
                                               {5, 4}, {6, 4}, {1, 1}};
  const auto& progress = bench.notifier->progress;
  ASSERT_EQ(progress.size(), expected.size());
  for (size_t i = 0; i < expected.size(); ++i) {
    EXPECT_EQ(progress[i].current, expected[i].first) << i;
    EXPECT_EQ(progress[i].total, expected[i].second) << i;
    EXPECT_EQ(progress[i].text, messages.Format(4140039, {host::Variant(expected[i].first),
                                                          host::Variant(expected[i].second)}));
  }
}

TEST(ExportRun, BadWorkstationListFailsBeforeAnyFile) {
  for (const char* list : {"1,,2", "1;2"}) {
    SCOPED_TRACE(list);
    ExportBench bench;
    bench.Store({{.list = list, .last = 2}});
    bench.AddSale({});
    host::Error error = RaisedError([&] { bench.connector.ExportData(); });
    EXPECT_EQ(error.Source(), "<ExportData>");
    EXPECT_EQ(error.Number(), host::err::kSqlRefused);
    EXPECT_TRUE(bench.Files().empty());
    EXPECT_EQ(bench.LastNumber(1), 2);
    EXPECT_EQ(bench.LogRows(), 0);
  }
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
  EXPECT_EQ(bench.Mark("SaleTransaction", 1, "B"), kToday);
  EXPECT_EQ(bench.Mark("SaleTransaction", 2, "B"), "");
  EXPECT_EQ(bench.Mark("SaleTransaction", 1, "C"), "");
  EXPECT_EQ(bench.Scalar("SELECT group_concat(Filename) FROM LumaroLog"), "ETpv 01 0000004.txt");

  // The next run meets the partial file, which a person has to remove; the
  // entries around it go on.
  std::string partial = testsupport::ReadBytes(bench.PathOf("ETpv 02 0000009.txt"));
  bench.connector.ExportData();
  ASSERT_EQ(bench.test_host.UI().boxes.size(), 1u);
  EXPECT_EQ(bench.test_host.UI().boxes[0].text,
            "O ficheiro " + bench.PathOf("ETpv 02 0000009.txt") + " já existe!");
  EXPECT_EQ(testsupport::ReadBytes(bench.PathOf("ETpv 02 0000009.txt")), partial);
  EXPECT_EQ(bench.LastNumber(2), 8);
  EXPECT_EQ(bench.LastNumber(3), 1);
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
  EXPECT_EQ(bench.LogRows(), 0);
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

}  // namespace
