#ifndef LUMARO_STANDALONE_SCHEMA_POS_SCHEMA_H_
#define LUMARO_STANDALONE_SCHEMA_POS_SCHEMA_H_

#include <string>
#include <string_view>
#include <vector>

namespace standalone {

// The version of the POS schema below, which the database keeps
// (PosEngine::SchemaVersion). Raise it
// with every change, and add the upgrade steps from the previous version.
inline constexpr int kPosSchemaVersion = 3;

// The DDL of a POS database: every table and column that the connector and
// its host name, letter for letter (the host's misspellings included), with
// the keys and indexes its lookups need. Statements in creation order, each
// one SQLite statement without a trailing ";".
//
// Column types follow one rule, because the SQLite database service gives a
// field its kind from its declared type:
//   VARCHAR(n)/TEXT -> text, SMALLINT -> 16-bit integer, INTEGER -> 32-bit
//   integer, BIGINT/FLOAT/MONEY -> double, DATETIME -> date (stored as text
//   'YYYY-MM-DD HH:MM:SS'), BIT -> truth value (stored 1/0), IMAGE -> bytes.
std::vector<std::string_view> PosSchemaStatements();

// The statements that bring a database of schema version `from` to the next
// version (the DDL above already has every version's changes).
std::vector<std::string_view> PosSchemaUpgrade(int from);

// The factory data of a fresh POS: what a newly installed host holds before
// any load (one ConfSystem row, currency EUR, the IVA rows, price line 0,
// warehouse 1, tenders 1 and 10, the sale document "TVD", workstation 1,
// user 1, ...). Statements in order, run once after the DDL.
std::vector<std::string_view> FactoryDataStatements();

// The description of a POS table for a person, in Portuguese as the POS
// speaks; the table's name for a table without one.
std::string TableDescription(std::string_view table);

}  // namespace standalone

#endif  // LUMARO_STANDALONE_SCHEMA_POS_SCHEMA_H_
