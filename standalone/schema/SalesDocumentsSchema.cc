#include "standalone/schema/SchemaParts.h"

namespace standalone::schema {
namespace {

// The head of a sale document. AccountingExportDate is NULL until the
// document has gone to the back office. PartyID is the customer (0: none);
// the Party... texts are those of a walk-in customer.
constexpr std::string_view kSaleHeadColumns = R"sql(
  TransSerial VARCHAR(10) NOT NULL,
  TransDocument VARCHAR(10) NOT NULL,
  TransDocNumber INTEGER NOT NULL,
  CreateDate DATETIME,
  TransStatus SMALLINT NOT NULL DEFAULT 0,
  PartyID INTEGER NOT NULL DEFAULT 0,
  SalesmanID INTEGER NOT NULL DEFAULT 0,
  CarrierID INTEGER NOT NULL DEFAULT 0,
  TenderID INTEGER NOT NULL DEFAULT 0,
  CurrencyID VARCHAR(3) NOT NULL DEFAULT '',
  CurrencyExchange FLOAT NOT NULL DEFAULT 1,
  CurrencyFactor FLOAT NOT NULL DEFAULT 1,
  TransactionTaxIncluded BIT NOT NULL DEFAULT 0,
  TransactionCreditSale BIT NOT NULL DEFAULT 0,
  TotalTransactionAmount MONEY NOT NULL DEFAULT 0,
  GlobalDiscountPercent FLOAT NOT NULL DEFAULT 0,
  Comments TEXT NOT NULL DEFAULT '',
  ContractReferenceNumber VARCHAR(50) NOT NULL DEFAULT '',
  LoadPlaceDescription VARCHAR(100) NOT NULL DEFAULT '',
  LoadPlaceDateTime DATETIME,
  UnloadPlaceDescription VARCHAR(100) NOT NULL DEFAULT '',
  UnloadPlaceDateTime DATETIME,
  PartyName VARCHAR(100) NOT NULL DEFAULT '',
  PartyAddress1 VARCHAR(100) NOT NULL DEFAULT '',
  PartyAddress2 VARCHAR(100) NOT NULL DEFAULT '',
  PartyPostalCode VARCHAR(20) NOT NULL DEFAULT '',
  PartyFederalTaxID VARCHAR(20) NOT NULL DEFAULT '',
  WorkstationID INTEGER NOT NULL DEFAULT 0,
  SessionID INTEGER NOT NULL DEFAULT 0,
  UserAlt INTEGER NOT NULL DEFAULT 0,
  DtAlt DATETIME,
  HrAlt DATETIME,
  AccountingExportDate DATETIME NULL,
  PRIMARY KEY (TransSerial, TransDocument, TransDocNumber))sql";

// A line of a sale. The lines of a voided sale keep this layout in
// PostVoidTransaction, so that the export reads either table with one query.
constexpr std::string_view kSaleLineColumns = R"sql(
  TransSerial VARCHAR(10) NOT NULL,
  TransDocument VARCHAR(10) NOT NULL,
  TransDocNumber INTEGER NOT NULL,
  LineItemID INTEGER NOT NULL,
  LineItemSubID INTEGER NOT NULL DEFAULT 0,
  ItemID VARCHAR(30) NOT NULL DEFAULT '',
  ColorID INTEGER NOT NULL DEFAULT 0,
  SizeID INTEGER NOT NULL DEFAULT 0,
  Description VARCHAR(255) NOT NULL DEFAULT '',
  Units FLOAT NOT NULL DEFAULT 0,
  Quantity FLOAT NOT NULL DEFAULT 0,
  UnitOfSaleID VARCHAR(10) NOT NULL DEFAULT '',
  WarehouseID INTEGER NOT NULL DEFAULT 0,
  TaxableGroupID SMALLINT NOT NULL DEFAULT 0,
  UnitPrice MONEY NOT NULL DEFAULT 0,
  TaxIncludedPrice MONEY NOT NULL DEFAULT 0,
  CumulativeDiscountPercent1 FLOAT NOT NULL DEFAULT 0,
  CumulativeDiscountPercent2 FLOAT NOT NULL DEFAULT 0,
  CumulativeDiscountPercent3 FLOAT NOT NULL DEFAULT 0,
  TotalNetPrintAmout MONEY NOT NULL DEFAULT 0,
  CreateDate DATETIME,
  WorkstationID INTEGER NOT NULL DEFAULT 0,
  SessionID INTEGER NOT NULL DEFAULT 0,
  UserAlt INTEGER NOT NULL DEFAULT 0,
  DtAlt DATETIME,
  HrAlt DATETIME,
  PRIMARY KEY (TransSerial, TransDocument, TransDocNumber, LineItemID, LineItemSubID))sql";

// The property values (lot, serial number) of a line; one row per line.
constexpr std::string_view kLinePropertyColumns = R"sql(
  TransSerial VARCHAR(10) NOT NULL,
  TransDocument VARCHAR(10) NOT NULL,
  TransDocNumber INTEGER NOT NULL,
  LineItemID INTEGER NOT NULL,
  LineItemSubID INTEGER NOT NULL DEFAULT 0,
  ItemID VARCHAR(30) NOT NULL DEFAULT '',
  PropertyValue1 VARCHAR(50) NOT NULL DEFAULT '',
  PropertyValue2 VARCHAR(50) NOT NULL DEFAULT '',
  PropertyValue3 VARCHAR(50) NOT NULL DEFAULT '',
  Quantity FLOAT NOT NULL DEFAULT 0,
  PRIMARY KEY (TransSerial, TransDocument, TransDocNumber, LineItemID, LineItemSubID))sql";

// The taxes of a document, by group and rate.
constexpr std::string_view kTaxColumns = R"sql(
  TransSerial VARCHAR(10) NOT NULL,
  TransDocument VARCHAR(10) NOT NULL,
  TransDocNumber INTEGER NOT NULL,
  TaxGroupID VARCHAR(10) NOT NULL,
  TaxRate FLOAT NOT NULL DEFAULT 0,
  TaxableAmount MONEY NOT NULL DEFAULT 0,
  TaxAmount MONEY NOT NULL DEFAULT 0,
  PRIMARY KEY (TransSerial, TransDocument, TransDocNumber, TaxGroupID, TaxRate))sql";

// The tax of one line, by tax group ("IVA" ...).
constexpr std::string_view kTaxDetailColumns = R"sql(
  TransSerial VARCHAR(10) NOT NULL,
  TransDocument VARCHAR(10) NOT NULL,
  TransDocNumber INTEGER NOT NULL,
  LineItemID INTEGER NOT NULL,
  LineItemSubID INTEGER NOT NULL DEFAULT 0,
  TaxGroupID VARCHAR(10) NOT NULL,
  TaxSequenceID SMALLINT NOT NULL DEFAULT 0,
  TaxRate FLOAT NOT NULL DEFAULT 0,
  TaxableAmount MONEY NOT NULL DEFAULT 0,
  TaxAmount MONEY NOT NULL DEFAULT 0,
  PRIMARY KEY (TransSerial, TransDocument, TransDocNumber, LineItemID, LineItemSubID,
               TaxGroupID))sql";

}  // namespace

// Sale documents with their lines, line properties and taxes; the voided
// copies; the host's working copies of the same layouts; and the further
// tables that belong to a sale.
std::vector<std::string_view> SalesDocumentsSchema() {
  static const std::vector<std::string> kStatements = {
      CreateTable("SaleTransaction", {kSaleHeadColumns}),
      // The export selects by these three, or by CreateDate on a re-export.
      "CREATE INDEX SaleTransaction_Export_IDX ON SaleTransaction "
      "(AccountingExportDate, WorkstationID, TransSerial)",
      "CREATE INDEX SaleTransaction_CreateDate_IDX ON SaleTransaction (CreateDate)",
      "CREATE INDEX SaleTransaction_PartyID_IDX ON SaleTransaction (PartyID)",
      CreateTable("SaleTransactionDetails", {kSaleLineColumns}),
      CreateTable("TransactionPropDetails", {kLinePropertyColumns}),
      CreateTable("TaxTransaction", {kTaxColumns}),
      CreateTable("TaxTransactionDetail", {kTaxDetailColumns}),
      CreateTable("PostVoidTransactionHeader", {kSaleHeadColumns}),
      CreateTable("PostVoidTransaction", {kSaleLineColumns}),
      CreateTable("PostVoidTranPropDetails", {kLinePropertyColumns}),
      CreateTable("PostVoidTaxTransaction", {kTaxColumns}),
      CreateTable("PostVoidTaxTransactionDetail", {kTaxDetailColumns}),
      CreateTable("TempTransaction", {kSaleHeadColumns}),
      CreateTable("TempTransactionDetails", {kSaleLineColumns}),
      CreateTable("TempTransactionPropDetails", {kLinePropertyColumns}),
      CreateTable("TempTaxTransaction", {kTaxColumns}),
      CreateTable("TempTaxTransactionDetail", {kTaxDetailColumns}),
      CreateTable("IssuedTmpTrans", {kSaleHeadColumns}),
      CreateTable("IssuedTmpTransDetails", {kSaleLineColumns}),
      CreateTable("IssuedTmpTransPropDetails", {kLinePropertyColumns}),
      CreateTable("IssuedTmpTaxTrans", {kTaxColumns}),
      CreateTable("IssuedTmpTaxTransDetail", {kTaxDetailColumns}),
      R"sql(
CREATE TABLE TransactionExtraFields (
  TransSerial VARCHAR(10) NOT NULL,
  TransDocument VARCHAR(10) NOT NULL,
  TransDocNumber INTEGER NOT NULL,
  FieldID INTEGER NOT NULL,
  FieldValue VARCHAR(255) NOT NULL DEFAULT '',
  PRIMARY KEY (TransSerial, TransDocument, TransDocNumber, FieldID)))sql",
      R"sql(
CREATE TABLE TransCumulativeDiscounts (
  TransSerial VARCHAR(10) NOT NULL,
  TransDocument VARCHAR(10) NOT NULL,
  TransDocNumber INTEGER NOT NULL,
  LineItemID INTEGER NOT NULL,
  DiscountOrder SMALLINT NOT NULL,
  DiscountPercent FLOAT NOT NULL DEFAULT 0,
  PRIMARY KEY (TransSerial, TransDocument, TransDocNumber, LineItemID, DiscountOrder)))sql",
      R"sql(
CREATE TABLE TransactionStatusFlowHistory (
  TransSerial VARCHAR(10) NOT NULL,
  TransDocument VARCHAR(10) NOT NULL,
  TransDocNumber INTEGER NOT NULL,
  StatusDate DATETIME NOT NULL,
  TransStatus SMALLINT NOT NULL DEFAULT 0,
  PRIMARY KEY (TransSerial, TransDocument, TransDocNumber, StatusDate)))sql",
      R"sql(
CREATE TABLE SaleTransactionLog (
  LogID INTEGER NOT NULL PRIMARY KEY,
  TransSerial VARCHAR(10) NOT NULL DEFAULT '',
  TransDocument VARCHAR(10) NOT NULL DEFAULT '',
  TransDocNumber INTEGER NOT NULL DEFAULT 0,
  LogDate DATETIME,
  Description VARCHAR(255) NOT NULL DEFAULT ''))sql",
      R"sql(
CREATE TABLE POSNoSaleTransaction (
  NoSaleID INTEGER NOT NULL PRIMARY KEY,
  WorkstationID INTEGER NOT NULL DEFAULT 0,
  UserAlt INTEGER NOT NULL DEFAULT 0,
  CreateDate DATETIME))sql",
      R"sql(
CREATE TABLE ExpeditionReport (
  ReportLineID INTEGER NOT NULL PRIMARY KEY,
  TransSerial VARCHAR(10) NOT NULL DEFAULT '',
  TransDocument VARCHAR(10) NOT NULL DEFAULT '',
  TransDocNumber INTEGER NOT NULL DEFAULT 0))sql",
      R"sql(
CREATE TABLE SaleRouteHistory (
  TransSerial VARCHAR(10) NOT NULL,
  TransDocument VARCHAR(10) NOT NULL,
  TransDocNumber INTEGER NOT NULL,
  RouteID INTEGER NOT NULL DEFAULT 0,
  PRIMARY KEY (TransSerial, TransDocument, TransDocNumber)))sql",
      R"sql(
CREATE TABLE PriceChangeByDocument (
  TransSerial VARCHAR(10) NOT NULL,
  TransDocument VARCHAR(10) NOT NULL,
  TransDocNumber INTEGER NOT NULL,
  ItemID VARCHAR(30) NOT NULL,
  PriceLineID INTEGER NOT NULL,
  PriceWithTax MONEY NOT NULL DEFAULT 0,
  PRIMARY KEY (TransSerial, TransDocument, TransDocNumber, ItemID, PriceLineID)))sql",
      R"sql(
CREATE TABLE ItemContractSale (
  TransSerial VARCHAR(10) NOT NULL,
  TransDocument VARCHAR(10) NOT NULL,
  TransDocNumber INTEGER NOT NULL,
  ItemContractID INTEGER NOT NULL DEFAULT 0,
  PRIMARY KEY (TransSerial, TransDocument, TransDocNumber)))sql",
      R"sql(
CREATE TABLE ItemContractSaleDetails (
  TransSerial VARCHAR(10) NOT NULL,
  TransDocument VARCHAR(10) NOT NULL,
  TransDocNumber INTEGER NOT NULL,
  LineItemID INTEGER NOT NULL,
  ItemID VARCHAR(30) NOT NULL DEFAULT '',
  PRIMARY KEY (TransSerial, TransDocument, TransDocNumber, LineItemID)))sql",
      R"sql(
CREATE TABLE ItemContractHistory (
  ItemContractID INTEGER NOT NULL,
  HistoryDate DATETIME NOT NULL,
  Description VARCHAR(255) NOT NULL DEFAULT '',
  PRIMARY KEY (ItemContractID, HistoryDate)))sql",
  };
  return Views(kStatements);
}

}  // namespace standalone::schema
