#include "standalone/schema/SchemaParts.h"

namespace standalone::schema {
namespace {

// What a customer and a supplier both hold as trading partners. The address
// lines are in PartyAddress, under AddressID.
constexpr std::string_view kPartnerColumns = R"sql(
  OrganizationName VARCHAR(100) NOT NULL DEFAULT '',
  FederalTaxID VARCHAR(20) NOT NULL DEFAULT '',
  EmailAddress VARCHAR(100) NOT NULL DEFAULT '',
  Telephone1 VARCHAR(30) NOT NULL DEFAULT '',
  Fax VARCHAR(30) NOT NULL DEFAULT '',
  CountryID VARCHAR(5) NOT NULL DEFAULT '',
  CurrencyID VARCHAR(3) NOT NULL DEFAULT '',
  AddressID INTEGER NOT NULL DEFAULT 0,
  ZoneID INTEGER NOT NULL DEFAULT 0,
  PaymentID INTEGER NOT NULL DEFAULT 0,
  TenderID INTEGER NOT NULL DEFAULT 0,
  TaxRegime SMALLINT NOT NULL DEFAULT 0,
  DirectDiscount FLOAT NOT NULL DEFAULT 0,
  AplyRetentionTax BIT NOT NULL DEFAULT 0,
  RetentionTax FLOAT NOT NULL DEFAULT 0,
  Inactive BIT NOT NULL DEFAULT 0,
  Comments TEXT NOT NULL DEFAULT '',
  CreationDate DATETIME,
  LastUpdated DATETIME,
  LastTransSerial VARCHAR(10) NOT NULL DEFAULT '',
  LastTransDocument VARCHAR(10) NOT NULL DEFAULT '',
  LastTransDocNumber INTEGER NOT NULL DEFAULT 0)sql";

}  // namespace

// Customers with their groups and contracts, suppliers, and banks.
std::vector<std::string_view> CustomersSchema() {
  static const std::vector<std::string> kStatements = {
      // CustomerKey is the back office's number; '' until the customer has
      // been exported, then "Exported" until the back office sends it back.
      // CustomerLevel is the customer's group (CustomerGroups.GroupID).
      CreateTable("Customer", {R"sql(
  CustomerID INTEGER NOT NULL PRIMARY KEY,
  CustomerKey VARCHAR(20) NOT NULL DEFAULT '')sql",
                               kPartnerColumns, R"sql(
  CustomerLevel INTEGER NOT NULL DEFAULT 0,
  PriceLineID INTEGER NOT NULL DEFAULT 0,
  SalesmanID INTEGER NOT NULL DEFAULT 0,
  CarrierID INTEGER NOT NULL DEFAULT 0,
  SecondDiscount FLOAT NOT NULL DEFAULT 0,
  CreditLimitType SMALLINT NOT NULL DEFAULT 0,
  CreditLimitAmount MONEY NOT NULL DEFAULT 0,
  CreditLimitDays SMALLINT NOT NULL DEFAULT 0,
  CreditCurrencyID VARCHAR(3) NOT NULL DEFAULT '',
  CreditCurrencyExchange FLOAT NOT NULL DEFAULT 1,
  CreditCurrencyFactor FLOAT NOT NULL DEFAULT 1,
  PresetText VARCHAR(50) NOT NULL DEFAULT '',
  FrequentShopperPoints FLOAT NOT NULL DEFAULT 0)sql",
                               kAuditColumns}),
      "CREATE INDEX Customer_CustomerKey_IDX ON Customer (CustomerKey)",
      CreateTable("CustomerGroups", {R"sql(
  GroupID INTEGER NOT NULL PRIMARY KEY,
  GroupKey VARCHAR(20) NOT NULL DEFAULT '',
  Description VARCHAR(100) NOT NULL DEFAULT '')sql",
                                     kAuditColumns}),
      "CREATE INDEX CustomerGroups_GroupKey_IDX ON CustomerGroups (GroupKey)",
      R"sql(
CREATE TABLE CustomerImpute (
  CustomerID INTEGER NOT NULL,
  ImputeID INTEGER NOT NULL,
  Description VARCHAR(100) NOT NULL DEFAULT '',
  PRIMARY KEY (CustomerID, ImputeID)))sql",
      R"sql(
CREATE TABLE CustomerContract (
  ContractID INTEGER NOT NULL PRIMARY KEY,
  CustomerID INTEGER NOT NULL DEFAULT 0,
  Description VARCHAR(100) NOT NULL DEFAULT '',
  StartDate DATETIME,
  EndDate DATETIME))sql",
      R"sql(
CREATE TABLE CustomerContractItem (
  ContractID INTEGER NOT NULL,
  ItemID VARCHAR(30) NOT NULL,
  UnitPrice MONEY NOT NULL DEFAULT 0,
  DiscountPercent FLOAT NOT NULL DEFAULT 0,
  PRIMARY KEY (ContractID, ItemID)))sql",
      R"sql(
CREATE TABLE UareU_Customer (
  CustomerID INTEGER NOT NULL,
  FingerID SMALLINT NOT NULL,
  Template IMAGE,
  PRIMARY KEY (CustomerID, FingerID)))sql",
      CreateTable("Supplier", {R"sql(
  SupplierID INTEGER NOT NULL PRIMARY KEY,
  SupplierKey VARCHAR(20) NOT NULL DEFAULT '')sql",
                               kPartnerColumns, kAuditColumns}),
      "CREATE INDEX Supplier_SupplierKey_IDX ON Supplier (SupplierKey)",
      R"sql(
CREATE TABLE SupplierFamilyDiscounts (
  SupplierID INTEGER NOT NULL,
  FamilyID INTEGER NOT NULL,
  DiscountPercent FLOAT NOT NULL DEFAULT 0,
  PRIMARY KEY (SupplierID, FamilyID)))sql",
      CreateTable("Bank", {R"sql(
  BankID INTEGER NOT NULL PRIMARY KEY,
  BankKey VARCHAR(20) NOT NULL DEFAULT '',
  Name VARCHAR(100) NOT NULL DEFAULT '',
  CountryID VARCHAR(5) NOT NULL DEFAULT '',
  Telephone1 VARCHAR(30) NOT NULL DEFAULT '',
  Fax VARCHAR(30) NOT NULL DEFAULT '')sql",
                           kAuditColumns}),
      "CREATE INDEX Bank_BankKey_IDX ON Bank (BankKey)",
      R"sql(
CREATE TABLE BankCategory (
  BankCategoryID INTEGER NOT NULL PRIMARY KEY,
  Description VARCHAR(100) NOT NULL DEFAULT ''))sql",
      R"sql(
CREATE TABLE BankMethod (
  BankMethodID INTEGER NOT NULL PRIMARY KEY,
  Description VARCHAR(100) NOT NULL DEFAULT ''))sql",
  };
  return Views(kStatements);
}

}  // namespace standalone::schema
