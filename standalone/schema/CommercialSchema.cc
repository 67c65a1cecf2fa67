#include "standalone/schema/SchemaParts.h"

namespace standalone::schema {

// Salesmen, carriers, price lines, payment terms, tenders, promotions and
// discounts. Each table the connector maps to a back-office code has a key
// column, indexed for the lookup by key.
std::vector<std::string_view> CommercialSchema() {
  static const std::vector<std::string> kStatements = {
      CreateTable("Salesman", {R"sql(
  SalesmanID INTEGER NOT NULL PRIMARY KEY,
  SalesmanKey VARCHAR(20) NOT NULL DEFAULT '',
  SalesmanName VARCHAR(100) NOT NULL DEFAULT '',
  Comments TEXT NOT NULL DEFAULT '',
  CountryID VARCHAR(5) NOT NULL DEFAULT '',
  SalesmanLevel SMALLINT NOT NULL DEFAULT 0,
  MaximumDiscount FLOAT NOT NULL DEFAULT 0,
  SalesGroupID INTEGER NOT NULL DEFAULT 0,
  ComissionOnSale FLOAT NOT NULL DEFAULT 0,
  ComissionOnPay FLOAT NOT NULL DEFAULT 0,
  ComissionIncidenceType SMALLINT NOT NULL DEFAULT 0,
  SpokenLanguageID VARCHAR(5) NOT NULL DEFAULT '')sql",
                               kAuditColumns}),
      "CREATE INDEX Salesman_SalesmanKey_IDX ON Salesman (SalesmanKey)",
      R"sql(
CREATE TABLE UareU_Salesman (
  SalesmanID INTEGER NOT NULL,
  FingerID SMALLINT NOT NULL,
  Template IMAGE,
  PRIMARY KEY (SalesmanID, FingerID)))sql",
      R"sql(
CREATE TABLE ComissionBySalesman (
  SalesmanID INTEGER NOT NULL,
  FamilyID INTEGER NOT NULL,
  ComissionPercent FLOAT NOT NULL DEFAULT 0,
  PRIMARY KEY (SalesmanID, FamilyID)))sql",
      R"sql(
CREATE TABLE AppSalesmansGroups (
  SalesmanID INTEGER NOT NULL,
  AppGroupID INTEGER NOT NULL,
  PRIMARY KEY (SalesmanID, AppGroupID)))sql",
      R"sql(
CREATE TABLE SalesmanRoutes (
  SalesmanID INTEGER NOT NULL,
  RouteID INTEGER NOT NULL,
  PRIMARY KEY (SalesmanID, RouteID)))sql",
      CreateTable("Carrier", {R"sql(
  CarrierID INTEGER NOT NULL PRIMARY KEY,
  CarrierKey VARCHAR(20) NOT NULL DEFAULT '',
  Description VARCHAR(100) NOT NULL DEFAULT '',
  CurrencyID VARCHAR(3) NOT NULL DEFAULT '',
  CurrencyExchange FLOAT NOT NULL DEFAULT 1,
  CurrencyFactor FLOAT NOT NULL DEFAULT 1,
  CurrentKm FLOAT NOT NULL DEFAULT 0)sql",
                              kAuditColumns}),
      "CREATE INDEX Carrier_CarrierKey_IDX ON Carrier (CarrierKey)",
      // Price line 0 is the cost line; it survives every load.
      CreateTable("PriceLine", {R"sql(
  PriceLineID INTEGER NOT NULL PRIMARY KEY,
  PriceLineKey VARCHAR(20) NOT NULL DEFAULT '',
  ShortName VARCHAR(20) NOT NULL DEFAULT '',
  Description VARCHAR(100) NOT NULL DEFAULT '',
  LanguageID VARCHAR(5) NOT NULL DEFAULT '')sql",
                                kAuditColumns}),
      "CREATE INDEX PriceLine_PriceLineKey_IDX ON PriceLine (PriceLineKey)",
      CreateTable("Payment", {R"sql(
  PaymentID INTEGER NOT NULL PRIMARY KEY,
  PaymentKey VARCHAR(20) NOT NULL DEFAULT '',
  Description VARCHAR(100) NOT NULL DEFAULT '',
  Installments SMALLINT NOT NULL DEFAULT 0,
  InstallmentsType SMALLINT NOT NULL DEFAULT 0,
  PaymentDateType SMALLINT NOT NULL DEFAULT 0,
  PaymentDays SMALLINT NOT NULL DEFAULT 0)sql",
                              kAuditColumns}),
      "CREATE INDEX Payment_PaymentKey_IDX ON Payment (PaymentKey)",
      CreateTable("Installment", {R"sql(
  PaymentID INTEGER NOT NULL,
  InstallmentID SMALLINT NOT NULL,
  DaysSinceLastPayment SMALLINT NOT NULL DEFAULT 0,
  InstallmentPercent FLOAT NOT NULL DEFAULT 0)sql",
                                  kAuditColumns, "PRIMARY KEY (PaymentID, InstallmentID)"}),
      // Tender 10 and every tender a sale used survive the load's clearing.
      CreateTable("Tender", {R"sql(
  TenderID INTEGER NOT NULL PRIMARY KEY,
  TenderKey VARCHAR(20) NOT NULL DEFAULT '',
  Description VARCHAR(100) NOT NULL DEFAULT '',
  TenderGroup SMALLINT NOT NULL DEFAULT 0,
  TenderKind SMALLINT NOT NULL DEFAULT 0,
  TenderOption1 BIT NOT NULL DEFAULT 0,
  TenderOption2 BIT NOT NULL DEFAULT 0,
  TenderOption3 BIT NOT NULL DEFAULT 0,
  TenderOption4 BIT NOT NULL DEFAULT 0)sql",
                             kAuditColumns}),
      "CREATE INDEX Tender_TenderKey_IDX ON Tender (TenderKey)",
      R"sql(
CREATE TABLE TenderNames (
  TenderID INTEGER NOT NULL,
  LanguageID VARCHAR(5) NOT NULL,
  Description VARCHAR(100) NOT NULL DEFAULT '',
  PRIMARY KEY (TenderID, LanguageID)))sql",
      R"sql(
CREATE TABLE TenderBarcode (
  TenderID INTEGER NOT NULL,
  Barcode VARCHAR(30) NOT NULL,
  PRIMARY KEY (TenderID, Barcode)))sql",
      R"sql(
CREATE TABLE Promotion (
  PromotionID INTEGER NOT NULL PRIMARY KEY,
  Description VARCHAR(100) NOT NULL DEFAULT '',
  StartDate DATETIME,
  EndDate DATETIME))sql",
      R"sql(
CREATE TABLE PromotionSearchLst (
  PromotionID INTEGER NOT NULL,
  ItemID VARCHAR(30) NOT NULL,
  PRIMARY KEY (PromotionID, ItemID)))sql",
      R"sql(
CREATE TABLE ConfDiscFreqShopPoints (
  ConfDiscFreqShopPointsID INTEGER NOT NULL PRIMARY KEY,
  Points FLOAT NOT NULL DEFAULT 0,
  DiscountAmount MONEY NOT NULL DEFAULT 0))sql",
      R"sql(
CREATE TABLE DiscountDefinition (
  DiscountID INTEGER NOT NULL PRIMARY KEY,
  Description VARCHAR(100) NOT NULL DEFAULT '',
  StartDate DATETIME,
  EndDate DATETIME))sql",
      R"sql(
CREATE TABLE DiscountEligibleItem (
  DiscountID INTEGER NOT NULL,
  ItemID VARCHAR(30) NOT NULL,
  PRIMARY KEY (DiscountID, ItemID)))sql",
      R"sql(
CREATE TABLE DiscountScalingItem (
  DiscountID INTEGER NOT NULL,
  ScaleID SMALLINT NOT NULL,
  Quantity FLOAT NOT NULL DEFAULT 0,
  DiscountPercent FLOAT NOT NULL DEFAULT 0,
  PRIMARY KEY (DiscountID, ScaleID)))sql",
  };
  return Views(kStatements);
}

}  // namespace standalone::schema
