#ifndef LUMARO_CONNECTOR_HOST_CONVERSIONS_H_
#define LUMARO_CONNECTOR_HOST_CONVERSIONS_H_

// The conversions of the classic run time, under the thread's regional
// settings (Regional.h). Every part of the system converts through these and
// nowhere else, so that numbers, dates and truth values read and write alike.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "connector/host/Date.h"
#include "connector/host/Variant.h"

namespace host {

// Truth value as a number: True is -1, False is 0.
inline int16_t BooleanNumber(bool value) { return value ? -1 : 0; }

// Rounds half to even ("banker's rounding"): 2.5 gives 2, 3.5 gives 4.
double RoundHalfEven(double value);

// The text of `value` to 15 significant digits: printf's "%.15g", written
// by to_chars, which gives the same text for a fraction of the cost.
std::string Digits15(double value);

// Rounds to `decimals` places, half away from zero, on the decimal value the
// double stands for (its 15 significant digits): 1.23615 gives 1.2362 at 4
// places, although the nearest double lies just below the half.
double RoundDecimal(double value, int decimals);

// A number that is n / 10^decimals exactly, with up to 6 decimals and n of
// at most 15 digits (under 1E+15 when whole, under 1E+9 else), as most
// amounts and quantities are: its 15 significant digits are n's, so its text
// is written from n and reads back as this very double. Nothing for
// another number.
struct ShortDecimal {
  int64_t n;
  int decimals;
};
std::optional<ShortDecimal> AsShortDecimal(double value);

// To 16-bit / 32-bit integer (CInt, CLng): round half to even; raises 6
// "Overflow" out of range, 13 "Type mismatch" for text that is no number,
// 94 for Null. Empty is 0. Text goes through CDbl first.
int16_t CInt(const Variant& value);
int32_t CLng(const Variant& value);

// To Double (CDbl). Text: the regional decimal separator, group separators
// skipped, leading and trailing blanks allowed; anything else raises 13.
// A Date gives its serial number, a Boolean -1 or 0, Empty 0; Null raises 94.
double CDbl(const Variant& value);

// Text to Boolean (CBool): "True"/"False" in any case, the regional words,
// or a number (0 is False). Anything else raises 13; Null raises 94.
bool CBool(const Variant& value);

// To text (CStr). Double: at most 15 significant digits, no trailing zeros,
// the regional decimal separator, no group separator. Boolean: "True" or
// "False". Date: the regional short date, then a blank and the long time if
// there is a time part; a date with whole-day part 0 gives the time alone.
// Empty gives "". Null raises 94.
std::string CStr(const Variant& value);
std::string NumberText(double value);  // CStr of a Double
std::string DateText(Date value);      // CStr of a Date

// Text to date (IsDate, CDate): the regional short date (also with "/" or
// "."), ISO yyyy-mm-dd, each with an optional time "hh:mm" or "hh:mm:ss".
// Eight digits such as "20261123" are a number, not a date.
bool IsDate(const Variant& value);
Date CDate(const Variant& value);  // raises 13 when IsDate is False

// Val: leading blanks, then digits with at most one "." and an optional
// exponent; stops at the first character it cannot take; never fails.
double Val(std::string_view text);

// Format with a pattern. Numbers: "0", "00", "0000000", "#", "####0", "0.00"
// pad with zeros to at least that many digits and never cut. Dates:
// "YYYYMMDD", "dd-mm-yyyy hh:mm", "hh:mm:ss" ("mm" after "hh" is minutes;
// "nn" is minutes too). A Date variant takes the date pattern; anything
// else is taken as a number.
std::string FormatNumber(double value, std::string_view pattern);
std::string FormatDate(Date value, std::string_view pattern);
std::string Format(const Variant& value, std::string_view pattern);

// Reads a number with the given decimal separator, whatever the regional
// settings; otherwise as CDbl (NumberTools.ParseNumber).
double ParseNumber(std::string_view text, std::string_view decimal_separator);

}  // namespace host

#endif  // LUMARO_CONNECTOR_HOST_CONVERSIONS_H_
