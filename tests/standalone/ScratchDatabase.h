#ifndef LUMARO_TESTS_STANDALONE_SCRATCH_DATABASE_H_
#define LUMARO_TESTS_STANDALONE_SCRATCH_DATABASE_H_

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>

#include "connector/host/Date.h"
#include "standalone/sqlite/SqliteDatabase.h"
#include "tests/host/HostTestTools.h"
#include "tests/support/TestHost.h"

namespace standalone {

using host::RaisedError;
using host::RaisedNumber;

// A new, empty SQLite database (no POS schema) in its own temporary folder,
// for tests that make the tables they need.
class ScratchDatabase : public ::testing::Test {
 protected:
  void SetUp() override {
    db_ = SqliteDatabase::Open(folder_.File("scratch.db"),
                               SqliteDatabase::OpenMode::kCreateIfMissing);
  }
  void TearDown() override { host::SetClockOverride(std::nullopt); }

  // The first column of every row of a query, as text, joined with ",".
  std::string Rows(const std::string& sql) { return testsupport::Rows(*db_, sql); }

  testsupport::TempFolder folder_;
  std::unique_ptr<SqliteDatabase> db_;
};

}  // namespace standalone

#endif  // LUMARO_TESTS_STANDALONE_SCRATCH_DATABASE_H_
