#include "standalone/schema/SchemaParts.h"

namespace standalone::schema {

// The company-wide configuration, currencies, users and the installation's
// workstations and sessions.
std::vector<std::string_view> ConfigurationSchema() {
  static const std::vector<std::string> kStatements = {
      // One row, ConfSystemID 1: the host's SystemSettings.
      CreateTable("ConfSystem", {R"sql(
  ConfSystemID INTEGER NOT NULL PRIMARY KEY,
  CountryID VARCHAR(5) NOT NULL DEFAULT '',
  TaxRegionID VARCHAR(5) NOT NULL DEFAULT '',
  LanguageID VARCHAR(5) NOT NULL DEFAULT '',
  DefaultUnitOfMeasureID VARCHAR(10) NOT NULL DEFAULT '',
  DefaultCurrencyID VARCHAR(3) NOT NULL DEFAULT '',
  TaxRegime SMALLINT NOT NULL DEFAULT 0,
  AplySalesRetentionTax BIT NOT NULL DEFAULT 0,
  RetentionTax FLOAT NOT NULL DEFAULT 0,
  CustomerRangeStart FLOAT NOT NULL DEFAULT 0,
  CustomerRangeEnd FLOAT NOT NULL DEFAULT 0,
  UsePropertyItems BIT NOT NULL DEFAULT 0,
  UsePropertyTable BIT NOT NULL DEFAULT 0,
  UseCompositeItems BIT NOT NULL DEFAULT 0,
  UseUnitOfMeasureItems BIT NOT NULL DEFAULT 0,
  UseUnitWithFormulaItems BIT NOT NULL DEFAULT 0,
  UnitOfMeasureDesc1 VARCHAR(50) NOT NULL DEFAULT '',
  UnitOfMeasureDesc2 VARCHAR(50) NOT NULL DEFAULT '',
  UnitOfMeasureDesc3 VARCHAR(50) NOT NULL DEFAULT '')sql",
                                 kAuditColumns}),
      R"sql(
CREATE TABLE ConfSpecial (
  ConfSpecialID INTEGER NOT NULL PRIMARY KEY,
  Description VARCHAR(100) NOT NULL DEFAULT '',
  Active BIT NOT NULL DEFAULT 0))sql",
      // SaleExchange is the currency's exchange; ExportCode goes to the back
      // office in the head of every exported document.
      CreateTable("Currency", {R"sql(
  CurrencyID VARCHAR(3) NOT NULL PRIMARY KEY,
  CurrencyKey VARCHAR(10) NOT NULL DEFAULT '',
  ExportCode INTEGER NOT NULL DEFAULT 0,
  ExchangeDate DATETIME,
  DecimalPlaces SMALLINT NOT NULL DEFAULT 0,
  PriceItemDecimalPlaces SMALLINT NOT NULL DEFAULT 0,
  ItsEuroCurrency BIT NOT NULL DEFAULT 0,
  RelatedCurrencyID VARCHAR(3) NOT NULL DEFAULT '',
  EuroConversionRate FLOAT NOT NULL DEFAULT 1,
  SaleExchange FLOAT NOT NULL DEFAULT 1,
  BuyExchange FLOAT NOT NULL DEFAULT 1,
  CurrencyFactor FLOAT NOT NULL DEFAULT 1,
  DecimalSeparator VARCHAR(1) NOT NULL DEFAULT '',
  GroupSeparator VARCHAR(1) NOT NULL DEFAULT '',
  SymbolPosition VARCHAR(10) NOT NULL DEFAULT '',
  NegativeFormat VARCHAR(10) NOT NULL DEFAULT '')sql",
                               kAuditColumns}),
      CreateTable("CurrencyNames", {R"sql(
  CurrencyID VARCHAR(3) NOT NULL,
  LanguageID VARCHAR(5) NOT NULL,
  Description VARCHAR(50) NOT NULL DEFAULT '')sql",
                                    kAuditColumns, "PRIMARY KEY (CurrencyID, LanguageID)"}),
      R"sql(
CREATE TABLE AppGroups (
  AppGroupID INTEGER NOT NULL PRIMARY KEY,
  AppGroupName VARCHAR(50) NOT NULL DEFAULT ''))sql",
      "CREATE INDEX AppGroups_AppGroupName_IDX ON AppGroups (AppGroupName)",
      CreateTable("AppUsers", {R"sql(
  AppUserID INTEGER NOT NULL PRIMARY KEY,
  AppUserKey VARCHAR(20) NOT NULL DEFAULT '',
  AppUserName VARCHAR(50) NOT NULL DEFAULT '',
  SecurityLevel SMALLINT NOT NULL DEFAULT 0,
  MaximumDiscount FLOAT NOT NULL DEFAULT 0,
  DefaultWorkstationID INTEGER NOT NULL DEFAULT 0,
  Active BIT NOT NULL DEFAULT 1,
  CanChangePrices BIT NOT NULL DEFAULT 1,
  CanVoidDocuments BIT NOT NULL DEFAULT 1)sql",
                               kAuditColumns}),
      "CREATE INDEX AppUsers_AppUserKey_IDX ON AppUsers (AppUserKey)",
      "CREATE INDEX AppUsers_AppUserName_IDX ON AppUsers (AppUserName)",
      R"sql(
CREATE TABLE AppUsersGroups (
  AppUserID INTEGER NOT NULL,
  AppGroupID INTEGER NOT NULL,
  PRIMARY KEY (AppUserID, AppGroupID)))sql",
      // TransSerial is the series the workstation writes, TransDocumentID its
      // default document.
      R"sql(
CREATE TABLE Workstation (
  WorkstationID INTEGER NOT NULL PRIMARY KEY,
  Description VARCHAR(50) NOT NULL DEFAULT '',
  TransSerial VARCHAR(10) NOT NULL DEFAULT '',
  TransDocumentID VARCHAR(10) NOT NULL DEFAULT ''))sql",
      R"sql(
CREATE TABLE Session (
  SessionID INTEGER NOT NULL PRIMARY KEY,
  WorkstationID INTEGER NOT NULL DEFAULT 0,
  AppUserID INTEGER NOT NULL DEFAULT 0,
  OpenDate DATETIME,
  CloseDate DATETIME))sql",
      R"sql(
CREATE TABLE EntryLogSalesperson (
  EntryID INTEGER NOT NULL PRIMARY KEY,
  SalesmanID INTEGER NOT NULL DEFAULT 0,
  WorkstationID INTEGER NOT NULL DEFAULT 0,
  EntryDate DATETIME))sql",
      R"sql(
CREATE TABLE Events (
  EventID INTEGER NOT NULL PRIMARY KEY,
  Description VARCHAR(100) NOT NULL DEFAULT '',
  StartDate DATETIME,
  EndDate DATETIME))sql",
      R"sql(
CREATE TABLE EventsRecurrencePattern (
  EventID INTEGER NOT NULL PRIMARY KEY,
  RecurrenceType SMALLINT NOT NULL DEFAULT 0,
  RecurrenceInterval SMALLINT NOT NULL DEFAULT 0))sql",
      R"sql(
CREATE TABLE TableChanges (
  ChangeID INTEGER NOT NULL PRIMARY KEY,
  TableName VARCHAR(50) NOT NULL DEFAULT '',
  ChangeDate DATETIME))sql",
      R"sql(
CREATE TABLE CommunicationLog (
  LogID INTEGER NOT NULL PRIMARY KEY,
  LogDate DATETIME,
  Message VARCHAR(255) NOT NULL DEFAULT ''))sql",
  };
  return Views(kStatements);
}

}  // namespace standalone::schema
