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
  for (const Asked& asked : asked_) {
    if (asked.name == table) return *asked.count;
  }
  // A table not yet changed gets its count of 0 here, for the hook to move.
  const int64_t* count = &by_table_.try_emplace(std::string(table), 0).first->second;
  constexpr size_t kAskedKept = 8;
  if (asked_.size() < kAskedKept) {
    asked_.push_back({std::string(table), count});
  } else {
    asked_[next_asked_] = {std::string(table), count};
    next_asked_ = (next_asked_ + 1) % kAskedKept;
  }
  return *count;
}

bool RowChanges::AllSeen() {
  int64_t total = sqlite3_total_changes64(db_);
  bool all_seen = total - total_settled_ == seen_ - seen_settled_;
  total_settled_ = total;
  seen_settled_ = seen_;
  return all_seen;
}

}  // namespace standalone
