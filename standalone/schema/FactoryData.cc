#include "standalone/schema/PosSchema.h"

namespace standalone {

// What a newly installed Portuguese POS holds. The host's own documents and
// tenders carry no back-office key: the initial load replaces the documents
// without a key, and keeps tender 10 and the rows with id 0.
std::vector<std::string_view> FactoryDataStatements() {
  return {
      R"sql(
INSERT INTO ConfSystem (ConfSystemID, CountryID, TaxRegionID, LanguageID,
  DefaultUnitOfMeasureID, DefaultCurrencyID, TaxRegime, AplySalesRetentionTax, RetentionTax,
  CustomerRangeStart, CustomerRangeEnd, UsePropertyItems, UsePropertyTable, UseCompositeItems,
  UseUnitOfMeasureItems, UseUnitWithFormulaItems)
VALUES (1, 'PT', 'CON', 'PT', 'UN', 'EUR', 1, 0, 0, 0, 9999999999, 0, 0, 0, 0, 0))sql",
      R"sql(
INSERT INTO ConfSpecial (ConfSpecialID, Description, Active)
VALUES (40, 'Intervalo de numeração de clientes', 1))sql",
      R"sql(
INSERT INTO Currency (CurrencyID, CurrencyKey, ExportCode, DecimalPlaces,
  PriceItemDecimalPlaces, ItsEuroCurrency, RelatedCurrencyID, EuroConversionRate, SaleExchange,
  BuyExchange, CurrencyFactor, DecimalSeparator, GroupSeparator, SymbolPosition, NegativeFormat)
VALUES ('EUR', 'EUR', 1, 2, 2, 1, 'EUR', 1, 1, 1, 1, ',', '.', '1 #', '-1 #'))sql",
      R"sql(
INSERT INTO CurrencyNames (CurrencyID, LanguageID, Description) VALUES ('EUR', 'PT', 'Euro'))sql",
      // IVA: sequence 1 normal, 2 intermediate, 3 reduced, 4 exempt, on the
      // mainland and in the two autonomous regions.
      R"sql(
INSERT INTO TaxTable (TaxGroupID, CountryID, TaxRegionID, TaxSequenceID, Description, TaxRate)
VALUES ('IVA', 'PT', 'CON', 1, 'IVA Normal', 23),
       ('IVA', 'PT', 'CON', 2, 'IVA Intermédio', 13),
       ('IVA', 'PT', 'CON', 3, 'IVA Reduzido', 6),
       ('IVA', 'PT', 'CON', 4, 'Isento', 0),
       ('IVA', 'PT', 'MA', 1, 'IVA Normal', 22),
       ('IVA', 'PT', 'MA', 2, 'IVA Intermédio', 12),
       ('IVA', 'PT', 'MA', 3, 'IVA Reduzido', 5),
       ('IVA', 'PT', 'MA', 4, 'Isento', 0),
       ('IVA', 'PT', 'AC', 1, 'IVA Normal', 16),
       ('IVA', 'PT', 'AC', 2, 'IVA Intermédio', 9),
       ('IVA', 'PT', 'AC', 3, 'IVA Reduzido', 4),
       ('IVA', 'PT', 'AC', 4, 'Isento', 0))sql",
      R"sql(
INSERT INTO UnitOfMeasure (UnitOfMeasureID, Description, LanguageID, BaseUnitOfMeasureID,
  UnitRatio, UnitFormula)
VALUES ('UN', 'Unidade', 'PT', 'UN', 1, ''))sql",
      // Line 0 is the cost price; line 1 the first selling price.
      R"sql(
INSERT INTO PriceLine (PriceLineID, PriceLineKey, ShortName, Description, LanguageID)
VALUES (0, '', 'PCusto', 'Preço de custo', 'PT'),
       (1, '', 'PVP1', 'Preço de venda 1', 'PT'))sql",
      R"sql(
INSERT INTO Color (ColorID, ColorKey, Description) VALUES (0, '', 'Sem cor'))sql",
      R"sql(
INSERT INTO Size (SizeID, SizeKey, Description) VALUES (0, '', 'Sem tamanho'))sql",
      R"sql(
INSERT INTO Warehouse (WarehouseID, WarehouseKey, Description, CountryID)
VALUES (1, '', 'Armazém 1', 'PT'))sql",
      R"sql(
INSERT INTO Tender (TenderID, TenderKey, Description, TenderGroup, TenderKind, TenderOption1,
  TenderOption2, TenderOption3, TenderOption4)
VALUES (1, '', 'Numerário', 1, 0, 1, 0, 1, 1),
       (10, '', 'Conta Corrente', 3, 0, 1, 0, 0, 1))sql",
      R"sql(
INSERT INTO TenderNames (TenderID, LanguageID, Description)
VALUES (1, 'PT', 'Numerário'), (10, 'PT', 'Conta Corrente'))sql",
      R"sql(
INSERT INTO AppGroups (AppGroupID, AppGroupName) VALUES (1, 'Administradores'))sql",
      R"sql(
INSERT INTO AppUsers (AppUserID, AppUserKey, AppUserName) VALUES (1, '', 'Administrador'))sql",
      R"sql(
INSERT INTO AppUsersGroups (AppUserID, AppGroupID) VALUES (1, 1))sql",
      R"sql(
INSERT INTO Series (TransSerial, Description, SeriesType) VALUES ('A', 'Série A', 1))sql",
      // The sale ticket: paid at the till by tenders, an entry ("+").
      R"sql(
INSERT INTO Documents (TransDocumentID, TransDocumentKey, TransDocType, DocumentBehavior,
  Description, ShortDescription, DocumentOrder, PriceField, Active, DocumentActive, AllowsStock,
  UsesPayment, UsesTender, IssuesInvoice, DocumentSign, TenderMode, PaymentMode, PaymentOption,
  PaymentFlag1, PaymentFlag2, PaymentFlag3, AccountSign1, AccountSign2, AccountSign3)
VALUES ('TVD', '', 1, 1002, 'Venda a Dinheiro', 'VD', 1, 'PVP0', 1, 1, 0, 1, 1, 0, '+', 'F', 1,
        0, 1, 1, 1, '+', '+', '+'))sql",
      R"sql(
INSERT INTO DocumentsName (TransDocumentID, LanguageID, Description)
VALUES ('TVD', 'PT', 'Venda a Dinheiro'))sql",
      R"sql(
INSERT INTO ConfWorkstationDocDefaults (TransDocumentID, WorkstationID, Description,
  BehaviorClass, Code1, Code2, Code3)
VALUES ('TVD', 0, 'Venda a Dinheiro', 1002, 1, 3, 3))sql",
      R"sql(
INSERT INTO DocumentsSeriesNumber (TransSerial, TransDocID, TransDocNumber, SeriesActive)
VALUES ('A', 'TVD', 0, 1))sql",
      R"sql(
INSERT INTO Workstation (WorkstationID, Description, TransSerial, TransDocumentID)
VALUES (1, 'Posto 1', 'A', 'TVD'))sql",
      R"sql(
INSERT INTO ConfWorkstationDocument (WorkstationID, TransDocumentID) VALUES (1, 'TVD'))sql",
      R"sql(
INSERT INTO AppDocumentsGroups (TransDocumentID, AppGroupID) VALUES ('TVD', 1))sql",
  };
}

}  // namespace standalone
