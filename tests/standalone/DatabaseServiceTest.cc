#include <gtest/gtest.h>
#include <signal.h>
#include <sys/resource.h>

#include <cctype>
#include <fstream>
#include <sstream>
#include <string>

#include "connector/host/Error.h"
#include "standalone/StandaloneHost.h"
#include "standalone/schema/PosDatabase.h"
#include "tests/host/RaisedNumber.h"
#include "tests/standalone/ScratchDatabase.h"

namespace standalone {
namespace {

using host::RaisedNumber;
using testing::IsSubstring;
using testsupport::FileExists;
using testsupport::ReadBytes;

// How RaisedError begins for a statement that the database refused.
std::string Refused() { return std::to_string(host::err::kSqlRefused) + ": "; }

class DatabaseTransactions : public ScratchDatabase {
 protected:
  void SetUp() override {
    ScratchDatabase::SetUp();
    db_->ExecuteScript("CREATE TABLE Tx (N INTEGER UNIQUE)");
  }
  void Insert(int n) {
    db_->OpenRecordset("INSERT INTO Tx (N) VALUES (" + std::to_string(n) + ")");
  }
  void InsertRefused(int n) {
    EXPECT_PRED_FORMAT2(testing::IsSubstring, Refused(), RaisedError([&] { Insert(n); }));
  }
  std::string Numbers() { return Rows("SELECT N FROM Tx ORDER BY N"); }
};

TEST_F(DatabaseTransactions, CommitKeepsRollbackUndoesNestingUndoesTheInnerWorkOnly) {
  // B begins, C commits, R rolls back, a number is inserted, X is an insert
  // that the database refuses.
  struct Case {
    const char* steps;
    const char* numbers;
  };
  const Case cases[] = {
      {"B 1 C", "1"},
      {"B 1 R", ""},
      {"B 1 B 2 R 3 C", "1,3"},
      {"B 1 B 2 C R", ""},
      {"B 1 B 2 C C", "1,2"},
      {"B 1 X 2 C", "1,2"},
      {"B 1 B 2 B 3 R C C", "1,2"},
  };
  for (const Case& c : cases) {
    db_->ExecuteScript("DELETE FROM Tx");
    std::istringstream steps(c.steps);
    for (std::string step; steps >> step;) {
      if (step == "B") db_->BeginTrans();
      if (step == "C") db_->CommitTrans();
      if (step == "R") db_->RollbackTrans();
      if (step == "X") InsertRefused(1);
      if (std::isdigit(step[0])) Insert(std::stoi(step));
    }
    EXPECT_EQ(Numbers(), c.numbers) << c.steps;
    EXPECT_FALSE(db_->InTransaction()) << c.steps;
  }
  EXPECT_NE(RaisedNumber([&] { db_->CommitTrans(); }), 0);
  EXPECT_NE(RaisedNumber([&] { db_->RollbackTrans(); }), 0);
  Insert(7);
  EXPECT_EQ(Numbers(), "1,2,7") << "the database stays usable";
}

TEST_F(DatabaseTransactions, RefusedStatementsRaiseWithTheDatabaseMessage) {
  Insert(1);
  const std::string cases[][2] = {
      {"SELECT Missing FROM Tx", "no such column: Missing"},
      {"SELEC N FROM Tx", "near \"SELEC\": syntax error"},
      {"INSERT INTO Tx (N) VALUES (1)", "UNIQUE constraint failed: Tx.N"},
      {"INSERT INTO Nowhere (N) VALUES (1)", "no such table: Nowhere"},
  };
  for (const auto& [sql, message] : cases) {
    EXPECT_PRED_FORMAT2(IsSubstring, Refused() + message,
                        RaisedError([&] { db_->OpenRecordset(sql); }));
    Insert(2);  // the same statement shape as the refused insert
    EXPECT_EQ(Numbers(), "1,2") << "after " << sql;
    db_->ExecuteScript("DELETE FROM Tx WHERE N = 2");
  }
  db_->Disconnect();
  EXPECT_EQ(RaisedNumber([&] { Numbers(); }), host::err::kOperationNotAllowedWhenClosed);
}

TEST_F(DatabaseTransactions, SchemaServiceFindsAndAppendsTables) {
  host::SchemaService& schema = db_->Schema();
  EXPECT_TRUE(schema.TableExists("tx"));
  EXPECT_FALSE(schema.TableExists("Notes"));
  EXPECT_FALSE(schema.TableExists("O'Neil"));

  using Type = host::TableDefinition::ColumnType;
  schema.AppendTable({"Notes",
                      {{"Id", Type::kInteger},
                       {"Body", Type::kText, 50},
                       {"At", Type::kDate},
                       {"Flag", Type::kBoolean},
                       {"Free", Type::kText}},
                      {{"IX_Notes_Body", {"Body", "Id"}}}});
  EXPECT_TRUE(schema.TableExists("NOTES"));
  EXPECT_EQ(Rows("SELECT name FROM sqlite_master WHERE type = 'index' AND tbl_name = 'Notes'"),
            "IX_Notes_Body");

  std::string cedillas;
  for (int i = 0; i < 50; ++i) cedillas += "ç";
  const std::pair<std::string, bool> cases[] = {{std::string(50, 'x'), true},
                                                {std::string(51, 'x'), false},
                                                {cedillas, true},
                                                {std::string(49, 'x') + "çç", false}};
  for (const auto& [body, taken] : cases) {
    int32_t raised = RaisedNumber([&] {
      db_->OpenRecordset("INSERT INTO Notes (Id, Body, At, Flag, Free) VALUES (1, '" + body +
                         "', '2026-11-23 00:00:00', 1, '" + std::string(300, 'y') + "')");
    });
    EXPECT_EQ(raised, taken ? 0 : host::err::kSqlRefused) << body;
  }
  host::RecordsetPtr rs = db_->OpenRecordset("SELECT * FROM Notes");
  EXPECT_EQ(rs->RecordCount(), 2);
  EXPECT_EQ(rs->Fields("At").Type(), host::VariantType::kDate);
  EXPECT_EQ(rs->Fields("Flag"), host::Variant(true));
}

// Opening databases, well and badly.
class DatabaseOpening : public ::testing::Test {
 protected:
  static std::string OpenError(const std::string& path, bool as_pos_database) {
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

TEST_F(DatabaseOpening, BadPlacesAreRefusedAndLeftAsTheyWere) {
  const std::string text_file = folder_.File("notes.txt");
  std::ofstream(text_file, std::ios::binary) << std::string(4000, 'x') << "\r\n";
  const std::string text_bytes = ReadBytes(text_file);
  EXPECT_PRED_FORMAT2(IsSubstring, "not a SQLite database", OpenError(text_file, false));
  EXPECT_NE(OpenError(text_file, true), "");
  EXPECT_EQ(ReadBytes(text_file), text_bytes);
  EXPECT_FALSE(FileExists(text_file + "-journal"));

  const std::string in_missing_folder = folder_.File("missing/vendara.db");
  EXPECT_NE(OpenError(in_missing_folder, false), "");
  EXPECT_NE(OpenError(in_missing_folder, true), "");
  EXPECT_FALSE(FileExists(in_missing_folder));
  EXPECT_NE(OpenError(folder_.Path(), true), "") << "a folder is no database";
  EXPECT_EQ(RaisedNumber([&] {
              SqliteDatabase::Open(folder_.File("absent.db"), SqliteDatabase::OpenMode::kExisting);
            }),
            host::err::kFileNotFound);
  EXPECT_FALSE(FileExists(folder_.File("absent.db")));
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
  const std::string error = OpenError(path, true);
  ::setrlimit(RLIMIT_FSIZE, &old_limit);
  ::signal(SIGXFSZ, old_handler);
  EXPECT_PRED_FORMAT2(IsSubstring, Refused(), error);
  EXPECT_PRED_FORMAT2(IsSubstring, "disk", error);  // "disk I/O error", "disk is full"
  EXPECT_FALSE(FileExists(path));
  EXPECT_FALSE(FileExists(path + "-journal"));
}

TEST_F(DatabaseOpening, AForeignDatabaseIsRefusedAndAPosDatabaseOpensTwice) {
  const std::string foreign = folder_.File("foreign.db");
  SqliteDatabase::Open(foreign, SqliteDatabase::OpenMode::kCreateIfMissing)
      ->ExecuteScript("CREATE TABLE Ledger (N INTEGER); INSERT INTO Ledger VALUES (1);");
  const std::string foreign_bytes = ReadBytes(foreign);
  EXPECT_PRED_FORMAT2(IsSubstring, "not a POS database", OpenError(foreign, true));
  EXPECT_EQ(ReadBytes(foreign), foreign_bytes);

  const std::string pos = folder_.File("vendara.db");
  OpenPosDatabase(pos)->ExecuteScript("INSERT INTO HostContext VALUES ('Mark', 'kept')");
  const std::string pos_bytes = ReadBytes(pos);
  auto db = OpenPosDatabase(pos);
  EXPECT_GT(PosSchemaVersionOf(*db), 0);
  EXPECT_EQ(db->OpenRecordset("SELECT ContextValue FROM HostContext")->Fields(0),
            host::Variant("kept"));
  db.reset();
  EXPECT_EQ(ReadBytes(pos), pos_bytes) << "the second open changed the file";
}

}  // namespace
}  // namespace standalone
