#include "standalone/sqlite/SqliteSqlFormat.h"

#include <cstdio>

#include "connector/host/Text.h"

namespace standalone {

std::string StoredDateText(host::Date value) {
  host::DateParts p = host::SplitDate(value);
  char text[32];
  std::snprintf(text, sizeof text, "%04d-%02d-%02d %02d:%02d:%02d", p.year, p.month, p.day,
                p.hour, p.minute, p.second);
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
  char text[40];
  std::snprintf(text, sizeof text, "%.15g", value == 0 ? 0.0 : value);
  return text;
}

std::string SqliteSqlFormat::Boolean(bool value) const { return value ? "1" : "0"; }

}  // namespace standalone
