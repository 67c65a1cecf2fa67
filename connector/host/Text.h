#ifndef LUMARO_CONNECTOR_HOST_TEXT_H_
#define LUMARO_CONNECTOR_HOST_TEXT_H_

// The string functions of the classic run time over UTF-8 text. Lengths and
// positions count characters (code points), not bytes; positions are 1-based
// as in the run time.

#include <string>
#include <string_view>
#include <vector>

namespace host {

size_t Len(std::string_view text);
std::string Left(std::string_view text, size_t count);
std::string Right(std::string_view text, size_t count);
// Mid(text, start) and Mid(text, start, count), `start` 1-based; raises 5
// when start is 0.
std::string Mid(std::string_view text, size_t start);
std::string Mid(std::string_view text, size_t start, size_t count);

// Remove blanks (character 32) only.
std::string Trim(std::string_view text);
std::string LTrim(std::string_view text);
std::string RTrim(std::string_view text);

// Unicode-aware case mapping ("ç" upper-cases to "Ç").
std::string UCase(std::string_view text);
std::string LCase(std::string_view text);

// Equality without regard to case: both sides upper-cased first.
bool EqualsNoCase(std::string_view a, std::string_view b);

// 1-based character position of `needle` in `text` from `start`, 0 when
// absent; exact comparison. An empty needle gives `start`.
size_t InStr(std::string_view text, std::string_view needle, size_t start = 1);

// Every occurrence of `find` replaced by `with`, left to right, exact.
std::string Replace(std::string_view text, std::string_view find, std::string_view with);

// Split("", sep) is an empty list; Split("a^", "^") is {"a", ""}.
std::vector<std::string> Split(std::string_view text, std::string_view separator);
std::string Join(const std::vector<std::string>& parts, std::string_view separator);

// Like: `*` any run, `?` one character, `#` one digit, `[abc]`, `[a-z]`,
// `[!abc]`. Exact case.
bool Like(std::string_view text, std::string_view pattern);

// Element `index` of a split line; raises 9 "Subscript out of range" past
// its end. This is how a record with too few fields fails.
const std::string& FieldAt(const std::vector<std::string>& fields, size_t index);

}  // namespace host

#endif  // LUMARO_CONNECTOR_HOST_TEXT_H_
