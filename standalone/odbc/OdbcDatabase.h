#ifndef LUMARO_STANDALONE_ODBC_ODBC_DATABASE_H_
#define LUMARO_STANDALONE_ODBC_ODBC_DATABASE_H_

#include <memory>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "connector/host/DatabaseService.h"
#include "standalone/PosEngine.h"
#include "standalone/StatementTexts.h"
#include "standalone/sqlite/SqliteSqlFormat.h"

namespace standalone {

// The literals of SQL Server: a date as 'YYYYMMDD HH:MM:SS', which the
// server reads alike whatever its login's language (the dashed form it
// reads by the language's order of day and month); text, numbers and truth
// values as SQLite's.
// PostgreSQL's dates are written in the host's stored form, which it reads
// alike whatever its settings.
class OdbcSqlFormat : public SqliteSqlFormat {
 public:
  std::string DateLiteral(host::Date value) const override;
  std::string TimeLiteral(host::Date value) const override;
  void UseStoredDates() { stored_dates_ = true; }

 private:
  bool stored_dates_ = false;
};

// A DatabaseService over an ODBC connection (unixODBC): the back office's
// SQL Server through FreeTDS, a POS database on a server, or any database an
// ODBC driver reaches. On SQL Server (and any server but PostgreSQL)
// statements pass as written, in the server's own dialect. On PostgreSQL
// they are translated (TranslateToPostgres), their literal values taken out
// and bound as text, which PostgreSQL reads as the type its column wants,
// and each text prepared once and kept; a failed statement inside a
// transaction undoes only itself, as on SQL Server. Results are read
// whole into client-side recordsets whose fields take their kind from the
// column's SQL type: integer types as 16- or 32-bit integers (wider ones as
// doubles), BIT as a truth value, decimal and floating types as doubles,
// DATE/TIME/TIMESTAMP as dates (a time alone on 1899-12-30), binary
// columns as bytes, everything else as text (UTF-8). Literals are written
// as SQL Server reads them.
class OdbcDatabase : public PosEngine {
 public:
  enum class Dialect { kSqlServer, kPostgres };

  // Connects with an ODBC connection string. Raises a host::Error with the
  // driver's diagnostics when it cannot. The server's kind is asked of the
  // driver. A PostgreSQL driver named in the string is asked to undo only
  // the failed statement of a transaction (Protocol=7.4-2), unless the
  // string says otherwise.
  static std::unique_ptr<OdbcDatabase> Connect(const std::string& connection_string);
  ~OdbcDatabase() override;
  OdbcDatabase(const OdbcDatabase&) = delete;
  OdbcDatabase& operator=(const OdbcDatabase&) = delete;

  host::RecordsetPtr OpenRecordset(std::string_view sql, int options = 0,
                                   bool read_only = false) override;
  const host::SqlFormat& SqlFormat() const override { return format_; }
  const host::StatementRunner& StatementRunner() const override { return texts_; }
  host::SchemaService& Schema() override;
  void BeginTrans() override;
  void CommitTrans() override;
  void RollbackTrans() override;
  // PostgreSQL's VACUUM; refused inside a transaction and on other servers.
  void Compact() override;
  void Disconnect() override;
  // 1 for SQL Server, 2 for PostgreSQL: not the host's own engine (0).
  int DatabaseKind() const override { return dialect_ == Dialect::kPostgres ? 2 : 1; }
  Dialect ServerDialect() const { return dialect_; }

  // PosEngine: the host's scripts, made PostgreSQL's (HostStatementForPostgres)
  // on PostgreSQL and run as written elsewhere. The schema version is kept
  // in a table of its own, LumaroSchemaVersion.
  void ExecuteScript(std::string_view script) override;
  int SchemaVersion() override;
  void SetSchemaVersion(int version) override;
  int TableCount() override;
  std::string Name() const override { return name_; }
  std::string HomeFolder() const override;
  bool InTransaction() const override { return transaction_depth_ > 0; }

  // Takes the lock that keeps two lumaro runs on this database from
  // interleaving, for as long as the connection lasts: true when taken,
  // false when another connection holds it. PostgreSQL keeps it as an
  // advisory lock; on other servers nothing is locked (true).
  bool TryLockForRun();

  // The columns whose fields read as truth values although the server keeps
  // them as small integers: the BIT columns of these tables.
  void SetTruthColumns(const std::vector<host::TableDefinition>& tables);

 private:
  class Handles;
  class OdbcSchema;
  class PreparedStatement;
  OdbcDatabase(std::unique_ptr<Handles> handles, std::string name);
  void EndTransaction(bool commit);
  // The connection handle; raises 3704 once disconnected.
  void* Connection() const;
  // Runs a text as it stands.
  host::RecordsetPtr ExecuteDirect(std::string_view sql, std::string_view shown);
  // Runs a text with ? markers and their values as text, prepared once.
  host::RecordsetPtr ExecutePrepared(const std::string& text,
                                     const std::vector<std::string>& values,
                                     std::string_view shown);

  std::unique_ptr<Handles> handles_;
  std::unique_ptr<OdbcSchema> schema_;
  std::string name_;
  Dialect dialect_ = Dialect::kSqlServer;
  OdbcSqlFormat format_;
  StatementTexts texts_{format_};
  int transaction_depth_ = 0;
  // "table.column", in lower case.
  std::unordered_set<std::string> truth_columns_;
  std::unordered_map<std::string, std::unique_ptr<PreparedStatement>> prepared_;
};

}  // namespace standalone

#endif  // LUMARO_STANDALONE_ODBC_ODBC_DATABASE_H_
