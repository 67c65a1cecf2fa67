#ifndef LUMARO_STANDALONE_SQL_SQL_DIALECT_H_
#define LUMARO_STANDALONE_SQL_SQL_DIALECT_H_

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace standalone {

// Turns the SQL Server / Access dialect that the connector writes into
// SQLite's, on tokens and never inside a quoted literal:
//   TOP n                         -> LIMIT n at the end of that SELECT
//   Len(                          -> length(
//   left(                         -> lumaro_left(   (a function of ours)
//   GetDate()                     -> lumaro_now()   (the host's clock)
//   dbo.                          -> (dropped)
//   DELETE T.* FROM T INNER JOIN … and DELETE FROM T FROM T INNER JOIN …
//                                 -> DELETE FROM T WHERE rowid IN
//                                    (SELECT T.rowid FROM T INNER JOIN …)
//   TRUNCATE TABLE T              -> DELETE FROM T
// [brackets], substring and Cast(… AS Float) SQLite takes as they are.
std::string TranslateToSqlite(std::string_view sql);

// Turns the connector's dialect into PostgreSQL's, as TranslateToSqlite
// does, except:
//   [Name] and "Name"             -> "name"  (the host's tables are made with
//                                    unquoted names, which PostgreSQL folds)
//   left(                         -> left(   (PostgreSQL has it)
//   GetDate()                     -> CAST('<now>' AS TIMESTAMP), `now` being
//                                    the host's clock in its stored form
//   rowid                         -> ctid, in the joined deletes too
//   TRUNCATE TABLE T              -> (kept)
std::string TranslateToPostgres(std::string_view sql, std::string_view now);

// The host's own DDL, written for SQLite, as PostgreSQL takes it: INTEGER
// becomes BIGINT (SQLite's integers hold 64 bits), BIGINT NUMERIC(19),
// DATETIME TIMESTAMP(0), BIT SMALLINT (truth values are kept as 1 and 0),
// FLOAT and MONEY DOUBLE PRECISION, BLOB and IMAGE BYTEA. Other statements of the
// host's scripts (its factory data, seeds) go through TranslateToPostgres,
// their bytes X'..' written as decode('..', 'hex').
std::string HostStatementForPostgres(std::string_view sqlite_sql, std::string_view now);

// Whether a statement reads or writes rows (SELECT, INSERT, UPDATE, DELETE,
// WITH) rather than, say, changing the schema.
bool IsDataStatement(std::string_view sql);

// The statements of a script, split at each ";" outside literals and
// comments; blank statements are left out.
std::vector<std::string> SplitScript(std::string_view script);

// A statement with its literal values taken out as parameters, so that the
// statements a run builds by concatenation, which differ only in their
// values, share one prepared statement.
struct ParameterizedSql {
  using Value = std::variant<int64_t, double, std::string>;
  std::string text;  // with ? in place of each value
  std::vector<Value> values;
};

// Takes out of a SQLite statement the text literals and the numbers that
// stand after a comparison or in a VALUES or IN list. Statements other than
// SELECT, INSERT, UPDATE, DELETE and WITH come back as they are, without
// values.
ParameterizedSql Parameterize(std::string_view sqlite_sql);

// TranslateToSqlite, then Parameterize, in one pass over the text when it
// needs no translation (as most statements).
ParameterizedSql PrepareForSqlite(std::string_view sql);

}  // namespace standalone

#endif  // LUMARO_STANDALONE_SQL_SQL_DIALECT_H_
