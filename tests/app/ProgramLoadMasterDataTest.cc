// `lumaro initial-load` end to end, for the master data that customers and
// items refer to: provinces and localities, zones, price lines, carriers,
// payment terms, salesmen, customer groups, customers with their parties,
// load and unload places, families, warehouses, suppliers and banks, and the
// limits that choose what is loaded. The expected rows are worked out by
// hand from the sample back office's rows (examples/backoffice/backoffice.sql)
// and the example settings.

#include <gtest/gtest.h>

#include <algorithm>
#include <initializer_list>
#include <string>
#include <vector>

#include "standalone/PortugueseCatalogue.h"
#include "tests/app/LoadShop.h"
#include "tests/support/TestHost.h"

namespace {

using loadshop::Changes;
using loadshop::kAudit;
using loadshop::kAudited;
using loadshop::Shop;

class ProgramLoadMasterData : public loadshop::LoadedShopTest {};

std::string Text(int32_t id) { return standalone::PortugueseCatalogue().Text(id); }

// A row of the family query below: key, name, the parent's key (0 for the
// root), the parent's name, level, path, maximum discount, service family,
// item kind.
std::string FamilyRow(const std::string& key, const std::string& name,
                      const std::string& parent_key, const std::string& parent_name, int level,
                      std::initializer_list<std::string> path, bool service = false) {
  std::string joined;
  for (const std::string& part : path) joined += (joined.empty() ? "" : "\\") + part;
  return key + "|" + name + "|" + parent_key + "|" + parent_name + "|" + std::to_string(level) +
         "|" + joined + "|100|" + (service ? "1|1" : "0|0") + "\n";
}
std::string Families(Shop& shop, const std::string& order) {
  return shop.Lines(
      "SELECT f.FamilyKey, f.FamilyName, CASE WHEN f.ParentFamilyID = 0 THEN '0' ELSE "
      "p.FamilyKey END, f.ParentFamilyName, f.FamilyLevel, f.FamilyPath, f.MaximumDiscount, "
      "f.IsServiceFamily <> 0, f.FamilyItemKind FROM Family f LEFT JOIN Family p ON "
      "p.FamilyID = f.ParentFamilyID ORDER BY " +
      order);
}

// A supplier's party rows are those of its id in the suppliers' range of
// party ids (kind 1), or of its id itself where the host numbers parties so.
const std::string kSupplierParty = "PartyID IN (s.SupplierID, 10000000000 + s.SupplierID)";

TEST_F(ProgramLoadMasterData, DistrictsAndMunicipalitiesBecomeTheCountrysProvincesAndLocalities) {
  Shop& shop = Loaded();
  // Districts formatted "00"; "1234567890" would be a province id of ten
  // characters, and is left out. Only the user, day and time are written.
  EXPECT_EQ(shop.Lines("SELECT CountryID, ProvinceID, ProvinceName, UserAlt, DtAlt, "
                       "HrAlt FROM ProvinceCodes ORDER BY ProvinceID"),
            "PT|07|Évora|5|2026-11-23|10:00:00\n"
            "PT|11|Lisboa|5|2026-11-23|10:00:00\n"
            "PT|13|Porto|5|2026-11-23|10:00:00\n");
  // The last two characters of a municipality's code are the locality, the
  // rest its province, each formatted "00": "15" has no district and falls
  // under "00"; "123456789001" keeps its long province, since only the
  // locality's length is measured.
  EXPECT_EQ(shop.Lines("SELECT CountryID, ProvinceID, LocalityID, LocalityName, UserAlt, "
                       "DtAlt, HrAlt FROM LocalityCodes ORDER BY ProvinceID, "
                       "LocalityID"),
            "PT|00|15|Concelho sem distrito|5|2026-11-23|10:00:00\n"
            "PT|07|5|Évora|5|2026-11-23|10:00:00\n"
            "PT|11|6|Lisboa|5|2026-11-23|10:00:00\n"
            "PT|1234567890|1|Concelho do distrito longo|5|2026-11-23|10:00:00\n"
            "PT|13|12|Porto|5|2026-11-23|10:00:00\n"
            "PT|13|17|Vila Nova de Gaia|5|2026-11-23|10:00:00\n");
}

TEST_F(ProgramLoadMasterData, AProvinceAlreadyThereIsRenamedAndItsLocalitiesRebuilt) {
  Shop shop;
  shop.Pos(
      "INSERT INTO ProvinceCodes (CountryID, ProvinceID, ProvinceName) VALUES "
      "('PT', '13', 'Porto (antigo)'), ('PT', '08', 'Faro');"
      "INSERT INTO LocalityCodes (CountryID, ProvinceID, LocalityID, LocalityName) VALUES "
      "('PT', '13', 12, 'Porto (antigo)'), ('PT', '13', 99, 'Extinto'), "
      "('PT', '08', 5, 'Faro'), ('ES', '13', 1, 'Otro país');");
  shop.LoadOk();
  // Porto is renamed and its localities are those of the back office only;
  // a province the back office does not name, and another country's rows,
  // stay as they were.
  EXPECT_EQ(shop.Lines("SELECT CountryID, ProvinceID, ProvinceName, UserAlt FROM ProvinceCodes "
                       "ORDER BY CountryID, ProvinceID"),
            "PT|07|Évora|5\nPT|08|Faro|0\nPT|11|Lisboa|5\nPT|13|Porto|5\n");
  EXPECT_EQ(
      shop.Lines("SELECT CountryID, ProvinceID, LocalityID, LocalityName, UserAlt FROM "
                 "LocalityCodes WHERE ProvinceID IN ('08', '13') ORDER BY CountryID, "
                 "ProvinceID, LocalityID"),
      "ES|13|1|Otro país|0\nPT|08|5|Faro|0\nPT|13|12|Porto|5\nPT|13|17|Vila Nova de Gaia|5\n");
}

TEST_F(ProgramLoadMasterData, ZonesAreFoundByTheirDescriptionAndTakeTheKindOfTheirCode) {
  Shop& shop = Loaded();
  // In the order of ZPais: a zone without description takes its Sigla; 520
  // is named "Espanha" too and falls on 500's row, which keeps the last
  // code; 1000 is above the outside range and so of home. All take the
  // company's country, currency and region. With zones in the back office
  // the initial load makes no zone of its own.
  const std::string tail = "|PT|EUR|CON|" + kAudited + "\n";
  EXPECT_EQ(shop.Lines("SELECT ZoneID, ZoneKey, Description, ZoneType, CountryID, CurrencyID, "
                       "TaxRegionID, " +
                       kAudit + " FROM Zone ORDER BY ZoneID"),
            "1|1|Portugal continental|0" + tail + "2|2|PT-RA|0" + tail + "3|520|Espanha|1" + tail +
                "4|510|França|1" + tail + "5|700|Estados Unidos|2" + tail + "6|710|Brasil|2" +
                tail + "7|1000|Zona franca|0" + tail);
}

TEST_F(ProgramLoadMasterData, PriceLinesCarriersAndCustomerGroups) {
  Shop& shop = Loaded();
  // Line 0 (the cost) survives; the POS's line 1 gives way to the back
  // office's lines, keyed by their number.
  EXPECT_EQ(shop.Lines("SELECT PriceLineID, PriceLineKey, ShortName, Description, LanguageID "
                       "FROM PriceLine ORDER BY PriceLineID"),
            "0||PCusto|Preço de custo|PT\n"
            "1|1|PVP|Preço de venda ao público|PT\n"
            "2|2|REV|Revenda|PT\n"
            "3|3|PROMO|Promoção|PT\n");
  // In the order of their codes; one without description is named by its
  // code. The company's currency, with its exchange and factor.
  EXPECT_EQ(shop.Lines("SELECT CarrierID, CarrierKey, Description, CurrencyID, "
                       "CurrencyExchange, CurrencyFactor, CurrentKm "
                       "FROM Carrier ORDER BY CarrierID"),
            "1|CTT|CTT Expresso|EUR|1|1|0\n"
            "2|PROP|Viatura própria|EUR|1|1|0\n"
            "3|TRANSP|TRANSP|EUR|1|1|0\n");
  EXPECT_EQ(shop.Lines("SELECT GroupID, GroupKey, Description, " + kAudit +
                       " FROM CustomerGroups ORDER BY GroupID"),
            "1|PAR|Particulares|" + kAudited + "\n2|EMP|Empresas|" + kAudited + "\n3|REV|REV|" +
                kAudited + "\n");
}

TEST_F(ProgramLoadMasterData, PaymentTermsOfEveryKindAndTheirInstallments) {
  Shop& shop = Loaded();
  // id, key, description, installments, their type, date type, days. Cash
  // and zero days: date type 3. Days ("d" as "D"): type 0 and the days.
  // Parts: one counted part (1X's part of no days or percentage does not
  // count) gives its days with type 3; two give type 0, installments type
  // -1 and the last days; three or more give installments n - 1, type 3,
  // installments type 2. PX has no part that counts and FM is of a kind
  // the load does not know: nothing is set on them.
  EXPECT_EQ(shop.Lines("SELECT PaymentID, PaymentKey, Description, Installments, "
                       "InstallmentsType, PaymentDateType, PaymentDays FROM Payment ORDER BY "
                       "PaymentID"),
            "1|PP|Pronto pagamento|0|0|3|0\n"
            "2|30D|30 dias|0|0|0|30\n"
            "3|3X|Três prestações|2|2|3|0\n"
            "4|0D|A 0 dias|0|0|3|0\n"
            "5|60|60 dias|0|0|0|60\n"
            "6|1X|Uma prestação|0|0|3|45\n"
            "7|2X|Duas prestações|0|-1|0|60\n"
            "8|PX|Prestações por acordar|0|0|0|0\n"
            "9|FM|Fim do mês|0|0|0|0\n"
            "10|4X|Quatro prestações|3|2|3|0\n");
  // Only conditions of three parts or more keep their parts, each with the
  // days since the one before (15, 45, 60, 120 give 15, 30, 15, 60).
  EXPECT_EQ(shop.Lines("SELECT PaymentID, InstallmentID, DaysSinceLastPayment, "
                       "InstallmentPercent, " +
                       kAudit + " FROM Installment ORDER BY PaymentID, InstallmentID"),
            "3|1|30|40|" + kAudited + "\n3|2|30|30|" + kAudited + "\n3|3|30|30|" + kAudited +
                "\n10|1|15|25|" + kAudited + "\n10|2|30|25|" + kAudited + "\n10|3|15|25|" +
                kAudited + "\n10|4|60|25|" + kAudited + "\n");
}

TEST_F(ProgramLoadMasterData, ActiveSalesmenAreLoadedAndOneAlreadyThereKeepsItsId) {
  const std::string salesmen =
      "SELECT SalesmanID, SalesmanKey, SalesmanName, Comments, CountryID, SalesmanLevel, "
      "MaximumDiscount, SalesGroupID, ComissionOnSale, "
      "ComissionOnPay, ComissionIncidenceType, SpokenLanguageID, " +
      kAudit + " FROM Salesman ORDER BY SalesmanID";
  const std::string fixed = "|PT|0|100|0|0|100|0|PT|" + kAudited + "\n";
  // V09 is inactive and stays behind; V03 has no name and takes its code.
  EXPECT_EQ(Loaded().Lines(salesmen), "1|V01|Carlos Pinto|Loja do Porto" + fixed +
                                          "2|V02|Marta Reis|Clientes empresariais" + fixed +
                                          "3|V03|V03|" + fixed);
  {
    // A salesman the POS has under a back-office code is found by it and
    // written over under its own id; the others take the next ids.
    Shop shop;
    shop.Pos(
        "INSERT INTO Salesman (SalesmanID, SalesmanKey, SalesmanName) VALUES (5, 'V02', "
        "'Marta')");
    shop.LoadOk();
    EXPECT_EQ(shop.Lines(salesmen), "5|V02|Marta Reis|Clientes empresariais" + fixed +
                                        "6|V01|Carlos Pinto|Loja do Porto" + fixed + "7|V03|V03|" +
                                        fixed);
  }
}

TEST_F(ProgramLoadMasterData, CustomersTakeTheIdsOfWhatTheyReferTo) {
  Shop& shop = Loaded();
  // Every customer of the back office, under its own number. Zones: 1 is
  // zone 1, 500 zone 3, 700 zone 5; the country is the company's for a home
  // zone only, and the tax regime is 5 in the European Union, 6 outside it
  // and the company's (1) at home. CMoe is read as a number, so a code
  // such as "EUR" or "USD" gives the default currency. Codes the load did
  // not bring fall back on the first row: the inactive salesman V09, the
  // payment "XX", the carrier "DHL"; price line 0 or unknown (9) gives the
  // fixed line 1; no group gives level 0. The tender is always the first.
  EXPECT_EQ(shop.Lines("SELECT CustomerID, CustomerKey, OrganizationName, CountryID, CurrencyID, "
                       "ZoneID, SalesmanID, PaymentID, TenderID, CarrierID, PriceLineID, "
                       "CustomerLevel, TaxRegime FROM Customer ORDER BY CustomerID"),
            ("100001|100001|Ana Ferreira|PT|EUR|1|1|1|1|1|1|1|1\n"
             "100002|100002|Construções Douro, Lda.|PT|EUR|1|2|2|1|2|2|2|1\n"
             "100003|100003|Distribuciones Vigo, S.L.||EUR|3|1|3|1|3|2|3|5\n"
             "100004|100004|Smith Trading Ltd||EUR|5|1|7|1|1|1|2|6\n"
             "100005|100005|Adega do Alentejo|PT|EUR|1|2|1|1|1|1|0|1\n"
             "200001|200001|Pastelaria Lisboeta|PT|EUR|1|3|9|1|1|3|3|1\n"));
  // Dots of a taxpayer number become blanks. Discounts: "*A" is 12.5 by
  // Desco, "7,5" is itself, "*F" refers to another code and gives 0. The
  // retention rate is the company's for all; whether it applies is the
  // customer's own. The initial load brings the credit state only: "L" and
  // "I" (" l " too) are a limit of 0, "C" and "X" no limit. The main
  // address is the party's address 0.
  EXPECT_EQ(
      shop.Lines("SELECT CustomerID, FederalTaxID, EmailAddress, Telephone1, Fax, "
                 "CreationDate, DirectDiscount, "
                 "SecondDiscount, AplyRetentionTax <> 0, RetentionTax, "
                 "CreditLimitType, CreditLimitAmount, CreditLimitDays, "
                 "CreditCurrencyID, CreditCurrencyExchange, "
                 "CreditCurrencyFactor, Inactive <> 0, PresetText, AddressID FROM Customer "
                 "ORDER BY CustomerID"),
      "100001|212345670|ana.ferreira@example.pt|912345678||2024-03-15|0|0|0|11.5|0|0|0|EUR|1|1|"
      "0|###|0\n"
      "100002|501 234 567|geral@construcoesdouro.example.pt|223456789|223456780|2023-06-01|12.5|"
      "2.5|1|11.5|1|0|0|EUR|1|1|0|###|0\n"
      "100003|ESB12345678|compras@distvigo.example.es|+34 986 123 456||2025-01-20|7.5|0|0|11.5|1|"
      "0|0|EUR|1|1|0|###|0\n"
      "100004|US-98-7654321|orders@smithtrading.example.com|+1 617 555 0100||2025-09-09|12.5|0|0|"
      "11.5|0|0|0|EUR|1|1|0|###|0\n"
      "100005|507 111 222|adega@alentejo.example.pt|266700000||2026-02-02|0|0|0|11.5|1|0|0|EUR|1|"
      "1|0|###|0\n"
      "200001|509876543||213456789||2022-11-30|0|0|0|11.5|1|0|0|EUR|1|1|1|###|0\n");
  // Obs and Anot, a line break between them only when both are there.
  EXPECT_EQ(shop.Lines("SELECT CustomerID, Comments FROM Customer WHERE Comments <> '' ORDER BY "
                       "CustomerID"),
            "100002|Entregas só de manhã\r\nPede fatura em duplicado\n"
            "100003|Paga por transferência\n"
            "100005|Só por marcação\n");
  // Opening balances are never posted by the initial load.
  EXPECT_EQ(shop.Lines("SELECT COUNT(*) FROM CustomerLedgerAccount"), "0\n");
}

TEST_F(ProgramLoadMasterData, ACustomersPartyHoldsItsAddressesContactsAndTelephones) {
  Shop& shop = Loaded();
  // The main address (0) with its province and locality ("7" is "07",
  // "705" is locality 5); then the further addresses of CliMo, numbered
  // from 1 in the order of their codes, with a trimmed post code and the
  // country of their own zone.
  EXPECT_EQ(shop.Lines("SELECT PartyID, AddressID, AddressLine1, AddressLine2, PostalCode, "
                       "CountryID, ProvinceID, LocalityID FROM PartyAddress WHERE PartyID IN "
                       "(SELECT CustomerID FROM Customer) ORDER BY PartyID, AddressID"),
            "100001|0|Rua de Santa Catarina, 120|Porto|4000-442|PT|13|12\n"
            "100002|0|Avenida da República, 1500|Vila Nova de Gaia|4430-204|PT|13|17\n"
            "100002|1|Zona Industrial de Canelas, lote 4|Vila Nova de Gaia|4410-036|PT||0\n"
            "100002|2|Rua do Ouro, 300|Porto|4150-552|PT||0\n"
            "100003|0|Rúa do Príncipe, 22|Vigo|36202|||0\n"
            "100003|1|Polígono de Balaídos, 5|Vigo|36210|||0\n"
            "100004|0|12 Harbour Street|Boston|MA 02110|||0\n"
            "100005|0|Rua de Avis, 3|Évora|7000-591|PT|07|5\n"
            "200001|0|Rua Augusta, 8|Lisboa|1100-053|PT|11|6\n");
  // The three contacts in their order, each when it has a name or a
  // telephone (100002's manager has a telephone only); then, for each
  // further address, a person titled by its code when it has a telephone
  // or fax (named by its first line), and its manager's contact.
  const std::string treasury = Text(3880103), commercial = Text(3880104),
                    management = Text(3880105), manager = Text(3880106);
  EXPECT_EQ(shop.Lines("SELECT PartyID, PersonID, Title, Name FROM Person WHERE PartyID IN "
                       "(SELECT CustomerID FROM Customer) ORDER BY PartyID, PersonID"),
            "100002|1|" + treasury + "|Rui Matos\n" +          //
                "100002|2|" + commercial + "|Sofia Lima\n" +   //
                "100002|3|" + management + "|\n" +             //
                "100002|4|OBRA|Rua do Ouro, 300\n" +           //
                "100003|1|" + commercial + "|Pilar Souto\n" +  //
                "100003|2|" + manager + "|Xoán Pereira\n" +    //
                "100004|1|" + management + "|John Smith\n");
  // Telephones are kind 0, a fax kind 1.
  EXPECT_EQ(shop.Lines("SELECT PartyID, PersonID, TelephoneID, TelephoneType, TelephoneNumber "
                       "FROM Telephone WHERE PartyID IN (SELECT CustomerID FROM Customer) ORDER "
                       "BY PartyID, PersonID, TelephoneID"),
            "100002|1|1|0|223456781\n"
            "100002|3|1|0|934567890\n"
            "100002|4|1|0|226100200\n"
            "100002|4|2|1|226100201\n"
            "100003|1|1|0|+34 986 123 457\n"
            "100003|2|1|0|+34 986 200 300\n");
}

TEST_F(ProgramLoadMasterData, TheTwoLoadAndUnloadPlacesAreMadeWhenEitherIsMissing) {
  const std::string places =
      "SELECT LoadUnloadPlaceID, Description FROM LoadUnloadPlace ORDER BY LoadUnloadPlaceID";
  const std::string load = Text(3880035), unload = Text(3880036);
  EXPECT_EQ(Loaded().Lines(places), "1|" + load + "\n2|" + unload + "\n");
  {
    // Place 2 is missing: both are made, after the last id.
    Shop shop;
    shop.Pos("INSERT INTO LoadUnloadPlace (LoadUnloadPlaceID, Description) VALUES (1, 'Cais')");
    shop.LoadOk();
    EXPECT_EQ(shop.Lines(places), "1|Cais\n2|" + load + "\n3|" + unload + "\n");
  }
  {
    Shop shop;
    shop.Pos(
        "INSERT INTO LoadUnloadPlace (LoadUnloadPlaceID, Description) VALUES (1, 'Cais'), "
        "(2, 'Portão')");
    shop.LoadOk();
    EXPECT_EQ(shop.Lines(places), "1|Cais\n2|Portão\n");
  }
}

TEST_F(ProgramLoadMasterData, AtTheExampleLevelLimitTheDeepestFamiliesHangOnTheGeneralFamily) {
  // The example settings load from level 3: its codes are 2 + 2 + 3 = 7
  // characters long and become level 1 under the root; the levels above
  // are not loaded, and 0299001, whose parent of level 2 is missing, comes
  // in like the others. A name is DESCR, or Sigla when that is empty; the
  // path is made before a name that is empty or that the POS keeps for
  // itself ("Todos") gets "_". TipArt "S" is a service family.
  Shop& shop = Loaded();
  const std::string general = Text(3880041);
  auto level1 = [&](const std::string& key, const std::string& name, const std::string& path,
                    bool service = false) {
    return FamilyRow(key, name, "GeneralFamily", general, 1, {general, path}, service);
  };
  EXPECT_EQ(Families(shop, "f.FamilyLevel, f.FamilyKey"),
            FamilyRow("GeneralFamily", general, "0", general, 0, {general}) +
                level1("0101001", "Pão e farinhas", "Pão e farinhas") +
                level1("0101002", "Bolos", "Bolos") + level1("0102001", "Café", "Café") +
                level1("0102002", "Cabazes", "Cabazes") +
                level1("0201001", "Vinhos do Douro", "Vinhos do Douro") +
                level1("0201002", "_", "") + level1("0201003", "Todos_", "Todos") +
                level1("0299001", "Vinhos sem região", "Vinhos sem região") +
                level1("0301001", "Entregas ao domicílio", "Entregas ao domicílio", true));
  // Each family has its three level rows, numbered 1 to 3, of value 0.
  EXPECT_EQ(shop.Lines("SELECT LevelNumber, LevelValue, COUNT(*) FROM "
                       "FamilyProfitRate GROUP BY 1, 2 ORDER BY 1"),
            "1|0|10\n2|0|10\n3|0|10\n");
}

TEST_F(ProgramLoadMasterData, FromLevelOneTheWholeTreeIsLoaded) {
  Shop shop(Changes{{"InitializeFamilyLevel", "1"}});
  shop.LoadOk();
  // Codes of 2, 4 and 7 characters, each under the family whose code
  // begins its own; 0299001 has no family 0299 to lead to it. "s" in lower
  // case is a service family too.
  const std::string g = Text(3880041);
  const std::string m = "Mercearia", p = "Padaria e pastelaria", c = "Cafetaria", b = "Bebidas",
                    v = "Vinhos", s = "Serviços", e = "Entregas";
  EXPECT_EQ(
      Families(shop, "f.FamilyKey"),
      FamilyRow("01", m, "GeneralFamily", g, 1, {g, m}) +
          FamilyRow("0101", p, "01", m, 2, {g, m, p}) +
          FamilyRow("0101001", "Pão e farinhas", "0101", p, 3, {g, m, p, "Pão e farinhas"}) +
          FamilyRow("0101002", "Bolos", "0101", p, 3, {g, m, p, "Bolos"}) +
          FamilyRow("0102", c, "01", m, 2, {g, m, c}) +
          FamilyRow("0102001", "Café", "0102", c, 3, {g, m, c, "Café"}) +
          FamilyRow("0102002", "Cabazes", "0102", c, 3, {g, m, c, "Cabazes"}) +
          FamilyRow("02", b, "GeneralFamily", g, 1, {g, b}) +
          FamilyRow("0201", v, "02", b, 2, {g, b, v}) +
          FamilyRow("0201001", "Vinhos do Douro", "0201", v, 3, {g, b, v, "Vinhos do Douro"}) +
          FamilyRow("0201002", "_", "0201", v, 3, {g, b, v, ""}) +
          FamilyRow("0201003", "Todos_", "0201", v, 3, {g, b, v, "Todos"}) +
          FamilyRow("03", s, "GeneralFamily", g, 1, {g, s}, true) +
          FamilyRow("0301", e, "03", s, 2, {g, s, e}, true) +
          FamilyRow("0301001", "Entregas ao domicílio", "0301", e, 3,
                    {g, s, e, "Entregas ao domicílio"}, true) +
          FamilyRow("GeneralFamily", g, "0", g, 0, {g}));
  EXPECT_EQ(shop.Lines("SELECT COUNT(*) FROM FamilyProfitRate"), "48\n");
}

TEST_F(ProgramLoadMasterData, WarehousesAreThoseOfTheDelegation) {
  const std::string warehouses =
      "SELECT WarehouseID, WarehouseKey, Description, AddressLine1, AddressLine2, PostalCode, "
      "CountryID FROM Warehouse ORDER BY WarehouseKey";
  // Delegation 1 owns the codes from 10000 to 19999; the closed 10002 is
  // not read, and the POS's own warehouse 1 is gone.
  EXPECT_EQ(Loaded().Lines(warehouses),
            "10000|10000|Armazém do Porto|Rua do Freixo, 1000|Porto|4300-219|PT\n"
            "10001|10001|Loja de Santa Catarina|Rua de Santa Catarina, 200|Porto|4000-450|PT\n");
  {
    Shop shop(Changes{{"LumaroDelegationID", "2"}});
    shop.LoadOk();
    EXPECT_EQ(shop.Lines(warehouses),
              "20000|20000|Armazém de Lisboa|Rua do Açúcar, 50|Lisboa|1950-009|PT\n");
  }
  {
    // From delegation 3 on, the end of the range (40000) overflows a 16-bit
    // number: the range is not added and every open warehouse comes in.
    // 40000 cannot be an id either, and takes a new one.
    Shop shop(Changes{{"LumaroDelegationID", "3"}});
    shop.LoadOk();
    EXPECT_EQ(shop.Lines("SELECT WarehouseKey, Description, WarehouseID = CAST(WarehouseKey AS "
                         "INTEGER) FROM Warehouse ORDER BY WarehouseKey"),
              "10000|Armazém do Porto|1\n10001|Loja de Santa Catarina|1\n"
              "20000|Armazém de Lisboa|1\n40000|Armazém de Faro|0\n");
    EXPECT_GT(shop.Number("SELECT WarehouseID FROM Warehouse WHERE WarehouseKey = '40000'"), 0);
    // One for the range, one for the id of 40000.
    const std::vector<std::string> entries = shop.LogEntries();
    EXPECT_EQ(std::count_if(entries.begin(), entries.end(),
                            [](const std::string& entry) {
                              return entry.find("<Upgrade_Warehouse>") != std::string::npos;
                            }),
              2)
        << testsupport::ReadBytes(shop.LogFile());
  }
}

TEST_F(ProgramLoadMasterData, SuppliersWithTheirPartiesAndTheirPaymentTerms) {
  Shop& shop = Loaded();
  // The payment is found by the code as a number: "60" finds its condition
  // (5); "30D", "PP" and "2X" are no numbers and take the first condition.
  // The currency is found by the code as text ("USD"). Fornc has no
  // TemIRRet, so the company's retention applies to all. Names and notes
  // are trimmed, and the dots of a taxpayer number become blanks.
  EXPECT_EQ(
      shop.Lines("SELECT SupplierID, SupplierKey, OrganizationName, FederalTaxID, "
                 "EmailAddress, Telephone1, Fax, CountryID, CurrencyID, ZoneID, PaymentID, "
                 "TenderID, TaxRegime, DirectDiscount, AplyRetentionTax <> 0, "
                 "RetentionTax, Inactive <> 0, Comments, CreationDate "
                 "FROM Supplier ORDER BY SupplierID"),
      ("1|1|Moagem do Norte, S.A.|500111222|encomendas@moagemnorte.example.pt|227000000|"
       "227000001|PT|EUR|1|5|1|1|3|1|11.5|0|Entrega às segundas|2020-02-10\n"
       "2|2|Torrefação Lisboa, Lda.|502 333 444|vendas@torrefacao.example.pt|213000000||PT|"
       "EUR|1|1|1|1|0|1|11.5|0||2021-05-05\n"
       "3|3|Bodegas del Duero, S.L.|ESB87654321|ventas@bodegasduero.example.es|+34 980 000 "
       "000|||EUR|3|1|1|5|5|1|11.5|0||2022-09-01\n"
       "4|4|Embalagens Évora|503555666||266000000||PT|EUR|1|1|1|1|0|1|11.5|1|Já não "
       "fornece|2019-01-15\n"
       "5|5|Pacific Coffee Importers|US 91 1234567|sales@pacificcoffee.example.com|+1 206 555 "
       "0100|+1 206 555 0101||USD|5|1|1|6|2.5|1|11.5|0|Contentores de 20 pés|"
       "2024-04-04\n"));
  // The main address first (the one the supplier names, marked 1): Local
  // takes the first line when Morada is empty; then those of ForMo.
  EXPECT_EQ(shop.Lines("SELECT s.SupplierID, a.AddressID = s.AddressID, a.AddressLine1, "
                       "a.AddressLine2, a.PostalCode, a.CountryID, a.ProvinceID, a.LocalityID "
                       "FROM Supplier s JOIN PartyAddress a ON a." +
                       kSupplierParty +
                       " ORDER BY s.SupplierID, a.AddressID <> s.AddressID, a.AddressID"),
            "1|1|Rua da Moagem, 10|Vila Nova de Gaia|4400-001|PT|13|17\n"
            "1|0|Zona Industrial da Maia, 7|Maia|4470-000|PT||0\n"
            "2|1|Lisboa||1100-100|PT|11|6\n"
            "3|1|Calle Mayor, 3|Zamora|49001|||0\n"
            "3|0|Carretera de Toro, km 2|Zamora|49002|||0\n"
            "4|1|Rua do Raimundo, 12|Évora|7000-661|PT|07|5\n"
            "5|1|200 Pier Road|Seattle|WA 98101|||0\n");
  // Contacts as a customer's.
  EXPECT_EQ(shop.Lines("SELECT s.SupplierID, p.PersonID, p.Title, p.Name FROM Supplier s JOIN "
                       "Person p ON p." +
                       kSupplierParty + " ORDER BY s.SupplierID, p.PersonID"),
            "1|1|" + Text(3880103) + "|Paula Dias\n" +       //
                "1|2|" + Text(3880104) + "|Nuno Vaz\n" +     //
                "1|3|" + Text(3880105) + "|Henrique Sá\n" +  //
                "1|4|ARM|Zona Industrial da Maia, 7\n" +     //
                "2|1|" + Text(3880104) + "|Inês Gomes\n" +   //
                "3|1|" + Text(3880106) + "|Luis Prieto\n");
  EXPECT_EQ(shop.Lines("SELECT s.SupplierID, t.PersonID, t.TelephoneID, t.TelephoneType, "
                       "t.TelephoneNumber FROM Supplier s JOIN Telephone t ON t." +
                       kSupplierParty + " ORDER BY s.SupplierID, t.PersonID, t.TelephoneID"),
            "1|1|1|0|227000010\n"
            "1|2|1|0|227000011\n"
            "1|3|1|0|227000012\n"
            "1|4|1|0|229000000\n"
            "1|4|2|1|229000001\n"
            "2|1|1|0|213000010\n"
            "3|1|1|0|+34 980 000 001\n");
}

TEST_F(ProgramLoadMasterData, WithoutSuppliersTheGeneralSupplierIsMadeInANewEuropeanZone) {
  Shop shop;
  shop.BackOffice("DELETE FROM ForMo; DELETE FROM Fornc;");
  shop.LoadOk();
  // The zones of the back office have no European zone of the load's own,
  // so one is made after them; the general supplier belongs to it, with
  // the first payment condition and tender 1.
  EXPECT_EQ(shop.Lines("SELECT ZoneID, ZoneKey, Description, ZoneType, CountryID, CurrencyID, "
                       "TaxRegionID, " +
                       kAudit + " FROM Zone WHERE ZoneID > 7"),
            "8||" + Text(3880039) + "|1|PT|EUR|CON|" + kAudited + "\n");
  EXPECT_EQ(shop.Lines("SELECT SupplierKey, OrganizationName, CountryID, ZoneID, PaymentID, "
                       "TenderID, TaxRegime FROM Supplier"),
            ("|" + Text(3880033) + "|PT|8|1|1|5\n"));
  EXPECT_EQ(shop.LogEntries(), loadshop::kNoEntries);
}

TEST_F(ProgramLoadMasterData, BanksWithTheirAccounts) {
  Shop& shop = Loaded();
  // The inactive bank 4 is not read. The name is bank and branch with one
  // blank between them, or the bank alone.
  EXPECT_EQ(shop.Lines("SELECT BankID, BankKey, Name, CountryID, Telephone1, Fax FROM Bank ORDER "
                       "BY BankID"),
            "1|1|Banco Atlântico Porto - Aliados|PT|222000000|222000001\n"
            "2|2|Caixa Central|PT|213500000|\n"
            "3|3|Banco do Minho Braga|PT|253000000|\n");
  // An account without a bank code (bank 3's) is dropped. The currency is
  // found by its code.
  EXPECT_EQ(shop.Lines("SELECT BankAccountID, BankID, BankName, Description, CountryID, "
                       "BankCode, BranchCode, AccountNumber, CheckDigits, CurrencyID FROM "
                       "PartyBankAccount ORDER BY BankAccountID"),
            "1|1|Banco Atlântico Porto - Aliados|Conta à ordem|PT|0033|0000|45123456789|05|EUR\n"
            "2|2|Caixa Central|Conta em dólares|PT|0035|0697|00012345678|31|USD\n");
  // Each account lies in its own bank's party.
  EXPECT_EQ(shop.Lines("SELECT COUNT(DISTINCT PartyID) FROM PartyBankAccount"), "2\n");
}

TEST_F(ProgramLoadMasterData, LimitsChooseWhatIsLoadedAndWhatRefersToIt) {
  Shop shop(Changes{{"InitializeCustomerGroup", "EMP;REV"},
                    {"InitializeZone", "1;700"},
                    {"InitializeSalesman", "V01;V02;V09"},
                    {"InitializeFamily", "0102"},
                    {"InitializeFamilyLevel", "2"},
                    {"InitializePriceLine", "1;3"},
                    {"InitializeDocument", "tv%"}});
  shop.LoadOk();
  EXPECT_EQ(shop.Lines("SELECT GroupID, GroupKey, Description FROM CustomerGroups ORDER BY "
                       "GroupID"),
            "1|EMP|Empresas\n2|REV|REV\n");
  EXPECT_EQ(shop.Lines("SELECT ZoneID, ZoneKey, Description, ZoneType FROM Zone ORDER BY ZoneID"),
            "1|1|Portugal continental|0\n2|700|Estados Unidos|2\n");
  // V09 is named but inactive.
  EXPECT_EQ(shop.Lines("SELECT SalesmanID, SalesmanKey FROM Salesman ORDER BY SalesmanID"),
            "1|V01\n2|V02\n");
  // A customer must match all three limits: 100001 (group PAR) and 100005
  // (no group) fail the groups, 100003 the zones (500), 200001 the
  // salesmen (V03). The groups, zones and salesmen are those loaded.
  EXPECT_EQ(shop.Lines("SELECT CustomerID, CustomerLevel, ZoneID, SalesmanID FROM Customer "
                       "ORDER BY CustomerID"),
            "100002|1|1|2\n100004|1|2|1\n");
  // The zones of suppliers come from the zones loaded; 500 is not among
  // them and falls back on the first.
  EXPECT_EQ(shop.Lines("SELECT SupplierID, ZoneID FROM Supplier ORDER BY SupplierID"),
            "1|1\n2|1\n3|1\n4|1\n5|2\n");
  // Levels 1 and 2 together are 4 characters: family 0102 is level 1
  // under the root, its families of level 3 are level 2 under it, and no
  // other family is loaded.
  const std::string g = Text(3880041), c = "Cafetaria";
  EXPECT_EQ(Families(shop, "f.FamilyKey"),
            FamilyRow("0102", c, "GeneralFamily", g, 1, {g, c}) +
                FamilyRow("0102001", "Café", "0102", c, 2, {g, c, "Café"}) +
                FamilyRow("0102002", "Cabazes", "0102", c, 2, {g, c, "Cabazes"}) +
                FamilyRow("GeneralFamily", g, "0", g, 0, {g}));
  // The articles of those families (GRELHADOR is not valid now), each in
  // its family of level 2 under 0102.
  EXPECT_EQ(shop.Lines("SELECT i.ItemID, f.FamilyKey, p.FamilyKey FROM Item i JOIN Family f "
                       "ON f.FamilyID = i.FamilyID JOIN Family p ON p.FamilyID = "
                       "f.ParentFamilyID ORDER BY i.ItemID"),
            "AVENTAL|0102002|0102\n"
            "BALANCA|0102001|0102\n"
            "CABAZ|0102002|0102\n"
            "CABAZNATAL|0102002|0102\n"
            "CAFE|0102001|0102\n"
            "MOINHO|0102001|0102\n");
  // Price lines 1 and 3 of the back office are the POS's 1 and 2: the
  // prices of line 3 are on line 2, those of line 2 are not read.
  EXPECT_EQ(shop.Lines("SELECT PriceLineID, PriceLineKey FROM PriceLine ORDER BY PriceLineID"),
            "0|\n1|1\n2|3\n");
  EXPECT_EQ(shop.Lines("SELECT COUNT(*) FROM ItemSellingPrices"), "18\n");
  EXPECT_EQ(shop.Lines("SELECT ItemID, PriceLineID, PriceWithoutTax, PriceWithTax, PriceDate "
                       "FROM ItemSellingPrices WHERE PriceWithoutTax <> 0 OR PriceWithTax <> 0 "
                       "OR PriceDate IS NOT NULL ORDER BY ItemID, PriceLineID"),
            "CABAZ|1|20.2439|24.9|2026-10-01\n"
            "CABAZ|2|16.1789|19.9|2026-11-15\n"
            "CAFE|1|13.7398|16.9|2026-06-15\n"
            "MOINHO|1|73.0894|89.9|2025-02-01\n");
  // PAO is now out too: its row names no item either.
  EXPECT_EQ(shop.Lines("SELECT ItemID, ComponentItemID, ComponentKey, ComponentQuantity FROM "
                       "ItemComponents ORDER BY ItemID, ComponentItemID, ComponentQuantity"),
            "CABAZ|||1\nCABAZ|||2\nCABAZ|CAFE|CAFE|1\n");
  EXPECT_EQ(shop.Lines("SELECT COUNT(*) FROM AlternativeItem"), "0\n");
  // "%" is "*" to the document limit, and case does not count.
  EXPECT_EQ(shop.Lines("SELECT TransDocumentID, TransDocumentKey FROM Documents"), "TVD|TVD\n");
  // What has no limit comes whole.
  EXPECT_EQ(shop.Lines("SELECT (SELECT COUNT(*) FROM Payment), (SELECT COUNT(*) FROM Carrier), "
                       "(SELECT COUNT(*) FROM Bank)"),
            "10|3|3\n");
}

TEST_F(ProgramLoadMasterData, LimitsThatMatchNothingLeaveTheLoadsOwnDefaults) {
  // The codes of a limit are joined by commas before the load sees them:
  // two documents are one pattern that matches no type.
  Shop shop(Changes{{"InitializeCustomerGroup", "ZZ"},
                    {"InitializeZone", "999"},
                    {"InitializeSalesman", "XX"},
                    {"InitializeFamily", "99"},
                    {"InitializeDocument", "TVD;TFA"}});
  shop.LoadOk();
  // No zone: the load's European zone is the only one, and every zone
  // falls back on it; the suppliers need no other.
  EXPECT_EQ(shop.Lines("SELECT ZoneID, ZoneKey, Description, ZoneType, CountryID, CurrencyID, "
                       "TaxRegionID, " +
                       kAudit + " FROM Zone"),
            "1||" + Text(3880039) + "|1|PT|EUR|CON|" + kAudited + "\n");
  EXPECT_EQ(shop.Lines("SELECT DISTINCT ZoneID FROM Supplier"), "1\n");
  // No salesman: the general salesman is made.
  EXPECT_EQ(
      shop.Lines("SELECT SalesmanID, SalesmanKey, SalesmanName, " + kAudit + " FROM Salesman"),
      "1||" + Text(3880026) + "|" + kAudited + "\n");
  // No group, no customer, no family (not even the root) and so no item,
  // and no document: the POS's own TVD is still removed.
  EXPECT_EQ(shop.Lines("SELECT (SELECT COUNT(*) FROM CustomerGroups), (SELECT COUNT(*) FROM "
                       "Customer), (SELECT COUNT(*) FROM Family), (SELECT COUNT(*) FROM "
                       "FamilyProfitRate), (SELECT COUNT(*) FROM Documents)"),
            "0|0|0|0|0\n");
}

TEST_F(ProgramLoadMasterData, EmptyBackOfficeTablesLeaveNothingToFallBackOn) {
  Shop shop;
  shop.BackOffice(
      "DELETE FROM MeExp; DELETE FROM CdCob; DELETE FROM CDPag; DELETE FROM Preca; "
      "DELETE FROM Armaz; DELETE FROM CoBan;");
  shop.LoadOk();
  // No carrier and no payment condition: customers and suppliers keep 0,
  // and take the first tender. Price lines are cleared but for the cost
  // line, and a customer's line 0 still becomes the fixed 1. The POS's own
  // warehouse goes all the same.
  EXPECT_EQ(shop.Lines("SELECT DISTINCT CarrierID, PaymentID, TenderID, PriceLineID FROM "
                       "Customer"),
            "0|0|1|1\n");
  EXPECT_EQ(shop.Lines("SELECT DISTINCT PaymentID, TenderID FROM Supplier"), "0|1\n");
  EXPECT_EQ(shop.Lines("SELECT PriceLineID FROM PriceLine"), "0\n");
  EXPECT_EQ(shop.Lines("SELECT (SELECT COUNT(*) FROM Carrier), (SELECT COUNT(*) FROM Payment), "
                       "(SELECT COUNT(*) FROM Warehouse), (SELECT COUNT(*) FROM Bank), (SELECT "
                       "COUNT(*) FROM Customer)"),
            "0|0|0|0|6\n");
}

}  // namespace
