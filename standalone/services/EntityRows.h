#ifndef LUMARO_STANDALONE_SERVICES_ENTITY_ROWS_H_
#define LUMARO_STANDALONE_SERVICES_ENTITY_ROWS_H_

// What the entity services share: how a row is found by its key, how the
// first row of a table is chosen, and how an entity's rows are written.

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "connector/host/DatabaseService.h"
#include "standalone/TextHash.h"

namespace standalone {

// The id of the row whose `key_column` equals `key` exactly; the lowest id
// when several have it. 0 for an empty key or when there is none.
double IdFromKey(host::DatabaseService& db, std::string_view table, std::string_view id_column,
                 std::string_view key_column, std::string_view key);

// The lowest id of the table (of the rows that meet `where`, when given);
// 0 for an empty table. The host's "first" record.
double FirstId(host::DatabaseService& db, std::string_view table, std::string_view id_column,
               std::string_view where = "");

// MAX(id) + 1; 1 for an empty table.
double NextId(host::DatabaseService& db, std::string_view table, std::string_view id_column);

// Whether a row has `id_column` = `id`.
bool RowExists(host::DatabaseService& db, std::string_view table, std::string_view id_column,
               double id);

// A date column that holds NULL when the date is not set.
host::SqlValue DateOrNullValue(const std::optional<host::Date>& date);
void SetDate(host::SqlStatement& statement, std::string_view column,
             const std::optional<host::Date>& date);
std::optional<host::Date> DateOrNull(const host::Variant& value);

// Writes an entity's rows as the host's database would take them: a text
// longer than its column (VARCHAR(n), counted in characters) is refused with
// error -2147217833 before anything is written, as a server refuses to cut
// it. The lengths of a table's columns are read once, at its first write.
class EntityWriter {
 public:
  explicit EntityWriter(host::DatabaseService& db) : db_(db) {}

  // Runs the writes of one entity so that a refusal in any of them leaves
  // none written. The writes are gathered and run at the end: none, one
  // alone (a statement is all or nothing by itself), or several inside a
  // savepoint of the caller's transaction. So a read within `writes` does
  // not see them. A nested call is part of the outer one.
  void Atomically(const std::function<void()>& writes);

  // Each takes the statement (a caller done with it moves it in).
  void Insert(host::SqlStatement statement);
  void Update(host::SqlStatement statement);
  void Delete(host::SqlStatement statement);
  // Writes over the one row that the statement's keys name as deleting it
  // and inserting the keys and columns would: every other column takes its
  // default. False, with nothing written, when a default is no plain value
  // (an expression), and the caller must delete and insert.
  bool Rewrite(host::SqlStatement statement);

 private:
  struct TableInfo;

 public:
  // Refuses, as Insert and Update do, a text longer than its column of the
  // one table: for a caller that writes only part of an entity but must
  // refuse it whole. The writer outlives it.
  class TextCheck {
   public:
    void operator()(std::string_view column, const std::string& text) const {
      CheckTextIn(info_, table_, column, text);
    }

   private:
    friend class EntityWriter;
    TextCheck(const TableInfo& info, std::string_view table) : info_(info), table_(table) {}
    const TableInfo& info_;
    std::string_view table_;
  };
  // `table` outlives the check.
  TextCheck CheckTextsOf(std::string_view table) { return TextCheck(Info(table), table); }

 private:
  enum class Kind { kInsert, kUpdate, kDelete };
  struct Write {
    Kind kind;
    host::SqlStatement statement;
  };
  void Run(const Write& write);
  void Gather(Kind kind, host::SqlStatement statement);

  struct TableInfo {
    // The declared length of each text column that has one.
    std::unordered_map<std::string, size_t, TextHash, std::equal_to<>> lengths;
    // Each column with its default; none when it is no plain value.
    std::vector<std::pair<std::string, std::optional<host::SqlValue>>> defaults;
  };
  const TableInfo& Info(std::string_view table);
  void CheckLengths(const host::SqlStatement& statement);
  static void CheckTextIn(const TableInfo& info, std::string_view table, std::string_view column,
                          const std::string& text);

  host::DatabaseService& db_;
  std::unordered_map<std::string, TableInfo, TextHash, std::equal_to<>> tables_;
  bool gathering_ = false;
  std::vector<Write> gathered_;
};

}  // namespace standalone

#endif  // LUMARO_STANDALONE_SERVICES_ENTITY_ROWS_H_
