#include "connector/host/FieldConverter.h"

#include "connector/host/Conversions.h"
#include "connector/host/Error.h"

namespace host {
namespace {

bool IsVoid(const Variant& value) { return value.IsNull() || value.IsEmpty(); }

// Reads `count` digits at `at`; false when one is not a digit.
bool Digits(const std::string& text, size_t at, size_t count, int& value) {
  value = 0;
  for (size_t i = at; i < at + count; ++i) {
    if (text[i] < '0' || text[i] > '9') return false;
    value = value * 10 + (text[i] - '0');
  }
  return true;
}

// A date as databases store it as text: "YYYY-MM-DD", optionally followed by
// " HH:MM:SS" (or "T") and a fraction of a second, which is dropped. Returns
// false for any other text.
bool ParseStoredDate(const std::string& text, Date& out) {
  int y, mo, d, h = 0, mi = 0, s = 0;
  if (text.size() < 10 || text[4] != '-' || text[7] != '-' || !Digits(text, 0, 4, y) ||
      !Digits(text, 5, 2, mo) || !Digits(text, 8, 2, d)) {
    return false;
  }
  if (text.size() > 10) {
    if (text.size() < 19 || (text[10] != ' ' && text[10] != 'T') || text[13] != ':' ||
        text[16] != ':' || !Digits(text, 11, 2, h) || !Digits(text, 14, 2, mi) ||
        !Digits(text, 17, 2, s) || (text.size() > 19 && text[19] != '.')) {
      return false;
    }
  }
  try {
    out = MakeDate(y, mo, d, h, mi, s);
  } catch (const Error&) {
    return false;
  }
  return true;
}

}  // namespace

std::string FieldConverter::ToText(const Variant& value) {
  if (IsVoid(value)) return "";
  if (value.Type() == VariantType::kString) return value.AsString();
  return CStr(value);
}

double FieldConverter::ToNumber(const Variant& value) {
  if (IsVoid(value)) return 0;
  if (value.Type() == VariantType::kString) {
    const std::string& text = value.AsString();
    if (text.empty()) return 0;
    try {
      return ParseNumber(text, ".");  // the stored form
    } catch (const Error&) {
    }
    try {
      return CDbl(value);
    } catch (const Error&) {
      return 0;  // a text that is no number reads as 0, as a NULL does
    }
  }
  return CDbl(value);
}

Date FieldConverter::ToDate(const Variant& value) {
  if (IsVoid(value)) return Date{0};
  switch (value.Type()) {
    case VariantType::kDate:
      return value.AsDate();
    case VariantType::kString: {
      Date date;
      if (ParseStoredDate(value.AsString(), date)) return date;
      if (value.AsString().empty()) return Date{0};
      return CDate(value);
    }
    default:
      return Date{CDbl(value)};
  }
}

bool FieldConverter::ToBoolean(const Variant& value) {
  if (IsVoid(value)) return false;
  if (value.Type() == VariantType::kString) {
    const std::string& text = value.AsString();
    if (text.empty()) return false;
  }
  return CBool(value);
}

double NumberTools::ParseNumber(std::string_view text, std::string_view decimal_separator) {
  return host::ParseNumber(text, decimal_separator);
}

}  // namespace host
