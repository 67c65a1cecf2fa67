#include "standalone/schema/SchemaParts.h"

namespace standalone::schema {
namespace {

// An item's alternatives, numbered from 1 in the group's order (gaps allowed).
constexpr std::string_view kAlternativeColumns = R"sql(
  ItemID VARCHAR(30) NOT NULL,
  AlternativeOrder SMALLINT NOT NULL,
  AlternativeItemID VARCHAR(30) NOT NULL DEFAULT '',
  PRIMARY KEY (ItemID, AlternativeOrder))sql";

}  // namespace

// The rows that hang on an item: prices, suppliers, barcodes, components,
// alternatives, and the item tables that the clearing of items empties.
std::vector<std::string_view> ItemDetailsSchema() {
  static const std::vector<std::string> kStatements = {
      R"sql(
CREATE TABLE ItemNames (
  ItemID VARCHAR(30) NOT NULL,
  LanguageID VARCHAR(5) NOT NULL,
  Description VARCHAR(255) NOT NULL DEFAULT '',
  PRIMARY KEY (ItemID, LanguageID)))sql",
      // One row per item and price line (line 0 holds the cost), for colour
      // and size 0 and no lot unless the item is tracked by them.
      CreateTable("ItemSellingPrices",
                  {R"sql(
  ItemID VARCHAR(30) NOT NULL,
  PriceLineID INTEGER NOT NULL,
  ColorID INTEGER NOT NULL DEFAULT 0,
  SizeID INTEGER NOT NULL DEFAULT 0,
  LotID VARCHAR(50) NOT NULL DEFAULT '',
  PriceWithoutTax MONEY NOT NULL DEFAULT 0,
  PriceWithTax MONEY NOT NULL DEFAULT 0,
  PriceDate DATETIME,
  PriceStatus SMALLINT NOT NULL DEFAULT 0)sql",
                   kAuditColumns, "PRIMARY KEY (ItemID, PriceLineID, ColorID, SizeID, LotID)"}),
      R"sql(
CREATE TABLE ItemPricesProperty (
  ItemID VARCHAR(30) NOT NULL,
  PriceLineID INTEGER NOT NULL,
  PropertyValue1 VARCHAR(50) NOT NULL DEFAULT '',
  PriceWithoutTax MONEY NOT NULL DEFAULT 0,
  PriceWithTax MONEY NOT NULL DEFAULT 0,
  PRIMARY KEY (ItemID, PriceLineID, PropertyValue1)))sql",
      CreateTable("ItemSupplier", {R"sql(
  ItemID VARCHAR(30) NOT NULL,
  SupplierID INTEGER NOT NULL,
  SupplierItemRef VARCHAR(50) NOT NULL DEFAULT '',
  SupplierRefStatus SMALLINT NOT NULL DEFAULT 0,
  LastCostPrice MONEY NOT NULL DEFAULT 0,
  LastCostPriceWithTax MONEY NOT NULL DEFAULT 0,
  Discount1 FLOAT NOT NULL DEFAULT 0,
  Discount2 FLOAT NOT NULL DEFAULT 0,
  Discount3 FLOAT NOT NULL DEFAULT 0,
  LastCostDate DATETIME,
  CurrencyID VARCHAR(3) NOT NULL DEFAULT '',
  CurrencyExchange FLOAT NOT NULL DEFAULT 1,
  CurrencyFactor FLOAT NOT NULL DEFAULT 1)sql",
                                   kAuditColumns, "PRIMARY KEY (ItemID, SupplierID)"}),
      // The item's further barcodes (the entity's ItemBarcode rows); they go
      // with the clearing of items. A barcode may stand on two items.
      R"sql(
CREATE TABLE POSIdentity (
  ItemID VARCHAR(30) NOT NULL,
  Barcode VARCHAR(30) NOT NULL,
  UnitOfMeasureID VARCHAR(10) NOT NULL DEFAULT '',
  Quantity FLOAT NOT NULL DEFAULT 1,
  CurrencyID VARCHAR(3) NOT NULL DEFAULT '',
  CurrencyExchange FLOAT NOT NULL DEFAULT 1,
  CurrencyFactor FLOAT NOT NULL DEFAULT 1,
  PRIMARY KEY (ItemID, Barcode, UnitOfMeasureID)))sql",
      "CREATE INDEX POSIdentity_Barcode_IDX ON POSIdentity (Barcode)",
      // A kit's components, in ComponentOrder.
      R"sql(
CREATE TABLE ItemComponents (
  ItemID VARCHAR(30) NOT NULL,
  ComponentOrder SMALLINT NOT NULL,
  ComponentItemID VARCHAR(30) NOT NULL DEFAULT '',
  ComponentKey VARCHAR(30) NOT NULL DEFAULT '',
  ComponentColorID INTEGER NOT NULL DEFAULT 0,
  ComponentSizeID INTEGER NOT NULL DEFAULT 0,
  ComponentQuantity FLOAT NOT NULL DEFAULT 0,
  ComponentLookup VARCHAR(200) NOT NULL DEFAULT '',
  PRIMARY KEY (ItemID, ComponentOrder)))sql",
      CreateTable("AlternativeItem", {kAlternativeColumns}),
      CreateTable("ItemAlternative", {kAlternativeColumns}),
      R"sql(
CREATE TABLE ItemCollection (
  ItemID VARCHAR(30) NOT NULL,
  CollectionID INTEGER NOT NULL,
  PRIMARY KEY (ItemID, CollectionID)))sql",
      R"sql(
CREATE TABLE ItemExtraFields (
  ItemID VARCHAR(30) NOT NULL,
  FieldID INTEGER NOT NULL,
  FieldValue VARCHAR(255) NOT NULL DEFAULT '',
  PRIMARY KEY (ItemID, FieldID)))sql",
      R"sql(
CREATE TABLE ItemSerial (
  ItemID VARCHAR(30) NOT NULL,
  SerialNumber VARCHAR(50) NOT NULL,
  WarehouseID INTEGER NOT NULL DEFAULT 0,
  PRIMARY KEY (ItemID, SerialNumber)))sql",
      R"sql(
CREATE TABLE ItemSize (
  ItemID VARCHAR(30) NOT NULL,
  SizeID INTEGER NOT NULL,
  PRIMARY KEY (ItemID, SizeID)))sql",
      R"sql(
CREATE TABLE ItemColor (
  ItemID VARCHAR(30) NOT NULL,
  ColorID INTEGER NOT NULL,
  PRIMARY KEY (ItemID, ColorID)))sql",
      R"sql(
CREATE TABLE ItemLot (
  ItemID VARCHAR(30) NOT NULL,
  LotID VARCHAR(50) NOT NULL,
  ProductionDate DATETIME,
  ExpirationDate DATETIME,
  PRIMARY KEY (ItemID, LotID)))sql",
      R"sql(
CREATE TABLE ItemUnits (
  ItemID VARCHAR(30) NOT NULL,
  UnitOfMeasureID VARCHAR(10) NOT NULL,
  UnitFactor FLOAT NOT NULL DEFAULT 1,
  PRIMARY KEY (ItemID, UnitOfMeasureID)))sql",
      R"sql(
CREATE TABLE ItemReserve (
  ItemID VARCHAR(30) NOT NULL,
  WarehouseID INTEGER NOT NULL,
  CustomerID INTEGER NOT NULL,
  Quantity FLOAT NOT NULL DEFAULT 0,
  PRIMARY KEY (ItemID, WarehouseID, CustomerID)))sql",
      R"sql(
CREATE TABLE ItemCostChange (
  ItemID VARCHAR(30) NOT NULL,
  ChangeDate DATETIME NOT NULL,
  OldCostPrice MONEY NOT NULL DEFAULT 0,
  NewCostPrice MONEY NOT NULL DEFAULT 0,
  PRIMARY KEY (ItemID, ChangeDate)))sql",
      R"sql(
CREATE TABLE ItemSellingPriceHistory (
  ItemID VARCHAR(30) NOT NULL,
  PriceLineID INTEGER NOT NULL,
  PriceDate DATETIME NOT NULL,
  PriceWithoutTax MONEY NOT NULL DEFAULT 0,
  PriceWithTax MONEY NOT NULL DEFAULT 0,
  PRIMARY KEY (ItemID, PriceLineID, PriceDate)))sql",
      R"sql(
CREATE TABLE TagAlongEdition (
  ItemID VARCHAR(30) NOT NULL,
  TagAlongItemID VARCHAR(30) NOT NULL,
  Quantity FLOAT NOT NULL DEFAULT 1,
  PRIMARY KEY (ItemID, TagAlongItemID)))sql",
      R"sql(
CREATE TABLE AggregateGroupItem (
  AggregateGroupID INTEGER NOT NULL PRIMARY KEY,
  Description VARCHAR(100) NOT NULL DEFAULT ''))sql",
      R"sql(
CREATE TABLE AggregateGroupItemDetails (
  AggregateGroupID INTEGER NOT NULL,
  ItemID VARCHAR(30) NOT NULL,
  PRIMARY KEY (AggregateGroupID, ItemID)))sql",
      R"sql(
CREATE TABLE ItemContract (
  ItemContractID INTEGER NOT NULL PRIMARY KEY,
  Description VARCHAR(100) NOT NULL DEFAULT ''))sql",
      R"sql(
CREATE TABLE ItemContractItems (
  ItemContractID INTEGER NOT NULL,
  ItemID VARCHAR(30) NOT NULL,
  PRIMARY KEY (ItemContractID, ItemID)))sql",
  };
  return Views(kStatements);
}

}  // namespace standalone::schema
