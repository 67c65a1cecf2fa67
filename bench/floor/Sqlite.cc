#include "bench/floor/Sqlite.h"

#include <stdexcept>

namespace bench {

Database::Database(const std::string& path) {
  // As the connector opens it: one thread, so without SQLite's mutex.
  int rc =
      sqlite3_open_v2(path.c_str(), &db_, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr);
  if (rc != SQLITE_OK) {
    std::string message = db_ != nullptr ? sqlite3_errmsg(db_) : sqlite3_errstr(rc);
    sqlite3_close(db_);
    throw std::runtime_error("cannot open " + path + ": " + message);
  }
  sqlite3_busy_timeout(db_, 5000);
}

Database::~Database() { sqlite3_close(db_); }

void Database::ShareWithTheTill() {
  Exec("PRAGMA journal_mode=WAL");
  Exec("PRAGMA synchronous=NORMAL");
}

void Database::Exec(const std::string& sql) {
  char* error = nullptr;
  if (sqlite3_exec(db_, sql.c_str(), nullptr, nullptr, &error) != SQLITE_OK) {
    std::string message = error != nullptr ? error : "unknown error";
    sqlite3_free(error);
    throw std::runtime_error(message + " (SQL: " + sql.substr(0, 200) + ")");
  }
}

Statement::Statement(Database& db, const std::string& sql) : db_(db.Handle()), sql_(sql) {
  if (sqlite3_prepare_v2(db_, sql.c_str(), static_cast<int>(sql.size()), &statement_, nullptr) !=
      SQLITE_OK) {
    Fail("prepare");
  }
}

Statement::~Statement() { sqlite3_finalize(statement_); }

void Statement::Fail(const char* what) const {
  throw std::runtime_error(std::string(what) + ": " + sqlite3_errmsg(db_) +
                           " (SQL: " + sql_.substr(0, 200) + ")");
}

Statement& Statement::Bind(int index, std::string_view text) {
  if (sqlite3_bind_text(statement_, index, text.data(), static_cast<int>(text.size()),
                        SQLITE_TRANSIENT) != SQLITE_OK) {
    Fail("bind");
  }
  return *this;
}

Statement& Statement::Bind(int index, double number) {
  if (sqlite3_bind_double(statement_, index, number) != SQLITE_OK) Fail("bind");
  return *this;
}

Statement& Statement::Bind(int index, int64_t number) {
  if (sqlite3_bind_int64(statement_, index, number) != SQLITE_OK) Fail("bind");
  return *this;
}

Statement& Statement::BindNull(int index) {
  if (sqlite3_bind_null(statement_, index) != SQLITE_OK) Fail("bind");
  return *this;
}

bool Statement::Step() {
  int rc = sqlite3_step(statement_);
  if (rc == SQLITE_ROW) return true;
  if (rc == SQLITE_DONE) return false;
  Fail("step");
}

void Statement::Run() {
  while (Step()) {
  }
  Reset();
}

std::vector<Row> Statement::All() {
  std::vector<Row> rows;
  const int columns = sqlite3_column_count(statement_);
  while (Step()) {
    Row& row = rows.emplace_back();
    row.text.reserve(columns);
    for (int c = 0; c < columns; ++c) row.text.push_back(Text(c));
  }
  Reset();
  return rows;
}

void Statement::Reset() { sqlite3_reset(statement_); }

std::string Statement::Text(int column) const {
  const unsigned char* text = sqlite3_column_text(statement_, column);
  if (text == nullptr) return {};
  return std::string(reinterpret_cast<const char*>(text),
                     static_cast<size_t>(sqlite3_column_bytes(statement_, column)));
}

int Statement::Column(std::string_view name) const {
  for (int c = 0, n = sqlite3_column_count(statement_); c < n; ++c) {
    if (name == sqlite3_column_name(statement_, c)) return c;
  }
  throw std::runtime_error("no column " + std::string(name) + " in " + sql_.substr(0, 200));
}

}  // namespace bench
