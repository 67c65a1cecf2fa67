// What an export costs the database. Once the first document has filled
// the run's key caches, each further cash document costs the same: the
// document reader's load, the tender query, the line query and the mark,
// and one tax-rate query for each line. Statement texts differ only in
// their values, so each is prepared once a run.

#include <gtest/gtest.h>

#include "tests/exchange/ExportSeed.h"

namespace {

struct RunCost {
  int64_t statements = 0;  // statements the export ran
  int64_t prepared = 0;    // statements SQLite compiled for it
};

// The cost of one export of `documents` cash sales of `lines` lines each,
// all with the same salesman, carrier, user, currency and item.
RunCost CostOfExport(int documents, int lines) {
  exportseed::ExportBench bench;
  bench.Store({exportseed::Entry{}});
  for (int n = 1; n <= documents; ++n) bench.AddSale({.number = n, .lines = lines});
  standalone::SqliteDatabase& db = bench.test_host.Db();
  RunCost cost;
  db.SetStatementObserver([&cost](std::string_view) { ++cost.statements; });
  const int64_t prepared_before = db.Stats().prepared;
  bench.connector.ExportData();
  db.SetStatementObserver(nullptr);
  cost.prepared = db.Stats().prepared - prepared_before;

  auto records = bench.Records("ETpv 02 0000001.txt");
  EXPECT_EQ(records.size(), 1u + static_cast<size_t>(documents) * (2 + lines));
  return cost;
}

TEST(ExportStatements, EachFurtherDocumentCostsFourStatementsAndOneForEachLine) {
  for (int lines : {1, 3}) {
    const RunCost warm = CostOfExport(1, lines);
    for (int documents : {4, 9}) {
      SCOPED_TRACE(testing::Message() << documents << " documents of " << lines << " lines");
      const RunCost cost = CostOfExport(documents, lines);
      EXPECT_EQ(cost.statements, warm.statements + (documents - 1) * (4 + lines));
      EXPECT_EQ(cost.prepared, warm.prepared);
    }
  }
}

}  // namespace
