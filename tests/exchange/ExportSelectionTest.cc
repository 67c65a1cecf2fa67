// What an export selects and marks, and so what the next run leaves out:
// customers, sales and receipts, across entries and runs.

#include <gtest/gtest.h>

#include "tests/exchange/ExportSeed.h"

namespace {

using exportseed::Entry;
using exportseed::ExportBench;
using exportseed::kToday;
using exportseed::Receipt;
using exportseed::Sale;

constexpr char kFirst[] = "ETpv 02 0000001.txt";

TEST(ExportSelection, CustomerGoesOutOnceForEachSaleUntilMarked) {
  ExportBench bench;
  bench.Store({Entry{}});
  bench.AddCustomer(5, "C005");  // known to the back office
  bench.AddCustomer(6);
  bench.AddSale({.number = 1, .party = 5});
  bench.AddSale({.number = 2, .party = 6});
  bench.AddSale({.number = 3, .party = 6});
  bench.connector.ExportData();

  // The join gives customer 6 once for each of its sales.
  auto customers = bench.Tagged(kFirst, "CL");
  ASSERT_EQ(customers.size(), 2u);
  EXPECT_EQ(customers[0].at(2), "6");
  EXPECT_EQ(customers[1].at(2), "6");
  EXPECT_EQ(bench.Tagged(kFirst, "FC").at(0).at(6), "5");
  EXPECT_EQ(bench.Scalar("SELECT group_concat(CustomerKey) FROM (SELECT CustomerKey FROM Customer "
                         "ORDER BY CustomerID)"),
            "C005,Exported");

  // Marked: a later sale of the customer does not send it again.
  bench.AddSale({.number = 4, .party = 6});
  bench.connector.ExportData();
  EXPECT_EQ(bench.Tags("ETpv 02 0000002.txt"), "HF FC FP FL");
}

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

TEST(ExportSelection, ReceiptHeadNamesTheFirstTenderAndLinesCarryTheSign) {
  ExportBench bench;
  bench.Store({Entry{}});
  bench.AddReceipt({.number = 1}, {{10, 5}, {1, 7}});
  bench.AddReceipt({.number = 2, .document = "TDV"}, {{1, -4}});
  bench.connector.ExportData();

  // In document order: the refund (TDV) before the receipt (TRC).
  EXPECT_EQ(bench.Tags(kFirst), "HF TC TL TC TL TL");
  auto heads = bench.Tagged(kFirst, "TC");
  EXPECT_EQ(heads.at(0).at(7), "300");
  EXPECT_EQ(heads.at(1).at(7), "309");  // till 3, tender 10: the first line's only
  auto lines = bench.Tagged(kFirst, "TL");
  // A refund: the sign goes in the letter, the amount stays absolute.
  EXPECT_EQ(lines.at(0).at(5), "D");
  EXPECT_EQ(lines.at(0).at(6), "4");
  EXPECT_EQ(lines.at(1).at(5), "C");
  EXPECT_EQ(lines.at(2).at(5), "C");
  EXPECT_EQ(bench.Mark("TenderTransaction", 1), kToday);
  EXPECT_EQ(bench.Mark("TenderTransaction", 2), kToday);
}

// The customer level's lookup stores its key where the salesman's lookup
// reads: within a run, salesman 7 takes the key of level 7 once a customer
// of level 7 went out.
TEST(ExportSelection, CustomerLevelKeyShadowsTheSalesmanOfTheSameId) {
  ExportBench bench;
  bench.Store({Entry{}});
  bench.Exec(
      "INSERT INTO CustomerGroups (GroupID, GroupKey) VALUES (7, 'GRP7');"
      "INSERT INTO Salesman (SalesmanID, SalesmanKey) VALUES (7, 'V7');");
  bench.AddCustomer(8, "", /*level=*/7, /*salesman=*/7);
  bench.AddSale({.number = 1, .party = 8, .salesman = 7});
  bench.connector.ExportData();

  auto customer = bench.Tagged(kFirst, "CL").at(0);
  EXPECT_EQ(customer.at(15), "GRP7");
  EXPECT_EQ(customer.at(21), "GRP7");
  EXPECT_EQ(bench.Tagged(kFirst, "FC").at(0).at(10), "GRP7");

  // A run that writes no customer finds the salesman's own key.
  bench.AddSale({.number = 2, .party = 8, .salesman = 7});
  bench.connector.ExportData();
  EXPECT_EQ(bench.Tagged("ETpv 02 0000002.txt", "FC").at(0).at(10), "V7");
}

}  // namespace
