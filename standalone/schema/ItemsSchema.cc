#include "standalone/schema/SchemaParts.h"

namespace standalone::schema {

// Families, units of measure, item properties, colours, sizes and the Item
// table itself.
std::vector<std::string_view> ItemsSchema() {
  static const std::vector<std::string> kStatements = {
      // The tree of families: FamilyPath joins the names from the root with
      // "\". The root made by the load has the key "GeneralFamily".
      CreateTable("Family", {R"sql(
  FamilyID INTEGER NOT NULL PRIMARY KEY,
  FamilyKey VARCHAR(30) NOT NULL DEFAULT '',
  FamilyName VARCHAR(100) NOT NULL DEFAULT '',
  ParentFamilyID INTEGER NOT NULL DEFAULT 0,
  ParentFamilyName VARCHAR(100) NOT NULL DEFAULT '',
  FamilyLevel SMALLINT NOT NULL DEFAULT 0,
  FamilyPath VARCHAR(500) NOT NULL DEFAULT '',
  MaximumDiscount FLOAT NOT NULL DEFAULT 0,
  IsServiceFamily BIT NOT NULL DEFAULT 0,
  FamilyItemKind SMALLINT NOT NULL DEFAULT 0)sql",
                             kAuditColumns}),
      "CREATE INDEX Family_FamilyKey_IDX ON Family (FamilyKey)",
      // A family's level rows (the entity's FamilyLevelRow collection).
      R"sql(
CREATE TABLE FamilyProfitRate (
  FamilyID INTEGER NOT NULL,
  LevelNumber SMALLINT NOT NULL,
  LevelValue FLOAT NOT NULL DEFAULT 0,
  PRIMARY KEY (FamilyID, LevelNumber)))sql",
      R"sql(
CREATE TABLE BalconyScaleSectionFamily (
  SectionID INTEGER NOT NULL,
  FamilyID INTEGER NOT NULL,
  PRIMARY KEY (SectionID, FamilyID)))sql",
      CreateTable("UnitOfMeasure", {R"sql(
  UnitOfMeasureID VARCHAR(10) NOT NULL PRIMARY KEY,
  Description VARCHAR(50) NOT NULL DEFAULT '',
  LanguageID VARCHAR(5) NOT NULL DEFAULT '',
  BaseUnitOfMeasureID VARCHAR(10) NOT NULL DEFAULT '',
  UnitRatio FLOAT NOT NULL DEFAULT 1,
  UnitFormula VARCHAR(50) NOT NULL DEFAULT '')sql",
                                    kAuditColumns}),
      // The rules by which an item is tracked: by lot, serial number, colour
      // and size ("CL", "CNS", "CCT", "RLV", "RNV").
      CreateTable("ItemProperty", {R"sql(
  PropertyID VARCHAR(10) NOT NULL PRIMARY KEY,
  Description VARCHAR(100) NOT NULL DEFAULT '',
  KeyDescription VARCHAR(100) NOT NULL DEFAULT '',
  PropertyKeyType SMALLINT NOT NULL DEFAULT 0,
  ControlMode SMALLINT NOT NULL DEFAULT 0,
  ControlType SMALLINT NOT NULL DEFAULT 0,
  UsePropertyTable BIT NOT NULL DEFAULT 0,
  UseProductionDate BIT NOT NULL DEFAULT 0,
  UseExpirationDate BIT NOT NULL DEFAULT 0,
  ExpirationDateControl SMALLINT NOT NULL DEFAULT 0,
  MaximumQuantity FLOAT NOT NULL DEFAULT 0)sql",
                                   kAuditColumns}),
      // An item's table of property values (the entity's PropertyTable).
      R"sql(
CREATE TABLE ItemPropertytable (
  ItemID VARCHAR(30) NOT NULL,
  PropertyValue1 VARCHAR(50) NOT NULL DEFAULT '',
  PropertyValue2 VARCHAR(50) NOT NULL DEFAULT '',
  PropertyValue3 VARCHAR(50) NOT NULL DEFAULT '',
  PRIMARY KEY (ItemID, PropertyValue1, PropertyValue2, PropertyValue3)))sql",
      // Colour 0 and size 0 are "none"; they survive every load.
      R"sql(
CREATE TABLE Color (
  ColorID INTEGER NOT NULL PRIMARY KEY,
  ColorKey VARCHAR(20) NOT NULL DEFAULT '',
  Description VARCHAR(50) NOT NULL DEFAULT ''))sql",
      R"sql(
CREATE TABLE Size (
  SizeID INTEGER NOT NULL PRIMARY KEY,
  SizeKey VARCHAR(20) NOT NULL DEFAULT '',
  Description VARCHAR(50) NOT NULL DEFAULT ''))sql",
      // ItemID is text (the trimmed back-office code), ItemKey the code as
      // it came. Barcode is the main barcode; the others are in POSIdentity.
      CreateTable("Item", {R"sql(
  ItemID VARCHAR(30) NOT NULL PRIMARY KEY,
  ItemKey VARCHAR(30) NOT NULL DEFAULT '',
  ShortDescription VARCHAR(50) NOT NULL DEFAULT '',
  Description VARCHAR(255) NOT NULL DEFAULT '',
  ItemType SMALLINT NOT NULL DEFAULT 0,
  IsComposed BIT NOT NULL DEFAULT 0,
  ComponentsKind SMALLINT NOT NULL DEFAULT 0,
  FamilyID INTEGER NOT NULL DEFAULT 0,
  SupplierID INTEGER NOT NULL DEFAULT 0,
  TaxableGroupID SMALLINT NOT NULL DEFAULT 0,
  BaseUnitOfMeasureID VARCHAR(10) NOT NULL DEFAULT '',
  SaleUnitOfMeasureID VARCHAR(10) NOT NULL DEFAULT '',
  SaleUnitFactor FLOAT NOT NULL DEFAULT 1,
  AltUnitOfMeasureID1 VARCHAR(10) NOT NULL DEFAULT '',
  AltUnitOfMeasureID2 VARCHAR(10) NOT NULL DEFAULT '',
  AltUnitOfMeasureID3 VARCHAR(10) NOT NULL DEFAULT '',
  AltUnitFactor FLOAT NOT NULL DEFAULT 0,
  AuxiliaryCode1 INTEGER NOT NULL DEFAULT 0,
  AuxiliaryCode2 INTEGER NOT NULL DEFAULT 0,
  AuxiliaryCode3 INTEGER NOT NULL DEFAULT 0,
  AuxiliaryCode4 INTEGER NOT NULL DEFAULT 0,
  CurrencyID VARCHAR(3) NOT NULL DEFAULT '',
  CurrencyExchange FLOAT NOT NULL DEFAULT 1,
  CurrencyFactor FLOAT NOT NULL DEFAULT 1,
  ControlsStock BIT NOT NULL DEFAULT 0,
  PropertyID1 VARCHAR(10) NOT NULL DEFAULT '',
  PropertyID2 VARCHAR(10) NOT NULL DEFAULT '',
  PropertyID3 VARCHAR(10) NOT NULL DEFAULT '',
  PropertyRule1 SMALLINT NOT NULL DEFAULT 0,
  PropertyRule2 SMALLINT NOT NULL DEFAULT 0,
  PropertyRule3 BIT NOT NULL DEFAULT 0,
  PropertyRule4 SMALLINT NOT NULL DEFAULT 0,
  PropertyRule5 SMALLINT NOT NULL DEFAULT 0,
  PropertyRule6 SMALLINT NOT NULL DEFAULT 0,
  UseImageInSale BIT NOT NULL DEFAULT 0,
  ImageFile VARCHAR(255) NOT NULL DEFAULT '',
  UsesScale BIT NOT NULL DEFAULT 0,
  ItemDate DATETIME,
  Barcode VARCHAR(30) NOT NULL DEFAULT '',
  AverageCostPrice MONEY NOT NULL DEFAULT 0)sql",
                           kStockQuantityColumns, kAuditColumns}),
      "CREATE INDEX Item_ItemKey_IDX ON Item (ItemKey)",
      "CREATE INDEX Item_Barcode_IDX ON Item (Barcode)",
      "CREATE INDEX Item_FamilyID_IDX ON Item (FamilyID)",
  };
  return Views(kStatements);
}

}  // namespace standalone::schema
