#ifndef LUMARO_STANDALONE_TEXT_HASH_H_
#define LUMARO_STANDALONE_TEXT_HASH_H_

#include <cstddef>
#include <functional>
#include <string_view>

namespace standalone {

// A hash of text that lets a map keyed by std::string be searched with a
// string_view or a literal, without making a string of it (with
// std::equal_to<> as the map's equality).
struct TextHash {
  using is_transparent = void;
  size_t operator()(std::string_view text) const { return std::hash<std::string_view>{}(text); }
};

}  // namespace standalone

#endif  // LUMARO_STANDALONE_TEXT_HASH_H_
