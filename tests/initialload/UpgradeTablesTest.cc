// The series that a load's documents take.

#include <gtest/gtest.h>

#include "tests/initialload/SampleLoad.h"

namespace {

class UpgradeTables : public testsupport::SampleLoad {};

TEST_F(UpgradeTables, APlainLoadWithExternalSeriesMakesTheSeriesEXTOnce) {
  const std::string kSeries =
      "SELECT TransSerial || '/' || SeriesType || '/' || SeriesYear || '/' || SeriesLocked FROM "
      "Series ORDER BY TransSerial";
  auto first = Load();
  first->UpgradeTables();
  EXPECT_EQ(first->SeriesKey(), "A");  // the workstation's
  EXPECT_EQ(pos_.Rows(kSeries), "A/1/0/0");

  pos_.Exec("INSERT INTO HostContext VALUES ('ExternalSeries', 'True')");
  for (int run = 1; run <= 2; ++run) {
    auto load = Load();
    load->UpgradeTables();
    EXPECT_EQ(load->SeriesKey(), "EXT");
    // A second run writes over the series it made.
    EXPECT_EQ(pos_.Rows(kSeries), "A/1/0/0,EXT/2/0/0") << run;
    EXPECT_EQ(pos_.UI().refreshes, run);
  }
}

// What a plain load does that the initial one does not: the credit's amount
// and days, the customers' opening balances, the zone outside the Union,
// and the POS's warehouses kept.
TEST_F(UpgradeTables, APlainLoadBringsCreditAmountsBalancesAndKeepsTheWarehouses) {
  Load()->UpgradeTables();
  // "L" with days is 3, its days at most 999; " l " reads as "L"; "I" has
  // no amount; "C" and "X" are 0 and set nothing else.
  EXPECT_EQ(pos_.Rows("SELECT CustomerID || '/' || CreditLimitType || '/' || CreditLimitAmount "
                      "|| '/' || CreditLimitDays FROM Customer ORDER BY CustomerID"),
            "100001/0/0/0,100002/3/5000/999,100003/1/0/0,100004/0/0/0,100005/1/0/0,"
            "200001/3/800/30");
  // The balances of customers, not of suppliers, nor nil, nor of account 0,
  // numbered in the workstation's series.
  EXPECT_EQ(pos_.Rows("SELECT TransSerial || '/' || TransDocument || '/' || TransDocNumber || "
                      "'/' || PartyID || '/' || TotalAmount || '/' || TotalPendingAmount || '/' "
                      "|| TransactionKind || '/' || date(CreateDate) FROM CustomerLedgerAccount "
                      "ORDER BY TransDocNumber"),
            "A/SIC/1/100002/1250.4/0/6/2026-11-23,A/SIC/2/100004/-300/0/6/2026-11-23");
  EXPECT_EQ(pos_.Rows("SELECT ZoneType FROM Zone WHERE Description = 'Extracomunitária'"), "2");
  // The factory's warehouse stays; 40000 is beyond 16 bits and takes the
  // next id after those before it.
  EXPECT_EQ(pos_.Rows("SELECT WarehouseID || '/' || WarehouseKey FROM Warehouse ORDER BY "
                      "WarehouseID"),
            "1/,10000/10000,10001/10001,20000/20000,20001/40000");
}

}  // namespace

namespace {

// The stock of a plain load: one opening movement of the stock by lot in
// the warehouses the load brought, and the reorder levels written on the
// stock rows already there (a level never makes a row).
TEST_F(UpgradeTables, APlainLoadOpensTheStockInOneMovement) {
  pos_.Exec("INSERT INTO Stock (ItemID, WarehouseID) VALUES ('PAO', 10000), ('CAFE', 10001)");
  Load()->UpgradeTables();
  // The first line, of the first article in the table's key order, is
  // AVENTAL's lot AZUL-M in 10001: the movement's warehouse.
  EXPECT_EQ(pos_.Rows("SELECT TransSerial || '/' || TransDocument || '/' || TransDocNumber || "
                      "'/' || FromWarehouseID || '/' || ToWarehouseID FROM StockTransaction"),
            "A/ES/1/10001/10001");
  // Warehouse 0 and the warehouse not loaded (10002) bring nothing, nor a
  // nil quantity; a negative one does.
  EXPECT_EQ(pos_.Rows("SELECT ItemID || '/' || WarehouseID || '/' || Quantity || '/' || "
                      "FromWarehouseID FROM StockTransactionDetails ORDER BY ItemID, WarehouseID"),
            "AVENTAL/10000/2.0/10000,AVENTAL/10001/5.0/10001,CAFE/10000/3.0/10000,"
            "CAFE/10001/5.0/10001,FARINHA/10000/-2.5/10000,MOINHO/10001/1.0/10001,"
            "PAO/10000/40.0/10000,PAO/10001/15.0/10001,QUEIJO/10000/4.5/10000,"
            "VINHO/10000/18.0/10000,VINHO/10001/6.0/10001,VINHO/20000/12.0/20000");
  // Both levels take StMi; CAFE has none in 10001; VINHO's row in 20000 is
  // the movement's, made after the levels were written.
  EXPECT_EQ(pos_.Rows("SELECT ItemID || '/' || WarehouseID || '/' || ReorderPoint || '/' || "
                      "RestockLevel || '/' || PhysicalQty FROM Stock WHERE ItemID IN ('PAO', "
                      "'CAFE', 'VINHO') AND WarehouseID IN (10000, 10001, 20000) ORDER BY ItemID, "
                      "WarehouseID"),
            "CAFE/10000/0.0/0.0/3.0,CAFE/10001/0.0/0.0/5.0,PAO/10000/20.0/20.0/40.0,"
            "PAO/10001/0.0/0.0/15.0,VINHO/10000/0.0/0.0/18.0,VINHO/10001/0.0/0.0/6.0,"
            "VINHO/20000/0.0/0.0/12.0");
}

}  // namespace

namespace {

// Texts of the articles are compared by character and without regard to
// case: a unit of three characters with an accent is a unit, and a sale
// factor "s" counts as "S".
TEST_F(UpgradeTables, UnitCodesCountCharactersAndTheSaleFactorFlagAnyCase) {
  ChangeBackOffice(
      "UPDATE Artig SET UNID = 'm² ', UNVE = 'm² ', NMED = 0 WHERE CArt = 'PAPEL';"
      "UPDATE Artig SET UPUV = 's' WHERE CArt = 'CAIXAVINHO'");
  Load()->UpgradeTables();
  EXPECT_EQ(pos_.Rows("SELECT BaseUnitOfMeasureID || '|' || SaleUnitOfMeasureID FROM Item WHERE "
                      "ItemID = 'PAPEL'"),
            "m²|m²");
  // "s" reads as a factor of 0, which the flag multiplies into every price.
  EXPECT_EQ(pos_.Rows("SELECT DISTINCT PriceWithoutTax || '/' || PriceWithTax FROM "
                      "ItemSellingPrices WHERE ItemID = 'CAIXAVINHO'"),
            "0/0");
}

}  // namespace
