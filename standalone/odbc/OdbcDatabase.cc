#include "standalone/odbc/OdbcDatabase.h"

#include <sql.h>
#include <sqlext.h>

#include <cstdio>
#include <vector>

#include "connector/host/Error.h"

namespace standalone {
namespace {

constexpr char kSource[] = "ODBC";
constexpr int32_t kCannotConnect = -2147467259;

bool Succeeded(SQLRETURN rc) { return rc == SQL_SUCCESS || rc == SQL_SUCCESS_WITH_INFO; }

// The driver's diagnostics of a handle: "[state] message; ...".
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
    text += "[" + std::string(reinterpret_cast<char*>(state)) + "] " +
            std::string(reinterpret_cast<char*>(message));
  }
  return text.empty() ? "no diagnostics" : text;
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
  [[noreturn]] void Fail(std::string_view sql) const {
    host::RaiseWith(host::err::kSqlRefused,
                    Diagnostics(SQL_HANDLE_STMT, stmt_) + " (SQL: " + std::string(sql) + ")",
                    kSource);
  }

 private:
  SQLHSTMT stmt_ = SQL_NULL_HSTMT;
};

// The kind a column's SQL type reads as.
enum class FieldKind { kInt16, kInt32, kDouble, kBoolean, kDate, kTime, kBytes, kText };

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
host::Variant ReadField(const Statement& statement, SQLUSMALLINT column, FieldKind kind,
                        std::string_view sql) {
  SQLLEN indicator = 0;
  // SQL_NO_DATA passes: it ends a value read in pieces.
  auto get = [&](SQLSMALLINT c_type, void* target, SQLLEN size) {
    SQLRETURN rc = SQLGetData(statement.get(), column, c_type, target, size, &indicator);
    if (rc != SQL_NO_DATA && !Succeeded(rc)) statement.Fail(sql);
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

}  // namespace

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
    std::string name(table);
    SQLCHAR kind[] = "TABLE";
    if (!Succeeded(SQLTables(statement.get(), nullptr, 0, nullptr, 0,
                             reinterpret_cast<SQLCHAR*>(name.data()), SQL_NTS, kind, SQL_NTS))) {
      statement.Fail("SQLTables " + name);
    }
    return SQLFetch(statement.get()) == SQL_SUCCESS;
  }
  void AppendTable(const host::TableDefinition&) override {
    host::RaiseWith(host::err::kInvalidProcedureCall,
                    "tables are not made on a database reached through ODBC", kSource);
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
  SQLCHAR completed[1024];
  SQLSMALLINT completed_length = 0;
  if (!Succeeded(SQLDriverConnect(handles->dbc, nullptr, reinterpret_cast<SQLCHAR*>(text.data()),
                                  SQL_NTS, completed, sizeof completed, &completed_length,
                                  SQL_DRIVER_NOPROMPT))) {
    fail(SQL_HANDLE_DBC, handles->dbc);
  }
  handles->connected = true;
  return std::unique_ptr<OdbcDatabase>(new OdbcDatabase(std::move(handles)));
}

OdbcDatabase::OdbcDatabase(std::unique_ptr<Handles> handles)
    : handles_(std::move(handles)), schema_(std::make_unique<OdbcSchema>(*this)) {}

OdbcDatabase::~OdbcDatabase() {
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
  Statement statement(Connection());
  std::string text(sql);
  SQLRETURN rc = SQLExecDirect(statement.get(), reinterpret_cast<SQLCHAR*>(text.data()), SQL_NTS);
  if (rc != SQL_NO_DATA && !Succeeded(rc)) statement.Fail(sql);
  SQLSMALLINT column_count = 0;
  SQLNumResultCols(statement.get(), &column_count);
  if (column_count == 0) return std::make_shared<host::Recordset>();
  std::vector<std::string> names;
  std::vector<FieldKind> kinds;
  for (SQLUSMALLINT i = 1; i <= static_cast<SQLUSMALLINT>(column_count); ++i) {
    SQLCHAR name[256];
    SQLSMALLINT name_length = 0;
    SQLSMALLINT type = 0;
    SQLULEN size = 0;
    SQLSMALLINT digits = 0;
    SQLSMALLINT nullable = 0;
    if (!Succeeded(SQLDescribeCol(statement.get(), i, name, sizeof name, &name_length, &type, &size,
                                  &digits, &nullable))) {
      statement.Fail(sql);
    }
    names.emplace_back(reinterpret_cast<char*>(name));
    kinds.push_back(KindOf(type));
  }
  std::vector<host::Recordset::Row> rows;
  while ((rc = SQLFetch(statement.get())) != SQL_NO_DATA) {
    if (!Succeeded(rc)) statement.Fail(sql);
    host::Recordset::Row row;
    row.reserve(kinds.size());
    for (SQLUSMALLINT i = 0; i < kinds.size(); ++i) {
      row.push_back(ReadField(statement, static_cast<SQLUSMALLINT>(i + 1), kinds[i], sql));
    }
    rows.push_back(std::move(row));
  }
  return std::make_shared<host::Recordset>(std::move(names), std::move(rows));
}

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
  // What was not committed is undone before the connection goes.
  if (transaction_depth_ > 0) SQLEndTran(SQL_HANDLE_DBC, dbc, SQL_ROLLBACK);
  transaction_depth_ = 0;
  handles_->Close();
}

std::string OdbcSqlFormat::DateLiteral(host::Date value) const {
  host::DateParts p = host::SplitDate(value);
  char text[32];
  std::snprintf(text, sizeof text, "'%04d%02d%02d %02d:%02d:%02d'", p.year, p.month, p.day, p.hour,
                p.minute, p.second);
  return text;
}

std::string OdbcSqlFormat::TimeLiteral(host::Date value) const {
  host::DateParts p = host::SplitDate(host::TimePart(value));
  char text[16];
  std::snprintf(text, sizeof text, "'%02d:%02d:%02d'", p.hour, p.minute, p.second);
  return text;
}

}  // namespace standalone
