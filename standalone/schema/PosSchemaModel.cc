#include "standalone/schema/PosSchemaModel.h"

#include <sqlite3.h>

#include <map>
#include <memory>
#include <stdexcept>
#include <string>

#include "connector/host/Text.h"
#include "standalone/schema/PosSchema.h"
#include "standalone/sqlite/SqliteLibrary.h"

namespace standalone {
namespace {

using Column = host::TableDefinition::Column;
using ColumnType = host::TableDefinition::ColumnType;

// The kind of a declared type, by the rule the POS schema follows.
ColumnType TypeOf(const std::string& declared, int& length) {
  std::string upper = host::UCase(declared);
  length = 0;
  if (upper.rfind("VARCHAR(", 0) == 0) length = std::stoi(upper.substr(8));
  if (upper.rfind("VARCHAR", 0) == 0 || upper == "TEXT") return ColumnType::kText;
  if (upper == "DATETIME") return ColumnType::kDate;
  if (upper == "BIT") return ColumnType::kBoolean;
  if (upper == "BIGINT") return ColumnType::kBigInteger;
  if (upper == "FLOAT" || upper == "MONEY") return ColumnType::kDouble;
  if (upper == "IMAGE") return ColumnType::kText;  // bytes: no kind of their own
  return ColumnType::kInteger;
}

using Statement = std::unique_ptr<sqlite3_stmt, decltype(&sqlite3_finalize)>;

Statement Prepare(sqlite3* db, const std::string& sql) {
  sqlite3_stmt* statement = nullptr;
  if (sqlite3_prepare_v2(db, sql.c_str(), -1, &statement, nullptr) != SQLITE_OK) {
    throw std::runtime_error("the POS schema model: " + std::string(sqlite3_errmsg(db)));
  }
  return Statement(statement, sqlite3_finalize);
}

std::string Text(sqlite3_stmt* statement, int column) {
  const unsigned char* text = sqlite3_column_text(statement, column);
  return text ? reinterpret_cast<const char*>(text) : "";
}

struct Model {
  std::vector<host::TableDefinition> tables;
  // By the table's name in upper case.
  std::map<std::string, std::vector<ColumnDeclaration>> declarations;
};

Model MakeModel() {
  ConfigureSqlite();
  sqlite3* raw = nullptr;
  sqlite3_open(":memory:", &raw);
  std::unique_ptr<sqlite3, decltype(&sqlite3_close)> db(raw, sqlite3_close);
  for (std::string_view statement : PosSchemaStatements()) {
    std::string sql(statement);
    if (sqlite3_exec(db.get(), sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK) {
      throw std::runtime_error("the POS schema model: " + std::string(sqlite3_errmsg(db.get())));
    }
  }
  Model model;
  Statement names = Prepare(db.get(),
                            "SELECT name FROM sqlite_master WHERE type = 'table' AND name NOT "
                            "LIKE 'sqlite_%' ORDER BY name");
  while (sqlite3_step(names.get()) == SQLITE_ROW) {
    host::TableDefinition table;
    table.name = Text(names.get(), 0);
    Statement columns = Prepare(
        db.get(), "SELECT name, type, dflt_value FROM pragma_table_info('" + table.name + "')");
    std::vector<ColumnDeclaration>& declarations = model.declarations[host::UCase(table.name)];
    while (sqlite3_step(columns.get()) == SQLITE_ROW) {
      Column column;
      column.name = Text(columns.get(), 0);
      column.type = TypeOf(Text(columns.get(), 1), column.length);
      table.columns.push_back(column);
      ColumnDeclaration declaration{column.name, Text(columns.get(), 1), std::nullopt};
      if (sqlite3_column_type(columns.get(), 2) != SQLITE_NULL) {
        declaration.default_text = Text(columns.get(), 2);
      }
      declarations.push_back(std::move(declaration));
    }
    model.tables.push_back(std::move(table));
  }
  return model;
}

const Model& TheModel() {
  static const Model model = MakeModel();
  return model;
}

}  // namespace

const std::vector<host::TableDefinition>& PosSchemaModel() { return TheModel().tables; }

const std::vector<ColumnDeclaration>& PosColumnDeclarations(std::string_view table) {
  static const std::vector<ColumnDeclaration> kNone;
  const auto& declarations = TheModel().declarations;
  auto found = declarations.find(host::UCase(table));
  return found == declarations.end() ? kNone : found->second;
}

}  // namespace standalone
