// What every step of the load shares: the next id of a table, the kinds of
// zone codes and their country.

#include <gtest/gtest.h>

#include "connector/ModConnectorLumaro.h"
#include "initialload/LoadShared.h"
#include "tests/support/TestHost.h"

namespace {

using lumaro::ModConnectorLumaro;

class LoadShared : public testing::Test {
 protected:
  LoadShared() { ModConnectorLumaro::AttachHost(&pos_.Host()); }
  ~LoadShared() override { ModConnectorLumaro::DetachHost(&pos_.Host()); }

  testsupport::TestHost pos_;
};

TEST_F(LoadShared, TheNextIdOfATableIsOneForAnEmptyOneAndZeroWhenItFails) {
  pos_.Exec("DELETE FROM Zone; INSERT INTO Zone (ZoneID, Description) VALUES (7, 'Norte')");
  EXPECT_EQ(lumaro::GetNewIDFromTable("Zone", "ZoneID"), 8);
  pos_.Exec("DELETE FROM Zone");
  EXPECT_EQ(lumaro::GetNewIDFromTable("Zone", "ZoneID"), 1);
  EXPECT_EQ(lumaro::GetNewIDFromTable("NoSuchTable", "ID"), 0);
  std::string log = testsupport::ReadBytes(pos_.Folder().File("Migration.log"));
  EXPECT_NE(log.find("<GetNewIDFromTable> Line=1 : "), std::string::npos) << log;
}

TEST_F(LoadShared, ZoneCodesTellTheirKindAndCountry) {
  struct Case {
    double code;
    int16_t kind;
    const char* country;
  } cases[] = {{0, 0, ""},   {1, 0, "PT"}, {499, 0, "PT"}, {500, 1, ""},
               {699, 1, ""}, {700, 2, ""}, {999, 2, ""},   {1000, 0, ""}};
  for (const Case& c : cases) {
    SCOPED_TRACE(c.code);
    EXPECT_EQ(lumaro::GetZoneType(c.code), c.kind);
    EXPECT_EQ(lumaro::GetCountryID(c.code), c.country);
  }
}

}  // namespace
