// `lumaro initial-load` end to end, for the items and what the load does
// last: units of measure and the rules of lots, items with their prices,
// suppliers, barcodes and pictures, kits and alternatives, tenders, document
// types, and the salesmen that were not reloaded. The expected rows are
// worked out by hand from the sample back office's rows
// (examples/backoffice/backoffice.sql), the example settings (till 3,
// delegation 1, families from level 3) and the IVA rates in force on the
// mainland (normal 23, intermediate 13, reduced 6, exempt 0).

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "tests/app/LoadShop.h"
#include "tests/support/TestHost.h"

namespace {

using loadshop::Changes;
using loadshop::Joined;
using loadshop::kAudit;
using loadshop::kAudited;
using loadshop::Shop;

class ProgramLoadItems : public loadshop::LoadedShopTest {};

// The items the sample gives with the example settings: valid today, with
// a family at level 3. Not among them: VINHO19 (never valid), ROSCA (valid
// from tomorrow), COMPOTA (a period that ended), FOLAR (only before a date
// that has passed), GRELHADOR (not inside a period we are in), TAXA and
// CABAZVINHO (no family at level 3).
const std::vector<std::string> kItems = {
    "AVENTAL",    "AZEITE",   "BALANCA", "BOLOREI", "CABAZ",   "CABAZNATAL", "CAFE",
    "CAIXAVINHO", "EMBRULHO", "ENTREGA", "FARINHA", "MEL",     "MOINHO",     "OVOS",
    "PAO",        "PAPEL",    "QUEIJO",  "VINHO",   "VINHORES"};

// The document types the back office brings: "FAC" and "TER" of at most
// three characters that begin with "T", in the order of their codes.
const std::vector<std::string> kDocuments = {"TCN", "TDP", "TDV", "TEC", "TES", "TFA", "TGT",
                                             "TNC", "TOR", "TPG", "TRE", "TTR", "TVD"};

// A shop whose delegation (0) owns the warehouse codes below 10000, with a
// warehouse 1 among them: the lots are written only into the POS's
// warehouse 1, which the example's delegation (codes from 10000) never has.
const Changes kDelegationZero = {{"LumaroDelegationID", "0"}};
void AddWarehouseOne(Shop& shop) {
  shop.BackOffice(
      "INSERT INTO Armaz VALUES (1, 'Armazém central', 'Rua Central, 1', 'Porto', '4000-001', "
      "1)");
}

TEST_F(ProgramLoadItems, UnitsAreMadeFromTheArticlesCodesOfNoMeasures) {
  Shop& shop = Loaded();
  // Both the stock and the sale units of every article of NMED 0, valid or
  // not: CX, DZ ("DZ " trimmed: three characters as they stand) and KG,
  // and FT of an article not valid yet. UN is the POS's own and is not
  // saved again. CAIXA and "LT  " have four characters or more as they
  // stand: no unit; M2 belongs to an article of NMED 1 only.
  EXPECT_EQ(shop.Lines("SELECT UnitOfMeasureID, Description, LanguageID, BaseUnitOfMeasureID, "
                       "UnitRatio, UnitFormula FROM UnitOfMeasure ORDER BY UnitOfMeasureID"),
            "CX|CX|PT|UN|1|\n"
            "DZ|DZ|PT|UN|1|\n"
            "FT|FT|PT|UN|1|\n"
            "KG|KG|PT|UN|1|\n"
            "UN|Unidade|PT|UN|1|\n");
  // Units are used; none has a formula, so the formula's columns stay.
  EXPECT_EQ(shop.Lines("SELECT UseUnitOfMeasureItems <> 0, UseUnitWithFormulaItems <> 0, "
                       "UnitOfMeasureDesc1, UnitOfMeasureDesc2, UnitOfMeasureDesc3 FROM "
                       "ConfSystem"),
            "1|0|||\n");
  // An item's units are those of its codes; the four-character codes give
  // the POS's default unit, which is still a unit found, so the factor
  // (UPUV) holds: VINHORES' box of 6 is a UN of factor 6. PAPEL's M2 was
  // never made: both units are the default, and the factor is 1 whatever
  // UPUV says. CAIXAVINHO's UPUV "S" is no number: its factor reads 0, so
  // the sale factor is put back to 1 and the alternative factor stays 0.
  EXPECT_EQ(shop.Lines("SELECT ItemID, BaseUnitOfMeasureID, SaleUnitOfMeasureID, "
                       "SaleUnitFactor, AltUnitOfMeasureID1, AltUnitOfMeasureID2, "
                       "AltUnitOfMeasureID3, AltUnitFactor FROM Item WHERE "
                       "BaseUnitOfMeasureID <> 'UN' OR SaleUnitOfMeasureID <> 'UN' OR "
                       "AltUnitOfMeasureID1 <> 'UN' OR AltUnitOfMeasureID2 <> 'UN' OR "
                       "AltUnitOfMeasureID3 <> 'UN' OR SaleUnitFactor <> 1 OR AltUnitFactor <> 1 "
                       "ORDER BY ItemID"),
            "CAIXAVINHO|UN|CX|1|CX|CX|CX|0\n"
            "FARINHA|KG|KG|1|KG|KG|KG|1\n"
            "OVOS|UN|DZ|12|DZ|DZ|DZ|12\n"
            "QUEIJO|KG|KG|1|KG|KG|KG|1\n"
            "VINHO|UN|CX|6|CX|CX|CX|6\n"
            "VINHORES|UN|UN|6|UN|UN|UN|6\n");
}

TEST_F(ProgramLoadItems, WithoutArticlesOfNoMeasuresEveryItemTakesTheDefaultUnit) {
  Shop shop;
  shop.BackOffice("UPDATE Artig SET NMED = 1");
  shop.LoadOk();
  // No unit is made and ConfSystem is left as it was.
  EXPECT_EQ(shop.Lines("SELECT UnitOfMeasureID FROM UnitOfMeasure"), "UN\n");
  EXPECT_EQ(shop.Lines("SELECT UseUnitOfMeasureItems <> 0, UseUnitWithFormulaItems <> 0 FROM "
                       "ConfSystem"),
            "0|0\n");
  // The default unit taken, every factor is 1: UPUV is not read.
  EXPECT_EQ(shop.Lines("SELECT DISTINCT BaseUnitOfMeasureID, SaleUnitOfMeasureID, "
                       "AltUnitOfMeasureID1, AltUnitOfMeasureID2, AltUnitOfMeasureID3, "
                       "SaleUnitFactor, AltUnitFactor FROM Item"),
            "UN|UN|UN|UN|UN|1|1\n");
  // So CAIXAVINHO's prices, multiplied by that factor, are the back
  // office's: 45 with tax on line 1, 30 without on line 2.
  EXPECT_EQ(shop.Lines("SELECT PriceLineID, PriceWithoutTax, PriceWithTax FROM ItemSellingPrices "
                       "WHERE ItemID = 'CAIXAVINHO' AND PriceLineID IN (1, 2) ORDER BY "
                       "PriceLineID"),
            "1|36.5854|45\n2|30|36.9\n");
}

TEST_F(ProgramLoadItems, ArticlesValidTodayAtTheFamilyLevelBecomeItems) {
  Shop& shop = Loaded();
  // The id is the trimmed code, the key the code as it stands ("MEL ").
  // "A" and anything else is 0, "S" and "s" 1, "G" 4 and composed; "F" is a
  // plain article (0) in the initial load. The short description is the
  // trimmed Sigla, cut to 50 characters (QUEIJO's); the description is the
  // trimmed DESCR, not cut.
  EXPECT_EQ(shop.Lines("SELECT ItemID, ItemKey, ItemType, IsComposed <> 0, ShortDescription, "
                       "Description FROM Item ORDER BY ItemID"),
            "AVENTAL|AVENTAL|0|0|Avental de cozinha|Avental de cozinha em algodão, várias cores "
            "e tamanhos\n"
            "AZEITE|AZEITE|0|0|Azeite virgem extra 1 l|Azeite virgem extra, garrafa de 1 l\n"
            "BALANCA|BALANCA|0|0|Balança de cozinha digital|Balança de cozinha digital até 5 kg\n"
            "BOLOREI|BOLOREI|0|0|Bolo-rei|Bolo-rei de fabrico próprio, 1 kg\n"
            "CABAZ|CABAZ|4|1|Cabaz pequeno-almoço|Cabaz de pequeno-almoço: pão e café\n"
            "CABAZNATAL|CABAZNATAL|4|1|Cabaz de Natal|Cabaz de Natal, composição a definir\n"
            "CAFE|CAFE|0|0|Café em grão 1 kg|Café em grão, lote da casa, 1 kg\n"
            "CAIXAVINHO|CAIXAVINHO|0|0|Caixa de 6 vinhos Douro|Caixa de seis garrafas de vinho "
            "tinto DOC Douro\n"
            "EMBRULHO|EMBRULHO|1|0|Embrulho para oferta|Serviço de embrulho para oferta\n"
            "ENTREGA|ENTREGA|1|0|Entrega ao domicílio|Entrega ao domicílio no concelho\n"
            "FARINHA|FARINHA|0|0|Farinha T65 a granel|Farinha de trigo tipo 65, a granel\n"
            "MEL|MEL |0|0|Mel de rosmaninho 500 g|Mel de rosmaninho do Alentejo, frasco de 500 g\n"
            "MOINHO|MOINHO|0|0|Moinho de café elétrico|Moinho de café elétrico, 150 W\n"
            "OVOS|OVOS|0|0|Ovos de galinhas criadas ao ar livre|Ovos classe M, de galinhas "
            "criadas ao ar livre\n"
            "PAO|PAO|0|0|Pão de trigo|Pão de trigo, unidade\n"
            "PAPEL|PAPEL|0|0|Papel de embrulho|Papel de embrulho kraft, ao metro quadrado\n"
            "QUEIJO|QUEIJO|0|0|Queijo Serra da Estrela DOP amanteigado, à peça de|Queijo Serra "
            "da Estrela DOP amanteigado, vendido à peça de cerca de 1 kg, ao peso\n"
            "VINHO|VINHO|0|0|Vinho tinto Douro 75 cl|Vinho tinto DOC Douro, garrafa de 75 cl\n"
            "VINHORES|VINHORES|0|0|Vinho tinto Douro Reserva 75 cl|Vinho tinto DOC Douro "
            "Reserva, garrafa de 75 cl\n");
  // The same for all: the base currency, the auxiliary codes 0, and no
  // stock control in the initial load.
  EXPECT_EQ(shop.Lines("SELECT DISTINCT CurrencyID, CurrencyExchange, CurrencyFactor, "
                       "AuxiliaryCode1, AuxiliaryCode2, AuxiliaryCode3, AuxiliaryCode4, "
                       "ControlsStock <> 0 FROM Item"),
            "EUR|1|1|0|0|0|0|0\n");
  // The tax class, family, supplier and barcode. The back office's tax type
  // 1 is the reduced class (3), 2 the normal one (1), ENTREGA's " 2 " too;
  // PAPEL's 9 is none (0). The family is that of the article's code;
  // AZEITE's "01" is a family of level 1, not loaded at level 3, and it
  // takes the root. The supplier is the first row of a known supplier, read
  // in the order of the supplier's code (CAFE's 1 before 2; EMBRULHO's 4, 99
  // being unknown); BOLOREI's only supplier is unknown, and it takes the
  // default (the first, 1), as the articles without a row do. The barcode
  // is the first marked for labels.
  //
  // Then the rule of an article with lots (TemLot 1 to 5), and the six
  // settings of the rule as the POS presents them to an item: the
  // production date (-1 when used), the control type, the table of values,
  // the expiry date (-1 when used), the maximum quantity and the expiry
  // control. AZEITE has TemLot 1 but no lot anywhere, and QUEIJO TemLot 6:
  // no rule. An item without a rule takes -1, 2, false, false and 0, and
  // keeps 0 in the last. Last, the picture in the sale and the scale.
  const std::string none = "|-1|2|0|0|0|0";
  EXPECT_EQ(
      shop.Lines("SELECT i.ItemID, i.TaxableGroupID, f.FamilyKey, i.SupplierID, i.Barcode, "
                 "i.PropertyID1, i.PropertyRule1, i.PropertyRule2, i.PropertyRule3 <> 0, "
                 "i.PropertyRule4, i.PropertyRule5, i.PropertyRule6, i.UseImageInSale <> 0, "
                 "i.UsesScale <> 0 FROM Item i LEFT JOIN Family f ON f.FamilyID = i.FamilyID "
                 "ORDER BY i.ItemID"),
      Joined({"AVENTAL|1|0102002|1||CCT|0|0|0|0|0|1|0|0",
              "AZEITE|3|GeneralFamily|1||" + none + "|1|0",
              "BALANCA|1|0102001|1||RNV|0|1|0|0|1|1|0|0", "BOLOREI|1|0101002|1||" + none + "|0|0",
              "CABAZ|1|0102002|1||" + none + "|0|0", "CABAZNATAL|1|0102002|1||" + none + "|0|0",
              "CAFE|1|0102001|1|5601234000028|CL|-1|0|0|-1|0|1|0|0",
              "CAIXAVINHO|1|0201001|1||" + none + "|0|0", "EMBRULHO|1|0301001|4||" + none + "|0|0",
              "ENTREGA|1|0301001|1||" + none + "|0|0", "FARINHA|3|0101001|1||" + none + "|0|1",
              "MEL|3|0101001|1|5601234000059|" + none + "|0|0",
              "MOINHO|1|0102001|2||CNS|0|0|0|0|1|1|0|0", "OVOS|3|0101001|1||" + none + "|0|0",
              "PAO|3|0101001|1|5601234000011|" + none + "|1|0",
              "PAPEL|0|0301001|1||" + none + "|0|0", "QUEIJO|3|0101001|1||" + none + "|0|1",
              "VINHO|1|0201001|3|5601234000035|RLV|-1|1|0|-1|0|1|0|0",
              "VINHORES|1|0201001|3||" + none + "|0|0"}));
}

TEST_F(ProgramLoadItems, TheRulesOfLotsButNoLotOutsideWarehouseOne) {
  Shop& shop = Loaded();
  // The five rules of lots, serial numbers and colours and sizes.
  const std::string tail = "|" + kAudited + "\n";
  EXPECT_EQ(shop.Lines("SELECT PropertyID, Description, KeyDescription, PropertyKeyType, "
                       "ControlMode, ControlType, UsePropertyTable <> 0, UseProductionDate <> 0, "
                       "UseExpirationDate <> 0, ExpirationDateControl, MaximumQuantity, " +
                       kAudit + " FROM ItemProperty ORDER BY PropertyID"),
            "CCT|Controla Cores/Tamanho|CCT|202|0|0|0|0|0|1|0" + tail +
                "CL|Controla Lotes|CL|202|0|0|0|1|1|1|0" + tail +
                "CNS|Controla Números de Série|CNS|202|0|0|0|0|0|1|1" + tail +
                "RLV|Regista Lotes na Venda|RLV|202|0|1|0|1|1|1|0" + tail +
                "RNV|Regista Nº de Série na Venda|RNV|202|0|1|0|0|0|1|1" + tail);
  // The example's delegation has no warehouse 1: no lot is written.
  EXPECT_EQ(shop.Lines("SELECT COUNT(*) FROM StockProperty"), "0\n");
}

TEST_F(ProgramLoadItems, TheLotsOfWarehouseOneAndASecondLoadThatChangesNothing) {
  Shop shop(kDelegationZero);
  AddWarehouseOne(shop);
  shop.LoadOk();
  // Articles with TemLotTab take their lots from the lot table, each of
  // quantity 1, with its dates (NULL stays NULL), an empty code too
  // (BALANCA's). The others take the lots of their totals (warehouse 0)
  // with their stock and no dates, an empty lot left out (VINHO's). The
  // cheese's TemLot 6 gives no rule, and the jam is no item: their lots
  // are written all the same. CAFE is in both tables and written once.
  std::string lots;
  for (const char* lot :
       {"AVENTAL|1|AZUL-M|||5|5", "AVENTAL|1|VERDE-L|||2|2", "BALANCA|1||||1|1",
        "BALANCA|1|BL-001||2028-12-31|1|1", "CAFE|1|C2610|2026-10-05|2027-10-05|1|1",
        "CAFE|1|C2611||2027-11-10|1|1", "COMPOTA|1|CP2610|2026-10-01|2027-10-01|1|1",
        "MOINHO|1|SN-0001|||1|1", "MOINHO|1|SN-0002|||1|1", "QUEIJO|1|Q2611|||4.5|4.5",
        "VINHO|1|V2022|||24|24", "VINHO|1|V2023|||12|12"}) {
    lots += std::string(lot) + "|" + kAudited + "\n";
  }
  EXPECT_EQ(
      shop.Lines("SELECT ItemID, WarehouseID, PropertyValue1, ProductionDate, ExpirationDate, "
                 "PhysicalQty, PhysicalUnits, " +
                 kAudit + " FROM StockProperty ORDER BY ItemID, PropertyValue1"),
      lots);
  EXPECT_EQ(shop.LogEntries(), loadshop::kNoEntries);

  // A second load over the first finds what it wrote and writes it again:
  // the same rows, none twice.
  const std::string tables =
      "ProvinceCodes LocalityCodes Zone PriceLine Carrier Payment Installment Salesman "
      "CustomerGroups Customer PartyAddress Person Telephone LoadUnloadPlace Family "
      "FamilyProfitRate Warehouse Supplier Bank PartyBankAccount UnitOfMeasure ItemProperty "
      "StockProperty Item ItemSellingPrices ItemSupplier POSIdentity ItemComponents "
      "AlternativeItem Tender TenderNames Documents DocumentsSeriesNumber "
      "ConfWorkstationDocDefaults ConfWorkstationDocFields";
  const std::string units =
      "SELECT UseUnitOfMeasureItems, UseUnitWithFormulaItems, UnitOfMeasureDesc1 FROM ConfSystem";
  const std::string first = shop.Lines(units) + shop.Rows(tables);
  shop.LoadOk();
  EXPECT_EQ(shop.Lines(units) + shop.Rows(tables), first);
  EXPECT_EQ(shop.LogEntries(), loadshop::kNoEntries);
}

TEST_F(ProgramLoadItems, WithoutLotsInTheLotTableNoRuleIsWrittenButTheLotsOfTheTotalsAre) {
  Shop shop(kDelegationZero);
  AddWarehouseOne(shop);
  shop.BackOffice("DELETE FROM ArLot");
  shop.LoadOk();
  EXPECT_EQ(shop.Lines("SELECT COUNT(*) FROM ItemProperty"), "0\n");
  EXPECT_EQ(shop.Lines("SELECT ItemID, PropertyValue1, PhysicalQty FROM StockProperty ORDER BY "
                       "ItemID, PropertyValue1"),
            "AVENTAL|AZUL-M|5\nAVENTAL|VERDE-L|2\nQUEIJO|Q2611|4.5\nVINHO|V2022|24\n"
            "VINHO|V2023|12\n");
}

TEST_F(ProgramLoadItems, EveryItemHasAPriceOnEachPriceLineWithAndWithoutTax) {
  Shop& shop = Loaded();
  // One row for each item on each of the POS's lines: 0 (the cost) and the
  // back office's 1, 2 and 3; no colour, size or lot, status 0.
  EXPECT_EQ(shop.Lines("SELECT COUNT(*), COUNT(DISTINCT ItemID), SUM(CASE WHEN ColorID <> 0 OR "
                       "SizeID <> 0 OR LotID <> '' THEN 1 ELSE 0 END), SUM(CASE WHEN PriceStatus "
                       "<> 0 THEN 1 ELSE 0 END) FROM ItemSellingPrices"),
            std::to_string(kItems.size() * 4) + "|" + std::to_string(kItems.size()) + "|0|0\n");
  EXPECT_EQ(shop.Lines("SELECT COUNT(*) FROM (SELECT ItemID FROM ItemSellingPrices GROUP BY "
                       "ItemID HAVING COUNT(DISTINCT PriceLineID) <> 4 OR MIN(PriceLineID) <> 0 "
                       "OR MAX(PriceLineID) <> 3) AS odd"),
            "0\n");
  // The rows that hold something; every other row (the cost line of each
  // item, the lines an article has no price on) is 0, 0 and no date.
  // Lines 1 and 3 include the tax: the back office's price is the price
  // with tax, the price without it is worked back at the item's rate and
  // rounded to 4 places (PAO: 0.35 / 1.06 = 0.3302). Line 2 does not: the
  // price is without tax (PAO: 0.3 * 1.06 = 0.318). PAPEL's class has no
  // rate. CAIXAVINHO's prices are multiplied by its factor of 0. A price
  // without a date has none (BOLOREI on line 3); CAFE's price on line 9,
  // which the back office does not have, is not read.
  EXPECT_EQ(shop.Lines("SELECT ItemID, PriceLineID, PriceWithoutTax, PriceWithTax, PriceDate "
                       "FROM ItemSellingPrices WHERE PriceWithoutTax <> 0 OR PriceWithTax <> 0 "
                       "OR PriceDate IS NOT NULL ORDER BY ItemID, PriceLineID"),
            "AZEITE|1|8.0094|8.49|2026-11-20\n"
            "AZEITE|2|6.5|6.89|2026-11-20\n"
            "BOLOREI|1|11.7886|14.5|2026-11-01\n"
            "BOLOREI|3|10.4878|12.9|\n"
            "CABAZ|1|20.2439|24.9|2026-10-01\n"
            "CABAZ|3|16.1789|19.9|2026-11-15\n"
            "CAFE|1|13.7398|16.9|2026-06-15\n"
            "CAFE|2|12.5|15.375|2026-06-15\n"
            "CAIXAVINHO|1|0|0|2026-11-01\n"
            "CAIXAVINHO|2|0|0|2026-11-01\n"
            "EMBRULHO|1|1.626|2|2026-01-01\n"
            "ENTREGA|1|4.065|5|2026-01-01\n"
            "FARINHA|1|1.1321|1.2|2026-10-01\n"
            "MEL|1|4.4811|4.75|2026-10-10\n"
            "MOINHO|1|73.0894|89.9|2025-02-01\n"
            "OVOS|1|2.2642|2.4|2026-11-01\n"
            "PAO|1|0.3302|0.35|2026-09-01\n"
            "PAO|2|0.3|0.318|2026-09-01\n"
            "PAPEL|1|2.5|2.5|2026-11-01\n"
            "PAPEL|2|2|2|2026-11-01\n"
            "QUEIJO|1|17.8302|18.9|2026-11-01\n"
            "VINHO|1|6.4634|7.95|2026-03-01\n"
            "VINHO|2|5.6|6.888|2026-03-01\n"
            "VINHO|3|5.6504|6.95|2026-11-15\n"
            "VINHORES|1|12.1545|14.95|2026-03-01\n");
}

TEST_F(ProgramLoadItems, SuppliersAndFurtherBarcodesOfTheItems) {
  Shop& shop = Loaded();
  // A row for each supplier row the back office knows the supplier of
  // (BOLOREI's and EMBRULHO's 99 are dropped): the trimmed reference, the
  // last cost and that cost with the item's tax, the discounts, the date
  // when there is one, and the base currency.
  EXPECT_EQ(shop.Lines("SELECT ItemID, SupplierID, SupplierItemRef, SupplierRefStatus, "
                       "LastCostPrice, LastCostPriceWithTax, Discount1, Discount2, Discount3, "
                       "LastCostDate, CurrencyID, CurrencyExchange, CurrencyFactor FROM "
                       "ItemSupplier ORDER BY ItemID, SupplierID"),
            "CAFE|1|MN-CAFE-1KG|0|10.4|12.792|0|0|0|2025-12-01|EUR|1|1\n"
            "CAFE|2|TL-GRAO-1KG|0|9.8|12.054|10|0|0||EUR|1|1\n"
            "EMBRULHO|4|EV-EMB|0|0.8|0.984|0|0|0|2026-11-02|EUR|1|1\n"
            "FARINHA|1|MN-T65|0|0.55|0.583|5|2|0|2026-10-20|EUR|1|1\n"
            "MOINHO|2|TL-MOINHO|0|41|50.43|0|0|0|2025-01-10|EUR|1|1\n"
            "PAO|1|MN-PAO-01|0|0.12|0.1272|0|0|0|2026-10-15|EUR|1|1\n"
            "VINHO|3|BD-D75|0|3.1|3.813|2|1|0.5|2026-09-30|EUR|1|1\n"
            "VINHORES|3|BD-D75R|0|6.2|7.626|0|0|0|2026-09-30|EUR|1|1\n");
  // Every barcode but the main one, in the item's sale unit, quantity 1:
  // VINHO's second marked for labels and its unmarked one, PAO's unmarked
  // one, and CABAZ's, the only one it has, unmarked.
  EXPECT_EQ(shop.Lines("SELECT ItemID, Barcode, UnitOfMeasureID, Quantity, CurrencyID, "
                       "CurrencyExchange, CurrencyFactor FROM POSIdentity ORDER BY ItemID, "
                       "Barcode"),
            "CABAZ|2000002|UN|1|EUR|1|1\n"
            "PAO|2000001|UN|1|EUR|1|1\n"
            "VINHO|15601234000032|CX|1|EUR|1|1\n"
            "VINHO|5601234000042|CX|1|EUR|1|1\n");
}

// The files of a folder, each name with its bytes.
std::string FilesIn(const std::string& folder) {
  std::vector<std::string> files;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    files.push_back(entry.path().filename().string() + ": " +
                    testsupport::ReadBytes(entry.path().string()));
  }
  std::sort(files.begin(), files.end());
  return Joined(files);
}

TEST_F(ProgramLoadItems, PicturesAreWrittenAsTheyAreIntoTheItemPictureFolderWhenItExists) {
  const std::string png("\x89PNG\r\n\x1a\n", 8);
  const std::string bmp("BM>\0\0\0\0\0", 8);
  const std::string jpeg("\xff\xd8\xff\xe0\0\x10JFIF", 10);
  const std::string pictures =
      "SELECT ItemID, ImageFile FROM Item WHERE ImageFile <> '' ORDER BY ItemID";
  Shop shop;
  // The POS's picture folder is Imagens in its work folder, which is not
  // there: no file, no path, and the items are saved all the same.
  shop.LoadOk();
  EXPECT_EQ(shop.Lines(pictures), "");
  EXPECT_FALSE(std::filesystem::exists(shop.File("Imagens")));
  EXPECT_EQ(shop.Lines("SELECT ItemID FROM Item ORDER BY ItemID"), Joined(kItems));

  // With the folder there, each article's picture goes to "<code>
  // <Sigla>.bmp", both trimmed, whatever it holds and whether or not it is
  // shown in the sale; MOINHO's picture is empty and makes no file. PAO's
  // name is taken, and so is "1" before it: its picture goes to "2PAO ...".
  const std::string folder = shop.File("Imagens");
  std::filesystem::create_directory(folder);
  std::ofstream(folder + "/PAO Pão de trigo.bmp") << "antiga";
  std::ofstream(folder + "/1PAO Pão de trigo.bmp") << "mais antiga";
  shop.LoadOk();
  EXPECT_EQ(shop.Lines(pictures), Joined({"CABAZ|" + folder + "/CABAZ Cabaz pequeno-almoço.bmp",
                                          "MEL|" + folder + "/MEL Mel de rosmaninho 500 g.bmp",
                                          "PAO|" + folder + "/2PAO Pão de trigo.bmp"}));
  EXPECT_EQ(FilesIn(folder),
            Joined({"1PAO Pão de trigo.bmp: mais antiga", "2PAO Pão de trigo.bmp: " + png,
                    "CABAZ Cabaz pequeno-almoço.bmp: " + bmp,
                    "MEL Mel de rosmaninho 500 g.bmp: " + jpeg, "PAO Pão de trigo.bmp: antiga"}));

  // The folder is the POS's setting, read for the load.
  const std::string other = shop.File("fotos");
  std::filesystem::create_directory(other);
  ASSERT_EQ(shop.Lumaro({"host", "set", "ItemImageFolder", other}).exit_code, 0);
  shop.LoadOk();
  EXPECT_EQ(shop.Lines(pictures), Joined({"CABAZ|" + other + "/CABAZ Cabaz pequeno-almoço.bmp",
                                          "MEL|" + other + "/MEL Mel de rosmaninho 500 g.bmp",
                                          "PAO|" + other + "/PAO Pão de trigo.bmp"}));
  EXPECT_EQ(FilesIn(other),
            Joined({"CABAZ Cabaz pequeno-almoço.bmp: " + bmp,
                    "MEL Mel de rosmaninho 500 g.bmp: " + jpeg, "PAO Pão de trigo.bmp: " + png}));
  EXPECT_EQ(shop.LogEntries(), loadshop::kNoEntries);
}

TEST_F(ProgramLoadItems, KitsTakeTheirComponentsAndTheWineItsAlternatives) {
  Shop& shop = Loaded();
  // Only the kits ("G") loaded: CABAZ with its three rows, the jam, never
  // loaded, as a row naming no item; CABAZNATAL without rows, a kit all
  // the same. BOLOREI ("F") has a component but is no kit in the initial
  // load, and CABAZVINHO is not loaded.
  EXPECT_EQ(shop.Lines("SELECT ItemID, ComponentsKind FROM Item WHERE ComponentsKind <> 0 ORDER "
                       "BY ItemID"),
            "CABAZ|1\nCABAZNATAL|1\n");
  EXPECT_EQ(shop.Lines("SELECT ItemID, ComponentItemID, ComponentKey, ComponentColorID, "
                       "ComponentSizeID, ComponentQuantity FROM ItemComponents ORDER BY ItemID, "
                       "ComponentItemID, ComponentQuantity"),
            "CABAZ|||0|0|1\n"
            "CABAZ|CAFE|CAFE|0|0|1\n"
            "CABAZ|PAO|PAO|0|0|2\n");
  // Each row is a row of its own.
  EXPECT_EQ(shop.Lines("SELECT COUNT(DISTINCT ComponentOrder) FROM ItemComponents"), "3\n");
  // VINHO's group in its order: itself (1), VINHO19, never loaded, whose
  // number stays used (2), and VINHORES (3). PAO's group is marked EGrp
  // and VINHO19's main article is not loaded: neither is read.
  EXPECT_EQ(shop.Lines("SELECT ItemID, AlternativeOrder, AlternativeItemID FROM "
                       "AlternativeItem ORDER BY ItemID, AlternativeOrder"),
            "VINHO|1|VINHO\nVINHO|3|VINHORES\n");
  // The initial load brings no stock: no movement, no stock rows.
  EXPECT_EQ(shop.Lines("SELECT (SELECT COUNT(*) FROM Stock), (SELECT COUNT(*) FROM "
                       "StockTransaction), (SELECT COUNT(*) FROM StockTransactionDetails)"),
            "0|0|0\n");
}

TEST_F(ProgramLoadItems, TendersAreTheTillsOfTheRangeBesideTenderTenAndThoseOfSales) {
  Shop shop;
  // Tenders of the POS: 4 and 7 used by sales (exported), 5 by none; each
  // with its name and barcode.
  shop.Pos(
      "INSERT INTO Tender (TenderID, TenderKey, Description, TenderGroup, TenderKind, "
      "TenderOption1, TenderOption2, TenderOption3, TenderOption4) VALUES "
      "(4, '', 'Cartão', 1, 0, 1, 0, 1, 1), (5, '', 'Vale refeição', 1, 0, 1, 0, 1, 1), "
      "(7, '', 'Transferência', 3, 0, 1, 0, 0, 1);"
      "INSERT INTO TenderNames (TenderID, LanguageID, Description) VALUES "
      "(4, 'PT', 'Cartão'), (5, 'PT', 'Vale refeição'), (7, 'PT', 'Transferência');"
      "INSERT INTO TenderBarcode (TenderID, Barcode) VALUES "
      "(1, 'T1'), (4, 'T4'), (5, 'T5'), (7, 'T7'), (10, 'T10');"
      "INSERT INTO SaleTransaction (TransSerial, TransDocument, TransDocNumber, CreateDate, "
      "TenderID, CurrencyID, TotalTransactionAmount, WorkstationID, UserAlt, "
      "AccountingExportDate) VALUES "
      "('A', 'TVD', 1, '2026-11-20 09:00:00', 4, 'EUR', 10, 1, 1, '2026-11-20 20:00:00'), "
      "('A', 'TVD', 2, '2026-11-20 09:30:00', 7, 'EUR', 15, 1, 1, '2026-11-20 20:00:00');");
  shop.LoadOk();
  // Till 3 reads the codes 300 to 399, each code c becoming tender
  // c - 300 + 1: 300 is 1, 301 is 2, 303 falls on 4 and updates it, 309 on
  // 10 and updates it, 399 is 100. A till that pays out (UsaDA) is of kind
  // 4. The codes of the other tills (100, 200, 299, 400) are not read. 7
  // stays as it was; 5 is gone.
  EXPECT_EQ(shop.Lines("SELECT TenderID, TenderKey, Description, TenderGroup, TenderKind, "
                       "TenderOption1 <> 0, TenderOption2 <> 0, TenderOption3 <> 0, "
                       "TenderOption4 <> 0 FROM Tender ORDER BY TenderID"),
            "1|300|Numerário|2|0|1|0|1|1\n"
            "2|301|Multibanco|2|4|1|1|0|1\n"
            "4|303|Cartão de crédito|2|4|1|1|0|1\n"
            "7||Transferência|3|0|1|0|0|1\n"
            "10|309|Cheque|2|0|1|0|1|1\n"
            "100|399|Vales de oferta|2|0|1|0|1|1\n");
  // The names and barcodes of the tenders that went, went with them.
  EXPECT_EQ(shop.Lines("SELECT TenderID, Barcode FROM TenderBarcode ORDER BY TenderID"),
            "4|T4\n7|T7\n10|T10\n");
  EXPECT_EQ(shop.Lines("SELECT TenderID, Description FROM TenderNames WHERE TenderID IN (5, 7) "
                       "ORDER BY TenderID"),
            "7|Transferência\n");
}

TEST_F(ProgramLoadItems, EachDocumentTypeBecomesADocumentOfItsBehaviour) {
  Shop shop;
  shop.Pos("INSERT INTO Series (TransSerial, Description, SeriesType) VALUES ('B', 'Série B', 1)");
  shop.LoadOk();
  // The POS's own TVD (no key) is gone, and every type of the back office
  // that passes is there, TVD among them; TFAC (four characters), FAC (no
  // "T") and TST (a stock type) are not.
  //
  // Sales ("FAC", type 1) by their movement: F and any other (TOR's O) are
  // 1001 and an invoice, C and N 1005 (the sign "-"), D 1004, P 1042, none
  // (TGT) 1001. Paid at once (PPag "S"): payment and tenders, not stock,
  // the sign of the movement with its three flags, the tender mode "F",
  // no invoice (but for 1005, where PPag leaves the invoice alone: TCN's
  // "N" does not make it one), and 1001 becomes 1002. Receipts ("TER",
  // type 5) always take payment: E_S "S" is the sign "-" (5002), "E" or
  // none "+" (5001). The short description is Sigla's first 12 characters.
  //
  // With each, the defaults of every workstation (0) under the same
  // description, and the codes of the sign ("+" 2, 3, 3; "-" 3, 2, 2; none
  // for 1042 and the receipts), the first being 1 when paid at once.
  EXPECT_EQ(
      shop.Lines("SELECT d.TransDocumentID, d.TransDocumentKey, d.TransDocType, "
                 "d.DocumentBehavior, d.Description, d.ShortDescription, d.PriceField, "
                 "d.Active <> 0, d.DocumentActive <> 0, d.AllowsStock <> 0, d.UsesPayment <> 0, "
                 "d.UsesTender <> 0, d.IssuesInvoice <> 0, d.DocumentSign, d.TenderMode, "
                 "d.PaymentOption, d.PaymentFlag1 <> 0, d.PaymentFlag2 <> 0, d.PaymentFlag3 <> 0, "
                 "d.AccountSign1, d.AccountSign2, d.AccountSign3, c.WorkstationID, c.Code1, "
                 "c.Code2, c.Code3 FROM Documents d LEFT JOIN ConfWorkstationDocDefaults c ON "
                 "c.TransDocumentID = d.TransDocumentID AND c.Description = d.Description ORDER "
                 "BY d.TransDocumentID"),
      "TCN|TCN|1|1005|Crédito por acerto|CA|PVP0|1|1|1|0|0|0|+||0|0|0|0|-|-||0|3|2|2\n"
      "TDP|TDP|1|1004|Devolução com reembolso|DR|PVP0|1|1|0|1|1|0|+|F|0|1|1|1|+|+|+|0|1|3|3\n"
      "TDV|TDV|1|1004|Devolução de cliente|DEV|PVP0|1|1|1|0|0|1|+||0|0|0|0|+|+||0|2|3|3\n"
      "TEC|TEC|1|1042|Encomenda de cliente|ENCOMENDA CL|PVP0|1|1|1|0|0|0|+||0|0|0|0||||0|0|0|0\n"
      "TES|TES|1|1042|Encomenda com sinal|ES|PVP0|1|1|0|1|1|0|+|F|0|0|0|0||||0|1|0|0\n"
      "TFA|TFA|1|1001|Fatura|FT|PVP0|1|1|1|0|0|1|+||0|0|0|0|+|+||0|2|3|3\n"
      "TGT|TGT|1|1001|Guia de transporte|GT|PVP0|1|1|1|0|0|0|+||0|0|0|0|+|+||0|2|3|3\n"
      "TNC|TNC|1|1005|Nota de crédito|NC|PVP0|1|1|0|1|1|0|-|F|0|1|1|1|-|-|-|0|1|2|2\n"
      "TOR|TOR|1|1001|Orçamento|ORC|PVP0|1|1|1|0|0|1|+||0|0|0|0|+|+||0|2|3|3\n"
      "TPG|TPG|5|5002|Pagamento|PG|PVP0|1|1|0|1|0|0|-|F|0|0|0|0||||0|0|0|0\n"
      "TRE|TRE|5|5001|Recibo|RE|PVP0|1|1|0|1|0|0|+|F|0|0|0|0||||0|0|0|0\n"
      "TTR|TTR|5|5001|Transferência de caixa|TR|PVP0|1|1|0|1|0|0|+|F|0|0|0|0||||0|0|0|0\n"
      "TVD|TVD|1|1002|Venda a dinheiro|VD|PVP0|1|1|0|1|1|0|+|F|0|1|1|1|+|+|+|0|1|3|3\n");
  // Each in its own place in the order of the documents, and no other
  // defaults.
  EXPECT_EQ(shop.Lines("SELECT COUNT(DISTINCT DocumentOrder), MIN(DocumentOrder) > 0, (SELECT "
                       "COUNT(*) FROM ConfWorkstationDocDefaults) FROM Documents"),
            std::to_string(kDocuments.size()) + "|1|" + std::to_string(kDocuments.size()) + "\n");
  // A row in each series of the POS, from number 0, active.
  std::string series;
  for (const std::string& document : kDocuments) {
    series += "A|" + document + "|0|1\nB|" + document + "|0|1\n";
  }
  EXPECT_EQ(shop.Lines("SELECT TransSerial, TransDocID, TransDocNumber, SeriesActive <> 0 FROM "
                       "DocumentsSeriesNumber ORDER BY TransDocID, TransSerial"),
            series);
  // The POS's default fields, the same for every document, each shown with
  // the option 15.
  EXPECT_EQ(shop.Lines("SELECT COUNT(DISTINCT TransDocumentID), MIN(FieldOption), "
                       "MAX(FieldOption) FROM ConfWorkstationDocFields"),
            std::to_string(kDocuments.size()) + "|15|15\n");
  EXPECT_EQ(shop.Lines("SELECT FieldID FROM ConfWorkstationDocFields GROUP BY FieldID HAVING "
                       "COUNT(*) <> " +
                       std::to_string(kDocuments.size())),
            "");
}

TEST_F(ProgramLoadItems, DocumentsOfThePosWithoutAKeyGoAndThoseWithAKeyStay) {
  Shop shop;
  // NE is the POS's own (no key), with a row in each table that hangs on a
  // document; TFA and OR1 carry a key, and TFA is a code of the back office.
  shop.Pos(
      "INSERT INTO Documents (TransDocumentID, TransDocumentKey, TransDocType, DocumentBehavior, "
      "Description, ShortDescription, DocumentOrder) VALUES "
      "('NE', '', 1, 1042, 'Nota de encomenda', 'NE', 2), "
      "('TFA', 'TFA', 1, 1001, 'Fatura do posto', 'FP', 5), "
      "('OR1', 'OR1', 1, 1001, 'Orçamento antigo', 'OA', 9);"
      "INSERT INTO DocumentsName VALUES ('NE', 'PT', 'Nota de encomenda'), "
      "('TFA', 'PT', 'Fatura do posto');"
      "INSERT INTO DocumentsSeriesNumber (TransSerial, TransDocID, TransDocNumber, SeriesActive) "
      "VALUES ('A', 'NE', 3, 1), ('A', 'TFA', 57, 1);"
      "INSERT INTO ConfWorkstationDocDefaults VALUES ('NE', 0, 'Nota de encomenda', 1042, 0, 0, "
      "0), ('TFA', 0, 'Fatura do posto', 1001, 2, 3, 3);"
      "INSERT INTO ConfWorkstationDocFields VALUES ('NE', 0, 1, 3), ('TFA', 0, 1, 3);"
      "INSERT INTO ConfWorkstationDocPrinter VALUES ('NE', 0, 'Talões'), ('TFA', 0, 'A4');"
      "INSERT INTO ConfWorkstationDocument VALUES (1, 'NE'), (1, 'TFA');"
      "INSERT INTO AppDocumentsGroups VALUES ('NE', 1), ('TFA', 1);");
  shop.LoadOk();
  for (const char* table :
       {"Documents", "DocumentsName", "DocumentsSeriesNumber", "ConfWorkstationDocDefaults",
        "ConfWorkstationDocFields", "ConfWorkstationDocPrinter", "ConfWorkstationDocument",
        "AppDocumentsGroups"}) {
    const std::string column =
        std::string(table) == "DocumentsSeriesNumber" ? "TransDocID" : "TransDocumentID";
    EXPECT_EQ(shop.Lines("SELECT " + column + ", COUNT(*) FROM " + std::string(table) + " WHERE " +
                         column + " IN ('NE', 'TFA') GROUP BY " + column),
              "TFA|1\n")
        << table;
  }
  // TFA is left as the POS had it, OR1 too; the others are the back
  // office's, ordered after the last of the POS.
  EXPECT_EQ(shop.Lines("SELECT TransDocumentID, TransDocumentKey, DocumentBehavior, Description, "
                       "DocumentOrder FROM Documents WHERE TransDocumentID IN ('TFA', 'OR1') "
                       "ORDER BY TransDocumentID"),
            "OR1|OR1|1001|Orçamento antigo|9\nTFA|TFA|1001|Fatura do posto|5\n");
  EXPECT_EQ(shop.Lines("SELECT TransSerial, TransDocNumber FROM DocumentsSeriesNumber WHERE "
                       "TransDocID = 'TFA'"),
            "A|57\n");
  EXPECT_EQ(shop.Lines("SELECT FieldID, FieldOption FROM ConfWorkstationDocFields WHERE "
                       "TransDocumentID = 'TFA'"),
            "1|3\n");
  EXPECT_EQ(shop.Lines("SELECT TransDocumentKey, Description FROM Documents WHERE "
                       "TransDocumentID = 'TVD'"),
            "TVD|Venda a dinheiro\n");
  EXPECT_EQ(
      shop.Lines("SELECT COUNT(*), COUNT(DISTINCT DocumentOrder), MIN(DocumentOrder) > 9 "
                 "FROM Documents WHERE TransDocumentID NOT IN ('TFA', 'OR1')"),
      std::to_string(kDocuments.size() - 1) + "|" + std::to_string(kDocuments.size() - 1) + "|1\n");
}

TEST_F(ProgramLoadItems, SalesmenNotReloadedGoWithWhatHangsOnSalesmenAndTheirParties) {
  Shop shop;
  // V77 is no salesman of the back office; V01 is. Parties in the
  // salesmen's range, with a row in each party table, and rows in each
  // table that hangs on a salesman.
  const std::string low = "20000000001", mid = "20000000051", high = "29999999999";
  // Each party table, the columns of its key besides PartyID and their values.
  const std::vector<std::array<std::string, 3>> party_tables = {
      {"Party", "PartyType", "2"},
      {"PartyAddress", "AddressID, AddressLine1", "0, 'Rua'"},
      {"PartyBankAccount", "BankAccountID", "1"},
      {"Telephone", "TelephoneID", "1"},
      {"EmailAddress", "EmailID", "1"},
      {"Person", "PersonID", "1"},
      {"PartyExtraFields", "FieldID", "1"},
      {"PartyMessages", "MessageID", "1"},
      {"PartyComments", "CommentID", "1"},
      {"OtherContact", "ContactID", "1"}};
  std::string sql =
      "INSERT INTO Salesman (SalesmanID, SalesmanKey, SalesmanName, UserAlt) VALUES "
      "(50, 'V77', 'Vendedor antigo', 3), (51, 'V01', 'Carlos', 3);"
      "INSERT INTO UareU_Salesman (SalesmanID, FingerID) VALUES (51, 1);"
      "INSERT INTO ComissionBySalesman VALUES (51, 2, 5);"
      "INSERT INTO AppSalesmansGroups VALUES (51, 1);"
      "INSERT INTO SalesmanRoutes VALUES (51, 1);"
      "INSERT INTO SalesmanLedgerAccount (TransSerial, TransDocument, TransDocNumber, PartyID) "
      "VALUES ('A', 'TVD', 1, " +
      mid + ");";
  for (const std::string& party : {low, mid, high}) {
    for (const auto& [table, columns, values] : party_tables) {
      sql += "INSERT INTO " + table + " (PartyID, " + columns + ") VALUES (" + party + ", " +
             values + ");";
    }
  }
  shop.Pos(sql);
  shop.LoadOk();
  // V77 went; V01 was reloaded under its own id.
  EXPECT_EQ(shop.Lines("SELECT SalesmanID, SalesmanKey FROM Salesman WHERE SalesmanID IN (50, "
                       "51)"),
            "51|V01\n");
  EXPECT_EQ(shop.Lines("SELECT SalesmanKey FROM Salesman ORDER BY SalesmanKey"), "V01\nV02\nV03\n");
  for (const char* table : {"UareU_Salesman", "ComissionBySalesman", "AppSalesmansGroups",
                            "SalesmanRoutes", "SalesmanLedgerAccount"}) {
    EXPECT_EQ(shop.Lines(std::string("SELECT COUNT(*) FROM ") + table), "0\n") << table;
  }
  // The parties above the first id of the salesmen's kind and below that
  // of the next kind go from every party table; that first id itself
  // stays, as the statement's bound excludes it.
  for (const auto& [table, columns, values] : party_tables) {
    EXPECT_EQ(shop.Lines("SELECT PartyID FROM " + table +
                         " WHERE PartyID BETWEEN 20000000000 AND 29999999999 ORDER BY PartyID"),
              low + "\n")
        << table;
  }
  // The banks' parties, loaded before, begin at that bound and stay.
  EXPECT_EQ(shop.Lines("SELECT COUNT(*) FROM PartyBankAccount WHERE PartyID >= 30000000000"),
            "2\n");
}

}  // namespace
