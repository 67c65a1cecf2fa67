// A table's change counter must move with every way its rows can change
// inside a transaction: a cache trusted past one of them gives stale rows.

#include <gtest/gtest.h>

#include <optional>
#include <string>

#include "tests/standalone/ScratchDatabase.h"

namespace standalone {
namespace {

class ChangeCounter : public ScratchDatabase {
 protected:
  void SetUp() override {
    ScratchDatabase::SetUp();
    db_->ExecuteScript(
        "CREATE TABLE Kept (Id INTEGER, V INTEGER); INSERT INTO Kept VALUES (1, 1), (2, 2);"
        "CREATE TABLE Other (Id INTEGER);");
    db_->BeginTrans();
  }
  void TearDown() override {
    if (db_->InTransaction()) db_->RollbackTrans();
    ScratchDatabase::TearDown();
  }

  // Whether `sql`, run through OpenRecordset, moved the counter of Kept.
  bool Moves(const std::string& sql) {
    std::optional<int64_t> before = db_->ChangeCounter("Kept");
    db_->OpenRecordset(sql);
    return db_->ChangeCounter("Kept") != before;
  }
};

TEST_F(ChangeCounter, MovesWithTheTableAndNotWithAnother) {
  EXPECT_FALSE(Moves("INSERT INTO Other VALUES (1)"));
  EXPECT_FALSE(Moves("SELECT * FROM Kept"));
  EXPECT_TRUE(Moves("UPDATE Kept SET V = 3 WHERE Id = 1"));
  // Names are matched as SQL matches them, without regard to case.
  std::optional<int64_t> before = db_->ChangeCounter("kept");
  db_->OpenRecordset("DELETE FROM KEPT WHERE Id = 2");
  EXPECT_NE(db_->ChangeCounter("KEPT"), before);
}

TEST_F(ChangeCounter, MovesWithWhatTheRowHookDoesNotSee) {
  EXPECT_TRUE(Moves("DELETE FROM Kept"));  // emptied at once
  EXPECT_TRUE(Moves("UPDATE Other SET Id = 2; DROP TABLE Kept; CREATE TABLE Kept (Id INTEGER)"));
  EXPECT_TRUE(Moves("SAVEPOINT p"));
  EXPECT_TRUE(Moves("INSERT INTO Kept VALUES (5)"));
  EXPECT_TRUE(Moves("ROLLBACK TO p"));  // the row is gone again
}

TEST_F(ChangeCounter, NoneOutsideATransaction) {
  EXPECT_TRUE(db_->ChangeCounter("Kept").has_value());
  db_->CommitTrans();
  EXPECT_FALSE(db_->ChangeCounter("Kept").has_value());
}

}  // namespace
}  // namespace standalone
