#include <gtest/gtest.h>

#include <string>

#include "connector/host/FieldConverter.h"
#include "connector/host/SqlStatement.h"
#include "tests/standalone/ScratchDatabase.h"

namespace standalone {
namespace {

using host::FieldConverter;
using host::MakeDate;
using host::Variant;

class StoredForms : public ScratchDatabase {
 protected:
  void SetUp() override {
    ScratchDatabase::SetUp();
    db_->ExecuteScript(
        "CREATE TABLE Forms (Id INTEGER, At DATETIME, Flag BIT, Small SMALLINT, Whole INTEGER,"
        " Big BIGINT, Amount FLOAT, Name VARCHAR(50))");
  }
  const host::SqlFormat& Format() { return db_->SqlFormat(); }
};

TEST_F(StoredForms, LiteralsReadBackAsTheKindOfTheirColumn) {
  const host::Date with_time = MakeDate(2026, 11, 23, 14, 5, 7);
  struct Case {
    const char* column;
    std::string literal;
    Variant read;      // kind and value of the field
    std::string text;  // FieldConverter::ToText, Portuguese settings
  };
  const Case cases[] = {
      {"At", Format().DateLiteral(MakeDate(2026, 11, 23)), Variant(MakeDate(2026, 11, 23)),
       "23-11-2026"},
      {"At", Format().DateLiteral(with_time), Variant(with_time), "23-11-2026 14:05:07"},
      {"At", Format().DateLiteral(host::Date{0}), Variant(host::Date{0}), "00:00:00"},
      {"At", Format().TimeLiteral(with_time), Variant(MakeDate(1899, 12, 30, 14, 5, 7)),
       "14:05:07"},
      {"Flag", Format().Boolean(true), Variant(true), "True"},
      {"Flag", Format().Boolean(false), Variant(false), "False"},
      {"Small", Format().Number(-12), Variant(int16_t{-12}), "-12"},
      {"Whole", Format().Number(123456), Variant(int32_t{123456}), "123456"},
      {"Whole", Format().Number(20000000005.0), Variant(20000000005.0), "20000000005"},
      {"Big", Format().Number(7), Variant(7.0), "7"},
      {"Amount", Format().Number(1234.56), Variant(1234.56), "1234,56"},
      {"Amount", Format().Number(-0.125), Variant(-0.125), "-0,125"},
      {"Name", "'" + Format().QuoteText("O'Neil, d'Ávila") + "'", Variant("O'Neil, d'Ávila"),
       "O'Neil, d'Ávila"},
      {"Name", "''", Variant(""), ""},
  };
  int id = 0;
  for (const Case& c : cases) {
    std::string id_text = std::to_string(++id);
    db_->OpenRecordset("INSERT INTO Forms (Id, " + std::string(c.column) + ") VALUES (" + id_text +
                       ", " + c.literal + ")");
    host::RecordsetPtr rs = db_->OpenRecordset("SELECT * FROM Forms WHERE Id = " + id_text);
    const Variant& field = rs->Fields(c.column);
    EXPECT_EQ(static_cast<int>(field.Type()), static_cast<int>(c.read.Type())) << c.literal;
    EXPECT_EQ(field, c.read) << c.column << " " << c.literal;
    EXPECT_EQ(FieldConverter::ToText(field), c.text) << c.column << " " << c.literal;
  }

  // A row of NULLs: every column reads as Null and converts to its empty value.
  db_->OpenRecordset("INSERT INTO Forms (Id) VALUES (0)");
  host::RecordsetPtr rs = db_->OpenRecordset("SELECT * FROM Forms WHERE Id = 0");
  for (int i = 1; i < rs->FieldCount(); ++i) {
    const Variant& field = rs->Fields(i);
    EXPECT_TRUE(field.IsNull()) << rs->FieldName(i);
    EXPECT_EQ(FieldConverter::ToText(field), "") << rs->FieldName(i);
    EXPECT_EQ(FieldConverter::ToNumber(field), 0) << rs->FieldName(i);
    EXPECT_EQ(FieldConverter::ToDate(field), host::Date{0}) << rs->FieldName(i);
    EXPECT_FALSE(FieldConverter::ToBoolean(field)) << rs->FieldName(i);
  }
}

class SqlStatements : public ScratchDatabase {
 protected:
  void SetUp() override {
    ScratchDatabase::SetUp();
    db_->ExecuteScript(
        "CREATE TABLE Customer (CustomerID INTEGER, Name VARCHAR(50), Active BIT,"
        " Since DATETIME, Opens DATETIME, Balance FLOAT)");
    // Rows 7 "O'Neil" and 8 "Silva", written by one statement refilled.
    host::SqlStatement insert;
    insert.SetTable("Customer");
    for (int id : {7, 8}) {
      insert.ClearColumns();
      insert.Number("CustomerID", id);
      insert.Text("Name", "first");
      insert.Text("Name", id == 7 ? "O'Neil" : "Silva");  // replaces "first"
      insert.Boolean("Active", id == 7);
      insert.Date("Since", MakeDate(2026, 11, 23, 14, 5, 7));
      insert.Time("Opens", MakeDate(2026, 11, 23, 9, 30, 0));
      insert.Number("Balance", 12.5);
      insert.KeyNumber("CustomerID", 99);  // names rows; not written
      db_->RunInsert(insert);
    }
  }

  // Every row as "id/name/active/since/opens/balance", joined with " | ".
  std::string Table() {
    host::RecordsetPtr rs = db_->OpenRecordset("SELECT * FROM Customer ORDER BY CustomerID");
    std::string rows;
    for (; !rs->Eof(); rs->MoveNext()) {
      if (!rows.empty()) rows += " | ";
      for (int i = 0; i < rs->FieldCount(); ++i) {
        rows += (i == 0 ? "" : "/") + FieldConverter::ToText(rs->Fields(i));
      }
    }
    return rows;
  }
  // A statement on Customer.
  static host::SqlStatement On() {
    host::SqlStatement statement;
    statement.SetTable("Customer");
    return statement;
  }
};

TEST_F(SqlStatements, InsertUpdateAndDeleteNameRowsByTheirKeys) {
  const std::string silva = "8/Silva/False/23-11-2026/09:30:00/12,5";
  EXPECT_EQ(Table(), "7/O'Neil/True/23-11-2026/09:30:00/12,5 | " + silva);

  host::SqlStatement update = On();
  update.Number("Balance", 20);
  update.Boolean("Active", false);
  update.DateTime("Since", MakeDate(2027, 1, 2, 3, 4, 5));
  update.KeyNumber("CustomerID", 7);
  db_->RunUpdate(update);
  const std::string oneil = "7/O'Neil/False/02-01-2027 03:04:05/09:30:00/20";
  EXPECT_EQ(Table(), oneil + " | " + silva);

  update = On();
  update.Text("Name", "Nobody");
  update.KeyNumber("CustomerID", 8);
  update.KeyText("Name", "O'Neil");  // both keys must match: no row does
  db_->RunUpdate(update);
  EXPECT_EQ(Table(), oneil + " | " + silva);

  host::SqlStatement remove = On();
  remove.KeyText("Name", "Silva");
  remove.KeyText("Name", "O'Neil");  // the last value of a key holds
  db_->RunDelete(remove);
  EXPECT_EQ(Table(), silva);
}

TEST_F(SqlStatements, SelectAndCount) {
  host::SqlStatement select = On();
  select.SelectColumn("Name");
  select.SelectColumn("Balance");
  select.SelectColumn("Name");
  select.KeyNumber("CustomerID", 8);
  host::RecordsetPtr rs = db_->RunSelect(select);
  ASSERT_EQ(rs->FieldCount(), 2);
  EXPECT_EQ(rs->FieldName(1), "Balance");
  EXPECT_EQ(rs->RecordCount(), 1);
  EXPECT_EQ(rs->Fields("Name"), Variant("Silva"));

  host::SqlStatement all = On();
  EXPECT_EQ(db_->RunSelect(all)->FieldCount(), 6) << "no selected column reads them all";
  const std::pair<const char*, double> counts[] = {{"", 2}, {"O'Neil", 1}, {"Nobody", 0}};
  for (const auto& [name, count] : counts) {
    if (*name != 0) all.KeyText("Name", name);
    EXPECT_EQ(FieldConverter::ToNumber(db_->RunCount(all)->Fields(0)), count) << name;
  }
}

}  // namespace
}  // namespace standalone
