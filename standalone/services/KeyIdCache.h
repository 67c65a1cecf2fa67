#ifndef LUMARO_STANDALONE_SERVICES_KEY_ID_CACHE_H_
#define LUMARO_STANDALONE_SERVICES_KEY_ID_CACHE_H_

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

#include "standalone/TextHash.h"

namespace standalone {

// The ids that keys were found to have (`Id{}` for none), kept for as long
// as the table's change counter (DatabaseService::ChangeCounter) stands
// where it was when they were found, and across the saves of the caller's
// own that it tells about. A record after record of an import names the
// same few families, and each pass over the file the same items again.
template <typename Id>
class KeyIdCache {
 public:
  // The id found for `key`, when the table has not moved since.
  std::optional<Id> Find(std::optional<int64_t> counter, std::string_view key) {
    Follow(counter);
    if (!counter_) return std::nullopt;
    // The records of one item ask for its key several times in a row.
    if (last_ != nullptr && last_->first == key) return last_->second;
    auto found = id_of_key_.find(key);
    if (found == id_of_key_.end()) return std::nullopt;
    last_ = &*found;
    return found->second;
  }

  void Put(std::optional<int64_t> counter, std::string key, Id id) {
    Follow(counter);
    if (!counter_) return;
    if (id != Id{}) key_of_id_[id] = key;
    last_ = &*id_of_key_.insert_or_assign(std::move(key), std::move(id)).first;
  }

  // The caller saved one row of the table, `id`'s, which now has `key`;
  // the counter stood at `before` and stands at `after`. The id's former
  // key is forgotten (another row may have it). The key it has now gives
  // `id` when it was known to give none (this row is the only one with it)
  // or `id` already; after another id, which of the two comes first is the
  // database's to say, and it is forgotten.
  void Saved(std::optional<int64_t> before, std::optional<int64_t> after, const Id& id,
             const std::string& key) {
    Follow(before);
    last_ = nullptr;
    std::optional<Id> known;
    if (auto taken = id_of_key_.find(key); taken != id_of_key_.end()) known = taken->second;
    auto former = key_of_id_.find(id);
    if (former != key_of_id_.end()) {
      if (former->second != key) id_of_key_.erase(former->second);
      key_of_id_.erase(former);
    }
    if (known && (*known == Id{} || *known == id)) {
      id_of_key_[key] = id;
      key_of_id_[id] = key;
    } else if (known) {
      key_of_id_.erase(*known);
      id_of_key_.erase(key);
    }
    counter_ = before ? after : std::nullopt;
    if (!counter_) Clear();
  }

 private:
  // Forgets everything once the table moved.
  void Follow(std::optional<int64_t> counter) {
    if (counter && counter == counter_) return;
    Clear();
    counter_ = counter;
  }

  void Clear() {
    last_ = nullptr;
    id_of_key_.clear();
    key_of_id_.clear();
  }

  std::optional<int64_t> counter_;
  std::unordered_map<std::string, Id, TextHash, std::equal_to<>> id_of_key_;
  std::unordered_map<Id, std::string> key_of_id_;
  // The entry last found or put, or none: a rehash moves no entry, and
  // whatever erases one forgets it first.
  const std::pair<const std::string, Id>* last_ = nullptr;
};

}  // namespace standalone

#endif  // LUMARO_STANDALONE_SERVICES_KEY_ID_CACHE_H_
