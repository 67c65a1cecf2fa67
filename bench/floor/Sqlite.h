#ifndef LUMARO_BENCH_FLOOR_SQLITE_H_
#define LUMARO_BENCH_FLOOR_SQLITE_H_

// A thin layer over SQLite's C API for the benchmark's programs: a
// connection, and a statement prepared once and run many times. Every
// failure throws std::runtime_error with SQLite's message and the SQL.

#include <sqlite3.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace bench {

class Database {
 public:
  // Opens an existing database for reading and writing, without SQLite's
  // per-connection mutex (the programs have one thread), as the connector
  // opens the POS database.
  explicit Database(const std::string& path);
  ~Database();
  Database(const Database&) = delete;
  Database& operator=(const Database&) = delete;

  // Sets what the connector sets on every connection to the POS database:
  // the WAL journal and synchronous=NORMAL.
  void ShareWithTheTill();
  // Runs one or more statements that return nothing wanted.
  void Exec(const std::string& sql);
  sqlite3* Handle() const { return db_; }

 private:
  sqlite3* db_ = nullptr;
};

// One row read whole: each column as text, NULL as empty text.
struct Row {
  std::vector<std::string> text;
  const std::string& operator[](int column) const { return text[column]; }
};

class Statement {
 public:
  Statement(Database& db, const std::string& sql);
  ~Statement();
  Statement(const Statement&) = delete;
  Statement& operator=(const Statement&) = delete;

  // Parameters are numbered from 1. A text is copied by SQLite.
  Statement& Bind(int index, std::string_view text);
  Statement& Bind(int index, double number);
  Statement& Bind(int index, int64_t number);
  Statement& Bind(int index, int number) { return Bind(index, static_cast<int64_t>(number)); }
  Statement& BindNull(int index);

  // Steps once: true when a row is there to read.
  bool Step();
  // Runs a statement that returns no rows, and resets it for the next run.
  void Run();
  // Reads every row, then resets the statement: what the connector's
  // recordsets do before their rows are walked.
  std::vector<Row> All();
  // After the statement ran: back to its start, its parameters kept.
  void Reset();

  // The value of a column of the current row.
  std::string Text(int column) const;
  double Number(int column) const { return sqlite3_column_double(statement_, column); }
  int64_t Integer(int column) const { return sqlite3_column_int64(statement_, column); }
  // The position of a result column by its name; throws when there is none.
  int Column(std::string_view name) const;

 private:
  [[noreturn]] void Fail(const char* what) const;

  sqlite3* db_;
  sqlite3_stmt* statement_ = nullptr;
  std::string sql_;
};

}  // namespace bench

#endif  // LUMARO_BENCH_FLOOR_SQLITE_H_
