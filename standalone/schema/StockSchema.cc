#include "standalone/schema/SchemaParts.h"

namespace standalone::schema {

// Warehouses, stock by item and by property value, and stock movements.
std::vector<std::string_view> StockSchema() {
  static const std::vector<std::string> kStatements = {
      CreateTable("Warehouse", {R"sql(
  WarehouseID INTEGER NOT NULL PRIMARY KEY,
  WarehouseKey VARCHAR(20) NOT NULL DEFAULT '',
  Description VARCHAR(100) NOT NULL DEFAULT '',
  AddressLine1 VARCHAR(100) NOT NULL DEFAULT '',
  AddressLine2 VARCHAR(100) NOT NULL DEFAULT '',
  PostalCode VARCHAR(20) NOT NULL DEFAULT '',
  CountryID VARCHAR(5) NOT NULL DEFAULT '')sql",
                                kAuditColumns}),
      "CREATE INDEX Warehouse_WarehouseKey_IDX ON Warehouse (WarehouseKey)",
      CreateTable("Stock", {R"sql(
  ItemID VARCHAR(30) NOT NULL,
  WarehouseID INTEGER NOT NULL,
  ColorID INTEGER NOT NULL DEFAULT 0,
  SizeID INTEGER NOT NULL DEFAULT 0,
  LotID VARCHAR(50) NOT NULL DEFAULT '',
  ReorderPoint FLOAT NOT NULL DEFAULT 0,
  RestockLevel FLOAT NOT NULL DEFAULT 0,
  BinLocation VARCHAR(20) NOT NULL DEFAULT '')sql",
                            kStockQuantityColumns, kAuditColumns,
                            "PRIMARY KEY (ItemID, WarehouseID, ColorID, SizeID, LotID)"}),
      // The stock of one lot or serial number; a second write of the same
      // value replaces the row.
      CreateTable("StockProperty", {R"sql(
  ItemID VARCHAR(30) NOT NULL,
  WarehouseID INTEGER NOT NULL,
  PropertyValue1 VARCHAR(50) NOT NULL DEFAULT '',
  PropertyValue2 VARCHAR(50) NOT NULL DEFAULT '',
  PropertyValue3 VARCHAR(50) NOT NULL DEFAULT '',
  ProductionDate DATETIME,
  ExpirationDate DATETIME,
  PhysicalQty FLOAT NOT NULL DEFAULT 0,
  PhysicalUnits FLOAT NOT NULL DEFAULT 0,
  CurrencyID VARCHAR(3) NOT NULL DEFAULT '',
  CurrencyExchange FLOAT NOT NULL DEFAULT 1,
  CurrencyFactor FLOAT NOT NULL DEFAULT 1)sql",
                                    kAuditColumns,
                                    "PRIMARY KEY (ItemID, WarehouseID, PropertyValue1, "
                                    "PropertyValue2, PropertyValue3)"}),
      R"sql(
CREATE TABLE StockHistory (
  TransSerial VARCHAR(10) NOT NULL,
  TransDocument VARCHAR(10) NOT NULL,
  TransDocNumber INTEGER NOT NULL,
  LineItemID INTEGER NOT NULL,
  ItemID VARCHAR(30) NOT NULL DEFAULT '',
  WarehouseID INTEGER NOT NULL DEFAULT 0,
  Quantity FLOAT NOT NULL DEFAULT 0,
  CreateDate DATETIME,
  PRIMARY KEY (TransSerial, TransDocument, TransDocNumber, LineItemID)))sql",
      CreateTable("StockTransaction",
                  {R"sql(
  TransSerial VARCHAR(10) NOT NULL,
  TransDocument VARCHAR(10) NOT NULL,
  TransDocNumber INTEGER NOT NULL,
  TransDate DATETIME,
  DateTwo DATETIME,
  FromWarehouseID INTEGER NOT NULL DEFAULT 0,
  ToWarehouseID INTEGER NOT NULL DEFAULT 0,
  TransactionFlag SMALLINT NOT NULL DEFAULT 0,
  CurrencyID VARCHAR(3) NOT NULL DEFAULT '',
  CurrencyExchange FLOAT NOT NULL DEFAULT 1,
  CurrencyFactor FLOAT NOT NULL DEFAULT 1)sql",
                   kAuditColumns, "PRIMARY KEY (TransSerial, TransDocument, TransDocNumber)"}),
      CreateTable("StockTransactionDetails", {R"sql(
  TransSerial VARCHAR(10) NOT NULL,
  TransDocument VARCHAR(10) NOT NULL,
  TransDocNumber INTEGER NOT NULL,
  LineNumber INTEGER NOT NULL,
  ItemID VARCHAR(30) NOT NULL DEFAULT '',
  ColorID INTEGER NOT NULL DEFAULT 0,
  SizeID INTEGER NOT NULL DEFAULT 0,
  LotID VARCHAR(50) NOT NULL DEFAULT '',
  Description VARCHAR(255) NOT NULL DEFAULT '',
  TransDate DATETIME,
  DateTwo DATETIME,
  DateThree DATETIME,
  ItemValue MONEY NOT NULL DEFAULT 0,
  LineValue1 MONEY NOT NULL DEFAULT 0,
  LineValue2 MONEY NOT NULL DEFAULT 0,
  LineValue3 MONEY NOT NULL DEFAULT 0,
  Quantity FLOAT NOT NULL DEFAULT 0,
  TaxableGroupID SMALLINT NOT NULL DEFAULT 0,
  WarehouseID INTEGER NOT NULL DEFAULT 0,
  FromWarehouseID INTEGER NOT NULL DEFAULT 0,
  ToWarehouseID INTEGER NOT NULL DEFAULT 0,
  CurrencyID VARCHAR(3) NOT NULL DEFAULT '',
  CurrencyExchange FLOAT NOT NULL DEFAULT 1,
  CurrencyFactor FLOAT NOT NULL DEFAULT 1)sql",
                                              kAuditColumns,
                                              "PRIMARY KEY (TransSerial, TransDocument, "
                                              "TransDocNumber, LineNumber)"}),
      R"sql(
CREATE TABLE StockAdjustmentReport (
  ReportLineID INTEGER NOT NULL PRIMARY KEY,
  ItemID VARCHAR(30) NOT NULL DEFAULT '',
  WarehouseID INTEGER NOT NULL DEFAULT 0,
  Quantity FLOAT NOT NULL DEFAULT 0))sql",
  };
  return Views(kStatements);
}

}  // namespace standalone::schema
