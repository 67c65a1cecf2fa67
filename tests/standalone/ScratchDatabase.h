#ifndef LUMARO_TESTS_STANDALONE_SCRATCH_DATABASE_H_
#define LUMARO_TESTS_STANDALONE_SCRATCH_DATABASE_H_

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "connector/host/Date.h"
#include "connector/host/Error.h"
#include "connector/host/FieldConverter.h"
#include "standalone/sqlite/SqliteDatabase.h"
#include "tests/support/TestHost.h"

namespace standalone {

// The error that `action` raises, as "NUMBER: DESCRIPTION"; "" when none.
inline std::string RaisedError(const std::function<void()>& action) {
  try {
    action();
  } catch (const host::Error& error) {
    return std::to_string(error.Number()) + ": " + error.Description();
  }
  return "";
}

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
  std::string Rows(const std::string& sql) {
    host::RecordsetPtr rs = db_->OpenRecordset(sql);
    std::string rows;
    for (; !rs->Eof(); rs->MoveNext()) {
      if (!rows.empty()) rows += ",";
      rows += host::FieldConverter::ToText(rs->Fields(0));
    }
    return rows;
  }

  testsupport::TempFolder folder_;
  std::unique_ptr<SqliteDatabase> db_;
};

}  // namespace standalone

#endif  // LUMARO_TESTS_STANDALONE_SCRATCH_DATABASE_H_
