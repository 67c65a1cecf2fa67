#include <gtest/gtest.h>

#include <string>

#include "connector/host/Error.h"
#include "connector/host/Recordset.h"
#include "tests/standalone/ScratchDatabase.h"

namespace standalone {
namespace {

class Recordset : public ScratchDatabase {
 protected:
  void SetUp() override {
    ScratchDatabase::SetUp();
    db_->ExecuteScript(
        "CREATE TABLE Shop (Code INTEGER, Name VARCHAR(50), Num INTEGER, Opened DATETIME,"
        " Note VARCHAR(50));"
        "INSERT INTO Shop VALUES (1, 'Lisboa', 1, '2026-01-05 00:00:00', NULL),"
        " (2, 'Porto', 3, '2026-02-10 00:00:00', 'a'),"
        " (3, 'Porto', 5, '2026-03-15 10:30:00', NULL),"
        " (4, 'Braga', 2, '2026-04-20 00:00:00', 'b'),"
        " (5, 'porto', 4, '2026-05-25 00:00:00', 'c');");
    rs_ = db_->OpenRecordset("SELECT * FROM Shop ORDER BY Code");
  }

  // The codes of the rows from the current one to EOF, joined with ",".
  std::string CodesToEnd() {
    std::string codes;
    for (; !rs_->Eof(); rs_->MoveNext()) {
      codes += (codes.empty() ? "" : ",") + std::to_string(rs_->Fields("Code").AsLong());
    }
    return codes;
  }

  host::RecordsetPtr rs_;
};

TEST_F(Recordset, WalksAndFindsFieldsLikeAdo) {
  using host::err::kItemNotFound, host::err::kNoCurrentRecord;
  EXPECT_EQ(CodesToEnd(), "1,2,3,4,5");
  EXPECT_EQ(rs_->RecordCount(), 5) << "known after the walk";
  EXPECT_EQ(RaisedNumber([&] { rs_->Fields("Code"); }), kNoCurrentRecord) << "at EOF";
  EXPECT_EQ(RaisedNumber([&] { rs_->MoveNext(); }), kNoCurrentRecord) << "at EOF";
  rs_->MoveFirst();
  rs_->MoveNext();
  EXPECT_EQ(rs_->Fields("name"), host::Variant("Porto"));
  EXPECT_EQ(rs_->Fields("NAME"), rs_->Fields(1));
  EXPECT_EQ(rs_->Fields(0), host::Variant(int32_t{2}));
  EXPECT_EQ(RaisedNumber([&] { rs_->Fields("Missing"); }), kItemNotFound);
  EXPECT_EQ(RaisedNumber([&] { rs_->Fields(5); }), kItemNotFound);
  EXPECT_TRUE(host::RecordsetTools::Find(*rs_, "opened"));
  EXPECT_FALSE(host::RecordsetTools::Find(*rs_, "Closed"));
  rs_->MovePrevious();
  rs_->MovePrevious();
  EXPECT_TRUE(rs_->Bof());
  EXPECT_EQ(RaisedNumber([&] { rs_->Fields(0); }), kNoCurrentRecord) << "at BOF";

  host::RecordsetPtr empty = db_->OpenRecordset("SELECT * FROM Shop WHERE Code > 99");
  EXPECT_TRUE(empty->Eof() && empty->Bof());
  EXPECT_FALSE(db_->OpenRecordset("UPDATE Shop SET Num = Num WHERE Code = 1")->IsOpen())
      << "a change gives a closed recordset";

  host::RecordsetPtr shared = rs_;
  host::RecordsetTools::CloseRecordset(rs_);
  EXPECT_EQ(rs_, nullptr);
  EXPECT_FALSE(shared->IsOpen());
  EXPECT_EQ(RaisedNumber([&] { shared->Fields("Code"); }),
            host::err::kOperationNotAllowedWhenClosed);
  host::RecordsetTools::CloseRecordset(shared);  // already closed: harmless
  host::RecordsetTools::CloseRecordset(shared);  // empty: harmless
}

TEST_F(Recordset, FilterNarrowsTheRowsAndClearingRestoresThem) {
  struct Case {
    const char* criteria;
    int32_t count;
    const char* codes;
  };
  const Case cases[] = {
      {"Name = 'Porto' AND Num < 4 OR Name = 'Lisboa'", 2, "1,2"},
      {"Name LIKE '*bo*'", 1, "1"},
      {"Name LIKE Lis*", 1, "1"},  // a bare pattern is text
      {"Name <> 'porto'", 2, "1,4"},
      {"[Num] <= 2", 2, "1,4"},
      {"Note = Null", 2, "1,3"},
      {"Note <> NULL", 3, "2,4,5"},
      {"Num >= 2.5", 3, "2,3,5"},
      {"Opened >= #2026-03-01#", 3, "3,4,5"},
      {"Opened < #2026-03-15 12:00:00# AND Opened > #2026-03-15#", 1, "3"},
      {"Name = 'Faro'", 0, ""},
  };
  for (const Case& c : cases) {
    rs_->SetFilter(c.criteria);
    EXPECT_EQ(rs_->RecordCount(), c.count) << c.criteria;
    EXPECT_EQ(CodesToEnd(), c.codes) << c.criteria;
    rs_->SetFilter("");
    EXPECT_EQ(rs_->RecordCount(), 5) << "after " << c.criteria;
    EXPECT_EQ(rs_->Fields("Code").AsLong(), 1) << "after " << c.criteria;
  }

  // A refused filter leaves the rows as they were.
  rs_->MoveNext();
  EXPECT_EQ(RaisedNumber([&] { rs_->SetFilter("Name = 'unclosed"); }), 3001);
  EXPECT_EQ(RaisedNumber([&] { rs_->SetFilter("Missing = 1"); }), host::err::kItemNotFound);
  ASSERT_EQ(rs_->RecordCount(), 5);
  EXPECT_EQ(rs_->Fields("Code").AsLong(), 2);
}

TEST_F(Recordset, FindStartsAtTheCurrentRow) {
  auto code = [&] { return rs_->Eof() ? 0 : rs_->Fields("Code").AsLong(); };
  rs_->MoveNext();
  EXPECT_TRUE(rs_->Find("Name = 'Porto'")) << "the current row matches";
  EXPECT_EQ(code(), 2);
  rs_->MoveNext();
  rs_->MoveNext();
  EXPECT_TRUE(rs_->Find("Name = 'PORTO'"));
  EXPECT_EQ(code(), 5);
  EXPECT_FALSE(rs_->Find("Num = 1")) << "rows before the current one are not searched";
  EXPECT_EQ(code(), 0);
  rs_->MoveFirst();
  EXPECT_TRUE(rs_->Find("Opened > #2026-03-01#"));
  EXPECT_EQ(code(), 3);
}

}  // namespace
}  // namespace standalone
