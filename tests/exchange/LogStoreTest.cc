// The table LumaroLog through its data service: which files each
// workstation has taken or made, with their size and date.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "connector/LumaroConnector.h"
#include "connector/host/FieldConverter.h"
#include "importlog/DSOLumaroLog.h"
#include "importlog/LumaroLog.h"
#include "tests/support/TestHost.h"

namespace {

class LogStore : public ::testing::Test {
 protected:
  void SetUp() override {
    host::SetClockOverride(host::MakeDate(2026, 3, 14, 10, 0, 0));
    ASSERT_TRUE(dso_.CheckOrCreateLumaroLogTable());
  }

  // Saves a row of the given key, with the clock at `now`.
  bool Save(int16_t workstation, const std::string& name, host::Date now, float size = 0,
            host::Date file_date = {}, bool is_new = true) {
    host::SetClockOverride(now);
    lumaro::LumaroLog log;
    log.WorkstationID = workstation;
    log.Filename = name;
    log.ImportDate = host::MakeDate(2000, 1, 1);  // never what is stored
    log.FileSize = size;
    log.FileDate = file_date;
    log.IsNew = is_new;
    return dso_.Save(log);
  }

  std::string Rows() { return test_host_.Scalar("SELECT count(*) FROM LumaroLog"); }

  testsupport::TestHost test_host_;
  lumaro::LumaroConnector connector_{test_host_.Host()};
  lumaro::DSOLumaroLog dso_;
  const host::Date t1_ = host::MakeDate(2026, 3, 14, 10, 0, 0);
  const host::Date t2_ = host::MakeDate(2026, 3, 15, 8, 30, 0);
};

TEST_F(LogStore, TableAndIndexAreMadeOnce) {
  EXPECT_TRUE(dso_.CheckOrCreateLumaroLogTable());  // a second call is harmless
  EXPECT_EQ(test_host_.Scalar("SELECT count(*) FROM sqlite_master WHERE name='LumaroLog'"), "1");
  EXPECT_EQ(test_host_.Scalar("SELECT group_concat(name) FROM pragma_index_info('LumaroLog_IDX')"),
            "WorkstationID,Filename");
}

// A second save of a key updates its dates and size, not the other
// workstation's row of the same name.
TEST_F(LogStore, RowsAreKeyedByWorkstationAndFileName) {
  ASSERT_TRUE(Save(1, "ITpv 0000001.txt", t1_, 100, t1_));
  ASSERT_TRUE(Save(2, "ITpv 0000001.txt", t1_, 100, t1_));
  ASSERT_TRUE(Save(1, "ITpv 0000001.txt", t2_, 250, t2_, /*is_new=*/false));
  EXPECT_EQ(Rows(), "2");

  auto updated = dso_.GetLogInfo(1, "ITpv 0000001.txt");
  ASSERT_NE(updated, nullptr);
  EXPECT_EQ(updated->ImportDate, t2_);  // the moment of the save
  EXPECT_EQ(updated->FileSize, 250);
  EXPECT_EQ(updated->FileDate, t2_);
  EXPECT_FALSE(updated->IsNew);
  auto other = dso_.GetLogInfo(2, "ITpv 0000001.txt");
  ASSERT_NE(other, nullptr);
  EXPECT_EQ(other->ImportDate, t1_);
  EXPECT_EQ(other->FileSize, 100);
  EXPECT_EQ(dso_.GetLogInfo(3, "ITpv 0000001.txt"), nullptr);

  EXPECT_TRUE(dso_.Delete(1, "ITpv 0000001.txt"));
  EXPECT_EQ(dso_.GetLogInfo(1, "ITpv 0000001.txt"), nullptr);
  EXPECT_EQ(Rows(), "1");
}

TEST_F(LogStore, FileSizePassesThroughSinglePrecision) {
  std::string path = test_host_.Folder().File("ITpv big.txt");
  { std::ofstream create(path); }
  std::filesystem::resize_file(path, 16777217);
  lumaro::LumaroLog log;
  log.WorkstationID = 1;
  log.IsNew = true;
  log.FillFromFile(path);
  EXPECT_EQ(log.Filename, "ITpv big.txt");
  ASSERT_TRUE(dso_.Save(log));
  EXPECT_EQ(test_host_.Scalar("SELECT FileSize FROM LumaroLog"), "16777216");
  auto stored = dso_.GetLogInfo(1, "ITpv big.txt");
  ASSERT_NE(stored, nullptr);
  EXPECT_EQ(stored->FileSize, 16777216.0f);
}

TEST_F(LogStore, FileNameOverFiftyCharactersIsRefusedQuietly) {
  std::string fifty(46, 'x');
  fifty += ".txt";
  EXPECT_TRUE(Save(1, fifty, t1_));
  EXPECT_FALSE(Save(1, "y" + fifty, t1_));
  EXPECT_EQ(Rows(), "1");
  EXPECT_TRUE(test_host_.UI().boxes.empty());
}

TEST_F(LogStore, RowsComeByWorkstationThenImportDateThenNewestFileFirst) {
  const host::Date older = host::MakeDate(2026, 1, 1);
  const host::Date newer = host::MakeDate(2026, 2, 1);
  ASSERT_TRUE(Save(2, "b", t1_, 0, newer));
  ASSERT_TRUE(Save(1, "a", t2_, 0, newer));
  ASSERT_TRUE(Save(1, "d", t1_, 0, older));
  ASSERT_TRUE(Save(1, "c", t1_, 0, newer));

  host::RecordsetPtr rs = dso_.GetLumaroLogRS();
  ASSERT_NE(rs, nullptr);
  std::string order;
  for (; !rs->Eof(); rs->MoveNext()) {
    order += host::FieldConverter::ToText(rs->Fields("WorkstationID")) +
             host::FieldConverter::ToText(rs->Fields("Filename")) + " ";
  }
  EXPECT_EQ(order, "1c 1d 1a 2b ");
}

}  // namespace
