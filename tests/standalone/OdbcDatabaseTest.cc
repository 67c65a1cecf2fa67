// The database service over ODBC, against a SQLite file through the SQLite
// ODBC driver: the kinds of the fields, text as UTF-8, NULL, failures with
// the driver's word, transactions, and a closed connection.

#include <gtest/gtest.h>

#include "connector/host/Conversions.h"
#include "connector/host/Error.h"
#include "standalone/odbc/OdbcDatabase.h"
#include "standalone/sqlite/SqliteDatabase.h"
#include "tests/host/HostTestTools.h"
#include "tests/support/TestHost.h"

namespace standalone {
namespace {

class OdbcDatabaseTest : public ::testing::Test {
 protected:
  OdbcDatabaseTest() {
    SqliteDatabase::Open(File(), SqliteDatabase::OpenMode::kCreateIfMissing)
        ->ExecuteScript(
            "CREATE TABLE Moeda (CMoe VARCHAR(5) PRIMARY KEY, DESCR VARCHAR(40), Rnd SMALLINT, "
            "Dias INTEGER, Camb FLOAT, UEM BIT, DtCamb DATETIME);"
            "INSERT INTO Moeda VALUES ('USD', 'Dólar', 2, 30, 1.0842, 0, '2026-11-20 08:15:00');"
            "INSERT INTO Moeda VALUES ('CHF', NULL, NULL, NULL, NULL, NULL, NULL);");
  }
  std::string File() const { return folder_.File("bo.db"); }
  std::unique_ptr<OdbcDatabase> Connect() {
    return OdbcDatabase::Connect("DRIVER=SQLite3;Database=" + File());
  }

  testsupport::TempFolder folder_;
};

TEST_F(OdbcDatabaseTest, FieldsTakeTheKindOfTheirColumns) {
  auto db = Connect();
  auto rs = db->OpenRecordset("SELECT * FROM Moeda ORDER BY CMoe DESC");
  ASSERT_EQ(rs->RecordCount(), 2);
  EXPECT_EQ(rs->Fields("DESCR").AsString(), "Dólar");
  EXPECT_EQ(rs->Fields("Rnd").Type(), host::VariantType::kInteger);
  EXPECT_EQ(rs->Fields("Dias").Type(), host::VariantType::kLong);
  EXPECT_EQ(rs->Fields("Camb").Type(), host::VariantType::kDouble);
  EXPECT_DOUBLE_EQ(host::CDbl(rs->Fields("Camb")), 1.0842);
  EXPECT_EQ(rs->Fields("UEM").Type(), host::VariantType::kBoolean);
  EXPECT_EQ(rs->Fields("DtCamb").Type(), host::VariantType::kDate);
  EXPECT_EQ(rs->Fields("DtCamb").AsDate().serial, host::MakeDate(2026, 11, 20, 8, 15, 0).serial);
  rs->MoveNext();
  for (const char* column : {"DESCR", "Rnd", "Dias", "Camb", "UEM", "DtCamb"}) {
    EXPECT_TRUE(rs->Fields(column).IsNull()) << column;
  }
  EXPECT_TRUE(db->Schema().TableExists("Moeda"));
  EXPECT_FALSE(db->Schema().TableExists("Artig"));
}

// A time alone lands on day 0 of the date serials; bytes stay bytes; a text
// longer than a read's piece comes whole.
TEST_F(OdbcDatabaseTest, TimesBytesAndLongTextsComeAsTheyAre) {
  std::string long_text;
  for (int i = 0; i < 3000; ++i) long_text += "ção";
  SqliteDatabase::Open(File(), SqliteDatabase::OpenMode::kExisting)
      ->ExecuteScript(
          "CREATE TABLE Artig (CArt VARCHAR(20), HrAlt TIME, Img BLOB, Obs TEXT);"
          "INSERT INTO Artig VALUES ('PAO', '12:34:56', X'89504E4700FF', '" +
          long_text + "');");
  auto rs = Connect()->OpenRecordset("SELECT * FROM Artig");
  EXPECT_EQ(rs->Fields("HrAlt").AsDate().serial, host::MakeDate(1899, 12, 30, 12, 34, 56).serial);
  EXPECT_EQ(rs->Fields("Img").Type(), host::VariantType::kBytes);
  EXPECT_EQ(rs->Fields("Img").AsBytes(),
            (host::Variant::Bytes{0x89, 0x50, 0x4E, 0x47, 0x00, 0xFF}));
  EXPECT_EQ(rs->Fields("Obs").AsString(), long_text);
}

TEST_F(OdbcDatabaseTest, FailuresSayWhyAndTransactionsEndAsTold) {
  EXPECT_EQ(host::RaisedNumber([&] { OdbcDatabase::Connect("DRIVER=NoSuchDriver;"); }),
            -2147467259);
  auto db = Connect();
  host::Error refused = host::RaisedError([&] { db->OpenRecordset("SELECT * FROM Artig"); });
  EXPECT_EQ(refused.Number(), host::err::kSqlRefused);
  EXPECT_NE(refused.Description().find("Artig"), std::string::npos) << refused.Description();

  db->BeginTrans();
  db->OpenRecordset("DELETE FROM Moeda");
  db->RollbackTrans();
  EXPECT_EQ(db->OpenRecordset("SELECT * FROM Moeda")->RecordCount(), 2);
  db->BeginTrans();
  db->OpenRecordset("DELETE FROM Moeda WHERE CMoe = 'CHF'");
  db->CommitTrans();
  EXPECT_EQ(db->OpenRecordset("SELECT * FROM Moeda")->RecordCount(), 1);

  db->Disconnect();
  EXPECT_EQ(host::RaisedNumber([&] { db->OpenRecordset("SELECT 1"); }),
            host::err::kOperationNotAllowedWhenClosed);
}

}  // namespace
}  // namespace standalone
