#include "connector/host/Text.h"

#include <unicode/uchar.h>

#include <utility>

#include "connector/host/AsciiNames.h"
#include "connector/host/Error.h"
#include "connector/host/Utf8.h"

namespace host {

namespace {

// Maps every code point with `map`; bytes that are no valid UTF-8 are kept.
template <typename CaseMap>
std::string MapCase(std::string_view text, CaseMap map) {
  std::string result;
  result.reserve(text.size());
  for (size_t pos = 0; pos < text.size();) {
    const size_t start = pos;
    const int32_t code_point = utf8::Next(text, pos);
    if (code_point < 0) {
      result.append(text.substr(start, pos - start));
    } else {
      utf8::Append(result, map(code_point));
    }
  }
  return result;
}

void CheckStart(size_t start) {
  if (start == 0) Raise(err::kInvalidProcedureCall);
}

// One element of a Like pattern; each but kAnyRun stands for one character.
struct LikeToken {
  enum Kind { kLiteral, kAnyOne, kDigit, kAnyRun, kClass } kind = kLiteral;
  int32_t literal = 0;
  bool negated = false;                             // [!...]
  std::vector<std::pair<int32_t, int32_t>> ranges;  // [a-z] and [abc] as a-a, b-b, c-c

  bool Matches(int32_t c) const {
    switch (kind) {
      case kLiteral:
        return c == literal;
      case kAnyOne:
        return true;
      case kDigit:
        return c >= '0' && c <= '9';
      case kAnyRun:
        return false;
      case kClass:
        for (const auto& [low, high] : ranges) {
          if (c >= low && c <= high) return !negated;
        }
        return negated;
    }
    return false;
  }
};

std::vector<int32_t> CodePoints(std::string_view text) {
  std::vector<int32_t> result;
  for (size_t pos = 0; pos < text.size();) result.push_back(utf8::Next(text, pos));
  return result;
}

std::vector<LikeToken> ParseLikePattern(std::string_view pattern) {
  const std::vector<int32_t> chars = CodePoints(pattern);
  std::vector<LikeToken> tokens;
  for (size_t i = 0; i < chars.size(); ++i) {
    LikeToken token;
    switch (chars[i]) {
      case '*':
        token.kind = LikeToken::kAnyRun;
        break;
      case '?':
        token.kind = LikeToken::kAnyOne;
        break;
      case '#':
        token.kind = LikeToken::kDigit;
        break;
      case '[': {
        token.kind = LikeToken::kClass;
        ++i;
        if (i < chars.size() && chars[i] == '!') {
          token.negated = true;
          ++i;
        }
        for (; i < chars.size() && chars[i] != ']'; ++i) {
          const int32_t low = chars[i];
          if (i + 2 < chars.size() && chars[i + 1] == '-' && chars[i + 2] != ']') {
            token.ranges.emplace_back(low, chars[i + 2]);
            i += 2;
          } else {
            token.ranges.emplace_back(low, low);
          }
        }
        if (i == chars.size()) Raise(err::kInvalidPatternString);
        break;
      }
      default:
        token.literal = chars[i];
    }
    tokens.push_back(std::move(token));
  }
  return tokens;
}

}  // namespace

size_t Len(std::string_view text) { return utf8::CountChars(text); }

std::string Left(std::string_view text, size_t count) {
  return std::string(text.substr(0, utf8::Advance(text, count)));
}

std::string Right(std::string_view text, size_t count) {
  const size_t length = Len(text);
  if (count >= length) return std::string(text);
  return std::string(text.substr(utf8::Advance(text, length - count)));
}

std::string Mid(std::string_view text, size_t start) {
  CheckStart(start);
  return std::string(text.substr(utf8::Advance(text, start - 1)));
}

std::string Mid(std::string_view text, size_t start, size_t count) {
  CheckStart(start);
  const size_t begin = utf8::Advance(text, start - 1);
  const size_t end = utf8::Advance(text, count, begin);
  return std::string(text.substr(begin, end - begin));
}

std::string Trim(std::string_view text) { return LTrim(RTrim(text)); }

std::string LTrim(std::string_view text) {
  const size_t first = text.find_first_not_of(' ');
  return first == std::string_view::npos ? std::string() : std::string(text.substr(first));
}

std::string RTrim(std::string_view text) {
  const size_t last = text.find_last_not_of(' ');
  return last == std::string_view::npos ? std::string() : std::string(text.substr(0, last + 1));
}

std::string UCase(std::string_view text) { return MapCase(text, u_toupper); }

std::string LCase(std::string_view text) { return MapCase(text, u_tolower); }

bool EqualsNoCase(std::string_view a, std::string_view b) {
  // Between two ASCII texts the upper case is ASCII's: no string is made.
  // A text with other letters goes the whole way, since some of them take
  // an ASCII upper case ("ſ" gives "S").
  if (IsAscii(a) && IsAscii(b)) return SameAsciiNoCase(a, b);
  return UCase(a) == UCase(b);
}

size_t InStr(std::string_view text, std::string_view needle, size_t start) {
  CheckStart(start);
  if (needle.empty()) return start;
  const size_t begin = utf8::Advance(text, start - 1);
  const size_t found = text.find(needle, begin);
  if (found == std::string_view::npos) return 0;
  return Len(text.substr(0, found)) + 1;
}

std::string Replace(std::string_view text, std::string_view find, std::string_view with) {
  if (find.empty()) return std::string(text);
  std::string result;
  size_t pos = 0;
  for (size_t found; (found = text.find(find, pos)) != std::string_view::npos;
       pos = found + find.size()) {
    result.append(text.substr(pos, found - pos));
    result.append(with);
  }
  result.append(text.substr(pos));
  return result;
}

std::vector<std::string> Split(std::string_view text, std::string_view separator) {
  std::vector<std::string> parts;
  if (text.empty()) return parts;
  if (separator.empty()) return {std::string(text)};
  size_t pos = 0;
  for (size_t found; (found = text.find(separator, pos)) != std::string_view::npos;
       pos = found + separator.size()) {
    parts.emplace_back(text.substr(pos, found - pos));
  }
  parts.emplace_back(text.substr(pos));
  return parts;
}

std::string Join(const std::vector<std::string>& parts, std::string_view separator) {
  std::string result;
  for (size_t i = 0; i < parts.size(); ++i) {
    if (i > 0) result.append(separator);
    result.append(parts[i]);
  }
  return result;
}

bool Like(std::string_view text, std::string_view pattern) {
  const std::vector<LikeToken> tokens = ParseLikePattern(pattern);
  const std::vector<int32_t> chars = CodePoints(text);
  // Every token but "*" takes exactly one character, so on a mismatch it is
  // enough to let the last "*" take one character more and try again.
  size_t t = 0;
  size_t p = 0;
  size_t star = tokens.size();  // none yet
  size_t star_text = 0;
  while (t < chars.size()) {
    if (p < tokens.size() && tokens[p].kind == LikeToken::kAnyRun) {
      star = p++;
      star_text = t;
    } else if (p < tokens.size() && tokens[p].Matches(chars[t])) {
      ++p;
      ++t;
    } else if (star < tokens.size()) {
      p = star + 1;
      t = ++star_text;
    } else {
      return false;
    }
  }
  while (p < tokens.size() && tokens[p].kind == LikeToken::kAnyRun) ++p;
  return p == tokens.size();
}

const std::string& FieldAt(const std::vector<std::string>& fields, size_t index) {
  if (index >= fields.size()) Raise(err::kSubscriptOutOfRange);
  return fields[index];
}

}  // namespace host
