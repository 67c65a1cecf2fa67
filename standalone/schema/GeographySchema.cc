#include "standalone/schema/SchemaParts.h"

namespace standalone::schema {

// Tax rates by country and region, the country's provinces and localities,
// trade zones, load and unload places, and delivery routes.
std::vector<std::string_view> GeographySchema() {
  static const std::vector<std::string> kStatements = {
      // One row per tax group, country, region and sequence; the IVA
      // sequences are 1 normal, 2 intermediate, 3 reduced, 4 exempt.
      CreateTable("TaxTable", {R"sql(
  TaxGroupID VARCHAR(10) NOT NULL,
  CountryID VARCHAR(5) NOT NULL,
  TaxRegionID VARCHAR(5) NOT NULL,
  TaxSequenceID SMALLINT NOT NULL,
  Description VARCHAR(50) NOT NULL DEFAULT '',
  TaxRate FLOAT NOT NULL DEFAULT 0,
  TaxExemptionReason VARCHAR(100) NOT NULL DEFAULT '')sql",
                               kAuditColumns,
                               "PRIMARY KEY (TaxGroupID, CountryID, TaxRegionID, TaxSequenceID)"}),
      // Kept on purpose without WorkstationID and SessionID: the load writes
      // only the user, day and time to these two tables.
      R"sql(
CREATE TABLE ProvinceCodes (
  CountryID VARCHAR(5) NOT NULL,
  ProvinceID VARCHAR(10) NOT NULL,
  ProvinceName VARCHAR(50) NOT NULL DEFAULT '',
  UserAlt INTEGER NOT NULL DEFAULT 0,
  DtAlt DATETIME,
  HrAlt DATETIME,
  PRIMARY KEY (CountryID, ProvinceID)))sql",
      R"sql(
CREATE TABLE LocalityCodes (
  CountryID VARCHAR(5) NOT NULL,
  ProvinceID VARCHAR(10) NOT NULL,
  LocalityID INTEGER NOT NULL,
  LocalityName VARCHAR(50) NOT NULL DEFAULT '',
  UserAlt INTEGER NOT NULL DEFAULT 0,
  DtAlt DATETIME,
  HrAlt DATETIME,
  PRIMARY KEY (CountryID, ProvinceID, LocalityID)))sql",
      CreateTable("Zone", {R"sql(
  ZoneID INTEGER NOT NULL PRIMARY KEY,
  ZoneKey VARCHAR(10) NOT NULL DEFAULT '',
  Description VARCHAR(100) NOT NULL DEFAULT '',
  ZoneType SMALLINT NOT NULL DEFAULT 0,
  CountryID VARCHAR(5) NOT NULL DEFAULT '',
  CurrencyID VARCHAR(3) NOT NULL DEFAULT '',
  TaxRegionID VARCHAR(5) NOT NULL DEFAULT '')sql",
                           kAuditColumns}),
      "CREATE INDEX Zone_ZoneKey_IDX ON Zone (ZoneKey)",
      // The load finds a zone by its description.
      "CREATE INDEX Zone_Description_IDX ON Zone (Description)",
      CreateTable("LoadUnloadPlace", {R"sql(
  LoadUnloadPlaceID INTEGER NOT NULL PRIMARY KEY,
  Description VARCHAR(100) NOT NULL DEFAULT '')sql",
                                      kAuditColumns}),
      R"sql(
CREATE TABLE Routes (
  RouteID INTEGER NOT NULL PRIMARY KEY,
  Description VARCHAR(100) NOT NULL DEFAULT ''))sql",
      R"sql(
CREATE TABLE SubRoutes (
  RouteID INTEGER NOT NULL,
  SubRouteID INTEGER NOT NULL,
  CustomerID INTEGER NOT NULL DEFAULT 0,
  Description VARCHAR(100) NOT NULL DEFAULT '',
  PRIMARY KEY (RouteID, SubRouteID)))sql",
  };
  return Views(kStatements);
}

}  // namespace standalone::schema
