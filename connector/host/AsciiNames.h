#ifndef LUMARO_CONNECTOR_HOST_ASCII_NAMES_H_
#define LUMARO_CONNECTOR_HOST_ASCII_NAMES_H_

// Names as SQL matches them (tables, columns, keywords): without regard to
// ASCII case. Cheap enough for every field read and every statement; text
// that may be any language goes through EqualsNoCase instead.

#include <cstddef>
#include <string_view>

namespace host {

// Whether every byte is ASCII: text whose case the ASCII rules settle.
inline bool IsAscii(std::string_view text) {
  for (char c : text) {
    if (static_cast<unsigned char>(c) >= 0x80) return false;
  }
  return true;
}

inline char AsciiUpper(char c) {
  return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

inline bool SameAsciiNoCase(std::string_view a, std::string_view b) {
  if (a.size() != b.size()) return false;
  for (size_t i = 0; i < a.size(); ++i) {
    if (a[i] != b[i] && AsciiUpper(a[i]) != AsciiUpper(b[i])) return false;
  }
  return true;
}

// For unordered maps keyed by such names (heterogeneous lookup).
struct AsciiNoCaseHash {
  using is_transparent = void;
  size_t operator()(std::string_view name) const {
    size_t hash = 14695981039346656037ull;
    for (char c : name)
      hash = (hash ^ static_cast<unsigned char>(AsciiUpper(c))) * 1099511628211ull;
    return hash;
  }
};
struct AsciiNoCaseEqual {
  using is_transparent = void;
  bool operator()(std::string_view a, std::string_view b) const { return SameAsciiNoCase(a, b); }
};

}  // namespace host

#endif  // LUMARO_CONNECTOR_HOST_ASCII_NAMES_H_
