#ifndef LUMARO_STANDALONE_SQLITE_ROW_CHANGES_H_
#define LUMARO_STANDALONE_SQLITE_ROW_CHANGES_H_

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "connector/host/AsciiNames.h"

struct sqlite3;

namespace standalone {

// Counts the rows changed in each table through one connection, by SQLite's
// update hook, and tells when a change went by that the hook did not see:
// it is silent for rows a DELETE without WHERE empties at once, for tables
// WITHOUT ROWID, and it reports rows a failed statement then takes back.
class RowChanges {
 public:
  // Starts counting the connection's changes; `db` outlives this object's
  // use of it.
  void Attach(sqlite3* db);
  // Rows changed in the table so far (its name as SQLite has it).
  int64_t Of(std::string_view table) const;
  // Called after each statement: whether SQLite's own count of changed rows
  // moved by exactly what the hook saw since the last call.
  bool AllSeen();

 private:
  static void OnChange(void* self, int operation, const char* database, const char* table,
                       int64_t rowid);

  sqlite3* db_ = nullptr;
  // Table names, as SQL has them, without regard to case. Never erased: a
  // count's address stays.
  mutable std::unordered_map<std::string, int64_t, host::AsciiNoCaseHash, host::AsciiNoCaseEqual>
      by_table_;
  // The names last asked for, as they were spelled, with their counts: a
  // caller asks for the same few tables again and again.
  struct Asked {
    std::string name;
    const int64_t* count;
  };
  mutable std::vector<Asked> asked_;
  mutable size_t next_asked_ = 0;  // the one to replace next
  int64_t seen_ = 0;               // rows the hook saw
  int64_t seen_settled_ = 0;       // ... at the last AllSeen
  int64_t total_settled_ = 0;      // SQLite's count at the last AllSeen
};

}  // namespace standalone

#endif  // LUMARO_STANDALONE_SQLITE_ROW_CHANGES_H_
