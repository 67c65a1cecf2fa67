#ifndef LUMARO_CONNECTOR_HOST_KEY_DICTIONARY_H_
#define LUMARO_CONNECTOR_HOST_KEY_DICTIONARY_H_

#include <string>
#include <string_view>
#include <unordered_map>

#include "connector/host/Variant.h"

namespace host {

// The run's dictionary from text keys ("Prefix|code") to values.
// Add of a key that exists never fails: with `replace` True the new value
// takes the place of the old, otherwise the first value stays.
class KeyDictionary {
 public:
  void Add(const Variant& value, std::string_view key, bool replace = false);
  // The value of the key; Empty for a key never added.
  Variant Item(std::string_view key) const;
  bool Exists(std::string_view key) const;
  size_t Count() const { return items_.size(); }
  void Clear() { items_.clear(); }

 private:
  std::unordered_map<std::string, Variant> items_;
};

}  // namespace host

#endif  // LUMARO_CONNECTOR_HOST_KEY_DICTIONARY_H_
