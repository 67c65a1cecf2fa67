// The tax classes that the load and the import of items read: the host's IVA
// class of each of the back office's tax types, by the rates of the shop's
// region.

#include <gtest/gtest.h>

#include "connector/ModConnectorLumaro.h"
#include "connector/host/Conversions.h"
#include "initialload/BSOUpgBrevantaLumaroTables.h"
#include "tests/support/TestHost.h"

namespace {

using lumaro::ModConnectorLumaro;

class TaxClasses : public testing::Test {
 protected:
  TaxClasses() {
    ModConnectorLumaro::AttachHost(&test_host_.Host());
    ModConnectorLumaro::NewRunDictionary();
  }
  ~TaxClasses() override {
    ModConnectorLumaro::DropRunDictionary();
    ModConnectorLumaro::DetachHost(&test_host_.Host());
  }

  // "<type>:<class>:<rate>" for the back office's tax types 1 to 4.
  std::string ClassesOfTypes() {
    host::KeyDictionary& keys = ModConnectorLumaro::RunDictionary();
    std::string text;
    for (int type = 1; type <= 4; ++type) {
      std::string t = std::to_string(type);
      text += (type > 1 ? " " : "") + t + ":" +
              host::CStr(keys.Item("TaxableGroupIDTipoIva|" + t)) + ":" +
              host::CStr(keys.Item("TaxRate_TipoIva|" + t));
    }
    return text;
  }

  testsupport::TestHost test_host_;
};

TEST_F(TaxClasses, EachRegionReadsItsOwnRates) {
  struct Case {
    const char* region;
    const char* sql;  // rates besides the factory's
    const char* classes;
  } cases[] = {
      // 13 % is intermediate on the mainland.
      {"CON", "", "1:3:6 2:1:23 3:2:13 4:4:0"},
      {"MA", "", "1:3:5 2:1:22 3:2:12 4:4:0"},
      {"AC", "", "1:3:4 2:1:16 3:2:9 4:4:0"},
      // Outside the mainland 13 % is the normal rate; a rate of no class is
      // normal too; the first row of a class keeps its keys.
      {"AC",
       "UPDATE TaxTable SET TaxRate = 13 WHERE TaxRegionID = 'AC' AND TaxSequenceID = 1;"
       "UPDATE TaxTable SET TaxRate = 17.5 WHERE TaxRegionID = 'AC' AND TaxSequenceID = 2",
       "1:3:4 2:1:13 3:: 4:4:0"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.region);
    ModConnectorLumaro::NewRunDictionary();
    test_host_.Exec(std::string("UPDATE ConfSystem SET TaxRegionID = '") + c.region + "';" + c.sql);
    test_host_.Host().Context().SetSettings(test_host_.Host().Context().LoadSettings(1));
    lumaro::BSOUpgBrevantaLumaroTables().Load_Taxes();
    EXPECT_EQ(ClassesOfTypes(), c.classes);
  }
  EXPECT_EQ(host::CStr(ModConnectorLumaro::RunDictionary().Item("TaxableGroupIDPorIva|17,5")), "1");
}

TEST_F(TaxClasses, AFailureIsLoggedAndTheRunGoesOn) {
  host::SetClockOverride(host::MakeDate(2026, 3, 14, 10, 5, 0));
  test_host_.Exec("DROP TABLE TaxTable");
  lumaro::BSOUpgBrevantaLumaroTables().Load_Taxes();
  EXPECT_EQ(ClassesOfTypes(), "1:: 2:: 3:: 4::");
  std::string log = testsupport::ReadBytes(test_host_.Folder().File("Migration.log"));
  EXPECT_EQ(log.rfind("14-03-2026 10:05 <Load_Taxes> Line=1 : -2147217900 - ", 0), 0u) << log;
}

}  // namespace
