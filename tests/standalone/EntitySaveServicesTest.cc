// The entity services' saves. Customers, suppliers and banks save their
// party with them: the Party row, the main address, and, when the entity
// carries its Party, the further addresses, persons with their telephones
// and bank accounts, which replace those stored. Carriers, price lines,
// warehouses, tenders (with their names), units of measure and the lines of
// the customers' ledgers save one row each.

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "connector/host/EntityServices.h"
#include "tests/host/HostTestTools.h"
#include "tests/support/TestHost.h"

namespace standalone {
namespace {

using host::RaisedNumber;

constexpr int32_t kTextTooLong = -2147217833;

// A further address: {party, id, lines 1 and 2, postal code, country,
// province, locality}.
host::PartyAddress Address(double address_id, const std::string& line1) {
  return {0, address_id, line1, "", "1000-001", "PT", "", 0};
}

class PartyServices : public ::testing::Test {
 protected:
  // A party's addresses, persons and telephones, "|" between the tables;
  // each row as its columns joined by ":" and ordered by key.
  std::string Contacts(double party_id) {
    const std::string where =
        " WHERE PartyID = " + std::to_string(static_cast<long long>(party_id)) + " ORDER BY ";
    return host_.Rows("SELECT AddressID || ':' || AddressLine1 FROM PartyAddress" + where +
                      "AddressID") +
           "|" +
           host_.Rows("SELECT PersonID || ':' || Title || ':' || Name FROM Person" + where +
                      "PersonID") +
           "|" +
           host_.Rows(
               "SELECT PersonID || ':' || TelephoneID || ':' || TelephoneType || ':' || "
               "TelephoneNumber FROM Telephone" +
               where + "PersonID, TelephoneID");
  }

  testsupport::TestHost host_;
};

// Persons below are {id, title, name, telephones}, a telephone {id, type,
// number}.

TEST_F(PartyServices, ASuppliersPartyReadsBackAndASecondSaveReplacesIt) {
  // Customer 7 has a party of its own, under PartyID 7, that the supplier's
  // save must leave alone.
  host_.Exec(
      "INSERT INTO Person (PartyID, PersonID, Name) VALUES (7, 1, 'Cliente');"
      "INSERT INTO Telephone (PartyID, PersonID, TelephoneID, TelephoneNumber) VALUES (7, 1, 1, "
      "'200');"
      "INSERT INTO PartyAddress (PartyID, AddressID, AddressLine1) VALUES (7, 1, 'Do cliente');");
  auto suppliers = host_.Host().NewSupplierService();
  EXPECT_EQ(suppliers->NextID(), 1);

  host::Supplier supplier;
  supplier.SupplierID = 7;
  supplier.SupplierKey = "F7";
  supplier.OrganizationName = "Fornecedor, Lda";
  supplier.AddressLine1 = "Rua Principal";
  supplier.CountryID = "PT";
  supplier.CreationDate = host::MakeDate(2026, 3, 1);
  supplier.Party = host_.Host().NewParty(1, supplier.SupplierID);
  supplier.Party->Addresses = {Address(1, "Armazém"), Address(2, "Escritório")};
  supplier.Party->Persons = {{1, "Sr.ª", "Ana", {{1, 0, "211"}, {2, 1, "212"}}},
                             {2, "", "Rui", {{1, 0, "213"}}}};
  suppliers->Save(supplier, true);

  EXPECT_EQ(supplier.Party->PartyID, 10000000007);
  EXPECT_EQ(host_.Rows("SELECT SupplierKey || ':' || OrganizationName || ':' || AddressID FROM "
                       "Supplier"),
            "F7:Fornecedor, Lda:0");
  EXPECT_EQ(host_.Scalar("SELECT PartyType || ':' || CreationDate FROM Party WHERE PartyID = "
                         "10000000007"),
            "1:2026-03-01 00:00:00");
  EXPECT_EQ(
      Contacts(10000000007),
      "0:Rua Principal,1:Armazém,2:Escritório|1:Sr.ª:Ana,2::Rui|1:1:0:211,1:2:1:212,2:1:0:213");
  EXPECT_EQ(host_.Scalar("SELECT PostalCode || CountryID FROM PartyAddress WHERE AddressID = 2 "
                         "AND PartyID = 10000000007"),
            "1000-001PT");
  EXPECT_EQ(suppliers->NextID(), 8);

  // Fewer of everything, and a new main address line.
  supplier.AddressLine1 = "Rua Nova";
  supplier.Party->Addresses = {Address(1, "Armazém novo")};
  supplier.Party->Persons = {{1, "", "Rita", {{3, 0, "219"}}}};
  suppliers->Save(supplier, false);

  EXPECT_EQ(host_.Scalar("SELECT COUNT(*) FROM Supplier"), "1");
  EXPECT_EQ(host_.Scalar("SELECT COUNT(*) FROM Party WHERE PartyID = 10000000007"), "1");
  EXPECT_EQ(Contacts(10000000007), "0:Rua Nova,1:Armazém novo|1::Rita|1:3:0:219");
  EXPECT_EQ(Contacts(7), "1:Do cliente|1::Cliente|1:1:0:200");
}

TEST_F(PartyServices, ACustomerSavedWithoutItsPartyKeepsItsContacts) {
  auto customers = host_.Host().NewCustomerService();
  host::Customer customer;
  customer.CustomerID = 12;
  customer.OrganizationName = "Cliente";
  customer.AddressLine1 = "Rua A";
  customer.Party.emplace();  // a customer's party is as the load builds it
  customer.Party->Addresses = {Address(1, "Entrega")};
  customer.Party->Persons = {{1, "", "Ana", {{1, 0, "211"}}}};
  customers->Save(customer, customer.CustomerID);
  EXPECT_EQ(host_.Scalar("SELECT PartyType FROM Party WHERE PartyID = 12"), "1");
  EXPECT_EQ(Contacts(12), "0:Rua A,1:Entrega|1::Ana|1:1:0:211");

  customer.Party.reset();
  customer.AddressLine1 = "Rua B";
  customers->Save(customer, customer.CustomerID);
  EXPECT_EQ(Contacts(12), "0:Rua B,1:Entrega|1::Ana|1:1:0:211");
  EXPECT_EQ(customers->Get(12)->AddressLine1, "Rua B");

  // An empty party holds nothing beside the main address.
  customer.Party.emplace();
  customers->Save(customer, customer.CustomerID);
  EXPECT_EQ(Contacts(12), "0:Rua B||");
}

TEST_F(PartyServices, ABanksAccountsAreThoseOfItsParty) {
  auto banks = host_.Host().NewBankService();
  host::Bank bank;
  bank.BankKey = "CGD";
  bank.Name = "Caixa";
  bank.Party = host_.Host().NewParty(3, 4);
  // {id, bank, bank name, description, country, bank code, branch, number,
  // check digits, currency}
  bank.Party->BankAccounts = {{1, 4, "", "Ordem", "", "0035", "", "123", "", "EUR"},
                              {2, 4, "", "Prazo", "", "0035", "", "456", "", "EUR"}};
  banks->Save(bank, 4, true);

  const char* const kAccounts =
      "SELECT BankAccountID || ':' || BankID || ':' || Description || ':' || BankCode || ':' || "
      "AccountNumber || ':' || CurrencyID FROM PartyBankAccount WHERE PartyID = 30000000004 "
      "ORDER BY BankAccountID";
  EXPECT_EQ(host_.Rows("SELECT BankID || ':' || BankKey || ':' || Name FROM Bank"), "4:CGD:Caixa");
  EXPECT_EQ(host_.Scalar("SELECT PartyType FROM Party WHERE PartyID = 30000000004"), "3");
  EXPECT_EQ(host_.Rows(kAccounts), "1:4:Ordem:0035:123:EUR,2:4:Prazo:0035:456:EUR");
  EXPECT_EQ(host_.Scalar("SELECT COUNT(*) FROM PartyAddress"), "0") << "a bank has no address";

  bank.Name = "Caixa Geral";
  bank.Party->BankAccounts.erase(bank.Party->BankAccounts.begin());
  banks->Save(bank, 4, false);
  EXPECT_EQ(host_.Rows("SELECT Name FROM Bank WHERE BankID = 4"), "Caixa Geral");
  EXPECT_EQ(host_.Rows(kAccounts), "2:4:Prazo:0035:456:EUR");
}

TEST_F(PartyServices, ARefusedSaveLeavesTheSupplierAndItsPartyAsTheyWere) {
  auto suppliers = host_.Host().NewSupplierService();
  host::Supplier supplier;
  supplier.SupplierID = 3;
  supplier.OrganizationName = "Antes";
  supplier.AddressLine1 = "Rua Principal";
  supplier.Party = host_.Host().NewParty(1, 3);
  supplier.Party->Addresses = {Address(1, "Armazém")};
  supplier.Party->Persons = {{1, "", "Ana", {}}};
  suppliers->Save(supplier, true);

  // A telephone longer than its column is refused before anything is
  // written; an address under the main address's id, when the database
  // runs the writes.
  host::Supplier too_long = supplier;
  too_long.Party->Persons.front().Telephones = {{0, 0, std::string(31, '9')}};
  host::Supplier broken_key = supplier;
  broken_key.Party->Addresses.push_back(Address(0, "Outra principal"));
  const std::pair<host::Supplier*, int32_t> refusals[] = {{&too_long, kTextTooLong},
                                                          {&broken_key, host::err::kSqlRefused}};
  for (const auto& [refused, number] : refusals) {
    refused->OrganizationName = "Depois";
    refused->AddressLine1 = "Rua Nova";
    refused->Party->Addresses.front().AddressLine1 = "Armazém novo";
    refused->Party->Persons.push_back({2, "", "Rui", {}});
    EXPECT_EQ(RaisedNumber([&] { suppliers->Save(*refused, false); }), number);
    EXPECT_EQ(host_.Scalar("SELECT OrganizationName FROM Supplier"), "Antes");
    EXPECT_EQ(Contacts(10000000003), "0:Rua Principal,1:Armazém|1::Ana|");
  }
}

class EntitySaves : public ::testing::Test {
 protected:
  testsupport::TestHost host_;
};

TEST_F(EntitySaves, ACarrierReadsBackAsSavedAndAsUpdated) {
  auto carriers = host_.Host().NewCarrierService();
  host::Carrier carrier{.CarrierID = 5,
                        .CarrierKey = "T5",
                        .CarrierName = "Transportes",
                        .CurrencyID = "USD",
                        .CurrencyExchange = 1.08,
                        .CurrencyFactor = 100,
                        .CurrentKm = 1234.5};
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
  host::PriceLine line{.PriceLineID = 1,
                       .PriceLineKey = "PV1",
                       .ShortName = "PVP1",
                       .Description = "Preço 1",
                       .LanguageID = "PT"};
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

TEST_F(EntitySaves, AWarehouseIsFoundByIdOrByKeyWhenTheIdIsZeroAndLoadsAsSaved) {
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
  std::shared_ptr<host::Warehouse> shop = warehouses->Load(2);
  ASSERT_TRUE(shop);
  EXPECT_EQ(shop->WarehouseID, 2);
  EXPECT_EQ(shop->WarehouseKey, "A2");
  EXPECT_EQ(shop->Description, "Loja");
  EXPECT_FALSE(warehouses->Load(9));
  host_.Exec("INSERT INTO Warehouse (WarehouseID, Description) VALUES (-1, 'Trânsito')");
  EXPECT_EQ(warehouses->GetWarehouses(), (std::vector<int16_t>{-1, 1, 2}));

  host_.Exec("DELETE FROM Warehouse");
  EXPECT_EQ(warehouses->NextID(), 1);
  host_.Exec("INSERT INTO Warehouse (WarehouseID) VALUES (32767)");
  EXPECT_EQ(RaisedNumber([&] { warehouses->NextID(); }), host::err::kOverflow);
}

TEST_F(EntitySaves, ATenderIsSavedWithItsNameInTheHostsLanguage) {
  auto tenders = host_.Host().NewTenderService();
  host::Tender tender{.TenderID = 20,
                      .TenderKey = "DD",
                      .Description = "Débito direto",
                      .TenderGroup = 2,
                      .TenderKind = 4,
                      .TenderOption2 = true,
                      .TenderOption4 = true};
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
  host::UnitOfMeasure unit{.UnitOfMeasureID = "M2",
                           .Description = "Metro quadrado",
                           .LanguageID = "PT",
                           .BaseUnitOfMeasureID = "UN",
                           .UnitFormula = "<QNT>*<MED1>*<MED2>"};
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

TEST_F(EntitySaves, ALedgerLineWithoutANumberTakesTheNextOfItsSeriesAndDocument) {
  auto ledger = host_.Host().NewCustomerLedgerService();
  auto line = [](const std::string& serial, const std::string& document, int32_t number = 0) {
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
  };
  // The number the ledger gave a line saved without one.
  auto numbered = [&](const std::string& serial, const std::string& document) {
    host::LedgerLine saved = line(serial, document);
    ledger->Save(saved);
    return saved.TransDocNumber;
  };

  // A refused line is not written, keeps its zero and takes no number.
  host::LedgerLine refused = line("A", "SI");
  refused.CurrencyID = "EURO";
  EXPECT_EQ(RaisedNumber([&] { ledger->Save(refused); }), kTextTooLong);
  EXPECT_EQ(refused.TransDocNumber, 0);
  EXPECT_EQ(host_.Scalar("SELECT COUNT(*) FROM CustomerLedgerAccount"), "0");

  EXPECT_EQ(numbered("A", "SI"), 1);
  EXPECT_EQ(numbered("A", "SI"), 2);
  EXPECT_EQ(numbered("A", "FT"), 1);
  EXPECT_EQ(numbered("B", "SI"), 1);
  host::LedgerLine given = line("A", "SI", 10);
  ledger->Save(given);
  EXPECT_EQ(given.TransDocNumber, 10);
  EXPECT_EQ(numbered("A", "SI"), 11);

  EXPECT_EQ(host_.Rows("SELECT TransSerial || TransDocument || TransDocNumber FROM "
                       "CustomerLedgerAccount ORDER BY 1"),
            "AFT1,ASI1,ASI10,ASI11,ASI2,BSI1");
  EXPECT_EQ(
      host_.Rows("SELECT PartyID || ':' || TotalAmount || ':' || TotalPendingAmount || ':' || "
                 "CurrencyID || ':' || CreateDate || ':' || ifnull(DueDate, 'null') || ':' "
                 "|| TransactionKind FROM CustomerLedgerAccount WHERE TransSerial = 'B'"),
      "12:150.25:150.25:EUR:2026-01-31 00:00:00:null:6");
}

}  // namespace
}  // namespace standalone
