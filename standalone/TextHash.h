#ifndef LUMARO_STANDALONE_TEXT_HASH_H_
#define LUMARO_STANDALONE_TEXT_HASH_H_

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace standalone {

// A hash of text that lets a map keyed by std::string be searched with a
// string_view or a literal, without making a string of it (with
// std::equal_to<> as the map's equality). It takes the text eight bytes at
// a time: the maps it serves are searched by whole statements of SQL at
// every run of one.
struct TextHash {
  using is_transparent = void;
  size_t operator()(std::string_view text) const {
    constexpr uint64_t kMultiplier = 0x9E3779B97F4A7C15ull;
    uint64_t hash = text.size() * kMultiplier;
    size_t at = 0;
    auto mix = [&hash](uint64_t word) {
      hash = (hash ^ word) * kMultiplier;
      hash ^= hash >> 29;
    };
    for (; at + 8 <= text.size(); at += 8) {
      uint64_t word;
      std::memcpy(&word, text.data() + at, 8);
      mix(word);
    }
    if (at < text.size()) {
      uint64_t word = 0;
      std::memcpy(&word, text.data() + at, text.size() - at);
      mix(word);
    }
    return static_cast<size_t>(hash);
  }
};

}  // namespace standalone

#endif  // LUMARO_STANDALONE_TEXT_HASH_H_
