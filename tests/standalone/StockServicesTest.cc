// The stock rows of a warehouse's items, and the stock movements that number
// themselves in their series and add their quantities to the stock.

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "connector/host/Date.h"
#include "connector/host/Error.h"
#include "connector/host/StockDocument.h"
#include "tests/host/HostTestTools.h"
#include "tests/support/TestHost.h"

namespace standalone {
namespace {

using host::RaisedError;
using host::RaisedNumber;

// Items A and B control their stock, S does not; warehouse 2 beside the
// factory's 1; movements dated by the host's clock.
class Stock : public ::testing::Test {
 protected:
  void SetUp() override {
    host::SetClockOverride(host::MakeDate(2026, 3, 15, 10, 30));
    host_.Exec(
        "INSERT INTO Item (ItemID, Description, ControlsStock) VALUES ('A', 'Arroz', 1), "
        "('B', 'Bacalhau', 1), ('S', 'Serviço', 0);"
        "INSERT INTO Warehouse (WarehouseID, WarehouseKey, Description) VALUES (2, 'L2', "
        "'Loja');");
  }
  void TearDown() override { host::SetClockOverride(std::nullopt); }

  // Each Stock row as "item/warehouse/colour:physical:available:units".
  std::string StockRows() {
    return host_.Rows(
        "SELECT ItemID || '/' || WarehouseID || '/' || ColorID || ':' || printf('%g', "
        "PhysicalQty) || ':' || printf('%g', AvailableQty) || ':' || printf('%g', "
        "PhysicalUnits) || ':' || printf('%g', AvailableUnits) FROM Stock ORDER BY 1");
  }

  host::StockTransactionDetail Line(int32_t number, const std::string& item, int16_t warehouse,
                                    double quantity) {
    host::StockTransactionDetail line;
    line.LineNumber = number;
    line.ItemID = item;
    line.WarehouseID = warehouse;
    line.Quantity = quantity;
    return line;
  }

  // A movement of 3 of A into warehouse 1 and 2.5 of B into warehouse 2.
  void NewMovement() {
    stock_->NewTransaction("SI", "A");
    host::StockTransaction& movement = stock_->Transaction();
    movement.FromWarehouse = warehouses_->Load(1);
    movement.ToWarehouse = warehouses_->Load(2);
    movement.TransactionFlag = 1;
    host::StockTransactionDetail first = Line(1, "A", 1, 3);
    first.Description = "Arroz";
    first.ItemValue = 1.25;
    first.LineValue1 = 3.75;
    first.TaxableGroupID = 3;
    first.FromWarehouseID = 1;
    first.LineCurrency.CurrencyID = "EUR";
    first.DateThree = host::MakeDate(2026, 4, 1);
    movement.Details.push_back(first);
    movement.Details.push_back(Line(2, "B", 2, 2.5));
  }

  // The movements, their lines, the series' numbers and the stock.
  std::string Written() {
    return StockRows() + "|" + host_.Scalar("SELECT COUNT(*) FROM StockTransaction") + "/" +
           host_.Scalar("SELECT COUNT(*) FROM StockTransactionDetails") + "/" +
           host_.Rows(
               "SELECT TransSerial || TransDocID || TransDocNumber FROM "
               "DocumentsSeriesNumber ORDER BY 1");
  }

  testsupport::TestHost host_;
  std::unique_ptr<host::WarehouseService> warehouses_ = host_.Host().NewWarehouseService();
  std::unique_ptr<host::StockDocument> stock_ = host_.Host().NewStockDocument();
};

TEST_F(Stock, ItemsInStockGetARowOnlyWhereTheyHaveNone) {
  host_.Exec(
      "INSERT INTO Stock (ItemID, WarehouseID, PhysicalQty, AvailableQty) VALUES ('A', 2, 4, 4);"
      "INSERT INTO Stock (ItemID, WarehouseID, ColorID, PhysicalQty) VALUES ('B', 2, 3, 1);");
  warehouses_->InsertItemsInStock(2);
  warehouses_->InsertItemsInStock(2);  // nothing more to add
  warehouses_->InsertItemsInStock(9);  // no such warehouse
  EXPECT_EQ(StockRows(), "A/2/0:4:4:0:0,B/2/0:0:0:0:0,B/2/3:1:0:0:0")
      << "A keeps its quantities, B's row of a colour is not its plain row, S has none";
  EXPECT_EQ(host_.Scalar("SELECT COUNT(*) FROM Stock WHERE LotID = '' AND SizeID = 0"), "3");
}

TEST_F(Stock, EachCommitTakesTheNextNumberAndAddsToTheStock) {
  host_.Exec(
      "INSERT INTO Stock (ItemID, WarehouseID, PhysicalQty, AvailableQty, PhysicalUnits, "
      "AvailableUnits) VALUES ('A', 1, 5, 4, 5, 4)");
  NewMovement();
  stock_->Prepare(true);
  stock_->Commit(true);
  EXPECT_EQ(stock_->Transaction().TransDocNumber, 1);
  stock_->Commit(true);
  EXPECT_EQ(stock_->Transaction().TransDocNumber, 2);

  EXPECT_EQ(host_.Rows("SELECT TransSerial || '/' || TransDocument || '/' || TransDocNumber || "
                       "'/' || TransDate || '/' || DateTwo || '/' || FromWarehouseID || '/' || "
                       "ToWarehouseID || '/' || TransactionFlag FROM StockTransaction ORDER BY "
                       "TransDocNumber"),
            "A/SI/1/2026-03-15 00:00:00/2026-03-15 00:00:00/1/2/1,"
            "A/SI/2/2026-03-15 00:00:00/2026-03-15 00:00:00/1/2/1");
  EXPECT_EQ(host_.Rows("SELECT TransDocNumber || '.' || LineNumber || ':' || ItemID || ':' || "
                       "WarehouseID || ':' || printf('%g', Quantity) FROM StockTransactionDetails "
                       "ORDER BY TransDocNumber, LineNumber"),
            "1.1:A:1:3,1.2:B:2:2.5,2.1:A:1:3,2.2:B:2:2.5");
  EXPECT_EQ(host_.Scalar("SELECT Description || ':' || ItemValue || ':' || LineValue1 || ':' || "
                         "TaxableGroupID || ':' || FromWarehouseID || ':' || CurrencyID || ':' || "
                         "DateThree || ':' || ifnull(TransDate, 'null') FROM "
                         "StockTransactionDetails WHERE TransDocNumber = 2 AND LineNumber = 1"),
            "Arroz:1.25:3.75:3:1:EUR:2026-04-01 00:00:00:null");
  EXPECT_EQ(host_.Scalar("SELECT TransDocNumber FROM DocumentsSeriesNumber WHERE TransSerial = "
                         "'A' AND TransDocID = 'SI'"),
            "2");

  EXPECT_EQ(StockRows(), "A/1/0:11:10:11:10,B/2/0:5:5:5:5") << "B's row is made";
  EXPECT_EQ(host_.Rows("SELECT ItemID || ':' || printf('%g', PhysicalQty) || ':' || printf('%g', "
                       "AvailableUnits) FROM Item ORDER BY ItemID"),
            "A:6:6,B:5:5,S:0:0");

  stock_->NewTransaction("SE", "B");
  EXPECT_EQ(stock_->Transaction().TransDocNumber, 0);
  EXPECT_TRUE(stock_->Transaction().Details.empty());
  EXPECT_FALSE(stock_->Transaction().FromWarehouse);
}

TEST_F(Stock, TheNumberFollowsTheLastOfTheSeriesAndDocument) {
  host_.Exec(
      "INSERT INTO DocumentsSeriesNumber (TransSerial, TransDocID, TransDocNumber) VALUES "
      "('A', 'SI', 41), ('B', 'SI', 7), ('A', 'SE', 9)");
  NewMovement();
  stock_->Commit(false);
  EXPECT_EQ(stock_->Transaction().TransDocNumber, 42);
  EXPECT_EQ(host_.Rows("SELECT TransSerial || TransDocID || TransDocNumber FROM "
                       "DocumentsSeriesNumber WHERE TransDocID <> 'TVD' ORDER BY 1"),
            "ASE9,ASI42,BSI7");
}

TEST_F(Stock, AMovementThatCannotBeWrittenIsRefusedWhole) {
  const std::string before = Written();
  struct Case {
    const char* what;
    void (*spoil)(host::StockTransaction&);
  };
  const Case cases[] = {
      {"no lines", [](host::StockTransaction& m) { m.Details.clear(); }},
      {"an unknown item", [](host::StockTransaction& m) { m.Details[1].ItemID = "Z"; }},
      {"an unknown warehouse", [](host::StockTransaction& m) { m.Details[1].WarehouseID = 7; }},
      {"no series", [](host::StockTransaction& m) { m.TransSerial.clear(); }},
      {"no document", [](host::StockTransaction& m) { m.TransDocument.clear(); }},
  };
  for (const Case& c : cases) {
    NewMovement();
    c.spoil(stock_->Transaction());
    host::Error error = RaisedError([&] { stock_->Prepare(true); });
    EXPECT_EQ(error.Number(), host::err::kInvalidProcedureCall) << c.what;
    EXPECT_EQ(RaisedNumber([&] { stock_->Commit(true); }), host::err::kInvalidProcedureCall)
        << c.what;
    EXPECT_EQ(stock_->Transaction().TransDocNumber, 0) << c.what;
    EXPECT_EQ(Written(), before) << c.what;
  }
  NewMovement();
  stock_->Transaction().Details[1].ItemID = "Z";
  EXPECT_NE(RaisedError([&] { stock_->Prepare(true); }).Description().find("'Z'"),
            std::string::npos);

  // A line the database refuses, not the check, undoes the whole movement.
  NewMovement();
  stock_->Commit(true);
  const std::string committed = Written();
  stock_->Transaction().Details[1].Description = std::string(256, 'x');
  stock_->Prepare(true);
  EXPECT_EQ(RaisedNumber([&] { stock_->Commit(true); }), -2147217833);
  EXPECT_EQ(stock_->Transaction().TransDocNumber, 1) << "as it was";
  EXPECT_EQ(Written(), committed);
  EXPECT_EQ(host_.Scalar("SELECT printf('%g', PhysicalQty) FROM Item WHERE ItemID = 'A'"), "3");
}

}  // namespace
}  // namespace standalone
