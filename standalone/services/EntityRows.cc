#include "standalone/services/EntityRows.h"

#include <cstdlib>

#include "connector/host/Error.h"
#include "connector/host/FieldConverter.h"
#include "connector/host/Text.h"

namespace standalone {
namespace {

// What a server answers to a text that does not fit its column
// (0x80040E57, "String or binary data would be truncated").
constexpr int32_t kDataTruncated = -2147217833;

double FirstNumber(host::DatabaseService& db, const std::string& sql,
                   const std::vector<host::SqlValue>& values = {}) {
  host::RecordsetPtr rs = db.Query(sql, values);
  return rs->Eof() ? 0 : host::FieldConverter::ToNumber(rs->Fields(0));
}

// The n of "VARCHAR(n)"; 0 for any other type.
size_t DeclaredLength(const std::string& type) {
  std::string upper = host::UCase(type);
  size_t open = upper.find('(');
  if (upper.rfind("VARCHAR", 0) != 0 || open == std::string::npos) return 0;
  return static_cast<size_t>(std::strtoul(upper.c_str() + open + 1, nullptr, 10));
}

}  // namespace

double IdFromKey(host::DatabaseService& db, std::string_view table, std::string_view id_column,
                 std::string_view key_column, std::string_view key) {
  if (key.empty()) return 0;
  return FirstNumber(db,
                     "SELECT TOP 1 " + std::string(id_column) + " FROM " + std::string(table) +
                         " WHERE " + std::string(key_column) + "=? ORDER BY " +
                         std::string(id_column),
                     {host::SqlValue::Text(key)});
}

double FirstId(host::DatabaseService& db, std::string_view table, std::string_view id_column,
               std::string_view where) {
  return FirstNumber(db, "SELECT MIN(" + std::string(id_column) + ") FROM " + std::string(table) +
                             (where.empty() ? "" : " WHERE " + std::string(where)));
}

double NextId(host::DatabaseService& db, std::string_view table, std::string_view id_column) {
  // An empty table's MAX is NULL, which reads as 0.
  return FirstNumber(db, "SELECT MAX(" + std::string(id_column) + ") FROM " + std::string(table)) +
         1;
}

bool RowExists(host::DatabaseService& db, std::string_view table, std::string_view id_column,
               double id) {
  return !db.Query("SELECT " + std::string(id_column) + " FROM " + std::string(table) + " WHERE " +
                       std::string(id_column) + "=?",
                   {host::SqlValue::Number(id)})
              ->Eof();
}

void SetDate(host::SqlStatement& statement, std::string_view column,
             const std::optional<host::Date>& date) {
  if (date) {
    statement.DateTime(column, *date);
  } else {
    statement.Null(column);
  }
}

std::optional<host::Date> DateOrNull(const host::Variant& value) {
  if (value.IsNull() || value.IsEmpty()) return std::nullopt;
  return host::FieldConverter::ToDate(value);
}

void EntityWriter::Atomically(const std::function<void()>& writes) {
  db_.BeginTrans();
  try {
    writes();
  } catch (...) {
    db_.RollbackTrans();
    throw;
  }
  db_.CommitTrans();
}

void EntityWriter::Insert(const host::SqlStatement& statement) {
  CheckLengths(statement);
  db_.RunInsert(statement);
}

void EntityWriter::Update(const host::SqlStatement& statement) {
  CheckLengths(statement);
  db_.RunUpdate(statement);
}

void EntityWriter::Delete(const host::SqlStatement& statement) { db_.RunDelete(statement); }

void EntityWriter::CheckLengths(const host::SqlStatement& statement) {
  auto found = lengths_.find(statement.Table());
  if (found == lengths_.end()) {
    std::unordered_map<std::string, size_t> columns;
    for (auto rs = db_.OpenRecordset("PRAGMA table_info(" + statement.Table() + ")"); !rs->Eof();
         rs->MoveNext()) {
      size_t length = DeclaredLength(host::FieldConverter::ToText(rs->Fields("type")));
      if (length > 0) columns.emplace(host::FieldConverter::ToText(rs->Fields("name")), length);
    }
    found = lengths_.emplace(statement.Table(), std::move(columns)).first;
  }
  for (const auto& column : statement.Columns()) {
    if (column.kind != host::SqlStatement::Kind::kText) continue;
    auto limit = found->second.find(column.name);
    if (limit == found->second.end() || column.text.size() <= limit->second) continue;
    if (host::Len(column.text) > limit->second) {
      host::RaiseWith(kDataTruncated,
                      "String or binary data would be truncated: " + statement.Table() + "." +
                          column.name + " holds at most " + std::to_string(limit->second) +
                          " characters",
                      "EntityService");
    }
  }
}

}  // namespace standalone
