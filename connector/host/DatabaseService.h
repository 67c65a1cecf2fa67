#ifndef LUMARO_CONNECTOR_HOST_DATABASE_SERVICE_H_
#define LUMARO_CONNECTOR_HOST_DATABASE_SERVICE_H_

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "connector/host/Date.h"
#include "connector/host/Recordset.h"
#include "connector/host/RowReader.h"
#include "connector/host/SqlStatement.h"

namespace host {

// The literals of one database.
class SqlFormat {
 public:
  virtual ~SqlFormat() = default;
  // Doubles what must be doubled inside a quoted literal; adds no quotes.
  virtual std::string QuoteText(std::string_view text) const = 0;
  // A complete date literal, quotes included.
  virtual std::string DateLiteral(Date value) const = 0;
  // A complete time literal, quotes included.
  virtual std::string TimeLiteral(Date value) const = 0;
  virtual std::string Number(double value) const = 0;
  virtual std::string Boolean(bool value) const = 0;
};

// A value as a literal of the database whose format is given: quoted text,
// a date literal, a number, a truth value, NULL.
std::string SqlLiteral(const SqlFormat& format, const SqlValue& value);

// Turns a SqlStatement into the SQL text of this database.
class StatementRunner {
 public:
  virtual ~StatementRunner() = default;
  virtual std::string InsertText(const SqlStatement& statement) const = 0;
  virtual std::string UpdateText(const SqlStatement& statement) const = 0;
  virtual std::string DeleteText(const SqlStatement& statement) const = 0;
  virtual std::string SelectText(const SqlStatement& statement) const = 0;
  virtual std::string CountText(const SqlStatement& statement) const = 0;
};

// A table as the schema service creates it.
struct TableDefinition {
  enum class ColumnType { kInteger, kBigInteger, kDouble, kText, kDate, kBoolean };
  struct Column {
    std::string name;
    ColumnType type;
    int length = 0;  // kText: the maximum number of characters; 0 for none
  };
  struct Index {
    std::string name;
    std::vector<std::string> columns;
  };
  std::string name;
  std::vector<Column> columns;
  std::vector<Index> indexes;
};

// The schema object model of a database.
class SchemaService {
 public:
  virtual ~SchemaService() = default;
  virtual bool TableExists(std::string_view table) = 0;
  // Appends the table with its columns and indexes to the schema.
  virtual void AppendTable(const TableDefinition& table) = 0;
  virtual void Refresh() = 0;
};

// The one handle on a database. Every failure is a raised host::Error; a
// statement the database refuses raises err::kSqlRefused with the
// database's own message.
class DatabaseService {
 public:
  virtual ~DatabaseService() = default;

  // Runs any SQL text, queries and changes alike, in the SQL Server /
  // Access dialect. A query gives an open client-side recordset; a change
  // gives a closed one. `options` (128 or 0) and `read_only` are the
  // caller's wishes and do not change the result here.
  virtual RecordsetPtr OpenRecordset(std::string_view sql, int options = 0,
                                     bool read_only = false) = 0;

  virtual const host::SqlFormat& SqlFormat() const = 0;

  // Runs a statement whose values stand apart from its text: each ? of
  // `sql` (outside quoted literals and [names]) stands for the next of
  // `values`, in order. The same recordset as OpenRecordset gives for the
  // text with the values written in as literals, which is what this default
  // does; a database that takes parameters binds them instead, and prepares
  // the text once for all the values it runs with.
  virtual RecordsetPtr Query(std::string_view sql, const std::vector<SqlValue>& values);
  // The same query, each row of it handed to `each` in turn, rather than
  // all of them in a recordset. This default reads the recordset of Query;
  // a database may read each row where it stands, while the statement runs:
  // `each` runs no statement of this database.
  virtual void QueryEach(std::string_view sql, const std::vector<SqlValue>& values,
                         const std::function<void(const RowReader&)>& each);
  virtual const host::StatementRunner& StatementRunner() const = 0;
  virtual SchemaService& Schema() = 0;

  // One transaction; a BeginTrans inside another nests.
  virtual void BeginTrans() = 0;
  virtual void CommitTrans() = 0;
  virtual void RollbackTrans() = 0;

  // Run a statement through StatementRunner's text and OpenRecordset.
  virtual void RunInsert(const SqlStatement& statement);
  virtual void RunUpdate(const SqlStatement& statement);
  virtual void RunDelete(const SqlStatement& statement);
  virtual RecordsetPtr RunSelect(const SqlStatement& statement);
  virtual RecordsetPtr RunCount(const SqlStatement& statement);

  // A number that moves whenever the rows of `table` may have changed since
  // it was last read: a change of them or a rollback through this
  // connection, or a new transaction (other connections may have written
  // before it). Lets a caller keep what it read for as long as the number
  // stays. None outside a transaction, or when the database cannot tell.
  virtual std::optional<int64_t> ChangeCounter(std::string_view /*table*/) const {
    return std::nullopt;
  }

  // The database maintenance's compaction: gives back the room of deleted
  // rows. Raises when the database cannot be compacted now (inside a
  // transaction, say) or at all.
  virtual void Compact();

  // Closes the connection; later calls raise 3704.
  virtual void Disconnect() = 0;
  // The kind of database: 0 for the host's own engine, another number else.
  virtual int DatabaseKind() const = 0;
};

}  // namespace host

#endif  // LUMARO_CONNECTOR_HOST_DATABASE_SERVICE_H_
