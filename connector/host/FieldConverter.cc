#include "connector/host/FieldConverter.h"

#include <cstdio>

#include "connector/host/Conversions.h"
#include "connector/host/Error.h"

namespace host {
namespace {

bool IsVoid(const Variant& value) { return value.IsNull() || value.IsEmpty(); }

// A date as databases store it as text: "YYYY-MM-DD", optionally followed by
// " HH:MM:SS" (or "T"). Returns false for any other text.
bool ParseStoredDate(const std::string& text, Date& out) {
  int y, mo, d, h = 0, mi = 0, s = 0;
  char sep;
  int consumed = 0;
  if (std::sscanf(text.c_str(), "%4d-%2d-%2d%n", &y, &mo, &d, &consumed) != 3 || consumed != 10) {
    return false;
  }
  if (text.size() > 10) {
    int more = 0;
    if (std::sscanf(text.c_str() + 10, "%c%2d:%2d:%2d%n", &sep, &h, &mi, &s, &more) != 4 ||
        (sep != ' ' && sep != 'T')) {
      return false;
    }
    // Fractions of a second are dropped.
    if (10 + static_cast<size_t>(more) < text.size() && text[10 + more] != '.') return false;
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
      return CDbl(value);
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
