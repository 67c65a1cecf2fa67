#ifndef LUMARO_STANDALONE_SQLITE_ROW_CHANGES_H_
#define LUMARO_STANDALONE_SQLITE_ROW_CHANGES_H_

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>

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

  // Table names, as SQL has them, without regard to (ASCII) case.
  static char Fold(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }
  struct NameHash {
    using is_transparent = void;
    size_t operator()(std::string_view name) const {
      size_t hash = 14695981039346656037ull;
      for (char c : name) hash = (hash ^ static_cast<unsigned char>(Fold(c))) * 1099511628211ull;
      return hash;
    }
  };
  struct NameEqual {
    using is_transparent = void;
    bool operator()(std::string_view a, std::string_view b) const {
      if (a.size() != b.size()) return false;
      for (size_t i = 0; i < a.size(); ++i) {
        if (Fold(a[i]) != Fold(b[i])) return false;
      }
      return true;
    }
  };
  sqlite3* db_ = nullptr;
  std::unordered_map<std::string, int64_t, NameHash, NameEqual> by_table_;
  int64_t seen_ = 0;           // rows the hook saw
  int64_t seen_settled_ = 0;   // ... at the last AllSeen
  int64_t total_settled_ = 0;  // SQLite's count at the last AllSeen
};

}  // namespace standalone

#endif  // LUMARO_STANDALONE_SQLITE_ROW_CHANGES_H_
