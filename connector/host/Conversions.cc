#include "connector/host/Conversions.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <optional>

#include "connector/host/Error.h"
#include "connector/host/Regional.h"
#include "connector/host/Text.h"

namespace host {

namespace {

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

char AsciiLower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

std::string_view TrimBlanks(std::string_view text) {
  const size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

// ---------------------------------------------------------------------------
// Reading numbers

// The parts of a decimal number as written: sign, digits before and after the
// decimal separator, and the exponent.
struct ScannedNumber {
  bool negative = false;
  std::string whole_digits;
  std::string fraction_digits;
  int exponent = 0;
  size_t end = 0;  // where the number stopped

  bool HasDigits() const { return !whole_digits.empty() || !fraction_digits.empty(); }
};

// Scans a number from `pos`: a sign, digits (with `group` separators skipped
// once a digit has been read), then `decimal` and digits, then an exponent.
// Stops at the first character it cannot take; an "E" without digits after
// it is left unread.
ScannedNumber ScanNumber(std::string_view text, size_t pos, std::string_view decimal,
                         std::string_view group) {
  if (group == decimal) group = {};
  auto at = [&](std::string_view what) {
    return !what.empty() && text.substr(pos).starts_with(what);
  };
  ScannedNumber number;
  if (pos < text.size() && (text[pos] == '+' || text[pos] == '-')) {
    number.negative = text[pos++] == '-';
  }
  while (pos < text.size()) {
    if (IsDigit(text[pos])) {
      number.whole_digits += text[pos++];
    } else if (!number.whole_digits.empty() && at(group)) {
      pos += group.size();
    } else {
      break;
    }
  }
  if (at(decimal)) {
    pos += decimal.size();
    while (pos < text.size() && IsDigit(text[pos])) number.fraction_digits += text[pos++];
  }
  number.end = pos;
  if (!number.HasDigits() || pos == text.size() || (text[pos] != 'e' && text[pos] != 'E')) {
    return number;
  }
  ++pos;
  bool negative_exponent = false;
  if (pos < text.size() && (text[pos] == '+' || text[pos] == '-')) {
    negative_exponent = text[pos++] == '-';
  }
  if (pos == text.size() || !IsDigit(text[pos])) return number;
  int exponent = 0;
  for (; pos < text.size() && IsDigit(text[pos]); ++pos) {
    exponent = std::min(exponent * 10 + (text[pos] - '0'), 100000);  // far past any double
  }
  number.exponent = negative_exponent ? -exponent : exponent;
  number.end = pos;
  return number;
}

// The value of a scanned number; infinite when it is too large for a double,
// 0 when it is too small.
double ValueOf(const ScannedNumber& number) {
  std::string plain = number.whole_digits.empty() ? "0" : number.whole_digits;
  if (!number.fraction_digits.empty()) plain += "." + number.fraction_digits;
  plain += "e" + std::to_string(number.exponent);
  double value = 0;
  const auto [end, error] = std::from_chars(plain.data(), plain.data() + plain.size(), value);
  if (error == std::errc::result_out_of_range) {
    // Out of range both ways: the place of the first significant digit says which.
    const size_t whole_start = number.whole_digits.find_first_not_of('0');
    const long long magnitude =
        whole_start != std::string::npos
            ? static_cast<long long>(number.whole_digits.size() - whole_start) + number.exponent
            : -static_cast<long long>(number.fraction_digits.find_first_not_of('0')) +
                  number.exponent;
    value = magnitude > 0 ? std::numeric_limits<double>::infinity() : 0.0;
  }
  return number.negative ? -value : value;
}

// A whole text as a number with the given separators, blanks around allowed;
// raises 13 when it is none and 6 when it is too large.
double ReadNumber(std::string_view text, std::string_view decimal, std::string_view group) {
  text = TrimBlanks(text);
  const ScannedNumber number = ScanNumber(text, 0, decimal, group);
  if (!number.HasDigits() || number.end != text.size()) Raise(err::kTypeMismatch);
  const double value = ValueOf(number);
  if (std::isinf(value)) Raise(err::kOverflow);
  return value;
}

double ReadRegionalNumber(std::string_view text) {
  const RegionalSettings& regional = CurrentRegional();
  return ReadNumber(text, regional.decimal_separator, regional.group_separator);
}

// ---------------------------------------------------------------------------
// Writing numbers

// A number as at most 15 significant decimal digits: |value| is
// d1.d2d3...dn x 10^exponent, with no trailing zeros in `digits` (empty for 0).
struct Significant {
  bool negative = false;
  std::string digits;
  int exponent = 0;
};

Significant SignificantDigits(double value) {
  char buffer[64];
  const auto written =
      std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::scientific, 14);
  const std::string_view text(buffer, static_cast<size_t>(written.ptr - buffer));
  const size_t e = text.find('e');
  Significant result;
  for (char c : text.substr(0, e)) {
    if (IsDigit(c)) result.digits += c;
  }
  std::string_view exponent = text.substr(e + 1);
  if (exponent.front() == '+') exponent.remove_prefix(1);
  std::from_chars(exponent.data(), exponent.data() + exponent.size(), result.exponent);
  result.digits.erase(result.digits.find_last_not_of('0') + 1);
  result.negative = value < 0 && !result.digits.empty();
  return result;
}

// The digits of a number written out without exponent, split at the decimal
// point; the whole part is empty when it is 0.
struct FixedDigits {
  std::string whole;
  std::string fraction;
};

FixedDigits ToFixed(const Significant& number) {
  FixedDigits fixed;
  if (number.digits.empty()) return fixed;
  if (number.exponent < 0) {
    fixed.fraction = std::string(-number.exponent - 1, '0') + number.digits;
    return fixed;
  }
  const size_t whole_length = static_cast<size_t>(number.exponent) + 1;
  fixed.whole = number.digits.substr(0, whole_length);
  fixed.whole.resize(whole_length, '0');
  if (number.digits.size() > whole_length) fixed.fraction = number.digits.substr(whole_length);
  return fixed;
}

// Rounds to `places` decimals, half away from zero, on the decimal digits.
void RoundFixed(FixedDigits& fixed, size_t places) {
  if (fixed.fraction.size() <= places) return;
  const bool round_up = fixed.fraction[places] >= '5';
  fixed.fraction.resize(places);
  if (!round_up) return;
  std::string all = fixed.whole + fixed.fraction;
  size_t i = all.size();
  while (i > 0 && all[i - 1] == '9') all[--i] = '0';
  if (i == 0) {
    all.insert(0, "1");
  } else {
    ++all[i - 1];
  }
  fixed.whole = all.substr(0, all.size() - places);
  fixed.fraction = all.substr(all.size() - places);
}

std::string TwoDigitExponent(int exponent) {
  std::string digits = std::to_string(std::abs(exponent));
  if (digits.size() < 2) digits.insert(0, "0");
  return (exponent < 0 ? "E-" : "E+") + digits;
}

std::string ZeroPadded(int value, size_t width) {
  std::string digits = std::to_string(value);
  if (digits.size() < width) digits.insert(0, width - digits.size(), '0');
  return digits;
}

// The pieces of a number pattern such as "#,##0.00": literal text before and
// after the digits, the count of 0s before the point, the count of 0s and
// all places after it, and whether thousands are grouped.
struct NumberPattern {
  std::string_view prefix;
  std::string_view suffix;
  size_t whole_zeros = 0;
  size_t fraction_zeros = 0;
  size_t fraction_places = 0;
  bool has_point = false;
  bool grouped = false;
};

NumberPattern ParseNumberPattern(std::string_view pattern) {
  NumberPattern parsed;
  const size_t first = pattern.find_first_of("0#.");
  if (first == std::string_view::npos) {
    parsed.prefix = pattern;
    return parsed;
  }
  const size_t last = pattern.find_last_of("0#.");
  parsed.prefix = pattern.substr(0, first);
  parsed.suffix = pattern.substr(last + 1);
  bool after_point = false;
  for (char c : pattern.substr(first, last - first + 1)) {
    if (c == '.') {
      after_point = parsed.has_point = true;
    } else if (c == ',' && !after_point) {
      parsed.grouped = true;
    } else if (after_point && (c == '0' || c == '#')) {
      ++parsed.fraction_places;
      if (c == '0') ++parsed.fraction_zeros;
    } else if (c == '0') {
      ++parsed.whole_zeros;
    }
  }
  return parsed;
}

std::string Grouped(const std::string& digits, std::string_view separator) {
  std::string result;
  for (size_t i = 0; i < digits.size(); ++i) {
    if (i > 0 && (digits.size() - i) % 3 == 0) result.append(separator);
    result += digits[i];
  }
  return result;
}

// ---------------------------------------------------------------------------
// Reading dates

bool IsDateSeparator(char c, char regional_separator) {
  return c == '-' || c == '/' || c == '.' || c == regional_separator;
}

// Where day, month and year stand in the regional short date, and its
// separator: "dd-mm-yyyy" gives "dmy" and '-'.
struct DateOrder {
  std::string fields;
  char separator = '-';
};

DateOrder RegionalDateOrder() {
  DateOrder order;
  for (char c : CurrentRegional().short_date) {
    const char letter = AsciiLower(c);
    if (letter == 'd' || letter == 'm' || letter == 'y') {
      if (order.fields.find(letter) == std::string::npos) order.fields += letter;
    } else if (order.fields.size() == 1) {
      order.separator = c;
    }
  }
  if (order.fields.size() != 3) order.fields = "dmy";
  return order;
}

// Reads one text from left to right.
class TextCursor {
 public:
  explicit TextCursor(std::string_view text) : text_(text) {}

  bool AtEnd() const { return pos_ == text_.size(); }
  char Peek() const { return AtEnd() ? '\0' : text_[pos_]; }
  bool Accept(char c) {
    if (Peek() != c) return false;
    ++pos_;
    return true;
  }
  // Reads a run of digits into `value`; returns how many there were.
  size_t ReadDigits(int& value) {
    const size_t start = pos_;
    value = 0;
    for (; !AtEnd() && IsDigit(Peek()) && pos_ - start < 9; ++pos_) {
      value = value * 10 + (Peek() - '0');
    }
    return pos_ - start;
  }

 private:
  std::string_view text_;
  size_t pos_ = 0;
};

// "hh:mm" or "hh:mm:ss", the hour already read.
bool ReadMinutesSeconds(TextCursor& cursor, DateParts& parts) {
  if (!cursor.Accept(':') || cursor.ReadDigits(parts.minute) != 2) return false;
  if (cursor.Accept(':') && cursor.ReadDigits(parts.second) != 2) return false;
  return true;
}

bool ReadTime(TextCursor& cursor, DateParts& parts) {
  const size_t hour_digits = cursor.ReadDigits(parts.hour);
  return hour_digits >= 1 && hour_digits <= 2 && ReadMinutesSeconds(cursor, parts);
}

// Two-digit years as the classic run time reads them: 30 to 99 are 19xx.
int FullYear(int year, size_t digits) {
  if (digits == 4) return year;
  return year < 30 ? 2000 + year : 1900 + year;
}

// Reads the date of a text: the regional short date or ISO yyyy-mm-dd, each
// with an optional time, or a time alone (on day 0).
std::optional<Date> ParseDateText(std::string_view text) {
  TextCursor cursor(TrimBlanks(text));
  DateParts parts;
  int first = 0;
  const size_t first_digits = cursor.ReadDigits(first);
  if (first_digits == 0) return std::nullopt;
  if (cursor.Peek() == ':') {
    parts.hour = first;
    if (first_digits > 2 || !ReadMinutesSeconds(cursor, parts)) return std::nullopt;
  } else {
    const DateOrder order = RegionalDateOrder();
    const char separator = cursor.Peek();
    if (!IsDateSeparator(separator, order.separator)) return std::nullopt;
    cursor.Accept(separator);
    int fields[3] = {first, 0, 0};
    size_t digits[3] = {first_digits, cursor.ReadDigits(fields[1]), 0};
    if (!cursor.Accept(separator)) return std::nullopt;
    digits[2] = cursor.ReadDigits(fields[2]);
    const bool iso = first_digits == 4;
    const std::string layout = iso ? "ymd" : order.fields;
    for (size_t i = 0; i < 3; ++i) {
      const bool is_year = layout[i] == 'y';
      if (is_year ? digits[i] != 4 && digits[i] != 2 : digits[i] < 1 || digits[i] > 2) {
        return std::nullopt;
      }
      if (is_year) parts.year = FullYear(fields[i], digits[i]);
      if (layout[i] == 'm') parts.month = fields[i];
      if (layout[i] == 'd') parts.day = fields[i];
    }
    if (!cursor.AtEnd()) {
      const bool iso_time = iso && cursor.Accept('T');
      if (!iso_time && !cursor.Accept(' ')) return std::nullopt;
      while (cursor.Accept(' ')) {
      }
      if (!ReadTime(cursor, parts)) return std::nullopt;
    }
  }
  if (!cursor.AtEnd()) return std::nullopt;
  try {
    return MakeDate(parts.year, parts.month, parts.day, parts.hour, parts.minute, parts.second);
  } catch (const Error&) {
    return std::nullopt;  // 31-02-2026 and the like
  }
}

// ---------------------------------------------------------------------------
// Writing dates

// The date tokens, longer before shorter of the same letter.
constexpr std::string_view kDateTokens[] = {"yyyy", "yy", "dd", "d", "mm", "m",
                                            "hh",   "h",  "nn", "n", "ss", "s"};

// The token at the start of `text`, in lower case; empty when there is none.
std::string_view DateTokenAt(std::string_view text) {
  for (std::string_view token : kDateTokens) {
    if (text.size() < token.size()) continue;
    bool same = true;
    for (size_t i = 0; i < token.size() && same; ++i) same = AsciiLower(text[i]) == token[i];
    if (same) return token;
  }
  return {};
}

// A pattern with no digit placeholder and some date token formats dates.
bool IsDatePattern(std::string_view pattern) {
  if (pattern.find_first_of("0#") != std::string_view::npos) return false;
  for (size_t i = 0; i < pattern.size(); ++i) {
    if (!DateTokenAt(pattern.substr(i)).empty()) return true;
  }
  return false;
}

}  // namespace

double RoundHalfEven(double value) {
  const double floor = std::floor(value);
  const double rest = value - floor;
  if (rest < 0.5) return floor;
  if (rest > 0.5) return floor + 1;
  return std::fmod(floor, 2) == 0 ? floor : floor + 1;
}

std::string Digits15(double value) {
  char text[40];
  auto [end, error] =
      std::to_chars(text, text + sizeof text, value, std::chars_format::general, 15);
  if (error != std::errc()) return "0";  // cannot be: 15 digits and an exponent fit
  return std::string(text, end);
}

double RoundDecimal(double value, int decimals) {
  const double factor = std::pow(10.0, decimals);
  return std::round(std::strtod(Digits15(value * factor).c_str(), nullptr)) / factor;
}

namespace {

// CDbl rounded half to even, raising 6 when outside [low, high].
double RoundedInRange(const Variant& value, double low, double high) {
  const double rounded = RoundHalfEven(CDbl(value));
  if (!(rounded >= low && rounded <= high)) Raise(err::kOverflow);
  return rounded;
}

}  // namespace

int16_t CInt(const Variant& value) {
  return static_cast<int16_t>(RoundedInRange(value, std::numeric_limits<int16_t>::min(),
                                             std::numeric_limits<int16_t>::max()));
}

int32_t CLng(const Variant& value) {
  return static_cast<int32_t>(RoundedInRange(value, std::numeric_limits<int32_t>::min(),
                                             std::numeric_limits<int32_t>::max()));
}

double CDbl(const Variant& value) {
  switch (value.Type()) {
    case VariantType::kEmpty:
      return 0;
    case VariantType::kNull:
      Raise(err::kInvalidUseOfNull);
    case VariantType::kBoolean:
      return BooleanNumber(value.AsBoolean());
    case VariantType::kInteger:
      return value.AsInteger();
    case VariantType::kLong:
      return value.AsLong();
    case VariantType::kDouble:
      return value.AsDouble();
    case VariantType::kDate:
      return value.AsDate().serial;
    case VariantType::kString:
      return ReadRegionalNumber(value.AsString());
    case VariantType::kBytes:
      break;
  }
  Raise(err::kTypeMismatch);
}

bool CBool(const Variant& value) {
  switch (value.Type()) {
    case VariantType::kNull:
      Raise(err::kInvalidUseOfNull);
    case VariantType::kBoolean:
      return value.AsBoolean();
    case VariantType::kString: {
      const std::string_view text = TrimBlanks(value.AsString());
      const RegionalSettings& regional = CurrentRegional();
      if (EqualsNoCase(text, "True") || EqualsNoCase(text, regional.true_word)) return true;
      if (EqualsNoCase(text, "False") || EqualsNoCase(text, regional.false_word)) return false;
      return ReadRegionalNumber(text) != 0;
    }
    default:
      return CDbl(value) != 0;
  }
}

std::string CStr(const Variant& value) {
  switch (value.Type()) {
    case VariantType::kEmpty:
      return "";
    case VariantType::kNull:
      Raise(err::kInvalidUseOfNull);
    case VariantType::kBoolean:
      return value.AsBoolean() ? "True" : "False";
    case VariantType::kInteger:
      return std::to_string(value.AsInteger());
    case VariantType::kLong:
      return std::to_string(value.AsLong());
    case VariantType::kDouble:
      return NumberText(value.AsDouble());
    case VariantType::kDate:
      return DateText(value.AsDate());
    case VariantType::kString:
      return value.AsString();
    case VariantType::kBytes:
      break;
  }
  Raise(err::kTypeMismatch);
}

std::optional<ShortDecimal> AsShortDecimal(double value) {
  const double magnitude = std::fabs(value);
  if (!(magnitude < 1e15)) return std::nullopt;
  double scale = 1;
  for (int k = 0; k <= 6; ++k, scale *= 10) {
    if (k > 0 && magnitude >= 1e9) break;
    const double scaled = std::nearbyint(value * scale);
    if (scaled / scale == value) return ShortDecimal{static_cast<int64_t>(scaled), k};
  }
  return std::nullopt;
}

namespace {

// The text of a short decimal (AsShortDecimal) from its digits, without the
// general rounding. Nothing for another number, or one written with an
// exponent.
std::optional<std::string> ShortDecimalText(double value, const std::string& decimal) {
  if (std::fabs(value) < 1e-4) return std::nullopt;  // written with an exponent
  if (std::optional<ShortDecimal> exact = AsShortDecimal(value)) {
    const int64_t n = exact->n;
    const size_t k = static_cast<size_t>(exact->decimals);
    std::string digits = std::to_string(n < 0 ? -n : n);
    if (digits.size() <= k) digits.insert(0, k + 1 - digits.size(), '0');
    std::string_view whole(digits.data(), digits.size() - k);
    std::string_view fraction(digits.data() + whole.size(), k);
    while (!fraction.empty() && fraction.back() == '0') fraction.remove_suffix(1);
    std::string text = n < 0 ? "-" : "";
    text += whole;
    if (!fraction.empty()) {
      text += decimal;
      text += fraction;
    }
    return text;
  }
  return std::nullopt;
}

}  // namespace

std::string NumberText(double value) {
  if (!std::isfinite(value)) Raise(err::kOverflow);
  if (std::optional<std::string> text =
          ShortDecimalText(value, CurrentRegional().decimal_separator)) {
    return *text;
  }
  const Significant number = SignificantDigits(value);
  if (number.digits.empty()) return "0";  // -0 included
  const std::string& decimal = CurrentRegional().decimal_separator;
  std::string text = number.negative ? "-" : "";
  if (number.exponent >= 15 || number.exponent < -4) {
    text += number.digits[0];
    if (number.digits.size() > 1) text += decimal + number.digits.substr(1);
    return text + TwoDigitExponent(number.exponent);
  }
  const FixedDigits fixed = ToFixed(number);
  text += fixed.whole.empty() ? "0" : fixed.whole;
  if (!fixed.fraction.empty()) text += decimal + fixed.fraction;
  return text;
}

std::string DateText(Date value) {
  const RegionalSettings& regional = CurrentRegional();
  if (DatePart(value).serial == 0) return FormatDate(value, regional.long_time);
  std::string text = FormatDate(value, regional.short_date);
  if (HasTimePart(value)) text += " " + FormatDate(value, regional.long_time);
  return text;
}

bool IsDate(const Variant& value) {
  if (value.Type() == VariantType::kDate) return true;
  return value.Type() == VariantType::kString && ParseDateText(value.AsString()).has_value();
}

Date CDate(const Variant& value) {
  switch (value.Type()) {
    case VariantType::kDate:
      return value.AsDate();
    case VariantType::kString: {
      const std::optional<Date> date = ParseDateText(value.AsString());
      if (!date) Raise(err::kTypeMismatch);
      return *date;
    }
    default:
      // A number is the date's serial, as the classic CDate takes it.
      return Date{CDbl(value)};
  }
}

double Val(std::string_view text) {
  const size_t start = text.find_first_not_of(" \t\r\n");
  if (start == std::string_view::npos) return 0;
  const ScannedNumber number = ScanNumber(text, start, ".", "");
  return number.HasDigits() ? ValueOf(number) : 0;
}

std::string FormatNumber(double value, std::string_view pattern) {
  if (pattern.empty()) return NumberText(value);
  const NumberPattern parsed = ParseNumberPattern(pattern);
  const Significant number = SignificantDigits(value);
  FixedDigits fixed = ToFixed(number);
  RoundFixed(fixed, parsed.fraction_places);
  fixed.fraction.resize(parsed.fraction_places, '0');
  while (fixed.fraction.size() > parsed.fraction_zeros && fixed.fraction.back() == '0') {
    fixed.fraction.pop_back();
  }
  const bool is_zero = fixed.whole.find_first_not_of('0') == std::string::npos &&
                       fixed.fraction.find_first_not_of('0') == std::string::npos;
  if (fixed.whole.size() < parsed.whole_zeros) {
    fixed.whole.insert(0, parsed.whole_zeros - fixed.whole.size(), '0');
  }
  const RegionalSettings& regional = CurrentRegional();
  std::string text = number.negative && !is_zero ? "-" : "";
  text += parsed.prefix;
  text += parsed.grouped ? Grouped(fixed.whole, regional.group_separator) : fixed.whole;
  // Kept as the classic Format has it: "0.##" writes 1 as "1," with its
  // separator even when no decimal follows.
  if (parsed.has_point) text += regional.decimal_separator + fixed.fraction;
  text += parsed.suffix;
  return text;
}

std::string FormatDate(Date value, std::string_view pattern) {
  if (pattern.empty()) return DateText(value);
  const DateParts parts = SplitDate(value);
  std::string text;
  bool after_hour = false;
  for (size_t pos = 0; pos < pattern.size();) {
    const std::string_view token = DateTokenAt(pattern.substr(pos));
    if (token.empty()) {
      text += pattern[pos++];
      continue;
    }
    pos += token.size();
    const size_t width = token.size() == 1 ? 1 : 2;
    switch (token[0]) {
      case 'y':
        text += token.size() == 4 ? ZeroPadded(parts.year, 4) : ZeroPadded(parts.year % 100, 2);
        break;
      case 'd':
        text += ZeroPadded(parts.day, width);
        break;
      case 'm':  // minutes right after the hour, the month anywhere else
        text += ZeroPadded(after_hour ? parts.minute : parts.month, width);
        break;
      case 'h':
        text += ZeroPadded(parts.hour, width);
        break;
      case 'n':
        text += ZeroPadded(parts.minute, width);
        break;
      case 's':
        text += ZeroPadded(parts.second, width);
        break;
    }
    after_hour = token[0] == 'h';
  }
  return text;
}

std::string Format(const Variant& value, std::string_view pattern) {
  if (pattern.empty()) return CStr(value);
  if (IsDatePattern(pattern)) return FormatDate(CDate(value), pattern);
  return FormatNumber(CDbl(value), pattern);
}

double ParseNumber(std::string_view text, std::string_view decimal_separator) {
  const std::string_view group = decimal_separator == ","   ? "."
                                 : decimal_separator == "." ? ","
                                                            : "";
  return ReadNumber(text, decimal_separator, group);
}

}  // namespace host
