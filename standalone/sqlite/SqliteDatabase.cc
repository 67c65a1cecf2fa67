#include "standalone/sqlite/SqliteDatabase.h"

#include <sqlite3.h>
#include <sys/stat.h>

#include <cctype>
#include <climits>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>

#include "connector/host/Conversions.h"
#include "connector/host/Error.h"
#include "connector/host/FieldConverter.h"
#include "connector/host/Text.h"
#include "standalone/sql/SqlDialect.h"
#include "standalone/sql/SqlTokens.h"
#include "standalone/sqlite/SqliteLibrary.h"
#include "standalone/sqlite/SqliteSchema.h"

namespace standalone {
namespace {

// ADO's "unspecified error", which a connection that cannot be made raises.
constexpr int32_t kCannotConnect = -2147467259;
// "No transaction is active."
constexpr int32_t kNoTransaction = -2147168242;
constexpr char kSource[] = "SQLite";

// The kind a field takes from its column's declared type.
enum class DeclaredKind { kAuto, kDate, kBoolean, kInteger16, kInteger32, kDouble, kText, kBytes };

DeclaredKind KindOf(const char* declared) {
  if (declared == nullptr) return DeclaredKind::kAuto;
  std::string type(declared);
  for (char& c : type) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  auto has = [&](const char* part) { return type.find(part) != std::string::npos; };
  if (has("DATE") || has("TIME")) return DeclaredKind::kDate;
  if (has("BIT") || has("BOOL")) return DeclaredKind::kBoolean;
  if (has("SMALLINT") || has("TINYINT")) return DeclaredKind::kInteger16;
  if (has("BIGINT")) return DeclaredKind::kDouble;
  if (has("INT")) return DeclaredKind::kInteger32;
  if (has("FLOAT") || has("REAL") || has("DOUB") || has("MONEY") || has("NUMERIC") || has("DEC"))
    return DeclaredKind::kDouble;
  if (has("CHAR") || has("TEXT") || has("CLOB")) return DeclaredKind::kText;
  if (has("BLOB") || has("IMAGE")) return DeclaredKind::kBytes;
  return DeclaredKind::kAuto;
}

std::string ColumnText(sqlite3_stmt* statement, int column) {
  const unsigned char* text = sqlite3_column_text(statement, column);
  int size = sqlite3_column_bytes(statement, column);
  return text == nullptr ? std::string() : std::string(reinterpret_cast<const char*>(text), size);
}

host::Variant IntegerValue(sqlite3_int64 value, bool small) {
  if (small && value >= SHRT_MIN && value <= SHRT_MAX)
    return host::Variant(static_cast<int16_t>(value));
  if (value >= INT_MIN && value <= INT_MAX) return host::Variant(static_cast<int32_t>(value));
  return host::Variant(static_cast<double>(value));
}

// The value of one column of the current row, as its declared kind says.
host::Variant ReadValue(sqlite3_stmt* statement, int column, DeclaredKind kind) {
  int storage = sqlite3_column_type(statement, column);
  if (storage == SQLITE_NULL) return host::Variant::Null();
  switch (kind) {
    case DeclaredKind::kDate:
      if (storage == SQLITE_TEXT) {
        host::Variant text(ColumnText(statement, column));
        try {
          return host::Variant(host::FieldConverter::ToDate(text));
        } catch (const host::Error&) {
          return text;  // not a date after all: give the text as it is
        }
      }
      return host::Variant(host::Date{sqlite3_column_double(statement, column)});
    case DeclaredKind::kBoolean:
      if (storage == SQLITE_TEXT) {
        host::Variant text(ColumnText(statement, column));
        try {
          return host::Variant(host::FieldConverter::ToBoolean(text));
        } catch (const host::Error&) {
          return text;
        }
      }
      return host::Variant(sqlite3_column_double(statement, column) != 0);
    case DeclaredKind::kText:
      if (storage == SQLITE_BLOB) break;
      return host::Variant(ColumnText(statement, column));
    default:
      break;
  }
  switch (storage) {
    case SQLITE_INTEGER:
      if (kind == DeclaredKind::kDouble) {
        return host::Variant(static_cast<double>(sqlite3_column_int64(statement, column)));
      }
      return IntegerValue(sqlite3_column_int64(statement, column),
                          kind == DeclaredKind::kInteger16);
    case SQLITE_FLOAT:
      return host::Variant(sqlite3_column_double(statement, column));
    case SQLITE_BLOB: {
      const auto* bytes = static_cast<const unsigned char*>(sqlite3_column_blob(statement, column));
      int size = sqlite3_column_bytes(statement, column);
      return host::Variant(host::Variant::Bytes(bytes, bytes + size));
    }
    default:
      return host::Variant(ColumnText(statement, column));
  }
}

// The address of each value, in order.
std::vector<const host::SqlValue*> Addresses(const std::vector<host::SqlValue>& values) {
  std::vector<const host::SqlValue*> addresses;
  addresses.reserve(values.size());
  for (const host::SqlValue& value : values) addresses.push_back(&value);
  return addresses;
}

// The current row of a stepped statement. The typed reads take the short
// way for the forms SQLite stores by the column's declared kind, each giving
// what the FieldConverter gives for ReadValue's field; any other form goes
// through that field.
class SqliteRowReader : public host::RowReader {
 public:
  SqliteRowReader(sqlite3_stmt* statement,
                  const std::shared_ptr<const host::RecordsetColumns>& columns,
                  const std::vector<int>& kinds)
      : statement_(statement), columns_(columns), kinds_(kinds) {}

  const std::shared_ptr<const host::RecordsetColumns>& Columns() const override { return columns_; }
  host::Variant Value(int column) const override {
    return ReadValue(statement_, column, Kind(column));
  }
  void TextInto(int column, std::string& text) const override {
    const DeclaredKind kind = Kind(column);
    // Text is read as text but in a date or truth column, which parse it.
    if (sqlite3_column_type(statement_, column) == SQLITE_TEXT && kind != DeclaredKind::kDate &&
        kind != DeclaredKind::kBoolean) {
      const unsigned char* bytes = sqlite3_column_text(statement_, column);
      text.assign(reinterpret_cast<const char*>(bytes), sqlite3_column_bytes(statement_, column));
      return;
    }
    RowReader::TextInto(column, text);
  }
  double Number(int column) const override {
    if (IsNumberKind(Kind(column))) {
      switch (sqlite3_column_type(statement_, column)) {
        case SQLITE_INTEGER:
          return static_cast<double>(sqlite3_column_int64(statement_, column));
        case SQLITE_FLOAT:
          return sqlite3_column_double(statement_, column);
        default:
          break;
      }
    }
    return RowReader::Number(column);
  }
  bool Truth(int column) const override {
    const int storage = sqlite3_column_type(statement_, column);
    if (Kind(column) == DeclaredKind::kBoolean &&
        (storage == SQLITE_INTEGER || storage == SQLITE_FLOAT)) {
      return sqlite3_column_double(statement_, column) != 0;
    }
    return RowReader::Truth(column);
  }

 private:
  // Raises for a column out of range, as a recordset's field does.
  DeclaredKind Kind(int column) const {
    if (column < 0 || column >= static_cast<int>(kinds_.size())) {
      host::Raise(host::err::kItemNotFound, "Recordset");
    }
    return static_cast<DeclaredKind>(kinds_[column]);
  }
  // The kinds whose INTEGER and FLOAT values read as numbers.
  static bool IsNumberKind(DeclaredKind kind) {
    return kind == DeclaredKind::kInteger16 || kind == DeclaredKind::kInteger32 ||
           kind == DeclaredKind::kDouble || kind == DeclaredKind::kAuto;
  }

  sqlite3_stmt* statement_;
  const std::shared_ptr<const host::RecordsetColumns>& columns_;
  const std::vector<int>& kinds_;
};

// lumaro_now(): the host's clock, in the stored form of a date.
void NowFunction(sqlite3_context* context, int, sqlite3_value**) {
  std::string now = StoredDateText(host::Now());
  sqlite3_result_text(context, now.c_str(), static_cast<int>(now.size()), SQLITE_TRANSIENT);
}

// lumaro_left(text, n): the first n characters.
void LeftFunction(sqlite3_context* context, int, sqlite3_value** argv) {
  if (sqlite3_value_type(argv[0]) == SQLITE_NULL) {
    sqlite3_result_null(context);
    return;
  }
  const char* text = reinterpret_cast<const char*>(sqlite3_value_text(argv[0]));
  sqlite3_int64 count = sqlite3_value_int64(argv[1]);
  std::string left = host::Left(text == nullptr ? "" : text, count < 0 ? 0 : count);
  sqlite3_result_text(context, left.c_str(), static_cast<int>(left.size()), SQLITE_TRANSIENT);
}

std::string Shortened(std::string_view sql) {
  constexpr size_t kMax = 300;
  if (sql.size() <= kMax) return std::string(sql);
  return std::string(sql.substr(0, kMax)) + "...";
}

void BindValue(sqlite3_stmt* statement, int index, const ParameterizedSql::Value& value) {
  if (const auto* number = std::get_if<int64_t>(&value)) {
    sqlite3_bind_int64(statement, index, *number);
  } else if (const auto* real = std::get_if<double>(&value)) {
    sqlite3_bind_double(statement, index, *real);
  } else {
    const std::string& text = std::get<std::string>(value);
    sqlite3_bind_text(statement, index, text.data(), static_cast<int>(text.size()),
                      SQLITE_TRANSIENT);
  }
}

// Binds a number as its literal (SqliteSqlFormat::Number, 15 significant
// digits) would be stored. Most numbers are integers or have few decimals:
// when value = n / 10^k exactly, with n of at most 15 digits, that text is
// the decimal n / 10^k, which reads back as this very double, and the text
// need not be made. Integers bind as integers, as their literals do.
void BindNumber(sqlite3_stmt* statement, int index, double value) {
  if (std::optional<host::ShortDecimal> exact = host::AsShortDecimal(value)) {
    if (exact->decimals == 0) {
      sqlite3_bind_int64(statement, index, exact->n);  // -0 too: its literal is 0
    } else {
      sqlite3_bind_double(statement, index, value);
    }
    return;
  }
  const std::string text = host::Digits15(value);
  if (std::strpbrk(text.c_str(), ".eEin") == nullptr) {
    sqlite3_bind_int64(statement, index, std::strtoll(text.c_str(), nullptr, 10));
  } else {
    sqlite3_bind_double(statement, index, std::strtod(text.c_str(), nullptr));
  }
}

// Binds a value as the literal that SqliteSqlFormat writes would be stored,
// so that a bound value and a written one are the same value.
void BindSqlValue(sqlite3_stmt* statement, int index, const host::SqlValue& value) {
  using Kind = host::SqlValue::Kind;
  switch (value.kind) {
    case Kind::kText:
      // The value outlives the step: the caller holds it until Run returns.
      sqlite3_bind_text(statement, index, value.text.data(), static_cast<int>(value.text.size()),
                        SQLITE_STATIC);
      return;
    case Kind::kBoolean:
      sqlite3_bind_int64(statement, index, value.number != 0 ? 1 : 0);
      return;
    case Kind::kNumber:
      BindNumber(statement, index, value.number);
      return;
    case Kind::kDate:
    case Kind::kDateTime:
    case Kind::kTime: {
      std::string text =
          StoredDateText(value.kind == Kind::kTime ? host::TimePart(value.date) : value.date);
      sqlite3_bind_text(statement, index, text.data(), static_cast<int>(text.size()),
                        SQLITE_TRANSIENT);
      return;
    }
    case Kind::kNull:
      sqlite3_bind_null(statement, index);
      return;
  }
}

}  // namespace

std::unique_ptr<SqliteDatabase> SqliteDatabase::Open(const std::string& path, OpenMode mode,
                                                     std::string_view what) {
  const std::string name = "the " + std::string(what) + " '" + path + "'";
  ConfigureSqlite();
  struct stat info;
  bool exists = ::stat(path.c_str(), &info) == 0;
  if (!exists && mode != OpenMode::kCreateIfMissing) {
    host::RaiseWith(host::err::kFileNotFound, "T" + name.substr(1) + " does not exist", kSource);
  }
  if (exists && S_ISDIR(info.st_mode)) {
    host::RaiseWith(kCannotConnect, "'" + path + "' is a folder, not a " + std::string(what),
                    kSource);
  }
  sqlite3* db = nullptr;
  // One connection serves one thread at a time (a host's connection is not
  // shared between threads), so SQLite's own locking of it is left out.
  int flags = SQLITE_OPEN_NOMUTEX;
  if (mode == OpenMode::kReadOnly) {
    flags |= SQLITE_OPEN_READONLY;
  } else {
    flags |= SQLITE_OPEN_READWRITE | (mode == OpenMode::kCreateIfMissing ? SQLITE_OPEN_CREATE : 0);
  }
  int rc = sqlite3_open_v2(path.c_str(), &db, flags, nullptr);
  if (rc != SQLITE_OK) {
    std::string message = db != nullptr ? sqlite3_errmsg(db) : sqlite3_errstr(rc);
    sqlite3_close(db);
    host::RaiseWith(kCannotConnect, "Cannot open " + name + ": " + message, kSource);
  }
  // Reading the schema tells a database from any other file.
  rc = sqlite3_exec(db, "PRAGMA schema_version", nullptr, nullptr, nullptr);
  if (rc != SQLITE_OK) {
    std::string message =
        rc == SQLITE_NOTADB ? "the file is not a SQLite database" : std::string(sqlite3_errmsg(db));
    sqlite3_close(db);
    host::RaiseWith(kCannotConnect, "Cannot open " + name + ": " + message, kSource);
  }
  sqlite3_busy_timeout(db, 5000);
  sqlite3_create_function(db, "lumaro_now", 0, SQLITE_UTF8, nullptr, NowFunction, nullptr, nullptr);
  sqlite3_create_function(db, "lumaro_left", 2, SQLITE_UTF8 | SQLITE_DETERMINISTIC, nullptr,
                          LeftFunction, nullptr, nullptr);
  return std::unique_ptr<SqliteDatabase>(new SqliteDatabase(db, path));
}

SqliteDatabase::SqliteDatabase(sqlite3* db, std::string path)
    : db_(db), path_(std::move(path)), schema_(std::make_unique<SqliteSchema>(*this)) {
  row_changes_.Attach(db_);
}

SqliteDatabase::~SqliteDatabase() {
  if (db_ == nullptr) return;
  if (transaction_depth_ > 0) sqlite3_exec(db_, "ROLLBACK", nullptr, nullptr, nullptr);
  FinalizeAll();
  sqlite3_close(db_);
}

void SqliteDatabase::FinalizeAll() {
  for (auto& [text, statement] : cache_) sqlite3_finalize(statement);
  cache_.clear();
  for (auto& [text, statement] : bound_cache_) sqlite3_finalize(statement);
  bound_cache_.clear();
  result_columns_.clear();
}

void SqliteDatabase::Compact() {
  RequireOpen();
  if (transaction_depth_ > 0) {
    host::RaiseWith(host::err::kInvalidProcedureCall,
                    "the POS database cannot be compacted inside a transaction", kSource);
  }
  int rc = sqlite3_exec(db_, "VACUUM", nullptr, nullptr, nullptr);
  if (rc != SQLITE_OK) RaiseSqlError(rc, "VACUUM");
}

void SqliteDatabase::RequireOpen() const {
  if (db_ == nullptr) host::Raise(host::err::kOperationNotAllowedWhenClosed, kSource);
}

void SqliteDatabase::RaiseSqlError(int code, std::string_view sql) const {
  std::string message = db_ != nullptr ? sqlite3_errmsg(db_) : sqlite3_errstr(code);
  host::RaiseWith(host::err::kSqlRefused, message + " (SQL: " + Shortened(sql) + ")", kSource);
}

host::SchemaService& SqliteDatabase::Schema() { return *schema_; }

sqlite3_stmt* SqliteDatabase::Prepared(const std::string& sqlite_sql, bool& failed) {
  failed = false;
  auto it = cache_.find(sqlite_sql);
  if (it != cache_.end()) return it->second;
  sqlite3_stmt* statement = nullptr;
  const char* tail = nullptr;
  int rc = sqlite3_prepare_v2(db_, sqlite_sql.c_str(), static_cast<int>(sqlite_sql.size()),
                              &statement, &tail);
  if (rc != SQLITE_OK) {
    failed = true;
    return nullptr;
  }
  ++stats_.prepared;
  // Several statements in one text are not cached: the caller runs them one
  // by one.
  bool single = tail == nullptr ||
                std::string_view(tail).find_first_not_of(" \t\r\n;") == std::string_view::npos;
  if (!single) {
    sqlite3_finalize(statement);
    failed = true;
    return nullptr;
  }
  if (statement != nullptr) cache_.emplace(sqlite_sql, statement);
  return statement;
}

host::RecordsetPtr SqliteDatabase::OpenRecordset(std::string_view sql, int, bool) {
  RequireOpen();
  if (observer_) observer_(sql);
  ++stats_.executed;
  ParameterizedSql parameterized = PrepareForSqlite(sql);
  bool failed = false;
  sqlite3_stmt* statement = Prepared(parameterized.text, failed);
  if (!failed && statement != nullptr) {
    for (size_t i = 0; i < parameterized.values.size(); ++i) {
      BindValue(statement, static_cast<int>(i + 1), parameterized.values[i]);
    }
    return Run(statement, sql, true);
  }
  // The text as it stands, when its values could not be taken out, or when
  // it holds several statements.
  std::string translated = TranslateToSqlite(sql);
  const char* rest = translated.c_str();
  host::RecordsetPtr result = std::make_shared<host::Recordset>();
  while (rest != nullptr && *rest != '\0') {
    sqlite3_stmt* one = nullptr;
    const char* tail = nullptr;
    int rc = sqlite3_prepare_v2(db_, rest, -1, &one, &tail);
    if (rc != SQLITE_OK) RaiseSqlError(rc, sql);
    if (one == nullptr) break;  // only blanks or comments left
    ++stats_.prepared;
    try {
      result = Run(one, sql, false);
    } catch (...) {
      sqlite3_finalize(one);
      throw;
    }
    sqlite3_finalize(one);
    rest = tail;
  }
  return result;
}

host::RecordsetPtr SqliteDatabase::Query(std::string_view sql,
                                         const std::vector<host::SqlValue>& values) {
  return RunBound(sql, Addresses(values), true);
}

void SqliteDatabase::QueryEach(std::string_view sql, const std::vector<host::SqlValue>& values,
                               const std::function<void(const host::RowReader&)>& each) {
  sqlite3_stmt* statement = Bound(sql, Addresses(values), true);
  StepAll(statement, sql, true, [&](const ResultColumns& columns) {
    each(SqliteRowReader(statement, columns.names, columns.kinds));
  });
}

host::RecordsetPtr SqliteDatabase::RunBound(std::string_view sql,
                                            const std::vector<const host::SqlValue*>& values,
                                            bool translate) {
  return Run(Bound(sql, values, translate), sql, true);
}

sqlite3_stmt* SqliteDatabase::Bound(std::string_view sql,
                                    const std::vector<const host::SqlValue*>& values,
                                    bool translate) {
  RequireOpen();
  if (observer_) observer_(sql);
  ++stats_.executed;
  auto found = bound_cache_.find(sql);
  if (found == bound_cache_.end()) {
    std::string sqlite_sql = translate ? TranslateToSqlite(sql) : std::string(sql);
    sqlite3_stmt* statement = nullptr;
    const char* tail = nullptr;
    int rc = sqlite3_prepare_v2(db_, sqlite_sql.c_str(), static_cast<int>(sqlite_sql.size()),
                                &statement, &tail);
    if (rc != SQLITE_OK) RaiseSqlError(rc, sql);
    if (statement == nullptr) {
      host::RaiseWith(host::err::kSqlRefused, "No statement in: " + Shortened(sql), kSource);
    }
    ++stats_.prepared;
    found = bound_cache_.emplace(std::string(sql), statement).first;
  }
  sqlite3_stmt* statement = found->second;
  if (sqlite3_bind_parameter_count(statement) != static_cast<int>(values.size())) {
    host::RaiseWith(
        host::err::kInvalidProcedureCall,
        std::to_string(values.size()) + " values for the ? markers of: " + Shortened(sql), kSource);
  }
  for (size_t i = 0; i < values.size(); ++i) {
    BindSqlValue(statement, static_cast<int>(i + 1), *values[i]);
  }
  return statement;
}

host::RecordsetPtr SqliteDatabase::RunShape(StatementTexts::Shape shape,
                                            const host::SqlStatement& statement) {
  std::vector<const host::SqlValue*> values;
  values.reserve(statement.Columns().size() + statement.Keys().size());
  const std::string& text = marker_texts_.Text(shape, statement, values);
  return RunBound(text, values, false);
}

void SqliteDatabase::RunInsert(const host::SqlStatement& statement) {
  RunShape(StatementTexts::Shape::kInsert, statement);
}

void SqliteDatabase::RunUpdate(const host::SqlStatement& statement) {
  RunShape(StatementTexts::Shape::kUpdate, statement);
}

void SqliteDatabase::RunDelete(const host::SqlStatement& statement) {
  RunShape(StatementTexts::Shape::kDelete, statement);
}

host::RecordsetPtr SqliteDatabase::RunSelect(const host::SqlStatement& statement) {
  return RunShape(StatementTexts::Shape::kSelect, statement);
}

host::RecordsetPtr SqliteDatabase::RunCount(const host::SqlStatement& statement) {
  return RunShape(StatementTexts::Shape::kCount, statement);
}

const SqliteDatabase::ResultColumns& SqliteDatabase::ColumnsOf(sqlite3_stmt* statement,
                                                               bool cached) {
  int column_count = sqlite3_column_count(statement);
  if (cached) {
    auto found = result_columns_.find(statement);
    // SQLite prepares a statement again after the schema changed, which may
    // change its columns (SELECT * after a column was added).
    if (found != result_columns_.end() &&
        static_cast<int>(found->second.kinds.size()) == column_count &&
        found->second.prepared == sqlite3_stmt_status(statement, SQLITE_STMTSTATUS_REPREPARE, 0)) {
      return found->second;
    }
  }
  std::vector<std::string> names;
  ResultColumns columns;
  names.reserve(column_count);
  columns.kinds.reserve(column_count);
  for (int c = 0; c < column_count; ++c) {
    names.emplace_back(sqlite3_column_name(statement, c));
    columns.kinds.push_back(static_cast<int>(KindOf(sqlite3_column_decltype(statement, c))));
  }
  columns.names = std::make_shared<const host::RecordsetColumns>(std::move(names));
  columns.prepared = sqlite3_stmt_status(statement, SQLITE_STMTSTATUS_REPREPARE, 0);
  if (!cached) {
    one_shot_columns_ = std::move(columns);
    return one_shot_columns_;
  }
  return result_columns_[statement] = std::move(columns);
}

template <typename OnRow>
const SqliteDatabase::ResultColumns& SqliteDatabase::StepAll(sqlite3_stmt* statement,
                                                             std::string_view sql, bool cached,
                                                             OnRow&& on_row) {
  // The columns are taken after the first step: a statement that SQLite
  // prepared again there, after the schema changed, may have others.
  int rc = sqlite3_step(statement);
  const ResultColumns& columns = ColumnsOf(statement, cached);
  try {
    for (; rc == SQLITE_ROW; rc = sqlite3_step(statement)) on_row(columns);
  } catch (...) {
    // A row's reader raised: the statement stops there. One that only reads
    // has changed nothing, and what was known of the tables still holds.
    const bool reads_only = sqlite3_stmt_readonly(statement) != 0;
    sqlite3_reset(statement);
    sqlite3_clear_bindings(statement);
    AfterStatement(statement, !reads_only, false);
    throw;
  }
  if (rc != SQLITE_DONE) {
    std::string message = sqlite3_errmsg(db_);
    sqlite3_reset(statement);
    sqlite3_clear_bindings(statement);
    AfterStatement(statement, true, false);
    host::RaiseWith(host::err::kSqlRefused, message + " (SQL: " + Shortened(sql) + ")", kSource);
  }
  sqlite3_reset(statement);
  sqlite3_clear_bindings(statement);
  AfterStatement(statement, false, false);
  return columns;
}

host::RecordsetPtr SqliteDatabase::Run(sqlite3_stmt* statement, std::string_view sql, bool cached) {
  std::vector<host::Recordset::Row> rows;
  const ResultColumns& columns = StepAll(statement, sql, cached, [&](const ResultColumns& columns) {
    const int column_count = static_cast<int>(columns.kinds.size());
    host::Recordset::Row row;
    row.reserve(column_count);
    for (int c = 0; c < column_count; ++c) {
      row.push_back(ReadValue(statement, c, static_cast<DeclaredKind>(columns.kinds[c])));
    }
    rows.push_back(std::move(row));
  });
  if (columns.kinds.empty()) return std::make_shared<host::Recordset>();
  return std::make_shared<host::Recordset>(columns.names, std::move(rows));
}

void SqliteDatabase::ExecuteOne(const std::string& sqlite_sql) {
  bool failed = false;
  sqlite3_stmt* statement = Prepared(sqlite_sql, failed);
  if (failed || statement == nullptr) {
    Execute(sqlite_sql);
    return;
  }
  int rc = sqlite3_step(statement);
  sqlite3_reset(statement);
  AfterStatement(statement, rc != SQLITE_DONE && rc != SQLITE_ROW, true);
  if (rc != SQLITE_DONE && rc != SQLITE_ROW) {
    host::RaiseWith(host::err::kSqlRefused,
                    std::string(sqlite3_errmsg(db_)) + " (SQL: " + Shortened(sqlite_sql) + ")",
                    kSource);
  }
}

void SqliteDatabase::Execute(std::string_view sqlite_sql) {
  std::string text(sqlite_sql);
  char* error = nullptr;
  int rc = sqlite3_exec(db_, text.c_str(), nullptr, nullptr, &error);
  AfterStatement(nullptr, rc != SQLITE_OK, false);
  if (rc != SQLITE_OK) {
    std::string message = error != nullptr ? error : sqlite3_errstr(rc);
    sqlite3_free(error);
    host::RaiseWith(host::err::kSqlRefused, message + " (SQL: " + Shortened(sqlite_sql) + ")",
                    kSource);
  }
}

void SqliteDatabase::ShareWithTheTill() {
  RequireOpen();
  // The till and the connector share the database: in WAL mode the till's
  // readers never wait for an export's writes, and with synchronous=NORMAL
  // each of the export's many small commits (a mark per row, by design
  // without a surrounding transaction) costs no disk flush. A crash of the
  // program loses nothing; a power cut may lose the last commits.
  Execute("PRAGMA journal_mode=WAL");
  Execute("PRAGMA synchronous=NORMAL");
}

int SqliteDatabase::SchemaVersion() {
  return static_cast<int>(
      host::FieldConverter::ToNumber(OpenRecordset("PRAGMA user_version")->Fields(0)));
}

void SqliteDatabase::SetSchemaVersion(int version) {
  ExecuteScript("PRAGMA user_version = " + std::to_string(version));
}

int SqliteDatabase::TableCount() {
  return static_cast<int>(host::FieldConverter::ToNumber(
      OpenRecordset("SELECT COUNT(*) FROM sqlite_master WHERE type='table'")->Fields(0)));
}

std::string SqliteDatabase::HomeFolder() const {
  return std::filesystem::absolute(path_).parent_path().string();
}

void SqliteDatabase::ExecuteScript(std::string_view sqlite_sql) {
  RequireOpen();
  Execute(sqlite_sql);
}

std::optional<int64_t> SqliteDatabase::ChangeCounter(std::string_view table) const {
  // Outside a transaction another connection may write at any moment.
  // Nor after SQLite ended one by itself (a full disk, an I/O error).
  if (db_ == nullptr || transaction_depth_ == 0 || sqlite3_get_autocommit(db_) != 0) {
    return std::nullopt;
  }
  return transaction_events_ + row_changes_.Of(table);
}

void SqliteDatabase::AfterStatement(sqlite3_stmt* statement, bool failed, bool own) {
  bool moved = !row_changes_.AllSeen() || failed || statement == nullptr;
  if (!moved && !own) {
    // Judged by its own text (one of several in the caller's): a statement
    // that writes but is no INSERT, UPDATE or DELETE (a CREATE, DROP, ALTER,
    // a PRAGMA) may change rows the hook does not report, and one that ends
    // or rolls back a transaction takes changes back unseen.
    std::string_view text = sqlite3_sql(statement);
    size_t start = text.find_first_not_of(" \t\r\n");
    text = start == std::string_view::npos ? std::string_view() : text.substr(start);
    std::string_view first = text.substr(0, text.find_first_of(" \t\r\n(;"));
    auto is = [&](std::initializer_list<std::string_view> words) {
      for (std::string_view word : words) {
        if (SameWord(first, word)) return true;
      }
      return false;
    };
    moved =
        is({"BEGIN", "COMMIT", "END", "ROLLBACK", "SAVEPOINT", "RELEASE"}) ||
        (sqlite3_stmt_readonly(statement) == 0 && !is({"INSERT", "UPDATE", "DELETE", "REPLACE"}));
  }
  if (moved) ++transaction_events_;
}

void SqliteDatabase::BeginTrans() {
  RequireOpen();
  if (observer_) observer_("BEGIN");
  if (transaction_depth_ == 0) {
    // The write lock is taken at once (waiting as long as the busy timeout
    // says), so that a transaction never fails half-way because another
    // connection wrote first.
    ExecuteOne("BEGIN IMMEDIATE");
    ++transaction_events_;
  } else {
    ExecuteOne("SAVEPOINT lumaro_" + std::to_string(transaction_depth_));
  }
  ++transaction_depth_;
}

void SqliteDatabase::CommitTrans() {
  RequireOpen();
  if (transaction_depth_ == 0) {
    host::RaiseWith(kNoTransaction, "No transaction is active.", kSource);
  }
  if (observer_) observer_("COMMIT");
  try {
    if (transaction_depth_ == 1) {
      ExecuteOne("COMMIT");
    } else {
      ExecuteOne("RELEASE lumaro_" + std::to_string(transaction_depth_ - 1));
    }
  } catch (...) {
    SyncTransactionDepth();
    throw;
  }
  --transaction_depth_;
}

void SqliteDatabase::RollbackTrans() {
  RequireOpen();
  if (transaction_depth_ == 0) {
    host::RaiseWith(kNoTransaction, "No transaction is active.", kSource);
  }
  ++transaction_events_;
  try {
    if (transaction_depth_ == 1) {
      ExecuteOne("ROLLBACK");
    } else {
      std::string name = "lumaro_" + std::to_string(transaction_depth_ - 1);
      ExecuteOne("ROLLBACK TO " + name);
      ExecuteOne("RELEASE " + name);
    }
  } catch (...) {
    SyncTransactionDepth();
    throw;
  }
  --transaction_depth_;
}

void SqliteDatabase::SyncTransactionDepth() {
  // A failed COMMIT may have ended the transaction (SQLite rolls back on an
  // I/O error) or kept it open (a busy database): follow what SQLite says.
  if (sqlite3_get_autocommit(db_) != 0) transaction_depth_ = 0;
}

void SqliteDatabase::Disconnect() {
  if (db_ == nullptr) return;
  if (transaction_depth_ > 0) sqlite3_exec(db_, "ROLLBACK", nullptr, nullptr, nullptr);
  transaction_depth_ = 0;
  FinalizeAll();
  sqlite3_close(db_);
  db_ = nullptr;
}

}  // namespace standalone
