#include "standalone/sqlite/SqliteSchema.h"

#include "standalone/sqlite/SqliteDatabase.h"

namespace standalone {
namespace {

std::string TypeName(const host::TableDefinition::Column& column) {
  using Type = host::TableDefinition::ColumnType;
  switch (column.type) {
    case Type::kInteger:
      return "INTEGER";
    case Type::kBigInteger:
      return "BIGINT";
    case Type::kDouble:
      return "FLOAT";
    case Type::kDate:
      return "DATETIME";
    case Type::kBoolean:
      return "BIT";
    case Type::kText:
      return column.length > 0 ? "VARCHAR(" + std::to_string(column.length) + ")" : "TEXT";
  }
  return "TEXT";
}

std::string Quoted(const std::string& name) { return "[" + name + "]"; }

}  // namespace

bool SqliteSchema::TableExists(std::string_view table) {
  std::string sql =
      "SELECT name FROM sqlite_master WHERE type='table' AND lower(name)=lower('" +
      database_.SqlFormat().QuoteText(table) + "')";
  return database_.OpenRecordset(sql)->RecordCount() > 0;
}

std::string SqliteSchema::CreateStatements(const host::TableDefinition& table) {
  std::string sql = "CREATE TABLE " + Quoted(table.name) + " (";
  for (size_t i = 0; i < table.columns.size(); ++i) {
    const auto& column = table.columns[i];
    if (i > 0) sql += ", ";
    sql += Quoted(column.name) + " " + TypeName(column);
    if (column.type == host::TableDefinition::ColumnType::kText && column.length > 0) {
      sql += " CHECK (length(" + Quoted(column.name) + ") <= " + std::to_string(column.length) +
             ")";
    }
  }
  sql += ");";
  for (const auto& index : table.indexes) {
    sql += " CREATE INDEX " + Quoted(index.name) + " ON " + Quoted(table.name) + " (";
    for (size_t i = 0; i < index.columns.size(); ++i) {
      if (i > 0) sql += ", ";
      sql += Quoted(index.columns[i]);
    }
    sql += ");";
  }
  return sql;
}

void SqliteSchema::AppendTable(const host::TableDefinition& table) {
  database_.ExecuteScript(CreateStatements(table));
}

}  // namespace standalone
