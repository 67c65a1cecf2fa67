#ifndef LUMARO_CONNECTOR_HOST_UTF8_H_
#define LUMARO_CONNECTOR_HOST_UTF8_H_

// Internal to the run-time module: UTF-8 text one character at a time.
// A byte sequence that is no valid UTF-8 counts as one character of its own
// and reads as a negative code point, so that nothing is lost or merged.

#include <unicode/utf8.h>

#include <cstdint>
#include <string>
#include <string_view>

namespace host::utf8 {

// The code point at `pos`; moves `pos` past it.
inline int32_t Next(std::string_view text, size_t& pos) {
  const auto* bytes = reinterpret_cast<const uint8_t*>(text.data());
  int32_t code_point;
  U8_NEXT(bytes, pos, text.size(), code_point);
  return code_point;
}

// The byte offset after the first `count` characters (the end if fewer).
inline size_t Advance(std::string_view text, size_t count, size_t pos = 0) {
  for (; count > 0 && pos < text.size(); --count) Next(text, pos);
  return pos;
}

inline size_t CountChars(std::string_view text) {
  size_t count = 0;
  for (size_t pos = 0; pos < text.size(); ++count) Next(text, pos);
  return count;
}

inline void Append(std::string& out, int32_t code_point) {
  uint8_t buffer[U8_MAX_LENGTH];
  size_t length = 0;
  U8_APPEND_UNSAFE(buffer, length, code_point);
  out.append(reinterpret_cast<const char*>(buffer), length);
}

}  // namespace host::utf8

#endif  // LUMARO_CONNECTOR_HOST_UTF8_H_
