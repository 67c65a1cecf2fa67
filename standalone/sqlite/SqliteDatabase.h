#ifndef LUMARO_STANDALONE_SQLITE_SQLITE_DATABASE_H_
#define LUMARO_STANDALONE_SQLITE_SQLITE_DATABASE_H_

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>

#include "connector/host/DatabaseService.h"
#include "standalone/PosEngine.h"
#include "standalone/StatementTexts.h"
#include "standalone/TextHash.h"
#include "standalone/sqlite/RowChanges.h"
#include "standalone/sqlite/SqliteSqlFormat.h"

namespace standalone {
class SqliteSchema;
}  // namespace standalone

struct sqlite3;
struct sqlite3_stmt;

namespace standalone {

// A DatabaseService over one SQLite database file.
//
// Statements come in the SQL Server / Access dialect and are translated
// (SqlDialect.h). Their literal values are taken out as parameters, and the
// prepared statement is cached by the resulting text: the statements of a
// run, which differ only in their values, are prepared once and reused.
// Query results are read whole into a client-side Recordset whose fields
// take their kind from the column's declared type: DATETIME reads as a
// date, BIT as a truth value, SMALLINT as a 16-bit integer, INTEGER as a
// 32-bit integer, BIGINT/FLOAT/MONEY as a double, text as text. QueryEach
// hands each row to its reader as SQLite steps to it, with the same values.
class SqliteDatabase : public PosEngine {
 public:
  enum class OpenMode {
    kCreateIfMissing,  // a missing file becomes a new, empty database
    kExisting,         // a missing file is an error
    kReadOnly,         // as kExisting, and nothing can be written
  };

  // Counters of the statements run; for benchmarks and tests.
  struct Statistics {
    int64_t executed = 0;  // statements run
    int64_t prepared = 0;  // statements compiled by SQLite
  };

  // Opens the database. Raises a host::Error with a clear description when
  // the file cannot be opened or created, or is not a SQLite database.
  // `what` names the database in those descriptions.
  static std::unique_ptr<SqliteDatabase> Open(const std::string& path, OpenMode mode,
                                              std::string_view what = "POS database");
  ~SqliteDatabase() override;
  SqliteDatabase(const SqliteDatabase&) = delete;
  SqliteDatabase& operator=(const SqliteDatabase&) = delete;

  host::RecordsetPtr OpenRecordset(std::string_view sql, int options = 0,
                                   bool read_only = false) override;
  // Binds the values to the text's ? markers; the text is translated and
  // prepared once and kept for every later run of it.
  host::RecordsetPtr Query(std::string_view sql,
                           const std::vector<host::SqlValue>& values) override;
  // As Query, each row read where SQLite holds it.
  void QueryEach(std::string_view sql, const std::vector<host::SqlValue>& values,
                 const std::function<void(const host::RowReader&)>& each) override;
  // The statement's values are bound, never written into its text: its
  // text depends on its table and column names alone and is prepared once.
  void RunInsert(const host::SqlStatement& statement) override;
  void RunUpdate(const host::SqlStatement& statement) override;
  void RunDelete(const host::SqlStatement& statement) override;
  host::RecordsetPtr RunSelect(const host::SqlStatement& statement) override;
  host::RecordsetPtr RunCount(const host::SqlStatement& statement) override;
  const host::SqlFormat& SqlFormat() const override { return format_; }
  const host::StatementRunner& StatementRunner() const override { return texts_; }
  host::SchemaService& Schema() override;
  void BeginTrans() override;
  void CommitTrans() override;
  void RollbackTrans() override;
  // VACUUM; refused inside a transaction.
  void Compact() override;
  void Disconnect() override;
  int DatabaseKind() const override { return 0; }
  std::optional<int64_t> ChangeCounter(std::string_view table) const override;

  // Sets the journal of a database that the till uses at the same time (WAL,
  // synchronous=NORMAL). Changes the file: call it only on a database
  // accepted as the POS database.
  void ShareWithTheTill();

  // Runs SQLite statements as they stand (no translation), one after the
  // other: the host's own DDL.
  void ExecuteScript(std::string_view sqlite_sql) override;
  // Kept in PRAGMA user_version.
  int SchemaVersion() override;
  void SetSchemaVersion(int version) override;
  int TableCount() override;
  std::string Name() const override { return path_; }
  std::string HomeFolder() const override;

  const std::string& Path() const { return path_; }
  bool InTransaction() const override { return transaction_depth_ > 0; }
  const Statistics& Stats() const { return stats_; }
  // Called with the caller's text of every statement before it runs, and
  // with "BEGIN" and "COMMIT" before a transaction begins and commits. An
  // observer that raises fails the statement: how tests inject faults.
  void SetStatementObserver(std::function<void(std::string_view)> observer) {
    observer_ = std::move(observer);
  }

 private:
  SqliteDatabase(sqlite3* db, std::string path);

  void RequireOpen() const;
  [[noreturn]] void RaiseSqlError(int code, std::string_view sql) const;
  // The cached statement for a SQLite text, prepared at first use.
  sqlite3_stmt* Prepared(const std::string& sqlite_sql, bool& failed);
  // The columns of a statement's result: their names, and the kind each
  // value takes from its declared type (a DeclaredKind).
  struct ResultColumns {
    std::shared_ptr<const host::RecordsetColumns> names;
    std::vector<int> kinds;
    int prepared = 0;  // times SQLite had prepared the statement again
  };
  // Read once for a cached statement (`cached`), afresh for another.
  const ResultColumns& ColumnsOf(sqlite3_stmt* statement, bool cached);
  // Steps the statement to its end, calling `on_row(columns)` at each row,
  // and leaves it reset; raises with `sql` when SQLite refuses it, and
  // passes on what `on_row` raises, the statement stopped. The result's
  // columns (none for a statement that returns no rows).
  template <typename OnRow>
  const ResultColumns& StepAll(sqlite3_stmt* statement, std::string_view sql, bool cached,
                               OnRow&& on_row);
  // Steps the statement to its end; its rows as a client-side recordset.
  host::RecordsetPtr Run(sqlite3_stmt* statement, std::string_view sql, bool cached);
  // The prepared statement of a text with ? markers, the values they stand
  // for bound; `translate` when the text is in the connector's dialect
  // rather than SQLite's.
  sqlite3_stmt* Bound(std::string_view sql, const std::vector<const host::SqlValue*>& values,
                      bool translate);
  // Bound, then Run.
  host::RecordsetPtr RunBound(std::string_view sql,
                              const std::vector<const host::SqlValue*>& values, bool translate);
  host::RecordsetPtr RunShape(StatementTexts::Shape shape, const host::SqlStatement& statement);
  void Execute(std::string_view sqlite_sql);
  // Keeps ChangeCounter true after a statement (nullptr: a script of any
  // statements) has run or failed.
  // `own`: one of the transactions' own statements, which BeginTrans,
  // CommitTrans and RollbackTrans account for.
  void AfterStatement(sqlite3_stmt* statement, bool failed, bool own);
  // One statement, prepared once and kept: the transactions' own statements,
  // run for every save.
  void ExecuteOne(const std::string& sqlite_sql);
  void FinalizeAll();
  void SyncTransactionDepth();

  sqlite3* db_;
  std::string path_;
  SqliteSqlFormat format_;
  StatementTexts texts_{format_};
  std::unique_ptr<SqliteSchema> schema_;
  std::unordered_map<std::string, sqlite3_stmt*> cache_;
  // Statements with ? markers, by the caller's text.
  // Found by the text itself, without a copy of it.
  std::unordered_map<std::string, sqlite3_stmt*, TextHash, std::equal_to<>> bound_cache_;
  MarkerTexts marker_texts_;
  std::unordered_map<sqlite3_stmt*, ResultColumns> result_columns_;
  ResultColumns one_shot_columns_;
  int transaction_depth_ = 0;
  // Events after which any table may have changed: transactions begun,
  // rollbacks, failed statements, changes the update hook did not see,
  // statements other than INSERT, UPDATE and DELETE that write. With the
  // table's changed rows, what ChangeCounter gives.
  int64_t transaction_events_ = 0;
  RowChanges row_changes_;
  Statistics stats_;
  std::function<void(std::string_view)> observer_;
};

}  // namespace standalone

#endif  // LUMARO_STANDALONE_SQLITE_SQLITE_DATABASE_H_
