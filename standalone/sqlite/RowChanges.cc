#include "standalone/sqlite/RowChanges.h"

#include <sqlite3.h>

namespace standalone {

void RowChanges::Attach(sqlite3* db) {
  db_ = db;
  total_settled_ = sqlite3_total_changes64(db);
  sqlite3_update_hook(
      db,
      [](void* self, int operation, const char* database, const char* table, sqlite3_int64 rowid) {
        OnChange(self, operation, database, table, rowid);
      },
      this);
}

void RowChanges::OnChange(void* self, int, const char*, const char* table, int64_t) {
  auto& changes = *static_cast<RowChanges*>(self);
  ++changes.seen_;
  auto found = changes.by_table_.find(std::string_view(table));
  if (found == changes.by_table_.end()) {
    changes.by_table_.emplace(table, 1);
  } else {
    ++found->second;
  }
}

int64_t RowChanges::Of(std::string_view table) const {
  auto found = by_table_.find(table);
  return found == by_table_.end() ? 0 : found->second;
}

bool RowChanges::AllSeen() {
  int64_t total = sqlite3_total_changes64(db_);
  bool all_seen = total - total_settled_ == seen_ - seen_settled_;
  total_settled_ = total;
  seen_settled_ = seen_;
  return all_seen;
}

}  // namespace standalone
