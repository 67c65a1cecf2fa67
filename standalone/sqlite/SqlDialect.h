#ifndef LUMARO_STANDALONE_SQLITE_SQL_DIALECT_H_
#define LUMARO_STANDALONE_SQLITE_SQL_DIALECT_H_

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

#endif  // LUMARO_STANDALONE_SQLITE_SQL_DIALECT_H_
