#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "connector/host/Date.h"
#include "connector/host/SqlStatement.h"
#include "standalone/sql/SqlDialect.h"
#include "tests/standalone/ScratchDatabase.h"

namespace standalone {
namespace {

// Items 1 and 3 belong to the families named 'Old', 2 and 4 to 'Keep';
// item 5 has no family.
class SqlDialect : public ScratchDatabase {
 protected:
  void SetUp() override {
    ScratchDatabase::SetUp();
    db_->ExecuteScript(
        "CREATE TABLE Family (FamilyID INTEGER, Name VARCHAR(50));"
        "INSERT INTO Family VALUES (1, 'Old'), (2, 'Keep'), (3, 'Old');"
        "CREATE TABLE Item (ItemID INTEGER, Description VARCHAR(50), FamilyID INTEGER);"
        "INSERT INTO Item VALUES (1, 'Conceição', 1), (2, 'Beta', 2), (3, 'Gamma', 3),"
        " (4, 'Delta', 2), (5, 'Orphan', 9);"
        // An index that covers the id: the planner reads it in key order.
        "CREATE TABLE Zone (ZoneID INTEGER PRIMARY KEY, ZoneKey VARCHAR(10), Name TEXT);"
        "CREATE INDEX Zone_Key ON Zone (ZoneKey);"
        "INSERT INTO Zone VALUES (1, 'z', 'Norte'), (2, 'a', 'Sul');");
  }

  // Runs `sql` in a transaction that is rolled back afterwards, and gives
  // the rows of `check` (of `sql` itself when `check` is empty).
  std::string RunAndRollBack(const std::string& sql, const std::string& check) {
    db_->BeginTrans();
    if (!check.empty()) db_->OpenRecordset(sql);
    std::string rows = Rows(check.empty() ? sql : check);
    db_->RollbackTrans();
    return rows;
  }
};

TEST_F(SqlDialect, ServerFormsRunOnSqlite) {
  const std::string kItems = "SELECT ItemID FROM Item ORDER BY ItemID";
  const std::string kCounts = "SELECT COUNT(*) FROM Item UNION ALL SELECT COUNT(*) FROM Family";
  struct Case {
    std::string sql, check, rows;
  };
  const Case cases[] = {
      {"SELECT TOP 2 ItemID FROM Item ORDER BY ItemID DESC", "", "5,4"},
      // The first by the table's key, not by the index the planner takes.
      {"Select TOP 1 ZoneID FROM [Zone]", "", "1"},
      {"SELECT TOP 1 ZoneID FROM Zone WHERE ZoneID > 0", "", "1"},
      {"SELECT DISTINCT TOP (2) FamilyID FROM Item ORDER BY FamilyID;", "", "1,2"},
      {"SELECT ItemID FROM Item WHERE FamilyID IN (SELECT TOP 1 FamilyID FROM Family "
       "ORDER BY FamilyID DESC) ORDER BY ItemID",
       "", "3"},
      {"SELECT Len(Description) FROM Item WHERE ItemID IN (1, 2) ORDER BY ItemID", "", "9,4"},
      {"SELECT LEFT(Description, 7) FROM Item WHERE ItemID = 1", "", "Conceiç"},
      {"SELECT Description FROM dbo.Item WHERE dbo.Item.ItemID = 2", "", "Beta"},
      {"SELECT Description FROM [dbo].[Item] WHERE ItemID = 4", "", "Delta"},
      {"DELETE Item.* FROM Item INNER JOIN Family ON Item.FamilyID = Family.FamilyID "
       "WHERE Family.Name = 'Old'",
       kItems, "2,4,5"},
      {"DELETE FROM Item FROM Item INNER JOIN Family ON Item.FamilyID = Family.FamilyID "
       "WHERE Family.Name = 'Old'",
       kItems, "2,4,5"},
      {"DELETE i.* FROM Item AS i INNER JOIN Family AS f ON i.FamilyID = f.FamilyID "
       "WHERE f.Name = 'Old'",
       kItems, "2,4,5"},
      {"DELETE i FROM Item i INNER JOIN Family f ON i.FamilyID = f.FamilyID WHERE f.Name = 'Keep'",
       kItems, "1,3,5"},
      {"TRUNCATE TABLE [Item]", kCounts, "0,3"},
      {"truncate table dbo.Family;", kCounts, "5,0"},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(RunAndRollBack(c.sql, c.check), c.rows)
        << c.sql << "\n -> " << TranslateToSqlite(c.sql);
  }
  EXPECT_EQ(Rows(kCounts), "5,3") << "every case was rolled back";
}

TEST_F(SqlDialect, NothingInsideALiteralIsRewritten) {
  const std::string literals[] = {"TOP 1", "GetDate()", "it''s [dbo].y"};
  for (const std::string& literal : literals) {
    std::string select = "SELECT TOP 1 '" + literal + "' FROM Item WHERE Description <> '" +
                         literal + "' ORDER BY ItemID";
    std::string translated = TranslateToSqlite(select);
    EXPECT_NE(translated.find("SELECT '" + literal + "' FROM Item WHERE Description <> '" +
                              literal + "' ORDER BY ItemID LIMIT 1"),
              std::string::npos)
        << translated;
    std::string value = literal == "it''s [dbo].y" ? "it's [dbo].y" : literal;
    EXPECT_EQ(Rows(select), value);

    db_->OpenRecordset("UPDATE Item SET Description = '" + literal + "' WHERE ItemID = 5");
    EXPECT_EQ(Rows("SELECT Description FROM Item WHERE ItemID = 5"), value);
  }
  EXPECT_EQ(TranslateToSqlite("DELETE FROM Item WHERE Description = 'x FROM Item INNER JOIN y'"),
            "DELETE FROM Item WHERE Description = 'x FROM Item INNER JOIN y'");
  EXPECT_EQ(TranslateToSqlite("SELECT \"Len\" (1), [left] (2)"), "SELECT \"Len\" (1), [left] (2)");
}

TEST_F(SqlDialect, OnePassGivesWhatTranslatingThenParameterizingGives) {
  const std::string statements[] = {
      "SELECT Description FROM [dbo].[Item] WHERE ItemID = 4",
      "SELECT Description FROM \"dbo\".Item WHERE ItemID = 4",
      "SELECT Description FROM DBO.Item WHERE ItemID = 4",
      // A TOP without its ")" is left for the database to refuse, with every
      // literal in its place.
      "SELECT TOP (1 'Sem título' AS Name FROM Item WHERE ItemID = 4",
      "SELECT TOP (5",
      // Deletes: plain ones are SQLite's own, those across a join are not.
      "delete from [Item] where ItemID = 2",
      "DELETE FROM Item WHERE Description = 'x' AND ItemID IN (SELECT ItemID FROM Item "
      "WHERE ItemID > 3)",
      "DELETE Item.* FROM Item INNER JOIN Family ON Item.FamilyID = Family.FamilyID "
      "WHERE Family.Name = 'Old'",
      "DELETE FROM Item FROM Item INNER JOIN Family ON Item.FamilyID = Family.FamilyID "
      "WHERE Family.Name = 'Old'",
      "DELETE i FROM Item i INNER JOIN Family f ON i.FamilyID = f.FamilyID WHERE f.Name = 'Keep'",
      "DELETE FROM /* the items */ Item -- of old families\n FROM Item INNER JOIN Family ON "
      "Item.FamilyID = Family.FamilyID WHERE Family.Name = 'Old'",
      "/* first */ DELETE FROM Item WHERE ItemID = 3",
  };
  for (const std::string& sql : statements) {
    ParameterizedSql one_pass = PrepareForSqlite(sql);
    ParameterizedSql two_passes = Parameterize(TranslateToSqlite(sql));
    EXPECT_EQ(one_pass.text, two_passes.text) << sql;
    EXPECT_EQ(one_pass.values, two_passes.values) << sql;
  }
  EXPECT_EQ(TranslateToSqlite("SELECT TOP (1 'Sem título' AS Name FROM Item"),
            "SELECT TOP (1 'Sem título' AS Name FROM Item");
  EXPECT_EQ(TranslateToSqlite("SELECT TOP (5"), "SELECT TOP (5");
  EXPECT_EQ(Rows("SELECT Description FROM DBO.Item WHERE ItemID = 4"), "Delta");
}

TEST_F(SqlDialect, ValuesBecomeParametersAndGiveTheSameRows) {
  using Values = std::vector<ParameterizedSql::Value>;
  struct Case {
    std::string sql, text;
    Values values;
    std::string check, rows;
  };
  const Case cases[] = {
      {"SELECT ItemID FROM Item WHERE Description = 'O''Neil' OR ItemID >= 4 ORDER BY 1",
       "SELECT ItemID FROM Item WHERE Description = ? OR ItemID >= ? ORDER BY 1",
       {std::string("O'Neil"), int64_t{4}},
       "",
       "4,5"},
      {"SELECT ItemID FROM Item WHERE ItemID IN (1, 3, 5) AND FamilyID <> 2.5 LIMIT 2",
       "SELECT ItemID FROM Item WHERE ItemID IN (?, ?, ?) AND FamilyID <> ? LIMIT 2",
       {int64_t{1}, int64_t{3}, int64_t{5}, 2.5},
       "",
       "1,3"},
      {"INSERT INTO Family VALUES (7, 'N1'), (8, 'N''2')",
       "INSERT INTO Family VALUES (?, ?), (?, ?)",
       {int64_t{7}, std::string("N1"), int64_t{8}, std::string("N'2")},
       "SELECT Name FROM Family WHERE FamilyID > 6 ORDER BY 1",
       "N'2,N1"},
      {"UPDATE Item SET Description = 'x' WHERE ItemID < -1 OR ItemID = 99999999999",
       "UPDATE Item SET Description = ? WHERE ItemID < -1 OR ItemID = ?",
       {std::string("x"), int64_t{99999999999}},
       "SELECT COUNT(*) FROM Item WHERE Description = 'x'",
       "0"},
      {"CREATE TABLE Other (A VARCHAR(5) DEFAULT 'x')",
       "CREATE TABLE Other (A VARCHAR(5) DEFAULT 'x')",
       {},
       "SELECT COUNT(*) FROM Other",
       "0"},
  };
  for (const Case& c : cases) {
    ParameterizedSql parameterized = Parameterize(c.sql);
    EXPECT_EQ(parameterized.text, c.text);
    EXPECT_EQ(parameterized.values, c.values) << c.sql;
    EXPECT_EQ(RunAndRollBack(c.sql, c.check), c.rows) << c.sql;
  }
}

TEST_F(SqlDialect, StatementsThatDifferInTheirValuesArePreparedOnce) {
  Rows("SELECT Description FROM Item WHERE ItemID = 0");
  db_->OpenRecordset("INSERT INTO Family VALUES (100, 'F0')");
  const char* const kDescriptions[] = {"", "Conceição", "Beta", "Gamma", "Delta", "Orphan"};
  const SqliteDatabase::Statistics before = db_->Stats();
  for (int i = 1; i <= 5; ++i) {
    std::string n = std::to_string(i);
    EXPECT_EQ(Rows("SELECT Description FROM Item WHERE ItemID = " + n), kDescriptions[i]) << i;
    db_->OpenRecordset("INSERT INTO Family VALUES (" + std::to_string(100 + i) + ", 'F" + n + "')");
  }
  EXPECT_EQ(db_->Stats().prepared, before.prepared);
  EXPECT_EQ(db_->Stats().executed, before.executed + 10);
  EXPECT_EQ(Rows("SELECT Name FROM Family WHERE FamilyID > 100 ORDER BY FamilyID DESC LIMIT 1"),
            "F5");
}

TEST_F(SqlDialect, BoundValuesAreStoredAsTheirWrittenLiteralsWouldBe) {
  // The same values, written into the text by the statement runner and
  // bound by RunInsert and Query: every column of every table's affinity
  // must hold the same type and value either way.
  db_->ExecuteScript(
      "CREATE TABLE Written (N FLOAT, I INTEGER, T VARCHAR(20), D DATETIME, B BIT, X);"
      "CREATE TABLE Bound (N FLOAT, I INTEGER, T VARCHAR(20), D DATETIME, B BIT, X);");
  const double numbers[] = {0,
                            -0.0,
                            1,
                            -7,
                            12.34,
                            0.1 + 0.2,
                            1.0 / 3,
                            1e20,
                            123456789.125,
                            9007199254740993.0,
                            1e-7,
                            2.675,
                            -1234.5678,
                            999999999.5,
                            1e15,
                            0.000001,
                            1e300};
  const host::Date when = host::MakeDate(2026, 2, 28, 13, 5, 9);
  int row = 0;
  for (double n : numbers) {
    host::SqlStatement insert;
    insert.Number("N", n);
    insert.Number("I", n);
    insert.Text("T", row % 2 ? "O'Neil ?" : "");
    if (row % 3 == 0) {
      insert.DateTime("D", host::Date{when.serial + row});
    } else if (row % 3 == 1) {
      insert.Time("D", when);
    } else {
      insert.Null("D");
    }
    insert.Boolean("B", row % 2 == 0);
    insert.Number("X", n);
    insert.SetTable("Written");
    db_->OpenRecordset(db_->StatementRunner().InsertText(insert));
    insert.SetTable("Bound");
    db_->RunInsert(insert);
    db_->Query("UPDATE Bound SET X = ? WHERE rowid = ? AND T <> '?'",
               {host::SqlValue::Number(n), host::SqlValue::Number(++row)});
  }
  const std::string kColumns =
      " typeof(N) || quote(N) || typeof(I) || quote(I) || quote(T) || quote(D) || quote(B) || "
      "typeof(X) || quote(X) FROM ";
  EXPECT_EQ(Rows("SELECT" + kColumns + "Bound ORDER BY rowid"),
            Rows("SELECT" + kColumns + "Written ORDER BY rowid"));
  EXPECT_EQ(Rows("SELECT COUNT(*) FROM Bound"), std::to_string(row));
}

TEST_F(SqlDialect, GetDateFollowsTheHostClock) {
  db_->ExecuteScript("CREATE TABLE Stamp (At DATETIME)");
  const host::Date first = host::MakeDate(2026, 11, 23, 14, 5, 7);
  const host::Date second = host::MakeDate(2027, 1, 2, 3, 4, 5);
  host::SetClockOverride(first);
  db_->OpenRecordset("INSERT INTO Stamp (At) VALUES (GetDate())");
  host::SetClockOverride(second);
  db_->OpenRecordset("INSERT INTO Stamp (At) VALUES (GetDate())");
  EXPECT_EQ(Rows("SELECT At FROM Stamp ORDER BY At"), "23-11-2026 14:05:07,02-01-2027 03:04:05");
  EXPECT_EQ(Rows("SELECT COUNT(*) FROM Stamp WHERE At < GetDate()"), "1");
}

// PostgreSQL's text is checked as text: the server itself runs it in the
// end-to-end tests on PostgreSQL.
TEST(PostgresDialect, NamesFunctionsTopAndJoinedDeletesTakeItsForms) {
  const std::string now = "2026-11-23 14:05:07";
  EXPECT_EQ(TranslateToPostgres("SELECT TOP 1 [CustomerKey] FROM dbo.[Customer] WHERE "
                                "Len(Name) > 2 AND left(Name, 1) = '[x]' AND At < GetDate ( )",
                                now),
            "SELECT \"customerkey\" FROM \"customer\" WHERE length(Name) > 2 AND left(Name, 1) = "
            "'[x]' AND At < CAST('2026-11-23 14:05:07' AS TIMESTAMP) ORDER BY ctid LIMIT 1");
  EXPECT_EQ(TranslateToPostgres("DELETE A.* FROM A INNER JOIN B ON A.K=B.K WHERE B.X = ''", now),
            "DELETE FROM A WHERE ctid IN (SELECT A.ctid FROM A INNER JOIN B ON A.K=B.K WHERE "
            "B.X = '')");
  EXPECT_EQ(TranslateToPostgres("TRUNCATE TABLE [Bank]", now), "TRUNCATE TABLE \"bank\"");
}

TEST(PostgresDialect, TheHostsDdlTakesTypesThatHoldWhatSqlitesHold) {
  EXPECT_EQ(HostStatementForPostgres("CREATE TABLE [T] (A INTEGER NOT NULL PRIMARY KEY, B BIT, "
                                     "C DATETIME, D FLOAT, E MONEY, F BIGINT, G IMAGE, "
                                     "H VARCHAR(5) DEFAULT 'BIT')",
                                     ""),
            "CREATE TABLE \"t\" (A BIGINT NOT NULL PRIMARY KEY, B SMALLINT, C TIMESTAMP(0), "
            "D DOUBLE PRECISION, E DOUBLE PRECISION, F NUMERIC(19), G BYTEA, H VARCHAR(5) "
            "DEFAULT 'BIT')");
  // Data statements of a script go through the connector's translation.
  EXPECT_EQ(HostStatementForPostgres("INSERT INTO [T] (B, G) VALUES (1, X'89AB')", ""),
            "INSERT INTO \"t\" (B, G) VALUES (1, decode('89AB', 'hex'))");
  EXPECT_EQ(SplitScript("CREATE TABLE A (X VARCHAR(3) DEFAULT ';');\n -- done;\nINSERT INTO A "
                        "VALUES ('a;b');  "),
            (std::vector<std::string>{"CREATE TABLE A (X VARCHAR(3) DEFAULT ';')",
                                      "\n -- done;\nINSERT INTO A VALUES ('a;b')"}));
}

}  // namespace
}  // namespace standalone
