#include "standalone/sqlite/SqliteSqlFormat.h"

#include <cstdio>

#include "connector/host/Conversions.h"
#include "connector/host/Text.h"

namespace standalone {

namespace {

// Writes 0 <= `value` < 10^width in `width` digits, with leading zeros.
void PutDigits(char* at, int value, int width) {
  for (int i = width - 1; i >= 0; --i, value /= 10) at[i] = static_cast<char>('0' + value % 10);
}

}  // namespace

std::string StoredDateText(host::Date value) {
  host::DateParts p = host::SplitDate(value);
  auto fits = [](int part, int limit) { return part >= 0 && part < limit; };
  if (!fits(p.year, 10000) || !fits(p.month, 100) || !fits(p.day, 100) || !fits(p.hour, 100) ||
      !fits(p.minute, 100) || !fits(p.second, 100)) {
    char text[64];
    std::snprintf(text, sizeof text, "%04d-%02d-%02d %02d:%02d:%02d", p.year, p.month, p.day,
                  p.hour, p.minute, p.second);
    return text;
  }
  // "YYYY-MM-DD hh:mm:ss" written digit by digit: a date is written for
  // every date column of every row, and snprintf's general formatting cost
  // thirty times as much.
  std::string text = "0000-00-00 00:00:00";
  PutDigits(&text[0], p.year, 4);
  PutDigits(&text[5], p.month, 2);
  PutDigits(&text[8], p.day, 2);
  PutDigits(&text[11], p.hour, 2);
  PutDigits(&text[14], p.minute, 2);
  PutDigits(&text[17], p.second, 2);
  return text;
}

std::string SqliteSqlFormat::QuoteText(std::string_view text) const {
  return host::Replace(text, "'", "''");
}

std::string SqliteSqlFormat::DateLiteral(host::Date value) const {
  return "'" + StoredDateText(value) + "'";
}

std::string SqliteSqlFormat::TimeLiteral(host::Date value) const {
  return "'" + StoredDateText(host::TimePart(value)) + "'";
}

std::string SqliteSqlFormat::Number(double value) const {
  return host::Digits15(value == 0 ? 0.0 : value);
}

std::string SqliteSqlFormat::Boolean(bool value) const { return value ? "1" : "0"; }

}  // namespace standalone
