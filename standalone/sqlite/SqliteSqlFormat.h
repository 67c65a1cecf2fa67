#ifndef LUMARO_STANDALONE_SQLITE_SQLITE_SQL_FORMAT_H_
#define LUMARO_STANDALONE_SQLITE_SQLITE_SQL_FORMAT_H_

#include "connector/host/DatabaseService.h"

namespace standalone {

// The literals of the POS database's stored forms: dates as
// 'YYYY-MM-DD HH:MM:SS' (a time alone on day 1899-12-30), truth values as
// 1 and 0, numbers with "." and no group separator.
class SqliteSqlFormat : public host::SqlFormat {
 public:
  std::string QuoteText(std::string_view text) const override;
  std::string DateLiteral(host::Date value) const override;
  std::string TimeLiteral(host::Date value) const override;
  std::string Number(double value) const override;
  std::string Boolean(bool value) const override;
};

// The stored text of a date, without quotes.
std::string StoredDateText(host::Date value);

}  // namespace standalone

#endif  // LUMARO_STANDALONE_SQLITE_SQLITE_SQL_FORMAT_H_
