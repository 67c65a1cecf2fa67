// The steps of the load that bring the taxes from the back office: the IVA
// rates in force today, the reason of exemption and the application
// parameters, against the sample back office (examples/backoffice).

#include <gtest/gtest.h>

#include "tests/initialload/SampleLoad.h"

namespace {

using lumaro::ModConnectorLumaro;
using standalone::SqliteDatabase;

class TaxSteps : public testsupport::SampleLoad {};

TEST_F(TaxSteps, EachRegionTakesTheRatesInForceToday) {
  // The mainland's normal rate of 2010 was replaced in 2011; that of 2099 is
  // not yet in force.
  pos_.Exec("UPDATE TaxTable SET TaxRate = 21 WHERE TaxRegionID = 'CON' AND TaxSequenceID = 1");
  PosInRegion("CON");
  Load()->Upgrade_Taxes();
  EXPECT_EQ(Rates("CON"), "23,13,6,0");

  // Madeira's reduced rate comes down from the factory's 5 to 4; the other
  // regions are not touched.
  PosInRegion("MA");
  Load()->Upgrade_Taxes();
  EXPECT_EQ(Rates("MA"), "22,12,4,0");
  EXPECT_EQ(Rates("AC"), "16,9,4,0");

  // "AUT" reads Madeira's parameters; a row the POS lacks is not made.
  pos_.Exec(
      "INSERT INTO TaxTable (TaxGroupID, CountryID, TaxRegionID, TaxSequenceID, TaxRate) VALUES "
      "('IVA', 'PT', 'AUT', 1, 0), ('IVA', 'PT', 'AUT', 3, 0), ('IVA', 'PT', 'AUT', 4, 9)");
  PosInRegion("AUT");
  Load()->Upgrade_Taxes();
  EXPECT_EQ(Rates("AUT"), "22,4,0");

  // Without a dated parameter, the bare name is read; on a later day, the
  // newer rate is in force.
  ChangeBackOffice(
      "DELETE FROM ParEmp WHERE CPar LIKE 'TxIvaAN%';"
      "INSERT INTO ParEmp VALUES ('TxIvaAN', '18')");
  PosInRegion("AC");
  Load()->Upgrade_Taxes();
  EXPECT_EQ(Rates("AC"), "18,9,4,0");
  host::SetClockOverride(host::MakeDate(2099, 1, 1, 0, 0, 0));
  PosInRegion("CON");
  Load()->Upgrade_Taxes();
  EXPECT_EQ(Rates("CON"), "25,13,6,0");
  EXPECT_EQ(MigrationLog(), "");
}

// What a load of the sample sets is checked end to end; here, the parameters
// in memory and the case the sample does not have.
TEST_F(TaxSteps, ApplicationParametersReachTheSettingsAndTheDictionary) {
  Load()->Load_ApplicationParam();
  auto settings = pos_.Host().Context().Settings();
  EXPECT_TRUE(settings->UsePropertyItems);
  EXPECT_TRUE(settings->AplySalesRetentionTax);
  EXPECT_EQ(settings->RetentionTax, 11.5);
  EXPECT_TRUE(settings->UseCompositeItems);
  EXPECT_EQ(host::CStr(ModConnectorLumaro::RunDictionary().Item("AplyRetentionTax|")), "True");

  // Without its rate the retention tax stays as it was, and is written and
  // kept all the same; without kits, the use of kits is left as it is.
  ModConnectorLumaro::NewRunDictionary();
  pos_.Exec("UPDATE ConfSystem SET RetentionTax = 7.5, UseCompositeItems = 0");
  pos_.Host().Context().SetSettings(pos_.Host().Context().LoadSettings(1));
  ChangeBackOffice("DELETE FROM ParEmp WHERE CPar = 'TxIRRet'; DELETE FROM ArAgr");
  Load()->Load_ApplicationParam();
  EXPECT_EQ(pos_.Rows("SELECT RetentionTax || '/' || UseCompositeItems FROM ConfSystem"), "7.5/0");
  EXPECT_EQ(host::CDbl(ModConnectorLumaro::RunDictionary().Item("RetentionTax|")), 7.5);
  EXPECT_EQ(MigrationLog(), "");
}

TEST_F(TaxSteps, AFailedStatementIsLoggedAndTheNextOneRuns) {
  ChangeBackOffice("DROP TABLE ParEmp");
  PosInRegion("CON");
  Load()->Upgrade_Taxes();
  Load()->Load_ApplicationParam();
  EXPECT_EQ(Rates("CON"), "23,13,6,0");
  std::string log = MigrationLog();
  for (const char* entry : {"<Upgrade_Taxes> Line=1 :", "<Upgrade_Taxes> Line=4 :",
                            "<Load_ApplicationParam> Line=3 :"}) {
    EXPECT_NE(log.find(std::string("23-11-2026 09:30 ") + entry), std::string::npos)
        << entry << " in\n"
        << log;
  }
  // The statements after the failed ones ran: lots in use, kits read.
  EXPECT_EQ(pos_.Rows("SELECT UsePropertyItems || '/' || UseCompositeItems FROM ConfSystem"),
            "1/1");
}

}  // namespace
