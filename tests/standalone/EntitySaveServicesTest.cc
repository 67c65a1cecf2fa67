// The services that save one row per entity: carriers, price lines,
// warehouses, tenders (with their names), units of measure, and the lines
// of the customers' ledgers.

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "connector/host/EntityServices.h"
#include "tests/host/HostTestTools.h"
#include "tests/support/TestHost.h"

namespace standalone {
namespace {

using host::RaisedNumber;

class EntitySaves : public ::testing::Test {
 protected:
  testsupport::TestHost host_;
};

TEST_F(EntitySaves, ACarrierReadsBackAsSavedAndAsUpdated) {
  auto carriers = host_.Host().NewCarrierService();
  host::Carrier carrier;
  carrier.CarrierID = 5;
  carrier.CarrierKey = "T5";
  carrier.CarrierName = "Transportes";
  carrier.CurrencyID = "USD";
  carrier.CurrencyExchange = 1.08;
  carrier.CurrencyFactor = 100;
  carrier.CurrentKm = 1234.5;
  carriers->Save(carrier, true);
  EXPECT_EQ(host_.Scalar("SELECT Description FROM Carrier WHERE CarrierID = 5"), "Transportes");

  carrier.CarrierName = "Transportes Norte";
  carrier.CurrentKm = 2000;
  carriers->Save(carrier, false);
  std::shared_ptr<host::Carrier> read = carriers->Get(5);
  ASSERT_TRUE(read);
  EXPECT_EQ(read->CarrierKey, "T5");
  EXPECT_EQ(read->CarrierName, "Transportes Norte");
  EXPECT_EQ(read->CurrencyID, "USD");
  EXPECT_EQ(read->CurrencyExchange, 1.08);
  EXPECT_EQ(read->CurrencyFactor, 100);
  EXPECT_EQ(read->CurrentKm, 2000);
  EXPECT_EQ(carriers->GetIDFromKey("T5"), 5);
  EXPECT_EQ(host_.Scalar("SELECT COUNT(*) FROM Carrier"), "1");
}

TEST_F(EntitySaves, APriceLineSavedUnderAnotherKeyIsKnownByItAtOnce) {
  // The factory's lines 0 (the cost) and 1, both without a key.
  auto lines = host_.Host().NewPriceLineService();
  EXPECT_EQ(lines->GetKey(1), "");  // read, and kept
  host::PriceLine line;
  line.PriceLineID = 1;
  line.PriceLineKey = "PV1";
  line.ShortName = "PVP1";
  line.Description = "Preço 1";
  line.LanguageID = "PT";
  lines->Save(line, false);
  EXPECT_EQ(lines->GetKey(1), "PV1");

  line.PriceLineID = lines->NextID();
  EXPECT_EQ(line.PriceLineID, 2);
  line.PriceLineKey = "PV2";
  line.Description = "Preço 2";
  lines->Save(line, true);
  EXPECT_EQ(lines->GetID("PV2"), 2);
  EXPECT_EQ(host_.Rows("SELECT PriceLineID || ':' || PriceLineKey || ':' || Description FROM "
                       "PriceLine ORDER BY PriceLineID"),
            "0::Preço de custo,1:PV1:Preço 1,2:PV2:Preço 2");
}

TEST_F(EntitySaves, AWarehouseExistsByIdOrByKeyWhenTheIdIsZero) {
  auto warehouses = host_.Host().NewWarehouseService();
  EXPECT_EQ(warehouses->NextID(), 2) << "after the factory's warehouse 1";
  host::Warehouse warehouse;
  warehouse.WarehouseKey = "A2";
  warehouse.Description = "Armazém 2";
  warehouse.CountryID = "PT";
  warehouses->Save(warehouse, 2, true);
  EXPECT_EQ(warehouses->NextID(), 3);

  EXPECT_TRUE(warehouses->Exists(2, ""));
  EXPECT_TRUE(warehouses->Exists(0, "A2"));
  EXPECT_FALSE(warehouses->Exists(0, "A3"));
  EXPECT_FALSE(warehouses->Exists(3, "A2")) << "an id given is what counts";
  EXPECT_TRUE(warehouses->Exists(0, "")) << "the factory's warehouse has the empty key";

  warehouse.Description = "Loja";
  warehouses->Save(warehouse, 2, false);
  EXPECT_EQ(host_.Rows("SELECT WarehouseID || ':' || WarehouseKey || ':' || Description FROM "
                       "Warehouse ORDER BY WarehouseID"),
            "1::Armazém 1,2:A2:Loja");

  host_.Exec("DELETE FROM Warehouse");
  EXPECT_EQ(warehouses->NextID(), 1);
  host_.Exec("INSERT INTO Warehouse (WarehouseID) VALUES (32767)");
  EXPECT_EQ(RaisedNumber([&] { warehouses->NextID(); }), host::err::kOverflow);
}

TEST_F(EntitySaves, ATenderIsSavedWithItsNameInTheHostsLanguage) {
  auto tenders = host_.Host().NewTenderService();
  host::Tender tender;
  tender.TenderID = 20;
  tender.TenderKey = "DD";
  tender.Description = "Débito direto";
  tender.TenderGroup = 2;
  tender.TenderKind = 4;
  tender.TenderOption2 = true;
  tender.TenderOption4 = true;
  EXPECT_FALSE(tenders->Exists(20));
  tenders->Save(tender, true);
  EXPECT_TRUE(tenders->Exists(20));
  tender.Description = "Débito em conta";
  tenders->Save(tender, false);

  std::shared_ptr<host::Tender> read = tenders->Get(0, "DD");
  ASSERT_TRUE(read);
  EXPECT_EQ(read->TenderID, 20);
  EXPECT_EQ(read->Description, "Débito em conta");
  EXPECT_EQ(read->TenderGroup, 2);
  EXPECT_EQ(read->TenderKind, 4);
  EXPECT_FALSE(read->TenderOption1);
  EXPECT_TRUE(read->TenderOption2);
  EXPECT_FALSE(read->TenderOption3);
  EXPECT_TRUE(read->TenderOption4);

  // The factory's cash, named in another language: its Portuguese name stays.
  host_.Host().Context().Settings()->LanguageID = "EN";
  tender = *tenders->Get(1, "");
  tender.Description = "Cash";
  tenders->Save(tender, false);
  EXPECT_EQ(host_.Rows("SELECT TenderID || ':' || LanguageID || ':' || Description FROM "
                       "TenderNames ORDER BY TenderID, LanguageID"),
            "1:EN:Cash,1:PT:Numerário,10:PT:Conta Corrente,20:PT:Débito em conta");
  EXPECT_EQ(host_.Scalar("SELECT TenderGroup || TenderOption1 FROM Tender WHERE TenderID = 1"),
            "11")
      << "the rest of the row as read";
}

TEST_F(EntitySaves, AUnitIsInsertedOrUpdatedByItsId) {
  auto units = host_.Host().NewUnitOfMeasureService();
  host::UnitOfMeasure unit;
  unit.UnitOfMeasureID = "M2";
  unit.Description = "Metro quadrado";
  unit.LanguageID = "PT";
  unit.BaseUnitOfMeasureID = "UN";
  unit.UnitFormula = "<QNT>*<MED1>*<MED2>";
  EXPECT_FALSE(units->Exists("M2"));
  units->Save(unit);
  EXPECT_TRUE(units->Exists("M2"));
  unit.UnitRatio = 2.5;
  unit.Description = "Metro²";
  units->Save(unit);
  EXPECT_EQ(host_.Rows("SELECT UnitOfMeasureID || ':' || Description || ':' || "
                       "BaseUnitOfMeasureID || ':' || UnitRatio || ':' || UnitFormula FROM "
                       "UnitOfMeasure ORDER BY 1"),
            "M2:Metro²:UN:2.5:<QNT>*<MED1>*<MED2>,UN:Unidade:UN:1.0:");
}

class CustomerLedger : public ::testing::Test {
 protected:
  host::LedgerLine Line(const std::string& serial, const std::string& document,
                        int32_t number = 0) {
    host::LedgerLine line;
    line.TransSerial = serial;
    line.TransDocument = document;
    line.TransDocNumber = number;
    line.PartyID = 12;
    line.TotalAmount = 150.25;
    line.TotalPendingAmount = 150.25;
    line.CurrencyID = "EUR";
    line.CreateDate = host::MakeDate(2026, 1, 31);
    line.TransactionKind = 6;
    return line;
  }

  // The number the ledger gave a line saved without one.
  int32_t Numbered(const std::string& serial, const std::string& document) {
    host::LedgerLine line = Line(serial, document);
    ledger_->Save(line);
    return line.TransDocNumber;
  }

  testsupport::TestHost host_;
  std::unique_ptr<host::CustomerLedgerService> ledger_ = host_.Host().NewCustomerLedgerService();
};

TEST_F(CustomerLedger, ALineWithoutANumberTakesTheNextOfItsSeriesAndDocument) {
  EXPECT_EQ(Numbered("A", "SI"), 1);
  EXPECT_EQ(Numbered("A", "SI"), 2);
  EXPECT_EQ(Numbered("A", "FT"), 1);
  EXPECT_EQ(Numbered("B", "SI"), 1);
  host::LedgerLine numbered = Line("A", "SI", 10);
  ledger_->Save(numbered);
  EXPECT_EQ(numbered.TransDocNumber, 10);
  EXPECT_EQ(Numbered("A", "SI"), 11);

  EXPECT_EQ(host_.Rows("SELECT TransSerial || TransDocument || TransDocNumber FROM "
                       "CustomerLedgerAccount ORDER BY 1"),
            "AFT1,ASI1,ASI10,ASI11,ASI2,BSI1");
  EXPECT_EQ(
      host_.Rows("SELECT PartyID || ':' || TotalAmount || ':' || TotalPendingAmount || ':' || "
                 "CurrencyID || ':' || CreateDate || ':' || ifnull(DueDate, 'null') || ':' "
                 "|| TransactionKind FROM CustomerLedgerAccount WHERE TransSerial = 'B'"),
      "12:150.25:150.25:EUR:2026-01-31 00:00:00:null:6");
}

TEST_F(CustomerLedger, ARefusedLineIsNotWrittenAndKeepsItsZero) {
  host::LedgerLine line = Line("A", "SI");
  line.CurrencyID = "EURO";
  EXPECT_EQ(RaisedNumber([&] { ledger_->Save(line); }), -2147217833);
  EXPECT_EQ(line.TransDocNumber, 0);
  EXPECT_EQ(host_.Scalar("SELECT COUNT(*) FROM CustomerLedgerAccount"), "0");
  EXPECT_EQ(Numbered("A", "SI"), 1);
}

}  // namespace
}  // namespace standalone
