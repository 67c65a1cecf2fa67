#include <gtest/gtest.h>
#include <signal.h>
#include <sys/resource.h>

#include <cctype>
#include <fstream>
#include <sstream>
#include <string>

#include "connector/host/Error.h"
#include "standalone/schema/PosDatabase.h"
#include "tests/standalone/ScratchDatabase.h"

namespace standalone {
namespace {

using host::err::kSqlRefused;
using testing::IsSubstring;
using testsupport::FileExists;
using testsupport::ReadBytes;

class DatabaseTransactions : public ScratchDatabase {
 protected:
  void SetUp() override {
    ScratchDatabase::SetUp();
    db_->ExecuteScript("CREATE TABLE Tx (N INTEGER UNIQUE)");
  }
  void Insert(int n) {
    db_->OpenRecordset("INSERT INTO Tx (N) VALUES (" + std::to_string(n) + ")");
  }
  std::string Numbers() { return Rows("SELECT N FROM Tx ORDER BY N"); }
};

TEST_F(DatabaseTransactions, CommitKeepsRollbackUndoesNestingUndoesTheInnerWorkOnly) {
  // B begins, C commits, R rolls back, a number is inserted, X is an insert
  // that the database refuses.
  const std::pair<const char*, const char*> cases[] = {
      {"B 1 C", "1"},      {"B 1 R", ""},        {"B 1 B 2 R 3 C", "1,3"},
      {"B 1 B 2 C R", ""}, {"B 1 X 2 C", "1,2"}, {"B 1 B 2 B 3 R C C", "1,2"},
  };
  for (const auto& [steps, numbers] : cases) {
    db_->ExecuteScript("DELETE FROM Tx");
    std::istringstream in(steps);
    for (std::string step; in >> step;) {
      if (step == "B") db_->BeginTrans();
      if (step == "C") db_->CommitTrans();
      if (step == "R") db_->RollbackTrans();
      if (step == "X") {
        EXPECT_EQ(RaisedNumber([&] { Insert(1); }), kSqlRefused);
      }
      if (std::isdigit(step[0])) Insert(std::stoi(step));
    }
    EXPECT_EQ(Numbers(), numbers) << steps;
    EXPECT_FALSE(db_->InTransaction()) << steps;
  }
  EXPECT_NE(RaisedNumber([&] { db_->CommitTrans(); }), 0);
  EXPECT_NE(RaisedNumber([&] { db_->RollbackTrans(); }), 0);
  Insert(7);
  EXPECT_EQ(Numbers(), "1,2,7") << "the database stays usable";
}

TEST_F(DatabaseTransactions, RefusedStatementsRaiseWithTheDatabaseMessage) {
  Insert(1);
  const std::string cases[][2] = {
      {"SELEC N FROM Tx", "near \"SELEC\": syntax error"},
      {"INSERT INTO Tx (N) VALUES (1)", "UNIQUE constraint failed: Tx.N"},
      {"INSERT INTO Nowhere (N) VALUES (1)", "no such table: Nowhere"},
  };
  for (const auto& [sql, message] : cases) {
    const host::Error error = RaisedError([&] { db_->OpenRecordset(sql); });
    EXPECT_EQ(error.Number(), kSqlRefused) << sql;
    EXPECT_PRED_FORMAT2(IsSubstring, message, error.Description());
  }
  Insert(2);  // the same statement shape as the refused insert
  EXPECT_EQ(Numbers(), "1,2");
  db_->Disconnect();
  EXPECT_EQ(RaisedNumber([&] { Numbers(); }), host::err::kOperationNotAllowedWhenClosed);
}

// The log store's tests show the table and index that AppendTable makes.
TEST_F(DatabaseTransactions, SchemaServiceFindsTablesAndLimitsTextInCharacters) {
  host::SchemaService& schema = db_->Schema();
  EXPECT_TRUE(schema.TableExists("tx"));
  EXPECT_FALSE(schema.TableExists("O'Neil"));
  using Type = host::TableDefinition::ColumnType;
  schema.AppendTable({"Notes", {{"Body", Type::kText, 50}, {"Flag", Type::kBoolean}}, {}});
  EXPECT_TRUE(schema.TableExists("NOTES"));

  std::string cedillas;
  for (int i = 0; i < 50; ++i) cedillas += "ç";
  for (const auto& [body, refused] :
       {std::pair{cedillas, 0}, {std::string(51, 'x'), kSqlRefused}}) {
    EXPECT_EQ(RaisedNumber([&] {
                db_->OpenRecordset("INSERT INTO Notes (Body, Flag) VALUES ('" + body + "', 1)");
              }),
              refused);
  }
  EXPECT_EQ(Rows("SELECT Flag FROM Notes"), "True");
}

TEST_F(DatabaseTransactions, AStatementRunAgainAfterTheSchemaChangedHasTheNewColumns) {
  db_->ExecuteScript("CREATE TABLE Wide (A INTEGER, B INTEGER); INSERT INTO Wide VALUES (1, 2)");
  const std::string kAll = "SELECT * FROM Wide";
  EXPECT_EQ(db_->OpenRecordset(kAll)->FieldCount(), 2);
  db_->ExecuteScript("ALTER TABLE Wide DROP COLUMN B");
  host::RecordsetPtr rs = db_->OpenRecordset(kAll);
  EXPECT_EQ(rs->FieldCount(), 1);
  EXPECT_FALSE(rs->HasField("B"));
}

// Opening databases, well and badly.
class DatabaseOpening : public ::testing::Test {
 protected:
  static host::Error OpenError(const std::string& path, bool as_pos_database) {
    return RaisedError([&] {
      if (as_pos_database) {
        OpenPosDatabase(path);
      } else {
        SqliteDatabase::Open(path, SqliteDatabase::OpenMode::kCreateIfMissing);
      }
    });
  }

  testsupport::TempFolder folder_;
};

TEST_F(DatabaseOpening, BadPlacesAreRefusedAndLeftAsTheyWereAndAPosDatabaseOpensTwice) {
  const std::string text_file = folder_.File("notes.txt");
  std::ofstream(text_file, std::ios::binary) << std::string(4000, 'x') << "\r\n";
  const std::string foreign = folder_.File("foreign.db");
  SqliteDatabase::Open(foreign, SqliteDatabase::OpenMode::kCreateIfMissing)
      ->ExecuteScript("CREATE TABLE Ledger (N INTEGER); INSERT INTO Ledger VALUES (1);");
  const std::string text_bytes = ReadBytes(text_file), foreign_bytes = ReadBytes(foreign);
  EXPECT_PRED_FORMAT2(IsSubstring, "not a SQLite database",
                      OpenError(text_file, false).Description());
  EXPECT_PRED_FORMAT2(IsSubstring, "not a POS database", OpenError(foreign, true).Description());
  OpenError(text_file, true);
  OpenError(folder_.File("missing/vendara.db"), true);
  OpenError(folder_.Path(), true);  // a folder is no database
  EXPECT_EQ(RaisedNumber([&] {
              SqliteDatabase::Open(folder_.File("absent.db"), SqliteDatabase::OpenMode::kExisting);
            }),
            host::err::kFileNotFound);
  EXPECT_EQ(ReadBytes(text_file), text_bytes);
  EXPECT_EQ(ReadBytes(foreign), foreign_bytes);
  EXPECT_FALSE(FileExists(text_file + "-journal"));
  EXPECT_FALSE(FileExists(folder_.File("missing/vendara.db")));
  EXPECT_FALSE(FileExists(folder_.File("absent.db")));

  const std::string pos = folder_.File("vendara.db");
  OpenPosDatabase(pos)->ExecuteScript("INSERT INTO HostContext VALUES ('Mark', 'kept')");
  const std::string pos_bytes = ReadBytes(pos);
  EXPECT_EQ(testsupport::Rows(*OpenPosDatabase(pos), "SELECT ContextValue FROM HostContext"),
            "kept");
  EXPECT_EQ(ReadBytes(pos), pos_bytes) << "the second open changed the file";
}

TEST_F(DatabaseOpening, ACreateThatFailsHalfwayLeavesNoFileAndTellsWhy) {
  // The file can be made, but a file size limit (which binds root too) stops
  // the schema from being written. The error must be the database's own,
  // not one raised while cleaning up.
  const std::string path = folder_.File("vendara.db");
  struct rlimit old_limit;
  ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &old_limit), 0);
  struct rlimit small = old_limit;
  small.rlim_cur = 64 * 1024;
  auto old_handler = ::signal(SIGXFSZ, SIG_IGN);
  ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &small), 0);
  const host::Error error = OpenError(path, true);
  ::setrlimit(RLIMIT_FSIZE, &old_limit);
  ::signal(SIGXFSZ, old_handler);
  EXPECT_EQ(error.Number(), kSqlRefused);
  // "disk I/O error" or "database or disk is full"
  EXPECT_PRED_FORMAT2(IsSubstring, "disk", error.Description());
  EXPECT_FALSE(FileExists(path));
  EXPECT_FALSE(FileExists(path + "-journal"));
}

}  // namespace
}  // namespace standalone
