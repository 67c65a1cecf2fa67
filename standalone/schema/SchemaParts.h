#ifndef LUMARO_STANDALONE_SCHEMA_SCHEMA_PARTS_H_
#define LUMARO_STANDALONE_SCHEMA_SCHEMA_PARTS_H_

// Internal to standalone/schema: the DDL of the POS database, one function per
// area. PosSchemaStatements() joins them in the order declared below.

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace standalone::schema {

// The audit columns of a host row written by statement: the workstation,
// session and user that changed it last, and the day and time of the change.
inline constexpr std::string_view kAuditColumns = R"sql(
  WorkstationID INTEGER NOT NULL DEFAULT 0,
  SessionID INTEGER NOT NULL DEFAULT 0,
  UserAlt INTEGER NOT NULL DEFAULT 0,
  DtAlt DATETIME,
  HrAlt DATETIME)sql";

// The running quantities and values that an Item row and each of its Stock
// rows keep; the clearing of documents sets them all back to 0 (the dates to
// NULL).
inline constexpr std::string_view kStockQuantityColumns = R"sql(
  CustomerOrderQty FLOAT NOT NULL DEFAULT 0,
  SupplierOrderQty FLOAT NOT NULL DEFAULT 0,
  CustomerConsignmentQty FLOAT NOT NULL DEFAULT 0,
  SupplierConsignmentQty FLOAT NOT NULL DEFAULT 0,
  PhysicalQty FLOAT NOT NULL DEFAULT 0,
  AvailableQty FLOAT NOT NULL DEFAULT 0,
  CustomerOrderUnits FLOAT NOT NULL DEFAULT 0,
  SupplierOrderUnits FLOAT NOT NULL DEFAULT 0,
  CustomerConsignmentUnits FLOAT NOT NULL DEFAULT 0,
  SupplierConsignmentUnits FLOAT NOT NULL DEFAULT 0,
  PhysicalUnits FLOAT NOT NULL DEFAULT 0,
  AvailableUnits FLOAT NOT NULL DEFAULT 0,
  AverageCostStockValue MONEY NOT NULL DEFAULT 0,
  LastCostStockValue MONEY NOT NULL DEFAULT 0,
  LastReceivedDate DATETIME,
  LastOutgoingDate DATETIME)sql";

// "CREATE TABLE <name> (" + the groups of column definitions joined by "," +
// ")". Lets tables that share a layout (or the audit columns) state it once.
std::string CreateTable(std::string_view name,
                        std::initializer_list<std::string_view> column_groups);

// Views on statements that outlive every caller (function-local statics).
std::vector<std::string_view> Views(const std::vector<std::string>& statements);

// The areas, in creation order.
std::vector<std::string_view> ConfigurationSchema();   // ConfSystem, currencies, users
std::vector<std::string_view> GeographySchema();       // taxes, provinces, zones
std::vector<std::string_view> PartiesSchema();         // Party and its rows
std::vector<std::string_view> CustomersSchema();       // customers, suppliers, banks
std::vector<std::string_view> CommercialSchema();      // salesmen, price lines, tenders
std::vector<std::string_view> ItemsSchema();           // families, units, Item
std::vector<std::string_view> ItemDetailsSchema();     // the rows that hang on an item
std::vector<std::string_view> StockSchema();           // warehouses and stock
std::vector<std::string_view> DocumentsSchema();       // document types and series
std::vector<std::string_view> SalesDocumentsSchema();  // sales, their lines and taxes
std::vector<std::string_view> TendersSchema();         // receipts and till money
std::vector<std::string_view> AccountsSchema();        // ledgers, purchases, banks
std::vector<std::string_view> WorkTablesSchema();      // the host's scratch tables
std::vector<std::string_view> HostSchema();            // the host's context and settings

}  // namespace standalone::schema

#endif  // LUMARO_STANDALONE_SCHEMA_SCHEMA_PARTS_H_
