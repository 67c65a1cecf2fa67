#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <type_traits>
#include <utility>

#include "connector/host/FieldConverter.h"
#include "connector/host/SqlStatement.h"
#include "standalone/services/EntityColumns.h"
#include "tests/host/HostTestTools.h"
#include "tests/standalone/ScratchDatabase.h"

namespace standalone {
namespace {

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
    Variant read;  // kind and value of the field
  };
  const Case cases[] = {
      {"At", Format().DateLiteral(MakeDate(2026, 11, 23)), Variant(MakeDate(2026, 11, 23))},
      {"At", Format().DateLiteral(with_time), Variant(with_time)},
      {"At", Format().DateLiteral(host::Date{0}), Variant(host::Date{0})},
      {"At", Format().TimeLiteral(with_time), Variant(MakeDate(1899, 12, 30, 14, 5, 7))},
      {"Flag", Format().Boolean(true), Variant(true)},
      {"Small", Format().Number(-12), Variant(int16_t{-12})},
      {"Whole", Format().Number(123456), Variant(int32_t{123456})},
      {"Whole", Format().Number(20000000005.0), Variant(20000000005.0)},
      {"Big", Format().Number(7), Variant(7.0)},
      {"Amount", Format().Number(1234.56), Variant(1234.56)},
      {"Name", "'" + Format().QuoteText("O'Neil, d'Ávila") + "'", Variant("O'Neil, d'Ávila")},
      {"Name", "''", Variant("")},
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
  }
}

// The values of a statement take the same forms. (The log store's tests
// update, read and delete rows by two keys.)
TEST_F(StoredForms, StatementsWriteEachKindOfValueAndNameRowsByTheirKeys) {
  host::SqlStatement insert;
  insert.SetTable("Forms");
  for (int id : {7, 8}) {
    insert.ClearColumns();
    insert.Number("Id", id);
    insert.Text("Name", "first");
    insert.Text("Name", id == 7 ? "O'Neil" : "Silva");  // replaces "first"
    insert.Boolean("Flag", id == 7);
    insert.Date("At", MakeDate(2026, 11, 23, 14, 5, 7));
    insert.KeyNumber("Id", 99);  // names rows; not written
    db_->RunInsert(insert);
  }
  host::SqlStatement time;
  time.SetTable("Forms");
  time.Time("At", MakeDate(2026, 11, 23, 9, 30, 0));
  time.KeyNumber("Id", 8);
  db_->RunUpdate(time);
  EXPECT_EQ(Rows("SELECT Id || '/' || Name || '/' || Flag || '/' || At FROM Forms ORDER BY Id"),
            "7/O'Neil/1/2026-11-23 00:00:00,8/Silva/0/1899-12-30 09:30:00");
  // Statements of one table and as many columns and keys, but other names,
  // each write their own.
  for (auto [column, key] : {std::pair{"Flag", "Id"}, {"Flag", "Name"}, {"Id", "Name"}}) {
    host::SqlStatement update;
    update.SetTable("Forms");
    update.Number(column, 5);
    if (std::string(key) == "Id") {
      update.KeyNumber(key, 8);
    } else {
      update.KeyText(key, "O'Neil");
    }
    db_->RunUpdate(update);
  }
  EXPECT_EQ(Rows("SELECT Id || '/' || Name || '/' || Flag FROM Forms ORDER BY Id"),
            "5/O'Neil/5,8/Silva/5");

  host::SqlStatement remove;
  remove.SetTable("Forms");
  remove.KeyText("Name", "Silva");
  remove.KeyText("Name", "O'Neil");  // the last value of a key holds
  db_->RunDelete(remove);
  EXPECT_EQ(Rows("SELECT Name FROM Forms"), "Silva");
}

// What a read gives: its value, or the number of the error it raises.
template <typename Read>
std::pair<std::invoke_result_t<Read>, int32_t> Outcome(Read read) {
  std::invoke_result_t<Read> value{};
  int32_t error = host::RaisedNumber([&] { value = read(); });
  return {value, error};
}

// A row read where SQLite holds it gives, for each form a column may store,
// the text, number and truth a recordset's field of it gives.
TEST_F(StoredForms, ARowReadInPlaceGivesWhatItsRecordsetGives) {
  db_->ExecuteScript(
      "INSERT INTO Forms VALUES (1, '2026-11-24 10:30:00', 1, 7, 123456, 20000000005, 12.5, "
      "'Silva');"
      "INSERT INTO Forms VALUES (2, 46350.25, -1, '12', 4.75, '3e2', 'x', 42);"
      "INSERT INTO Forms VALUES (3, 'not a date', 'True', 70000, NULL, 1.5, '', X'4142');"
      "INSERT INTO Forms VALUES (NULL, NULL, 0.5, -3.0, ' 8 ', -0.0, NULL, 'Ávila');"
      "INSERT INTO Forms VALUES ('7', 'x', 'no', NULL, 2.0, NULL, -1e300, '2026-01-01');");
  const std::string select = "SELECT * FROM Forms ORDER BY rowid";
  host::RecordsetPtr expected = db_->Query(select, {});
  // The database's own reader, then the default one over a recordset.
  for (bool in_place : {true, false}) {
    expected->MoveFirst();
    auto compare = [&](const host::RowReader& row) {
      ASSERT_FALSE(expected->Eof());
      for (int c = 0; c < expected->FieldCount(); ++c) {
        const Variant& field = expected->Fields(c);
        std::string text = "left over";
        // A text of bytes, a number or truth of a text that is none raise,
        // alike.
        EXPECT_EQ(Outcome([&] {
                    row.TextInto(c, text);
                    return text;
                  }),
                  Outcome([&] { return host::FieldConverter::ToText(field); }))
            << c;
        EXPECT_EQ(Outcome([&] { return row.Number(c); }),
                  Outcome([&] { return host::FieldConverter::ToNumber(field); }))
            << c << " " << text;
        EXPECT_EQ(Outcome([&] { return row.Truth(c); }),
                  Outcome([&] { return host::FieldConverter::ToBoolean(field); }))
            << c << " " << text;
        EXPECT_EQ(row.Value(c), field) << c;
      }
      expected->MoveNext();
    };
    if (in_place) {
      db_->QueryEach(select, {}, compare);
    } else {
      db_->host::DatabaseService::QueryEach(select, {}, compare);
    }
    EXPECT_TRUE(expected->Eof());
  }

  // A reader that raises stops the query; it starts afresh the next time,
  // and what is known of the tables still holds.
  db_->BeginTrans();
  const std::optional<int64_t> counter = db_->ChangeCounter("Forms");
  const std::string by_id = "SELECT Id FROM Forms WHERE Id > ? ORDER BY Id";
  EXPECT_EQ(host::RaisedNumber([&] {
              db_->QueryEach(by_id, {host::SqlValue::Number(0)}, [&](const host::RowReader& row) {
                if (row.Number(0) == 2) row.Number(9);  // no such column
              });
            }),
            host::err::kItemNotFound);
  EXPECT_EQ(db_->ChangeCounter("Forms"), counter);
  std::string ids;
  db_->QueryEach(by_id, {host::SqlValue::Number(1)}, [&](const host::RowReader& row) {
    ids += std::to_string(static_cast<int>(row.Number(0)));
  });
  EXPECT_EQ(ids, "237");
  db_->CommitTrans();
}

// An entity's columns go into a statement each once: added without looking
// when the statement has none of them, set in place of a value it has.
TEST_F(StoredForms, AnEntitysColumnsReplaceWhatTheStatementHolds) {
  struct Form {
    std::string Name;
    bool Flag = false;
    std::optional<host::Date> At;
    int16_t Small = 0;
  };
  const EntityColumns<Form> columns = {
      {"Name", &Form::Name}, {"Flag", &Form::Flag}, {"At", &Form::At}, {"Small", &Form::Small}};
  const Form form{"Silva", true, MakeDate(2026, 11, 24), 3};
  for (bool name_first : {false, true}) {
    host::SqlStatement insert;
    insert.SetTable("Forms");
    insert.Number("Id", name_first ? 2 : 1);
    if (name_first) insert.Text("Name", "before");
    columns.Write(form, insert);
    EXPECT_EQ(insert.Columns().size(), 5u);
    db_->RunInsert(insert);
  }
  // Of an update, only what differs from the row as it was.
  Form changed = form;
  changed.Small = 9;
  changed.At.reset();
  host::SqlStatement update;
  update.SetTable("Forms");
  update.Text("Name", "Souza");
  columns.WriteChanged(changed, form, update);
  update.KeyNumber("Id", 2);
  EXPECT_EQ(update.Columns().size(), 3u);
  db_->RunUpdate(update);
  EXPECT_EQ(Rows("SELECT Id || '/' || Name || '/' || Flag || '/' || IFNULL(At, 'null') || '/' || "
                 "Small FROM Forms ORDER BY Id"),
            "1/Silva/1/2026-11-24 00:00:00/3,2/Souza/1/null/9");
}

}  // namespace
}  // namespace standalone
