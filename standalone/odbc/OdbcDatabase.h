#ifndef LUMARO_STANDALONE_ODBC_ODBC_DATABASE_H_
#define LUMARO_STANDALONE_ODBC_ODBC_DATABASE_H_

#include <memory>
#include <string>

#include "connector/host/DatabaseService.h"
#include "standalone/StatementTexts.h"
#include "standalone/sqlite/SqliteSqlFormat.h"

namespace standalone {

// The literals of SQL Server: a date as 'YYYYMMDD HH:MM:SS', which the
// server reads alike whatever its login's language (the dashed form it
// reads by the language's order of day and month); text, numbers and truth
// values as SQLite's.
class OdbcSqlFormat : public SqliteSqlFormat {
 public:
  std::string DateLiteral(host::Date value) const override;
  std::string TimeLiteral(host::Date value) const override;
};

// A DatabaseService over an ODBC connection (unixODBC): the back office's
// SQL Server through FreeTDS, or any database an ODBC driver reaches.
// Statements pass as written, in the server's own dialect. Results are read
// whole into client-side recordsets whose fields take their kind from the
// column's SQL type: integer types as 16- or 32-bit integers (wider ones as
// doubles), BIT as a truth value, decimal and floating types as doubles,
// DATE/TIME/TIMESTAMP as dates (a time alone on 1899-12-30), binary
// columns as bytes, everything else as text (UTF-8). Literals are written
// as SQL Server reads them.
class OdbcDatabase : public host::DatabaseService {
 public:
  // Connects with an ODBC connection string. Raises a host::Error with the
  // driver's diagnostics when it cannot.
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
  void Disconnect() override;
  // SQL Server's kind.
  int DatabaseKind() const override { return 1; }

 private:
  class Handles;
  class OdbcSchema;
  explicit OdbcDatabase(std::unique_ptr<Handles> handles);
  void EndTransaction(bool commit);
  // The connection handle; raises 3704 once disconnected.
  void* Connection() const;

  std::unique_ptr<Handles> handles_;
  std::unique_ptr<OdbcSchema> schema_;
  OdbcSqlFormat format_;
  StatementTexts texts_{format_};
  int transaction_depth_ = 0;
};

}  // namespace standalone

#endif  // LUMARO_STANDALONE_ODBC_ODBC_DATABASE_H_
