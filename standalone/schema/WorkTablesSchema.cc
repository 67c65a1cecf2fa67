#include "standalone/schema/SchemaParts.h"

namespace standalone::schema {

// The host's scratch tables for reports and price labels; cleared whole, never
// read by the connector. (The scratch copies of sale documents keep the sale
// layouts, next to them.)
std::vector<std::string_view> WorkTablesSchema() {
  static const std::vector<std::string> kStatements = {
      R"sql(
CREATE TABLE SpY (
  SpYID INTEGER NOT NULL PRIMARY KEY,
  Description VARCHAR(100) NOT NULL DEFAULT ''))sql",
      R"sql(
CREATE TABLE TempItem (
  ItemID VARCHAR(30) NOT NULL PRIMARY KEY,
  Description VARCHAR(255) NOT NULL DEFAULT ''))sql",
      R"sql(
CREATE TABLE TempItemSellingPrices (
  ItemID VARCHAR(30) NOT NULL,
  PriceLineID INTEGER NOT NULL,
  PriceWithoutTax MONEY NOT NULL DEFAULT 0,
  PriceWithTax MONEY NOT NULL DEFAULT 0,
  PRIMARY KEY (ItemID, PriceLineID)))sql",
      R"sql(
CREATE TABLE TempItemSellingPricesLabels (
  ItemID VARCHAR(30) NOT NULL,
  PriceLineID INTEGER NOT NULL,
  LabelCount SMALLINT NOT NULL DEFAULT 0,
  PRIMARY KEY (ItemID, PriceLineID)))sql",
      R"sql(
CREATE TABLE TempItemPricesProperty (
  ItemID VARCHAR(30) NOT NULL,
  PriceLineID INTEGER NOT NULL,
  PropertyValue1 VARCHAR(50) NOT NULL DEFAULT '',
  PriceWithTax MONEY NOT NULL DEFAULT 0,
  PRIMARY KEY (ItemID, PriceLineID, PropertyValue1)))sql",
      R"sql(
CREATE TABLE TemporaryAccumulated (
  AccumulatedID INTEGER NOT NULL PRIMARY KEY,
  Description VARCHAR(100) NOT NULL DEFAULT '',
  Amount MONEY NOT NULL DEFAULT 0))sql",
      R"sql(
CREATE TABLE TempSpecialRptItems (
  ItemID VARCHAR(30) NOT NULL PRIMARY KEY,
  Quantity FLOAT NOT NULL DEFAULT 0,
  Amount MONEY NOT NULL DEFAULT 0))sql",
      R"sql(
CREATE TABLE TempStock (
  ItemID VARCHAR(30) NOT NULL,
  WarehouseID INTEGER NOT NULL,
  PhysicalQty FLOAT NOT NULL DEFAULT 0,
  PRIMARY KEY (ItemID, WarehouseID)))sql",
      R"sql(
CREATE TABLE TempStockProperty (
  ItemID VARCHAR(30) NOT NULL,
  WarehouseID INTEGER NOT NULL,
  PropertyValue1 VARCHAR(50) NOT NULL DEFAULT '',
  PhysicalQty FLOAT NOT NULL DEFAULT 0,
  PRIMARY KEY (ItemID, WarehouseID, PropertyValue1)))sql",
      R"sql(
CREATE TABLE TempTaxSalesFirst (
  TaxGroupID VARCHAR(10) NOT NULL,
  TaxRate FLOAT NOT NULL,
  TaxableAmount MONEY NOT NULL DEFAULT 0,
  TaxAmount MONEY NOT NULL DEFAULT 0,
  PRIMARY KEY (TaxGroupID, TaxRate)))sql",
      R"sql(
CREATE TABLE TempComissionTransactionDetails (
  TransSerial VARCHAR(10) NOT NULL,
  TransDocument VARCHAR(10) NOT NULL,
  TransDocNumber INTEGER NOT NULL,
  LineItemID INTEGER NOT NULL,
  SalesmanID INTEGER NOT NULL DEFAULT 0,
  ComissionAmount MONEY NOT NULL DEFAULT 0,
  PRIMARY KEY (TransSerial, TransDocument, TransDocNumber, LineItemID)))sql",
      R"sql(
CREATE TABLE TempTurnaroundRecSelect (
  TransSerial VARCHAR(10) NOT NULL,
  TransDocument VARCHAR(10) NOT NULL,
  TransDocNumber INTEGER NOT NULL,
  Selected BIT NOT NULL DEFAULT 0,
  PRIMARY KEY (TransSerial, TransDocument, TransDocNumber)))sql",
  };
  return Views(kStatements);
}

}  // namespace standalone::schema
