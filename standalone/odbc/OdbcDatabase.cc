#include "standalone/odbc/OdbcDatabase.h"

#include <sql.h>
#include <sqlext.h>

#include <cctype>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <optional>
#include <vector>

#include "connector/host/Error.h"
#include "connector/host/FieldConverter.h"
#include "standalone/sql/SqlDialect.h"
#include "standalone/sqlite/SqliteSchema.h"

namespace standalone {
namespace {

constexpr char kSource[] = "ODBC";
constexpr int32_t kCannotConnect = -2147467259;

bool Succeeded(SQLRETURN rc) { return rc == SQL_SUCCESS || rc == SQL_SUCCESS_WITH_INFO; }

// The driver's diagnostics of a handle: "[state] message; ...", one line.
std::string Diagnostics(SQLSMALLINT type, SQLHANDLE handle) {
  std::string text;
  SQLCHAR state[6];
  SQLCHAR message[1024];
  SQLINTEGER native = 0;
  SQLSMALLINT length = 0;
  for (SQLSMALLINT i = 1; SQLGetDiagRec(type, handle, i, state, &native, message, sizeof message,
                                        &length) == SQL_SUCCESS;
       ++i) {
    if (!text.empty()) text += "; ";
    // A driver's message may run over lines (psqlODBC's does); an error is
    // told in one line.
    std::string line(reinterpret_cast<char*>(message));
    for (char& c : line) {
      if (c == '\n' || c == '\r') c = ' ';
    }
    text += "[" + std::string(reinterpret_cast<char*>(state)) + "] " + line;
  }
  return text.empty() ? "no diagnostics" : text;
}

[[noreturn]] void FailStatement(SQLHSTMT statement, std::string_view sql) {
  host::RaiseWith(host::err::kSqlRefused,
                  Diagnostics(SQL_HANDLE_STMT, statement) + " (SQL: " + std::string(sql) + ")",
                  kSource);
}

// One statement handle, freed when it goes.
class Statement {
 public:
  explicit Statement(SQLHDBC dbc) {
    if (!Succeeded(SQLAllocHandle(SQL_HANDLE_STMT, dbc, &stmt_))) {
      host::RaiseWith(host::err::kSqlRefused, Diagnostics(SQL_HANDLE_DBC, dbc), kSource);
    }
  }
  ~Statement() { SQLFreeHandle(SQL_HANDLE_STMT, stmt_); }
  Statement(const Statement&) = delete;
  Statement& operator=(const Statement&) = delete;
  SQLHSTMT get() const { return stmt_; }
  [[noreturn]] void Fail(std::string_view sql) const { FailStatement(stmt_, sql); }

 private:
  SQLHSTMT stmt_ = SQL_NULL_HSTMT;
};

// The kind a column's SQL type reads as.
// kInteger: a 32-bit integer when the value fits, else a double (a BIGINT
// of PostgreSQL, which holds what SQLite's INTEGER holds).
enum class FieldKind { kInt16, kInt32, kInteger, kDouble, kBoolean, kDate, kTime, kBytes, kText };

FieldKind KindOf(SQLSMALLINT type) {
  switch (type) {
    case SQL_TINYINT:
    case SQL_SMALLINT:
      return FieldKind::kInt16;
    case SQL_INTEGER:
      return FieldKind::kInt32;
    case SQL_BIGINT:
    case SQL_NUMERIC:
    case SQL_DECIMAL:
    case SQL_FLOAT:
    case SQL_REAL:
    case SQL_DOUBLE:
      return FieldKind::kDouble;
    case SQL_BIT:
      return FieldKind::kBoolean;
    case SQL_TYPE_DATE:
    case SQL_TYPE_TIMESTAMP:
    case SQL_DATE:
    case SQL_TIMESTAMP:
      return FieldKind::kDate;
    case SQL_TYPE_TIME:
    case SQL_TIME:
      return FieldKind::kTime;
    case SQL_BINARY:
    case SQL_VARBINARY:
    case SQL_LONGVARBINARY:
      return FieldKind::kBytes;
    default:
      return FieldKind::kText;
  }
}

// Reads one field of the current row; NULL gives Null.
host::Variant ReadField(SQLHSTMT statement, SQLUSMALLINT column, FieldKind kind,
                        std::string_view sql) {
  SQLLEN indicator = 0;
  // SQL_NO_DATA passes: it ends a value read in pieces.
  auto get = [&](SQLSMALLINT c_type, void* target, SQLLEN size) {
    SQLRETURN rc = SQLGetData(statement, column, c_type, target, size, &indicator);
    if (rc != SQL_NO_DATA && !Succeeded(rc)) FailStatement(statement, sql);
    return rc;
  };
  // A value read in pieces, each appended with its length (the terminating
  // byte of text left out); false for NULL.
  auto pieces = [&](SQLSMALLINT c_type, size_t terminator, auto append) {
    char buffer[4096];
    for (;;) {
      SQLRETURN rc = get(c_type, buffer, sizeof buffer);
      if (rc == SQL_NO_DATA) return true;
      if (indicator == SQL_NULL_DATA) return false;
      bool more =
          indicator == SQL_NO_TOTAL || indicator > static_cast<SQLLEN>(sizeof buffer - terminator);
      append(buffer, more ? sizeof buffer - terminator : static_cast<size_t>(indicator));
      if (!more) return true;
    }
  };
  switch (kind) {
    case FieldKind::kInt16: {
      SQLSMALLINT value = 0;
      get(SQL_C_SSHORT, &value, 0);
      if (indicator == SQL_NULL_DATA) return host::Variant::Null();
      return host::Variant(static_cast<int16_t>(value));
    }
    case FieldKind::kInt32: {
      SQLINTEGER value = 0;
      get(SQL_C_SLONG, &value, 0);
      if (indicator == SQL_NULL_DATA) return host::Variant::Null();
      return host::Variant(static_cast<int32_t>(value));
    }
    case FieldKind::kInteger: {
      SQLBIGINT value = 0;
      get(SQL_C_SBIGINT, &value, 0);
      if (indicator == SQL_NULL_DATA) return host::Variant::Null();
      if (value >= INT32_MIN && value <= INT32_MAX) {
        return host::Variant(static_cast<int32_t>(value));
      }
      return host::Variant(static_cast<double>(value));
    }
    case FieldKind::kDouble: {
      double value = 0;
      get(SQL_C_DOUBLE, &value, 0);
      if (indicator == SQL_NULL_DATA) return host::Variant::Null();
      return host::Variant(value);
    }
    case FieldKind::kBoolean: {
      unsigned char value = 0;
      get(SQL_C_BIT, &value, 0);
      if (indicator == SQL_NULL_DATA) return host::Variant::Null();
      return host::Variant(value != 0);
    }
    case FieldKind::kDate: {
      SQL_TIMESTAMP_STRUCT value{};
      get(SQL_C_TYPE_TIMESTAMP, &value, sizeof value);
      if (indicator == SQL_NULL_DATA) return host::Variant::Null();
      return host::Variant(host::MakeDate(value.year, value.month, value.day, value.hour,
                                          value.minute, value.second));
    }
    case FieldKind::kTime: {
      SQL_TIME_STRUCT value{};
      get(SQL_C_TYPE_TIME, &value, sizeof value);
      if (indicator == SQL_NULL_DATA) return host::Variant::Null();
      return host::Variant(host::MakeDate(1899, 12, 30, value.hour, value.minute, value.second));
    }
    case FieldKind::kBytes: {
      host::Variant::Bytes bytes;
      bool present = pieces(SQL_C_BINARY, 0, [&](const char* data, size_t size) {
        bytes.insert(bytes.end(), data, data + size);
      });
      return present ? host::Variant(std::move(bytes)) : host::Variant::Null();
    }
    case FieldKind::kText:
      break;
  }
  std::string text;
  bool present =
      pieces(SQL_C_CHAR, 1, [&](const char* data, size_t size) { text.append(data, size); });
  return present ? host::Variant(std::move(text)) : host::Variant::Null();
}

// The columns of a statement's result: their names and kinds.
struct ResultColumns {
  std::shared_ptr<const host::RecordsetColumns> names;
  std::vector<FieldKind> kinds;
};

std::string LowerAscii(std::string text) {
  for (char& c : text) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return text;
}

// A text attribute of a result column; empty when the driver has none.
std::string ColumnText(SQLHSTMT statement, SQLUSMALLINT column, SQLUSMALLINT attribute) {
  SQLCHAR text[256];
  SQLSMALLINT length = 0;
  if (!Succeeded(
          SQLColAttribute(statement, column, attribute, text, sizeof text, &length, nullptr))) {
    return {};
  }
  return reinterpret_cast<char*>(text);
}

// Describes the result of an executed statement (no columns: no result). A
// small integer of a column in `truth_columns` ("table.column") reads as a
// truth value.
ResultColumns DescribeResult(SQLHSTMT statement, std::string_view sql,
                             const std::unordered_set<std::string>& truth_columns, bool postgres) {
  ResultColumns result;
  SQLSMALLINT column_count = 0;
  SQLNumResultCols(statement, &column_count);
  std::vector<std::string> names;
  for (SQLUSMALLINT i = 1; i <= static_cast<SQLUSMALLINT>(column_count); ++i) {
    SQLCHAR name[256];
    SQLSMALLINT name_length = 0;
    SQLSMALLINT type = 0;
    SQLULEN size = 0;
    SQLSMALLINT digits = 0;
    SQLSMALLINT nullable = 0;
    if (!Succeeded(SQLDescribeCol(statement, i, name, sizeof name, &name_length, &type, &size,
                                  &digits, &nullable))) {
      FailStatement(statement, sql);
    }
    names.emplace_back(reinterpret_cast<char*>(name));
    FieldKind kind = KindOf(type);
    if (postgres && type == SQL_BIGINT) kind = FieldKind::kInteger;
    if (kind == FieldKind::kInt16 && !truth_columns.empty()) {
      std::string column = LowerAscii(ColumnText(statement, i, SQL_DESC_BASE_TABLE_NAME) + "." +
                                      ColumnText(statement, i, SQL_DESC_BASE_COLUMN_NAME));
      if (truth_columns.count(column) > 0) kind = FieldKind::kBoolean;
    }
    result.kinds.push_back(kind);
  }
  if (column_count > 0) {
    result.names = std::make_shared<const host::RecordsetColumns>(std::move(names));
  }
  return result;
}

// Fetches every row of an executed statement into a client-side recordset.
host::RecordsetPtr FetchAll(SQLHSTMT statement, const ResultColumns& columns,
                            std::string_view sql) {
  if (!columns.names) return std::make_shared<host::Recordset>();
  std::vector<host::Recordset::Row> rows;
  SQLRETURN rc;
  while ((rc = SQLFetch(statement)) != SQL_NO_DATA) {
    if (!Succeeded(rc)) FailStatement(statement, sql);
    host::Recordset::Row row;
    row.reserve(columns.kinds.size());
    for (SQLUSMALLINT i = 0; i < columns.kinds.size(); ++i) {
      row.push_back(ReadField(statement, static_cast<SQLUSMALLINT>(i + 1), columns.kinds[i], sql));
    }
    rows.push_back(std::move(row));
  }
  return std::make_shared<host::Recordset>(columns.names, std::move(rows));
}

bool ContainsNoCase(std::string_view text, std::string_view part) {
  return LowerAscii(std::string(text)).find(LowerAscii(std::string(part))) != std::string::npos;
}

// The connection string without its password, to name the database by.
std::string WithoutPassword(const std::string& connection_string) {
  std::string shown;
  size_t at = 0;
  while (at < connection_string.size()) {
    size_t end = connection_string.find(';', at);
    if (end == std::string::npos) end = connection_string.size();
    std::string part = connection_string.substr(at, end - at);
    std::string key = LowerAscii(part.substr(0, part.find('=')));
    if (key == "pwd" || key == "password") part = part.substr(0, part.find('=') + 1) + "***";
    if (!part.empty()) shown += part + ";";
    at = end + 1;
  }
  return shown;
}

}  // namespace

// A statement prepared once and run again with new values; its result's
// columns are described at its first run.
class OdbcDatabase::PreparedStatement {
 public:
  explicit PreparedStatement(SQLHDBC dbc) : statement_(dbc) {}
  Statement statement_;
  std::optional<ResultColumns> columns;
};

class OdbcDatabase::Handles {
 public:
  SQLHENV env = SQL_NULL_HENV;
  SQLHDBC dbc = SQL_NULL_HDBC;
  bool connected = false;

  ~Handles() { Close(); }
  void Close() {
    if (connected) SQLDisconnect(dbc);
    connected = false;
    if (dbc != SQL_NULL_HDBC) SQLFreeHandle(SQL_HANDLE_DBC, dbc);
    if (env != SQL_NULL_HENV) SQLFreeHandle(SQL_HANDLE_ENV, env);
    dbc = SQL_NULL_HDBC;
    env = SQL_NULL_HENV;
  }
};

class OdbcDatabase::OdbcSchema : public host::SchemaService {
 public:
  explicit OdbcSchema(OdbcDatabase& db) : db_(db) {}
  bool TableExists(std::string_view table) override {
    SQLHDBC dbc = db_.Connection();
    Statement statement(dbc);
    // PostgreSQL keeps the host's unquoted names in lower case.
    std::string name =
        db_.dialect_ == Dialect::kPostgres ? LowerAscii(std::string(table)) : std::string(table);
    SQLCHAR kind[] = "TABLE";
    if (!Succeeded(SQLTables(statement.get(), nullptr, 0, nullptr, 0,
                             reinterpret_cast<SQLCHAR*>(name.data()), SQL_NTS, kind, SQL_NTS))) {
      statement.Fail("SQLTables " + name);
    }
    return SQLFetch(statement.get()) == SQL_SUCCESS;
  }
  // On PostgreSQL, made as the host makes it on SQLite, translated.
  void AppendTable(const host::TableDefinition& table) override {
    if (db_.dialect_ != Dialect::kPostgres) {
      host::RaiseWith(host::err::kInvalidProcedureCall,
                      "tables are made only on PostgreSQL among the servers", kSource);
    }
    db_.ExecuteScript(SqliteSchema::CreateStatements(table));
  }
  void Refresh() override {}

 private:
  OdbcDatabase& db_;
};

std::unique_ptr<OdbcDatabase> OdbcDatabase::Connect(const std::string& connection_string) {
  auto handles = std::make_unique<Handles>();
  auto fail = [&](SQLSMALLINT type, SQLHANDLE handle) {
    std::string why = Diagnostics(type, handle);
    host::RaiseWith(kCannotConnect, "Cannot connect through ODBC: " + why, kSource);
  };
  if (!Succeeded(SQLAllocHandle(SQL_HANDLE_ENV, SQL_NULL_HANDLE, &handles->env))) {
    host::RaiseWith(kCannotConnect, "Cannot start ODBC", kSource);
  }
  SQLSetEnvAttr(handles->env, SQL_ATTR_ODBC_VERSION, reinterpret_cast<SQLPOINTER>(SQL_OV_ODBC3), 0);
  if (!Succeeded(SQLAllocHandle(SQL_HANDLE_DBC, handles->env, &handles->dbc))) {
    fail(SQL_HANDLE_ENV, handles->env);
  }
  std::string text = connection_string;
  if (ContainsNoCase(text, "postgres") && !ContainsNoCase(text, "protocol=")) {
    if (!text.empty() && text.back() != ';') text += ';';
    text += "Protocol=7.4-2;";
  }
  SQLCHAR completed[1024];
  SQLSMALLINT completed_length = 0;
  if (!Succeeded(SQLDriverConnect(handles->dbc, nullptr, reinterpret_cast<SQLCHAR*>(text.data()),
                                  SQL_NTS, completed, sizeof completed, &completed_length,
                                  SQL_DRIVER_NOPROMPT))) {
    fail(SQL_HANDLE_DBC, handles->dbc);
  }
  handles->connected = true;
  SQLCHAR server[64] = {0};
  SQLSMALLINT server_length = 0;
  SQLGetInfo(handles->dbc, SQL_DBMS_NAME, server, sizeof server, &server_length);
  auto database = std::unique_ptr<OdbcDatabase>(
      new OdbcDatabase(std::move(handles), WithoutPassword(connection_string)));
  if (ContainsNoCase(reinterpret_cast<char*>(server), "postgres")) {
    database->dialect_ = Dialect::kPostgres;
    database->format_.UseStoredDates();
  }
  return database;
}

OdbcDatabase::OdbcDatabase(std::unique_ptr<Handles> handles, std::string name)
    : handles_(std::move(handles)),
      schema_(std::make_unique<OdbcSchema>(*this)),
      name_(std::move(name)) {}

OdbcDatabase::~OdbcDatabase() {
  prepared_.clear();  // the statements go before their connection
  if (handles_ && handles_->connected && transaction_depth_ > 0) {
    SQLEndTran(SQL_HANDLE_DBC, handles_->dbc, SQL_ROLLBACK);
  }
}

void* OdbcDatabase::Connection() const {
  if (!handles_ || !handles_->connected) {
    host::Raise(host::err::kOperationNotAllowedWhenClosed, kSource);
  }
  return handles_->dbc;
}

host::RecordsetPtr OdbcDatabase::OpenRecordset(std::string_view sql, int, bool) {
  if (dialect_ != Dialect::kPostgres) return ExecuteDirect(sql, sql);
  ParameterizedSql statement = Parameterize(TranslateToPostgres(sql, StoredDateText(host::Now())));
  // Statements other than data statements (DDL) are run once, as they stand.
  if (statement.values.empty() && !IsDataStatement(statement.text)) {
    return ExecuteDirect(statement.text, sql);
  }
  std::vector<std::string> values;
  values.reserve(statement.values.size());
  for (const ParameterizedSql::Value& value : statement.values) {
    if (const auto* text = std::get_if<std::string>(&value)) {
      values.push_back(*text);
    } else if (const auto* whole = std::get_if<int64_t>(&value)) {
      values.push_back(std::to_string(*whole));
    } else {
      char text[40];
      std::snprintf(text, sizeof text, "%.17g", std::get<double>(value));
      values.emplace_back(text);
    }
  }
  return ExecutePrepared(statement.text, values, sql);
}

host::RecordsetPtr OdbcDatabase::ExecuteDirect(std::string_view sql, std::string_view shown) {
  Statement statement(Connection());
  std::string text(sql);
  SQLRETURN rc = SQLExecDirect(statement.get(), reinterpret_cast<SQLCHAR*>(text.data()), SQL_NTS);
  if (rc != SQL_NO_DATA && !Succeeded(rc)) statement.Fail(shown);
  return FetchAll(
      statement.get(),
      DescribeResult(statement.get(), shown, truth_columns_, dialect_ == Dialect::kPostgres),
      shown);
}

host::RecordsetPtr OdbcDatabase::ExecutePrepared(const std::string& text,
                                                 const std::vector<std::string>& values,
                                                 std::string_view shown) {
  SQLHDBC dbc = Connection();
  auto found = prepared_.find(text);
  if (found == prepared_.end()) {
    auto prepared = std::make_unique<PreparedStatement>(dbc);
    std::string copy = text;
    if (!Succeeded(SQLPrepare(prepared->statement_.get(), reinterpret_cast<SQLCHAR*>(copy.data()),
                              SQL_NTS))) {
      prepared->statement_.Fail(shown);
    }
    found = prepared_.emplace(text, std::move(prepared)).first;
  }
  PreparedStatement& prepared = *found->second;
  SQLHSTMT statement = prepared.statement_.get();
  SQLFreeStmt(statement, SQL_CLOSE);
  SQLFreeStmt(statement, SQL_RESET_PARAMS);
  std::vector<SQLLEN> lengths(values.size());
  for (size_t i = 0; i < values.size(); ++i) {
    lengths[i] = static_cast<SQLLEN>(values[i].size());
    SQLULEN size = values[i].empty() ? 1 : values[i].size();
    if (!Succeeded(SQLBindParameter(
            statement, static_cast<SQLUSMALLINT>(i + 1), SQL_PARAM_INPUT, SQL_C_CHAR, SQL_VARCHAR,
            size, 0, const_cast<char*>(values[i].data()), lengths[i], &lengths[i]))) {
      FailStatement(statement, shown);
    }
  }
  SQLRETURN rc = SQLExecute(statement);
  if (rc != SQL_NO_DATA && !Succeeded(rc)) FailStatement(statement, shown);
  if (!prepared.columns)
    prepared.columns =
        DescribeResult(statement, shown, truth_columns_, dialect_ == Dialect::kPostgres);
  host::RecordsetPtr result = FetchAll(statement, *prepared.columns, shown);
  SQLFreeStmt(statement, SQL_CLOSE);
  return result;
}

void OdbcDatabase::Compact() {
  if (dialect_ != Dialect::kPostgres) {
    host::DatabaseService::Compact();
    return;
  }
  if (transaction_depth_ > 0) {
    host::RaiseWith(host::err::kInvalidProcedureCall,
                    "the database cannot be compacted inside a transaction", kSource);
  }
  ExecuteDirect("VACUUM", "VACUUM");
}

bool OdbcDatabase::TryLockForRun() {
  if (dialect_ != Dialect::kPostgres) return true;
  // One number for every lumaro run on the database: 'LUMARO' in letters.
  host::RecordsetPtr rs =
      ExecuteDirect("SELECT CASE WHEN pg_try_advisory_lock(7685776582) THEN 1 ELSE 0 END AS Held",
                    "the run lock");
  return host::FieldConverter::ToNumber(rs->Fields(0)) == 1;
}

void OdbcDatabase::SetTruthColumns(const std::vector<host::TableDefinition>& tables) {
  for (const host::TableDefinition& table : tables) {
    for (const host::TableDefinition::Column& column : table.columns) {
      if (column.type == host::TableDefinition::ColumnType::kBoolean) {
        truth_columns_.insert(LowerAscii(table.name + "." + column.name));
      }
    }
  }
}

void OdbcDatabase::ExecuteScript(std::string_view script) {
  for (const std::string& statement : SplitScript(script)) {
    if (dialect_ == Dialect::kPostgres) {
      ExecuteDirect(HostStatementForPostgres(statement, StoredDateText(host::Now())), statement);
    } else {
      ExecuteDirect(statement, statement);
    }
  }
}

int OdbcDatabase::SchemaVersion() {
  if (!schema_->TableExists("LumaroSchemaVersion")) return 0;
  host::RecordsetPtr rs = OpenRecordset("SELECT MAX(Version) AS Version FROM LumaroSchemaVersion");
  return rs->Eof() ? 0 : static_cast<int>(host::FieldConverter::ToNumber(rs->Fields(0)));
}

void OdbcDatabase::SetSchemaVersion(int version) {
  if (SchemaVersion() == 0)
    ExecuteScript("CREATE TABLE LumaroSchemaVersion (Version INTEGER NOT NULL)");
  OpenRecordset("DELETE FROM LumaroSchemaVersion");
  OpenRecordset("INSERT INTO LumaroSchemaVersion (Version) VALUES (" + std::to_string(version) +
                ")");
}

int OdbcDatabase::TableCount() {
  Statement statement(Connection());
  SQLCHAR kind[] = "TABLE";
  if (!Succeeded(SQLTables(statement.get(), nullptr, 0, nullptr, 0, nullptr, 0, kind, SQL_NTS))) {
    statement.Fail("SQLTables");
  }
  int count = 0;
  while (SQLFetch(statement.get()) == SQL_SUCCESS) ++count;
  return count;
}

std::string OdbcDatabase::HomeFolder() const { return std::filesystem::current_path().string(); }

host::SchemaService& OdbcDatabase::Schema() { return *schema_; }

void OdbcDatabase::BeginTrans() {
  if (transaction_depth_ == 0 &&
      !Succeeded(SQLSetConnectAttr(Connection(), SQL_ATTR_AUTOCOMMIT,
                                   reinterpret_cast<SQLPOINTER>(SQL_AUTOCOMMIT_OFF), 0))) {
    host::RaiseWith(host::err::kSqlRefused, Diagnostics(SQL_HANDLE_DBC, Connection()), kSource);
  }
  ++transaction_depth_;
}

void OdbcDatabase::CommitTrans() { EndTransaction(true); }
void OdbcDatabase::RollbackTrans() { EndTransaction(false); }

// Only the outermost transaction ends on the server; one inside it counts.
void OdbcDatabase::EndTransaction(bool commit) {
  if (transaction_depth_ == 0) {
    host::RaiseWith(host::err::kInvalidProcedureCall, "no transaction is open", kSource);
  }
  if (--transaction_depth_ > 0) return;
  SQLHDBC dbc = Connection();
  SQLRETURN rc = SQLEndTran(SQL_HANDLE_DBC, dbc, commit ? SQL_COMMIT : SQL_ROLLBACK);
  SQLSetConnectAttr(dbc, SQL_ATTR_AUTOCOMMIT, reinterpret_cast<SQLPOINTER>(SQL_AUTOCOMMIT_ON), 0);
  if (!Succeeded(rc)) {
    host::RaiseWith(host::err::kSqlRefused, Diagnostics(SQL_HANDLE_DBC, dbc), kSource);
  }
}

void OdbcDatabase::Disconnect() {
  SQLHDBC dbc = Connection();  // a second disconnect raises 3704, as a closed one does
  prepared_.clear();
  // What was not committed is undone before the connection goes.
  if (transaction_depth_ > 0) SQLEndTran(SQL_HANDLE_DBC, dbc, SQL_ROLLBACK);
  transaction_depth_ = 0;
  handles_->Close();
}

std::string OdbcSqlFormat::DateLiteral(host::Date value) const {
  if (stored_dates_) return SqliteSqlFormat::DateLiteral(value);
  host::DateParts p = host::SplitDate(value);
  char text[32];
  std::snprintf(text, sizeof text, "'%04d%02d%02d %02d:%02d:%02d'", p.year, p.month, p.day, p.hour,
                p.minute, p.second);
  return text;
}

std::string OdbcSqlFormat::TimeLiteral(host::Date value) const {
  if (stored_dates_) return SqliteSqlFormat::TimeLiteral(value);
  host::DateParts p = host::SplitDate(host::TimePart(value));
  char text[16];
  std::snprintf(text, sizeof text, "'%02d:%02d:%02d'", p.hour, p.minute, p.second);
  return text;
}

}  // namespace standalone
