// The import end to end through the lumaro program: one back-office file that
// holds every kind of record (tests/data/import/scenario/ITpv0001.txt,
// Windows-1252, CR LF) over a POS database that already holds what the
// records refer to (pos-seed.sql). Every expected value below is worked out
// from the file's lines and the seed rows; the comments say how.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/app/ImportShop.h"

namespace {

using importshop::ImportShop;
using importshop::Join;
using importshop::kNow;
using testsupport::ReadBytes;

const std::string kData = std::string(LUMARO_TEST_DATA_DIR) + "/import/scenario";
// The run that reads the touched file again comes five minutes later, so that
// the log shows when it was taken.
const std::string kLater = "2026-03-14 10:05:00";
// The file's own date, in local time as the host reads it.
const std::string kFileDate = "2026-03-13 18:30:15";
const std::string kTouchedFileDate = "2026-03-13 18:30:20";
// Customer 502 of the file would take the id of another customer: the box
// says that the number is taken, but the id it shows is still 0.
const std::string kNumberTaken = "Já existe um cliente com o nº0\n";

int Count(const std::string& text, const std::string& part) {
  int count = 0;
  for (size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) ++count;
  return count;
}

// The scenario's shop: the seed rows in the POS database.
struct Shop : ImportShop {
  Shop() { Seed(ReadBytes(kData + "/pos-seed.sql")); }

  // Every row of every table an import may write to; a failed file must
  // leave all of it alone.
  std::string DumpImportTables() {
    std::string dump;
    for (const char* table :
         {"Salesman", "Customer", "PartyAddress", "Party", "Family", "FamilyProfitRate", "Item",
          "ItemSellingPrices", "POSIdentity", "ItemComponents", "AlternativeItem", "ItemSupplier",
          "ItemPropertytable", "StockProperty"}) {
      dump += Dump(table);
    }
    return dump;
  }
};

std::string ScenarioFile() { return ReadBytes(kData + "/ITpv0001.txt"); }

std::string NoPrice(const std::string& item, int line) {
  return item + "|" + std::to_string(line) + "|0|0||0|0|NULL|0";
}

// What the scenario's file leaves in the POS database, table by table.
void ExpectTheFileImported(ImportShop& shop) {
  // Salesmen: V01 is known and gets the file's name and remarks (position 13,
  // not the "NAO" of 12) and the fixed values again; V02 and V03 are new, in
  // the file's order, after the highest id. V03 has no name: its code is.
  EXPECT_EQ(shop.Select("SalesmanID,SalesmanKey,SalesmanName,Comments,CountryID,SalesmanLevel,"
                        "MaximumDiscount,SalesGroupID,ComissionOnSale,ComissionOnPay,"
                        "ComissionIncidenceType,SpokenLanguageID",
                        "Salesman ORDER BY SalesmanID"),
            "1|V01|João Velho|Obs V01|PT|0|100.0|0|0.0|100.0|0|PT,"
            "2|V02|Maria Nova||PT|0|100.0|0|0.0|100.0|0|PT,"
            "3|V03|V03||PT|0|100.0|0|0.0|100.0|0|PT");

  // Customers. 501 was "Exported" and comes back under its number: every
  // field the record carries is replaced (empty keys give 0, then the first
  // price line above 0, salesman and carrier), credit "C" clears the limit,
  // and its own payment, tender and tax regime stay. 502 belongs to another
  // key and is left as it was. 1001 is new, every key found (salesman V02
  // made by this file). 1002 is new with unknown keys: the first zone,
  // carrier, price line and salesman, group 0; "l" counts as "L". New
  // customers take the first payment term, the first tender and the shop's
  // tax regime (3) and retention rate (20).
  const std::string customer_columns =
      "CustomerID,CustomerKey,OrganizationName,EmailAddress,Telephone1,Fax,FederalTaxID,"
      "CustomerLevel,ZoneID,PriceLineID,SalesmanID,CarrierID,PaymentID,TenderID,TaxRegime,"
      "DirectDiscount,CreditLimitType,CreditLimitAmount,CreditLimitDays,CreditCurrencyID,"
      "CreditCurrencyExchange,CreditCurrencyFactor,AplyRetentionTax,RetentionTax,Inactive,"
      "Comments,AddressID";
  EXPECT_EQ(shop.Select(customer_columns, "Customer ORDER BY CustomerID"),
            "501|501|Loja do Bairro|loja@exemplo.pt|220000001||123456789|0|1|1|1|3|8|10|2|0.0|"
            "0|0|0|EUR|1.0|1.0|0|20.0|0||0,"
            "502|9502|Outro Cliente|outro@exemplo.pt|253000000||500000000|0|2|1|1|3|7|1|1|0.0|"
            "0|0|0|EUR|1.0|1.0|0|0.0|0||0,"
            "1001|1001|Café Ção|cafe@exemplo.pt|213000001|213000002|501234567|5|2|2|2|4|7|1|3|"
            "2.5|1|0|0|EUR|1.0|1.0|1|20.0|0|Cliente novo|0,"
            "1002|1002|Sem Zona|||||0|1|1|1|3|7|1|3|0.0|1|0|0|EUR|1.0|1.0|0|20.0|1||0");
  // The columns the record does not carry keep the till's values.
  EXPECT_EQ(shop.Select("PresetText,SecondDiscount,CreationDate,CountryID,CurrencyID",
                        "Customer WHERE CustomerID=501"),
            "XYZ|3.0|2026-02-10 12:00:00|PT|EUR");
  EXPECT_EQ(shop.Select("PartyID,AddressID,AddressLine1,AddressLine2,PostalCode",
                        "PartyAddress ORDER BY PartyID,AddressID"),
            "501|0|Rua Nova 7|Porto|4000-002,502|0|Rua X|Braga|4700-001,"
            "1001|0|Rua do Sol 5|Lisboa|1100-001,1002|0|Av Central|Faro|8000-001");
  EXPECT_EQ(shop.Select("PartyID,PartyType", "Party ORDER BY PartyID"),
            "501|1,502|1,1001|1,1002|1");

  // Families. "01" exists: it gets the file's name, kind "A" and its place
  // under the root, and keeps its discount and level rows. The new ones take
  // the next ids in the file's order: "02" under the root, "0101" under "01"
  // (name from the short name, kind "S"), "010101" under "0101" (kind "s" is
  // not "S"), each with a path of names from the root.
  EXPECT_EQ(shop.Select("FamilyID,FamilyKey,FamilyName,ParentFamilyID,ParentFamilyName,"
                        "FamilyLevel,FamilyPath,MaximumDiscount,IsServiceFamily,FamilyItemKind",
                        "Family ORDER BY FamilyID"),
            "1|GeneralFamily|Geral|0|Geral|0|Geral|100.0|0|0,"
            "2|01|Bebidas|1|Geral|1|Geral\\Bebidas|50.0|0|0,"
            "3|02|Mercearia|1|Geral|1|Geral\\Mercearia|100.0|0|0,"
            "4|0101|Sumos|2|Bebidas|2|Geral\\Bebidas\\Sumos|100.0|1|1,"
            "5|010101|Sumos Naturais|4|Sumos|3|Geral\\Bebidas\\Sumos\\Sumos Naturais|100.0|0|0");
  EXPECT_EQ(shop.Select("FamilyID,LevelNumber,LevelValue",
                        "FamilyProfitRate ORDER BY FamilyID,LevelNumber"),
            "2|1|10.0,2|2|20.0,2|3|30.0,3|1|0.0,3|2|0.0,3|3|0.0,"
            "4|1|0.0,4|2|0.0,4|3|0.0,5|1|0.0,5|2|0.0,5|3|0.0");

  // Items. X3 is valid never (kind 3). Tax classes of the types: 2 -> 1
  // (23 %), 1 -> 3 (6 %), 3 -> 2 (13 %), 4 -> 4 (0 %). Every new item has
  // supplier 4, the first one. A1 tracks lots (CL's rules), b2 serial
  // numbers (CNS's); the others have no property and the fixed rules. S1:
  // the short name trimmed and cut to 50 characters, units of 5 and 4
  // characters give the default unit. b2: a base unit with position 15 above
  // 0 gives the default unit, a factor of 0 gives a sale factor of 1, an
  // unknown family the root, and 31-02-2026 is no date. G1, the kit, stands
  // before its components in the file.
  const std::string item_columns =
      "ItemID,ItemKey,ShortDescription,Description,ItemType,IsComposed,FamilyID,SupplierID,"
      "TaxableGroupID,BaseUnitOfMeasureID,SaleUnitOfMeasureID,SaleUnitFactor,"
      "AltUnitOfMeasureID1,AltUnitOfMeasureID2,AltUnitOfMeasureID3,AltUnitFactor,CurrencyID,"
      "CurrencyExchange,CurrencyFactor,ControlsStock,AuxiliaryCode1,AuxiliaryCode4,PropertyID1,"
      "PropertyRule1,PropertyRule2,PropertyRule3,PropertyRule4,PropertyRule5,PropertyRule6,"
      "UseImageInSale,UsesScale,ItemDate,Barcode";
  EXPECT_EQ(shop.Select(item_columns, "Item WHERE ItemID='A1'"),
            "A1|A1|Sumo de laranja|Sumo de laranja natural 1L|0|0|4|4|1|UN|UN|1.0|UN|UN|UN|1.0|"
            "EUR|1.0|1.0|0|0|0|CL|-1|0|0|-1|0|1|1|0|2026-01-15 00:00:00|5601234000028");
  EXPECT_EQ(shop.Select(item_columns, "Item WHERE ItemID='S1'"),
            "S1|S1|Serviço de entrega ao domicílio com marcação prévi|Entrega ao domicílio|1|0|4|"
            "4|3|UN|UN|2.5|UN|UN|UN|2.5|EUR|1.0|1.0|0|0|0||-1|2|0|0|0|0|1|1|NULL|");
  EXPECT_EQ(shop.Select(item_columns, "Item WHERE ItemID='b2'"),
            "b2|b2|Garrafa|Garrafa de água 6x1.5L|0|0|1|4|2|UN|CX|1.0|CX|CX|CX|0.0|EUR|1.0|1.0|0|"
            "0|0|CNS|0|0|0|0|1|1|1|0|NULL|");
  EXPECT_EQ(shop.Select(item_columns, "Item WHERE ItemID='G1'"),
            "G1|G1|Cabaz|Cabaz de sumos|4|1|3|4|4|UN|UN|1.0|UN|UN|UN|1.0|EUR|1.0|1.0|0|0|0||-1|2|"
            "0|0|0|0|1|0|NULL|");
  EXPECT_EQ(shop.Query("SELECT ItemID FROM Item ORDER BY ItemID"), "A1,G1,S1,b2");

  // Prices: a row for each price line, 0 to 3, of every item. Only lines
  // with a key are found (PV9 is unknown). A1 PV2: 10 without tax at 23 %;
  // A1 PV3: 10 with tax; b2: 4,5 without tax at 13 %; S1: 20 with tax at
  // 6 %, no date; G1: 7,5 with tax at 0 %.
  EXPECT_EQ(shop.Select("ItemID,PriceLineID,ColorID,SizeID,LotID,PriceWithoutTax,PriceWithTax,"
                        "PriceDate,PriceStatus",
                        "ItemSellingPrices ORDER BY ItemID,PriceLineID"),
            Join({NoPrice("A1", 0), NoPrice("A1", 1), "A1|2|0|0||10|12.3|2026-03-01 00:00:00|0",
                  "A1|3|0|0||8.1301|10|NULL|0", NoPrice("G1", 0), NoPrice("G1", 1),
                  "G1|2|0|0||7.5|7.5|NULL|0", NoPrice("G1", 3), NoPrice("S1", 0), NoPrice("S1", 1),
                  "S1|2|0|0||18.8679|20|NULL|0", NoPrice("S1", 3), NoPrice("b2", 0),
                  NoPrice("b2", 1), "b2|2|0|0||4.5|5.085|NULL|0", NoPrice("b2", 3)},
                 ","));

  // Barcodes: A1's first marked code is its main barcode; the second marked
  // one and the unmarked one (sent twice) are further rows. S1 has no marked
  // code and keeps an empty main barcode. An empty code is passed over.
  EXPECT_EQ(shop.Select("ItemID,Barcode,UnitOfMeasureID,Quantity,CurrencyID,CurrencyExchange,"
                        "CurrencyFactor",
                        "POSIdentity ORDER BY ItemID,Barcode"),
            "A1|5601234000011|UN|1.0|EUR|1.0|1.0,A1|5601234000035|UN|1.0|EUR|1.0|1.0,"
            "S1|2000000000017|UN|1.0|EUR|1.0|1.0");

  // Kit components: the unknown component takes no place in the order; b2
  // is not a kit and gets none. The lookup (after the quantity) is
  // "order|item|colour|size||", upper-cased.
  EXPECT_EQ(shop.Select("ItemID,ComponentOrder,ComponentItemID,ComponentKey,ComponentColorID,"
                        "ComponentSizeID,ComponentQuantity,ComponentLookup",
                        "ItemComponents ORDER BY ItemID,ComponentOrder"),
            "G1|0|A1|A1|0|0|2.0|0|A1|0|0||,G1|1|b2|b2|0|0|0.5|1|B2|0|0||");
  // The alternative of A1 is read but never stored.
  EXPECT_EQ(shop.Query("SELECT count(*) FROM AlternativeItem"), "0");

  // Stock by lot: one unit for each value, L001 with the dates of its
  // second line; S1 has no property and the unknown item is passed over.
  EXPECT_EQ(shop.Select("ItemID,WarehouseID,PropertyValue1,PropertyValue2,PropertyValue3,"
                        "ProductionDate,ExpirationDate,PhysicalQty,PhysicalUnits,CurrencyID,"
                        "CurrencyExchange,CurrencyFactor",
                        "StockProperty ORDER BY ItemID,PropertyValue1"),
            "A1|1|L001|||2026-02-02 00:00:00|2027-03-01 00:00:00|1.0|1.0|EUR|1.0|1.0,"
            "A1|1|L002|||NULL|NULL|1.0|1.0|EUR|1.0|1.0,"
            "b2|1|SN1|||2026-03-01 00:00:00|NULL|1.0|1.0|EUR|1.0|1.0");
}

TEST(ProgramImportScenario, EveryRecordKindReachesItsTableAndOnlyATouchedFileIsReadAgain) {
  Shop shop;
  shop.Write("ITpv0001.txt", ScenarioFile(), kFileDate);
  const std::string size = std::to_string(ScenarioFile().size());
  const std::string other_customer =
      shop.Dump("Customer", "CustomerID = 502") + shop.Dump("PartyAddress", "PartyID = 502");

  auto run = shop.Import();
  ASSERT_EQ(run.exit_code, 0) << run.err;
  EXPECT_EQ(Count(run.err, kNumberTaken), 1) << run.err;
  // No record was refused: no closing box and no error file; the imported
  // file stays where it was.
  EXPECT_EQ(run.err.find("A importação foi efectuada com erros."), std::string::npos) << run.err;
  EXPECT_EQ(run.err.find("error "), std::string::npos) << run.err;
  EXPECT_EQ(shop.ExchangeFiles(), std::vector<std::string>{"ITpv0001.txt"});
  ExpectTheFileImported(shop);
  EXPECT_EQ(shop.Dump("Customer", "CustomerID = 502") + shop.Dump("PartyAddress", "PartyID = 502"),
            other_customer);
  const std::string log = shop.LogRows();
  EXPECT_EQ(log, "1|ITpv0001.txt|" + kNow + "|" + size + "|" + kFileDate);
  EXPECT_EQ(shop.LastImportNumber(), "1");

  // Same date: the file is not read at all, so no box either.
  const std::string imported = shop.DumpImportTables();
  auto again = shop.Import();
  ASSERT_EQ(again.exit_code, 0) << again.err;
  EXPECT_EQ(again.err.find(kNumberTaken), std::string::npos) << again.err;
  EXPECT_EQ(shop.DumpImportTables(), imported);
  EXPECT_EQ(shop.LogRows(), log);

  // A few seconds younger: the file is read again, the one log row moves to
  // the new dates, and the rows come out the same.
  shop.Touch("ITpv0001.txt", kTouchedFileDate);
  auto touched = shop.Import(kLater);
  ASSERT_EQ(touched.exit_code, 0) << touched.err;
  EXPECT_EQ(Count(touched.err, kNumberTaken), 1) << touched.err;
  EXPECT_EQ(shop.LogRows(), "1|ITpv0001.txt|" + kLater + "|" + size + "|" + kTouchedFileDate);
  ExpectTheFileImported(shop);
  EXPECT_EQ(shop.LastImportNumber(), "1");
  EXPECT_EQ(shop.ExchangeFiles(), std::vector<std::string>{"ITpv0001.txt"});
}

TEST(ProgramImportScenario, AFailureInTheLastPassLeavesTheDatabaseAsItWas) {
  Shop shop;
  // The first component's quantity is no number: every pass before the
  // components has written its rows by then.
  std::string bytes = ScenarioFile();
  const std::string component = "AG^G1^A1^2\r\n";
  ASSERT_NE(bytes.find(component), std::string::npos);
  bytes.replace(bytes.find(component), component.size(), "AG^G1^A1^dois\r\n");
  shop.Write("ITpv0002.txt", bytes, kFileDate);
  const std::string before = shop.DumpImportTables();

  auto run = shop.Import();
  EXPECT_EQ(run.exit_code, 1) << run.err;
  EXPECT_EQ(Count(run.err, kNumberTaken), 1) << run.err;
  EXPECT_TRUE(testsupport::LastLine(run.err).starts_with("error 13 in <ImportData>: ")) << run.err;
  // A raised failure is not the message of a pass that stopped by itself.
  EXPECT_EQ(run.err.find("Ocorreu um erro na importação"), std::string::npos) << run.err;

  EXPECT_EQ(shop.DumpImportTables(), before);
  EXPECT_EQ(shop.Lumaro({"log"}).out.find("ITpv0002"), std::string::npos);
  EXPECT_EQ(shop.LastImportNumber(), "0");
  // Nothing was refused at a save: no error file.
  EXPECT_EQ(shop.ExchangeFiles(), std::vector<std::string>{"ITpv0002.txt"});
}

}  // namespace
