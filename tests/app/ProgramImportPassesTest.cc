// The record passes of an import file end to end through the lumaro program:
// customers, salesmen, families, items, stock by lot, prices, barcodes and
// kits, each checked in the POS database after the run.

#include <gtest/gtest.h>

#include <map>
#include <sstream>

#include "tests/app/ImportShop.h"

namespace {

using importshop::ImportShop;
using importshop::Join;

const std::string kFile = "ITpv0001.txt";

// The back office writes Windows-1252; every text here stays within Latin-1.
std::string Ansi(const std::string& utf8) {
  std::string out;
  for (size_t i = 0; i < utf8.size(); ++i) {
    unsigned char c = static_cast<unsigned char>(utf8[i]);
    if (c >= 0xC0 && i + 1 < utf8.size()) {
      out += static_cast<char>(((c & 0x1F) << 6) | (static_cast<unsigned char>(utf8[++i]) & 0x3F));
    } else {
      out += static_cast<char>(c);
    }
  }
  return out;
}

// `line` with the positions of `set` replaced.
std::string Record(const std::string& line, const std::map<int, std::string>& set) {
  std::vector<std::string> fields;
  std::istringstream in(line + "^");
  for (std::string field; std::getline(in, field, '^');) fields.push_back(field);
  for (const auto& [position, value] : set) fields[position] = value;
  return Join(fields);
}

// An ordinary item of VAT type 2 sold and kept in "UN", valid always, with no
// lot; `set` overrides positions.
std::string Ar(const std::string& key, const std::map<int, std::string>& set = {}) {
  return Record("AR^" + key + "^Sigla " + key + "^Artigo " + key +
                    "^A^^^^^^^2^UN^UN^1^0^0^01-01-2020^31-12-2030^^0^^^^0",
                set);
}

// A customer. Here and below the positions nobody reads hold text of their
// own, so that a field read one position off shows.
std::string Cl(const std::string& number, const std::string& name,
               const std::map<int, std::string>& set = {}) {
  return Record("CL^" + number + "^" + name + "^^^^^^^^^^x12^^^x15^0^^x18^x19^^0^^0", set);
}

std::string Vn(const std::string& code, const std::string& name, const std::string& remarks) {
  return Join(
      {"VN", code, name, "x3", "x4", "x5", "x6", "x7", "x8", "x9", "x10", "x11", "x12", remarks});
}

std::string Fa(const std::string& code, const std::string& level1, const std::string& level2,
               const std::string& level3, const std::string& level4, const std::string& sigla,
               const std::string& description, const std::string& kind) {
  return Join({"FA", code, level1, level2, level3, level4, sigla, description, "x8", kind});
}

std::string Ap(const std::string& item, const std::string& line, const std::string& price,
               const std::string& date, const std::string& tax_included) {
  return Join({"AP", item, line, price, date, "9,99", "x6", "x7", tax_included});
}

std::string Ab(const std::string& barcode, const std::string& item, const std::string& main) {
  return Join({"AB", barcode, item, "x3", "x4", main});
}

std::string Al(const std::string& item, const std::string& value, const std::string& produced,
               const std::string& expires) {
  return Join({"AL", item, value, "x3", produced, expires, "", "", "", ""});
}

std::string Ag(const std::string& kit, const std::string& component, const std::string& quantity) {
  return Join({"AG", kit, component, quantity});
}

// The five lot and serial-number rules a back-office load leaves.
const char kItemProperties[] = R"sql(
INSERT INTO ItemProperty (PropertyID, Description, KeyDescription, PropertyKeyType, ControlMode,
  ControlType, UsePropertyTable, UseProductionDate, UseExpirationDate, ExpirationDateControl,
  MaximumQuantity)
VALUES ('CL', 'Controla Lotes', 'CL', 202, 0, 0, 0, 1, 1, 1, 0),
       ('CCT', 'Controla Cores/Tamanho', 'CCT', 202, 0, 0, 0, 0, 0, 1, 0),
       ('RLV', 'Regista Lotes na Venda', 'RLV', 202, 0, 1, 0, 1, 1, 1, 0),
       ('CNS', 'Controla Números de Série', 'CNS', 202, 0, 0, 0, 0, 0, 1, 1),
       ('RNV', 'Regista Nº de Série na Venda', 'RNV', 202, 0, 1, 0, 0, 0, 1, 1);)sql";

// Writes the import file: the header, then the records, each line ended by
// CR LF.
void WriteImport(ImportShop& shop, const std::vector<std::string>& records) {
  std::vector<std::string> lines = {importshop::kHeader};
  for (const auto& record : records) lines.push_back(Ansi(record));
  shop.Write(kFile, importshop::Lines(lines));
}

// Imports the records in a run with nothing to report but `boxes`:
// committed, logged, no error file.
void ImportCleanly(ImportShop& shop, const std::vector<std::string>& records,
                   const std::string& boxes = "") {
  WriteImport(shop, records);
  auto result = shop.Import();
  EXPECT_EQ(result.exit_code, 0) << result.err;
  EXPECT_EQ(result.err, boxes);
  EXPECT_EQ(shop.LoggedFiles(), kFile);
  EXPECT_EQ(shop.ExchangeFiles(), std::vector<std::string>{kFile});
}

TEST(ProgramImportPasses, CustomerKeysIdsFallBacksAndCreditCodes) {
  ImportShop shop;
  // Every key the record can name has a row whose id differs from the
  // first row's, so that a lookup and its fall-back give different ids.
  shop.Seed(R"sql(
UPDATE ConfSystem SET TaxRegime = 2, RetentionTax = 25;
UPDATE PriceLine SET PriceLineKey = '1' WHERE PriceLineID = 1;
INSERT INTO PriceLine (PriceLineID, PriceLineKey, ShortName) VALUES (2, '2', 'PVP2');
INSERT INTO Zone (ZoneID, ZoneKey, Description) VALUES (1, 'Z1', 'Norte'), (2, 'Z2', 'Sul');
INSERT INTO CustomerGroups (GroupID, GroupKey, Description) VALUES (3, 'G3', 'Retalho'), (4, 'G4', 'Grosso');
INSERT INTO Salesman (SalesmanID, SalesmanKey, SalesmanName) VALUES (3, 'V3', 'Rui');
INSERT INTO Carrier (CarrierID, CarrierKey, Description) VALUES (5, 'TX', 'Próprio'), (6, 'T5', 'Estafeta');
INSERT INTO Payment (PaymentID, PaymentKey, Description) VALUES (8, 'P8', '60 dias'), (7, 'P7', '30 dias');
INSERT INTO Customer (CustomerID, CustomerKey, OrganizationName, ZoneID, CreditLimitType,
  CreditLimitAmount, CreditLimitDays, PresetText)
VALUES (2001, 'Exported', 'Cliente POS', 2, 1, 500, 30, 'fica'),
       (3001, '1234', 'Ocupado', 0, 0, 0, 0, ''),
       (4001, '77', 'Antigo', 0, 0, 0, 0, ''),
       (11, '11', 'C11', 0, 0, 250, 30, ''), (12, '12', 'C12', 0, 0, 250, 30, ''),
       (13, '13', 'C13', 0, 0, 250, 30, ''), (14, '14', 'C14', 0, 0, 250, 30, ''),
       (15, '15', 'C15', 0, 1, 250, 30, ''), (16, '16', 'C16', 0, 1, 250, 30, '');
INSERT INTO Party (PartyID, PartyType) VALUES (2001, 1);
INSERT INTO PartyAddress (PartyID, AddressID, AddressLine1, AddressLine2, PostalCode)
VALUES (2001, 0, 'Rua Velha', 'Porto', '4000-001');)sql");
  // Number 3001 belongs to another key: the box says so (its number still
  // 0 at that moment, kept so), and nothing is written for it.
  ImportCleanly(
      shop,
      {"CL^1001^Mercearia Alves^Rua Direita 5^Braga^4700-001^Z2^loja@alves.pt^"
       "253000001^253000002^501234567^G3^x12^2^V4^x15^7,5^T5^x18^x19^L^0^"
       "Cliente antigo^1",
       // The salesman stands after the customer and is still found: salesmen
       // are read first.
       Vn("V4", "Vasco", ""), Cl("1002", "Sem Chaves", {{6, "ZZ"}, {21, "1"}}),
       Cl("2001", "Cliente POS Lda",
          {{3, "Rua Nova 1"}, {4, "Gaia"}, {5, "4400-001"}, {6, "Z1"}, {20, "c"}}),
       Cl("3001", "Intruso"), Cl("77", "Renomeado"), Cl("11", "C11", {{20, "I"}}),
       Cl("12", "C12", {{20, "L"}}), Cl("13", "C13", {{20, "i"}}), Cl("14", "C14", {{20, "l"}}),
       Cl("15", "C15", {{20, "C"}}), Cl("16", "C16", {{20, ""}})},
      "Já existe um cliente com o nº0\n");

  const std::string columns =
      "CustomerKey,OrganizationName,EmailAddress,Telephone1,Fax,FederalTaxID,ZoneID,"
      "CustomerLevel,PriceLineID,SalesmanID,DirectDiscount,CarrierID,CreditLimitType,"
      "CreditLimitAmount,CreditLimitDays,Inactive,Comments,AplyRetentionTax,RetentionTax,"
      "CreditCurrencyID,CreditCurrencyExchange,CreditCurrencyFactor,PaymentID,TenderID,"
      "TaxRegime,AddressID";
  // A new number: id = number, every position in its own field.
  EXPECT_EQ(shop.Select(columns, "Customer WHERE CustomerID = 1001"),
            "1001|Mercearia Alves|loja@alves.pt|253000001|253000002|501234567|2|3|2|4|7.5|6|1|0|"
            "0|0|Cliente antigo|1|25.0|EUR|1.0|1.0|7|1|2|0");
  EXPECT_EQ(shop.Select("PartyID,AddressID,AddressLine1,AddressLine2,PostalCode",
                        "PartyAddress WHERE PartyID = 1001"),
            "1001|0|Rua Direita 5|Braga|4700-001");
  // No key known: first zone, carrier, selling price line, salesman and
  // payment; no group; the host's tax regime.
  EXPECT_EQ(shop.Select(columns, "Customer WHERE CustomerID = 1002"),
            "1002|Sem Chaves|||||1|0|1|3|0.0|5|0|0|0|1||0|25.0|EUR|1.0|1.0|7|1|2|0");

  // The customer the till made and exported comes back under its number.
  EXPECT_EQ(shop.Select("CustomerID,CustomerKey,OrganizationName,ZoneID,CreditLimitType,"
                        "CreditLimitAmount,CreditLimitDays,PresetText",
                        "Customer WHERE CustomerID = 2001 OR CustomerKey = '2001'"),
            "2001|2001|Cliente POS Lda|1|0|0|0|fica");
  EXPECT_EQ(shop.Select("AddressLine1,AddressLine2,PostalCode",
                        "PartyAddress WHERE PartyID = 2001 AND AddressID = 0"),
            "Rua Nova 1|Gaia|4400-001");

  // Taken number: neither customer changes. Known key: the customer of
  // that key is updated, whatever its id.
  EXPECT_EQ(shop.Select("CustomerID,CustomerKey,OrganizationName",
                        "Customer WHERE CustomerID IN (3001, 4001, 77) OR CustomerKey = '3001' "
                        "ORDER BY CustomerID"),
            "3001|1234|Ocupado,4001|77|Renomeado");
  EXPECT_EQ(shop.Query("SELECT COUNT(*) FROM Customer"), "11");

  // "I" and "L" in either case mark a customer with a limit, of zero; any
  // other code none. Amount and days are cleared in every case.
  EXPECT_EQ(shop.Rows("{CustomerID}:{CreditLimitType}/{CreditLimitAmount}/{CreditLimitDays}",
                      "Customer WHERE CustomerID BETWEEN 11 AND 16 ORDER BY CustomerID"),
            "11:1/0/0,12:1/0/0,13:1/0/0,14:1/0/0,15:0/0/0,16:0/0/0");
}

TEST(ProgramImportPasses, SalesmanCreatesWithNextIdAndResetsTheFixedValuesOnUpdate) {
  ImportShop shop;
  // Language and country differ, so that the two are not confused.
  shop.Seed(R"sql(
UPDATE ConfSystem SET LanguageID = 'ES';
INSERT INTO Salesman (SalesmanID, SalesmanKey, SalesmanName, Comments, CountryID, SalesmanLevel,
  MaximumDiscount, SalesGroupID, ComissionOnSale, ComissionOnPay, ComissionIncidenceType,
  SpokenLanguageID)
VALUES (8, 'V8', 'Velho', 'antes', 'FR', 2, 15, 3, 5, 50, 1, 'FR');)sql");
  ImportCleanly(shop, {Vn("V8", "Novo Nome", "Obs nova"), Vn("V9", "", ""), Vn("VA", "Rita", "R")});
  EXPECT_EQ(shop.Select("SalesmanID,SalesmanKey,SalesmanName,Comments,CountryID,SalesmanLevel,"
                        "MaximumDiscount,SalesGroupID,ComissionOnSale,ComissionOnPay,"
                        "ComissionIncidenceType,SpokenLanguageID",
                        "Salesman ORDER BY SalesmanID"),
            "8|V8|Novo Nome|Obs nova|PT|0|100.0|0|0.0|100.0|0|ES,"
            "9|V9|V9||PT|0|100.0|0|0.0|100.0|0|ES,"
            "10|VA|Rita|R|PT|0|100.0|0|0.0|100.0|0|ES");
}

TEST(ProgramImportPasses, FamilyParentLevelPathAndNames) {
  ImportShop shop;
  // The root's own name differs from the catalogue's name of the general
  // family, which is what the paths carry.
  shop.Seed(R"sql(
INSERT INTO Family (FamilyID, FamilyKey, FamilyName, FamilyLevel)
VALUES (50, 'GeneralFamily', 'Todas', 0);
INSERT INTO Family (FamilyID, FamilyKey, FamilyName, ParentFamilyID, ParentFamilyName,
  FamilyLevel, FamilyPath, MaximumDiscount, IsServiceFamily, FamilyItemKind)
VALUES (60, 'X', 'Velha', 50, 'Todas', 1, 'Todas\Velha', 20, 1, 1);
INSERT INTO FamilyProfitRate (FamilyID, LevelNumber, LevelValue) VALUES (60, 1, 5);)sql");
  ImportCleanly(shop, {Fa("X", "X", "", "", "", "", "Nova", "A"),
                       Fa("A", "A", "", "", "", "SA", "Alimentar", "A"),
                       Fa("A01", "A", "A01", "", "", "SB", "Bebidas", "S"),
                       Fa("A0101", "A", "A01", "A0101", "", "SIG", "", "s"),
                       Fa("A010101", "A", "A01", "A0101", "A010101", "SS", "Sumos", ""),
                       // Its parent B01 was never imported: it sinks to level 1.
                       Fa("B0101", "B", "B01", "B0101", "", "", "", "A"),
                       Fa("G", "G", "", "", "", "", "Geral", "A")});
  EXPECT_EQ(shop.Select("FamilyID,FamilyKey,FamilyName,ParentFamilyID,ParentFamilyName,"
                        "FamilyLevel,FamilyPath,MaximumDiscount,IsServiceFamily,FamilyItemKind",
                        "Family WHERE FamilyID > 50 ORDER BY FamilyID"),
            "60|X|Nova|50|Geral|1|Geral\\Nova|20.0|0|0,"
            "61|A|Alimentar|50|Geral|1|Geral\\Alimentar|100.0|0|0,"
            "62|A01|Bebidas|61|Alimentar|2|Geral\\Alimentar\\Bebidas|100.0|1|1,"
            "63|A0101|SIG|62|Bebidas|3|Geral\\Alimentar\\Bebidas\\SIG|100.0|0|0,"
            "64|A010101|Sumos|63|SIG|4|Geral\\Alimentar\\Bebidas\\SIG\\Sumos|100.0|0|0,"
            "65|B0101|_|50|Geral|1|Geral\\_|100.0|0|0,"
            "66|G|Geral_|50|Geral|1|Geral\\Geral_|100.0|0|0");
  // New families get three level rows at 0; an existing one keeps its own.
  EXPECT_EQ(shop.Rows("{FamilyID}:{LevelNumber}={LevelValue}",
                      "FamilyProfitRate WHERE FamilyID IN (60, 61) ORDER BY FamilyID, LevelNumber"),
            "60:1=5.0,61:1=0.0,61:2=0.0,61:3=0.0");
  EXPECT_EQ(shop.Query("SELECT COUNT(*) FROM FamilyProfitRate WHERE FamilyID BETWEEN 62 AND 66 "
                       "AND LevelValue = 0"),
            "15");
}

TEST(ProgramImportPasses, ItemFieldsUnitsTaxClassesPropertiesAndDates) {
  ImportShop shop;
  shop.Seed(std::string(kItemProperties) + R"sql(
UPDATE ConfSystem SET DefaultUnitOfMeasureID = 'UND';
INSERT INTO Family (FamilyID, FamilyKey, FamilyName, FamilyLevel)
VALUES (50, 'GeneralFamily', 'Todas', 0), (70, 'F7', 'Frescos', 1);
INSERT INTO Supplier (SupplierID, SupplierKey, OrganizationName) VALUES (9, 'F9', 'Nove'), (4, 'F4', 'Quatro');
INSERT INTO Item (ItemID, ItemKey, ShortDescription, Description, SupplierID, UseImageInSale,
  PropertyID1, PropertyRule1, PropertyRule2, PropertyRule3, PropertyRule4, PropertyRule5,
  PropertyRule6, ItemDate)
VALUES ('E1', 'E1', 'Velho', 'Velho', 9, 0, 'CNS', 7, 7, 1, 7, 7, 7, '2020-01-01 00:00:00'),
       ('E2', 'E2', 'Velho', 'Velho', 9, 0, '', 0, 0, 0, 0, 0, 3, '2020-01-01 00:00:00');)sql");
  const std::string sigla = "  Sigla" + std::string(50, 'x') + "  ";
  ImportCleanly(
      shop,
      {"AR^I1 ^" + sigla +
           "^  Descrição longa  ^S^F7^^^^^^3^CX^KG^12^0^0^01-01-2020^"
           "31-12-2030^^1^^15-01-2026^^1",
       "AR^I2^Sigla I2^Artigo I2^F^NOFAM^^^^^^2^CAIXA^LITRO^2,5^0^0^01-01-2020^31-12-2030^^5^^"
       "20260115^^0",
       Ar("I3", {{4, "s"}, {11, "1"}, {12, "PAC"}, {13, "KG"}, {14, "0"}, {15, "1"}, {20, "2"}}),
       Ar("I4", {{4, "G"}, {11, "4"}, {12, "CXA"}, {13, "CXAS"}, {20, "3"}}), Ar("I5", {{20, "7"}}),
       // Already tracked by serial number: keeps it and its rules.
       Ar("E1", {{3, "Renovado"}, {20, "1"}, {22, "31-02-2026"}}),
       // Not tracked yet: takes the lot rule of its TemLot.
       Ar("E2", {{20, "4"}, {22, ""}})});

  // Per item: what it is, its units, its lot or serial-number rules.
  const std::pair<const char*, std::string> kItems[] = {
      {"I1", "I1 |Sigla" + std::string(45, 'x') +
                 "|Descrição longa|1|0|70|4|2|1|1|2026-01-15 00:00:00 / KG|CX|12.0|CX|CX|CX|12.0"
                 " / CL|-1|0|0|-1|0|1"},
      {"I2",
       "I2|Sigla I2|Artigo I2|0|0|50|4|1|1|0|- / UND|UND|2.5|UND|UND|UND|2.5"
       " / RNV|0|1|0|0|1|1"},
      {"I3",
       "I3|Sigla I3|Artigo I3|0|0|50|4|3|1|0|- / UND|PAC|1.0|PAC|PAC|PAC|0.0"
       " / CNS|0|0|0|0|1|1"},
      {"I4",
       "I4|Sigla I4|Artigo I4|4|1|50|4|4|1|0|- / UND|CXA|1.0|CXA|CXA|CXA|1.0"
       " / CCT|0|0|0|0|0|1"},
      {"I5", "I5|Sigla I5|Artigo I5|0|0|50|4|1|1|0|- / UN|UN|1.0|UN|UN|UN|1.0 / |-1|2|0|0|0|0"},
      {"E1",
       "E1|Sigla E1|Renovado|0|0|50|9|1|0|0|2020-01-01 00:00:00 / UN|UN|1.0|UN|UN|UN|1.0"
       " / CNS|7|7|1|7|7|7"},
      {"E2",
       "E2|Sigla E2|Artigo E2|0|0|50|9|1|0|0|2020-01-01 00:00:00 / UN|UN|1.0|UN|UN|UN|1.0"
       " / RLV|-1|1|0|-1|0|1"}};
  for (const auto& [id, expected] : kItems) {
    EXPECT_EQ(shop.Rows("{ItemKey}|{ShortDescription}|{Description}|{ItemType}|{IsComposed}|"
                        "{FamilyID}|{SupplierID}|{TaxableGroupID}|{UseImageInSale}|{UsesScale}|"
                        "{ItemDate} / {BaseUnitOfMeasureID}|{SaleUnitOfMeasureID}|"
                        "{SaleUnitFactor}|{AltUnitOfMeasureID1}|{AltUnitOfMeasureID2}|"
                        "{AltUnitOfMeasureID3}|{AltUnitFactor} / {PropertyID1}|{PropertyRule1}|"
                        "{PropertyRule2}|{PropertyRule3}|{PropertyRule4}|{PropertyRule5}|"
                        "{PropertyRule6}",
                        "Item WHERE ItemID = '" + std::string(id) + "'", "-"),
              expected);
  }
  const std::string same =
      "CurrencyID,CurrencyExchange,CurrencyFactor,ControlsStock,"
      "AuxiliaryCode1,AuxiliaryCode4";
  EXPECT_EQ(shop.Select(same, "Item GROUP BY " + same), "EUR|1.0|1.0|0|0|0");
}

TEST(ProgramImportPasses, PropertyItemEachLotReplacesItsRowAndItemsWithoutPropertyGetNone) {
  ImportShop shop;
  shop.Seed(kItemProperties);
  ImportCleanly(shop,
                {Ar("L1", {{20, "1"}}), Ar("L2"), Al("L1", "LOTE1", "01-02-2026", "01-02-2027"),
                 Al("L1", "LOTE2", "", ""), Al("L2", "LOTE9", "01-02-2026", "01-02-2027"),
                 Al("L1", "LOTE1", "", "01-03-2027"), Al("L1", "", "01-01-2026", ""),
                 Al("NOPE", "LOTE1", "", "")});
  EXPECT_EQ(shop.Select("ItemID,WarehouseID,PropertyValue1,PropertyValue2,PropertyValue3,"
                        "ProductionDate,ExpirationDate,PhysicalQty,PhysicalUnits,CurrencyID,"
                        "CurrencyExchange,CurrencyFactor,WorkstationID,SessionID,UserAlt,DtAlt,"
                        "HrAlt:time",
                        "StockProperty ORDER BY ItemID, PropertyValue1", "-"),
            "L1|1|LOTE1|||-|2027-03-01 00:00:00|1.0|1.0|EUR|1.0|1.0|1|1|1|2026-03-14 00:00:00|"
            "10:00:00,"
            "L1|1|LOTE2|||-|-|1.0|1.0|EUR|1.0|1.0|1|1|1|2026-03-14 00:00:00|10:00:00");
}

TEST(ProgramImportPasses, SellingPricesTaxIncludedOrNotAndItemsSeenTwice) {
  ImportShop shop;
  shop.Seed(R"sql(
UPDATE PriceLine SET PriceLineKey = '1' WHERE PriceLineID = 1;
INSERT INTO PriceLine (PriceLineID, PriceLineKey, ShortName) VALUES (2, '2', 'PVP2');
INSERT INTO Item (ItemID, ItemKey, TaxableGroupID) VALUES ('OLD', 'OLD', 1);
INSERT INTO ItemSellingPrices (ItemID, PriceLineID, PriceWithoutTax, PriceWithTax)
VALUES ('OLD', 0, 0, 0), ('OLD', 1, 3, 3.69);)sql");
  // VAT types 2, 3, 1, 4 are the host's classes 1, 2, 3, 4: 23, 13, 6, 0 %.
  ImportCleanly(shop, {Ar("P1", {{11, "2"}}), Ar("P2", {{11, "3"}}), Ar("P3", {{11, "1"}}),
                       Ar("P4", {{11, "4"}}), Ap("P1", "1", "10", "01-03-2026", "0"),
                       Ap("P2", "1", "7", "32-01-2026", "1"),
                       // P1 again after P2: loaded and saved a second time, line 1 kept.
                       Ap("P1", "2", "10", "", "1"), Ap("P3", "2", "3,33", "", "0"),
                       Ap("P4", "1", "4,99", "", "True"),
                       // No such price line: no price, but the item is saved, and so
                       // gains the row of line 2 it lacked.
                       Ap("OLD", "9", "5", "", "0")});
  EXPECT_EQ(shop.Select("ItemID,PriceLineID,PriceWithoutTax,PriceWithTax,PriceDate",
                        "ItemSellingPrices ORDER BY ItemID, PriceLineID", "-"),
            "OLD|0|0|0|-,OLD|1|3|3.69|-,OLD|2|0|0|-,"
            "P1|0|0|0|-,P1|1|10|12.3|2026-03-01 00:00:00,P1|2|8.1301|10|-,"
            "P2|0|0|0|-,P2|1|6.1947|7|-,P2|2|0|0|-,"
            "P3|0|0|0|-,P3|1|0|0|-,P3|2|3.33|3.5298|-,"
            "P4|0|0|0|-,P4|1|4.99|4.99|-,P4|2|0|0|-");
}

TEST(ProgramImportPasses, BarCodeOnlyTheFirstMarkedCodeOfARunIsTheMainOne) {
  ImportShop shop;
  shop.Seed(R"sql(
INSERT INTO Item (ItemID, ItemKey, SaleUnitOfMeasureID, BaseUnitOfMeasureID, CurrencyID,
  CurrencyExchange, CurrencyFactor, Barcode)
VALUES ('B2', 'B2', 'UN', 'UN', 'EUR', 1, 1, 'OLD2'),
       ('B3', 'B3', 'UN', 'UN', 'USD', 1.1, 100, 'KEEP3');
INSERT INTO POSIdentity (ItemID, Barcode, UnitOfMeasureID, Quantity, CurrencyID,
  CurrencyExchange, CurrencyFactor)
VALUES ('B2', '770001', 'UN', 1, 'EUR', 1, 1), ('B2', '770001', 'CX', 6, 'EUR', 1, 1);)sql");
  ImportCleanly(shop, {Ar("B1", {{12, "CX"}, {13, "KG"}}), Ab("560001", "B1", "0"),
                       Ab("560002", "B1", "1"), Ab("560003", "B1", "-1"), Ab("560001", "B1", "0"),
                       // The main code leaves the further codes of the sale unit only.
                       Ab("770001", "B2", "1"), Ab("", "B3", "0"), Ab("880001", "B3", "0"),
                       // B1 again: a new run, whose first marked code is the main one.
                       Ab("560009", "B1", "True")});
  EXPECT_EQ(shop.Select("ItemID,Barcode", "Item ORDER BY ItemID"), "B1|560009,B2|770001,B3|KEEP3");
  EXPECT_EQ(shop.Select("ItemID,Barcode,UnitOfMeasureID,Quantity,CurrencyID,CurrencyExchange,"
                        "CurrencyFactor",
                        "POSIdentity ORDER BY ItemID, Barcode, UnitOfMeasureID"),
            "B1|560001|CX|1.0|EUR|1.0|1.0,B1|560003|CX|1.0|EUR|1.0|1.0,"
            "B2|770001|CX|6.0|EUR|1.0|1.0,B3|880001|UN|1.0|USD|1.1|100.0");
}

TEST(ProgramImportPasses, KitComponentsEachRunReplacesTheComponentsOfAKit) {
  ImportShop shop;
  // The kits stand before their components in the file.
  ImportCleanly(shop, {Ar("K1", {{4, "G"}}), Ar("K2", {{4, "G"}}), Ar("c1"), Ar("cmp-b"), Ar("C3"),
                       Ar("N1"), Ag("K1", "c1", "2"), Ag("K1", "cmp-b", "1"), Ag("K2", "C3", "1"),
                       Ag("K2", "NOPE", "9"), Ag("K2", "cmp-b", "0,5"), Ag("N1", "c1", "1"),
                       Ag("K1", "C3", "3")});
  EXPECT_EQ(shop.Select("ItemID,ItemType,IsComposed",
                        "Item WHERE ItemID IN ('K1', 'K2', 'N1') ORDER BY ItemID"),
            "K1|4|1,K2|4|1,N1|0|0");
  EXPECT_EQ(shop.Select("ItemID,ComponentOrder,ComponentItemID,ComponentKey,ComponentColorID,"
                        "ComponentSizeID,ComponentQuantity,ComponentLookup",
                        "ItemComponents ORDER BY ItemID, ComponentOrder"),
            "K1|0|C3|C3|0|0|3.0|0|C3|0|0||,"
            "K2|0|C3|C3|0|0|1.0|0|C3|0|0||,"
            "K2|1|cmp-b|cmp-b|0|0|0.5|1|CMP-B|0|0||");
}

TEST(ProgramImportPasses, RefusedSavesGoToTheErrorFileInPassOrderAndTheFileIsStillImported) {
  ImportShop shop;
  const std::string too_long_text(256, 'd');
  const std::string too_long_code(31, '9');
  const std::string kit = Ar("KITR", {{3, too_long_text}, {4, "G"}});
  const std::string component = Ar("CMPR", {{3, too_long_text}});
  const std::string r2_barcode = Ab("2000000000002", "R2", "0");
  const std::string unknown_item = Ab("2000000000019", "NOPE", "0");
  // The save of an item's barcodes comes when the next item's first line is
  // in hand, and that is the line named (here a line of an unknown item,
  // after which R1 is not saved again); for the last item, the file's last
  // line, whatever it holds. Kept on purpose.
  WriteImport(shop, {kit, component, Ar("R1"), Ar("R2"), Ar("R3"), Ab(too_long_code, "R1", "1"),
                     unknown_item, r2_barcode, Ab(too_long_code, "R3", "1"), "ZZ^fim"});
  auto result = shop.Import();
  EXPECT_EQ(result.exit_code, 0) << result.err;
  const std::string closing = "A importação foi efectuada com erros.";
  ASSERT_NE(result.err.find(closing), std::string::npos) << result.err;
  EXPECT_EQ(result.err.find(closing, result.err.find(closing) + 1), std::string::npos);
  EXPECT_EQ(shop.LoggedFiles(), kFile);

  // Ordinary items are saved in the first item pass, kits in the second.
  std::vector<std::string> refused;
  for (const auto& entry : shop.ErrorEntries(kFile)) {
    EXPECT_EQ(entry.date, "14-03-2026 10:00:00");
    refused.push_back(entry.line);
  }
  EXPECT_EQ(refused, (std::vector<std::string>{component, kit, unknown_item, "ZZ^fim"}));
  EXPECT_EQ(shop.Select("ItemID,Barcode", "Item ORDER BY ItemID"), "R1|,R2|,R3|");
  EXPECT_EQ(shop.Select("ItemID,Barcode", "POSIdentity"), "R2|2000000000002");
}

}  // namespace
