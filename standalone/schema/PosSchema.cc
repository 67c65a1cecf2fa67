#include "standalone/schema/PosSchema.h"

#include <string>

#include "standalone/schema/SchemaParts.h"

namespace standalone {
namespace schema {

std::string CreateTable(std::string_view name,
                        std::initializer_list<std::string_view> column_groups) {
  std::string statement = "CREATE TABLE ";
  statement += name;
  statement += " (";
  bool first = true;
  for (std::string_view group : column_groups) {
    if (!first) statement += ",";
    statement += group;
    first = false;
  }
  statement += ")";
  return statement;
}

std::vector<std::string_view> Views(const std::vector<std::string>& statements) {
  return std::vector<std::string_view>(statements.begin(), statements.end());
}

}  // namespace schema

std::vector<std::string_view> PosSchemaStatements() {
  using PartFunction = std::vector<std::string_view> (*)();
  static constexpr PartFunction kParts[] = {
      schema::ConfigurationSchema,  schema::GeographySchema,  schema::PartiesSchema,
      schema::CustomersSchema,      schema::CommercialSchema, schema::ItemsSchema,
      schema::ItemDetailsSchema,    schema::StockSchema,      schema::DocumentsSchema,
      schema::SalesDocumentsSchema, schema::TendersSchema,    schema::AccountsSchema,
      schema::WorkTablesSchema,     schema::HostSchema,
  };
  std::vector<std::string_view> statements;
  for (PartFunction part : kParts) {
    std::vector<std::string_view> part_statements = part();
    statements.insert(statements.end(), part_statements.begin(), part_statements.end());
  }
  return statements;
}

std::vector<std::string_view> PosSchemaUpgrade(int from) {
  switch (from) {
    case 1:
      // 2: what a user may do, which the initial load sets on the users it
      // makes.
      return {"ALTER TABLE AppUsers ADD COLUMN SecurityLevel SMALLINT NOT NULL DEFAULT 0",
              "ALTER TABLE AppUsers ADD COLUMN MaximumDiscount FLOAT NOT NULL DEFAULT 0",
              "ALTER TABLE AppUsers ADD COLUMN DefaultWorkstationID INTEGER NOT NULL DEFAULT 0",
              "ALTER TABLE AppUsers ADD COLUMN Active BIT NOT NULL DEFAULT 1",
              "ALTER TABLE AppUsers ADD COLUMN CanChangePrices BIT NOT NULL DEFAULT 1",
              "ALTER TABLE AppUsers ADD COLUMN CanVoidDocuments BIT NOT NULL DEFAULT 1"};
    case 2:
      // 3: a series' year and lock, which a series the load makes sets.
      return {"ALTER TABLE Series ADD COLUMN SeriesYear SMALLINT NOT NULL DEFAULT 0",
              "ALTER TABLE Series ADD COLUMN SeriesLocked SMALLINT NOT NULL DEFAULT 0"};
    default:
      return {};
  }
}

}  // namespace standalone
