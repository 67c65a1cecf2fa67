#include "standalone/services/EntityRows.h"

#include <cstdlib>

#include "connector/host/AsciiNames.h"
#include "connector/host/Error.h"
#include "connector/host/FieldConverter.h"
#include "connector/host/Text.h"
#include "standalone/schema/PosSchemaModel.h"

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

// A column's default as PRAGMA table_info gives it: NULL, a quoted text or
// a number are plain values; anything else (an expression) is none.
std::optional<host::SqlValue> DefaultValue(const std::optional<std::string>& declared) {
  if (!declared) return host::SqlValue::Null();
  const std::string& text = *declared;
  if (host::UCase(text) == "NULL") return host::SqlValue::Null();
  if (text.size() >= 2 && text.front() == '\'' && text.back() == '\'') {
    return host::SqlValue::Text(host::Replace(text.substr(1, text.size() - 2), "''", "'"));
  }
  char* end = nullptr;
  double number = std::strtod(text.c_str(), &end);
  if (!text.empty() && end == text.c_str() + text.size()) return host::SqlValue::Number(number);
  return std::nullopt;
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

host::SqlValue DateOrNullValue(const std::optional<host::Date>& date) {
  return date ? host::SqlValue::DateTime(*date) : host::SqlValue::Null();
}

void SetDate(host::SqlStatement& statement, std::string_view column,
             const std::optional<host::Date>& date) {
  statement.Set(column, DateOrNullValue(date));
}

std::optional<host::Date> DateOrNull(const host::Variant& value) {
  if (value.IsNull() || value.IsEmpty()) return std::nullopt;
  return host::FieldConverter::ToDate(value);
}

void EntityWriter::Atomically(const std::function<void()>& writes) {
  if (gathering_) {
    writes();
    return;
  }
  gathering_ = true;
  gathered_.clear();
  try {
    writes();
  } catch (...) {
    gathering_ = false;
    gathered_.clear();
    throw;
  }
  gathering_ = false;
  std::vector<Write> batch = std::move(gathered_);
  gathered_.clear();
  if (batch.size() == 1) {
    Run(batch.front());
    return;
  }
  if (batch.empty()) return;
  db_.BeginTrans();
  try {
    for (const Write& write : batch) Run(write);
  } catch (...) {
    db_.RollbackTrans();
    throw;
  }
  db_.CommitTrans();
}

void EntityWriter::Run(const Write& write) {
  switch (write.kind) {
    case Kind::kInsert:
      db_.RunInsert(write.statement);
      return;
    case Kind::kUpdate:
      db_.RunUpdate(write.statement);
      return;
    case Kind::kDelete:
      db_.RunDelete(write.statement);
      return;
  }
}

void EntityWriter::Gather(Kind kind, host::SqlStatement statement) {
  Write write{kind, std::move(statement)};
  if (gathering_) {
    gathered_.push_back(std::move(write));
  } else {
    Run(write);
  }
}

void EntityWriter::Insert(host::SqlStatement statement) {
  CheckLengths(statement);
  Gather(Kind::kInsert, std::move(statement));
}

void EntityWriter::Update(host::SqlStatement statement) {
  CheckLengths(statement);
  Gather(Kind::kUpdate, std::move(statement));
}

void EntityWriter::Delete(host::SqlStatement statement) {
  Gather(Kind::kDelete, std::move(statement));
}

bool EntityWriter::Rewrite(host::SqlStatement statement) {
  auto named = [&](const std::string& name) {
    for (const auto& column : statement.Columns()) {
      if (host::SameAsciiNoCase(column.name, name)) return true;
    }
    for (const auto& key : statement.Keys()) {
      if (host::SameAsciiNoCase(key.name, name)) return true;
    }
    return false;
  };
  // The columns the statement does not name, each with its default.
  const auto& defaults = Info(statement.Table()).defaults;
  std::vector<const std::pair<std::string, std::optional<host::SqlValue>>*> others;
  others.reserve(defaults.size());
  for (const auto& column : defaults) {
    if (named(column.first)) continue;
    if (!column.second) return false;
    others.push_back(&column);
  }
  statement.ReserveColumns(statement.Columns().size() + others.size());
  // Not named, so not among the columns yet.
  for (const auto* column : others) statement.AddNewColumn(column->first, *column->second);
  Update(std::move(statement));
  return true;
}

const EntityWriter::TableInfo& EntityWriter::Info(std::string_view table) {
  auto found = tables_.find(table);
  if (found != tables_.end()) return found->second;
  TableInfo info;
  auto add = [&info](const std::string& name, const std::string& type,
                     const std::optional<std::string>& default_text) {
    size_t length = DeclaredLength(type);
    if (length > 0) info.lengths.emplace(name, length);
    info.defaults.emplace_back(name, DefaultValue(default_text));
  };
  if (db_.DatabaseKind() != 0) {
    // A server's catalogue gives its own forms of types and defaults: the
    // host's schema says what they are.
    for (const ColumnDeclaration& column : PosColumnDeclarations(table)) {
      add(column.name, column.type, column.default_text);
    }
  } else {
    for (auto rs = db_.OpenRecordset("PRAGMA table_info(" + std::string(table) + ")"); !rs->Eof();
         rs->MoveNext()) {
      const host::Variant& declared = rs->Fields("dflt_value");
      add(host::FieldConverter::ToText(rs->Fields("name")),
          host::FieldConverter::ToText(rs->Fields("type")),
          declared.IsNull() || declared.IsEmpty()
              ? std::nullopt
              : std::optional<std::string>(host::FieldConverter::ToText(declared)));
    }
  }
  return tables_.emplace(std::string(table), std::move(info)).first->second;
}

void EntityWriter::CheckLengths(const host::SqlStatement& statement) {
  const TableInfo* info = nullptr;  // looked up at the first text
  for (const auto& column : statement.Columns()) {
    if (column.kind == host::SqlStatement::Kind::kText) {
      if (info == nullptr) info = &Info(statement.Table());
      CheckTextIn(*info, statement.Table(), column.name, column.text);
    }
  }
}

void EntityWriter::CheckTextIn(const TableInfo& info, std::string_view table,
                               std::string_view column, const std::string& text) {
  auto limit = info.lengths.find(column);
  if (limit == info.lengths.end() || text.size() <= limit->second) return;
  if (host::Len(text) > limit->second) {
    host::RaiseWith(kDataTruncated,
                    "String or binary data would be truncated: " + std::string(table) + "." +
                        std::string(column) + " holds at most " + std::to_string(limit->second) +
                        " characters",
                    "EntityService");
  }
}

}  // namespace standalone
