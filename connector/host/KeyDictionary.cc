#include "connector/host/KeyDictionary.h"

namespace host {

void KeyDictionary::Add(const Variant& value, std::string_view key, bool replace) {
  auto [it, inserted] = items_.try_emplace(std::string(key), value);
  if (!inserted && replace) it->second = value;
}

Variant KeyDictionary::Item(std::string_view key) const {
  auto it = items_.find(std::string(key));
  return it == items_.end() ? Variant() : it->second;
}

bool KeyDictionary::Exists(std::string_view key) const {
  return items_.find(std::string(key)) != items_.end();
}

}  // namespace host
