#include "connector/host/DatabaseService.h"

#include "connector/host/Error.h"

namespace host {

std::string SqlLiteral(const SqlFormat& format, const SqlValue& value) {
  using Kind = SqlValue::Kind;
  switch (value.kind) {
    case Kind::kText:
      return "'" + format.QuoteText(value.text) + "'";
    case Kind::kBoolean:
      return format.Boolean(value.number != 0);
    case Kind::kNumber:
      return format.Number(value.number);
    case Kind::kDate:
    case Kind::kDateTime:
      return format.DateLiteral(value.date);
    case Kind::kTime:
      return format.TimeLiteral(value.date);
    case Kind::kNull:
      return "NULL";
  }
  return "NULL";
}

RecordsetPtr DatabaseService::Query(std::string_view sql, const std::vector<SqlValue>& values) {
  std::string text;
  text.reserve(sql.size() + 16 * values.size());
  size_t next = 0;
  char closing = 0;  // the quote or bracket that ends the literal or name in hand
  for (char c : sql) {
    if (closing != 0) {
      // A doubled quote closes and reopens the literal: the same outcome.
      if (c == closing) closing = 0;
    } else if (c == '\'' || c == '"') {
      closing = c;
    } else if (c == '[') {
      closing = ']';
    } else if (c == '?') {
      if (next == values.size()) {
        RaiseWith(err::kInvalidProcedureCall, "More ? than values in: " + std::string(sql),
                  "Query");
      }
      text += SqlLiteral(SqlFormat(), values[next++]);
      continue;
    }
    text += c;
  }
  if (next != values.size()) {
    RaiseWith(err::kInvalidProcedureCall, "More values than ? in: " + std::string(sql), "Query");
  }
  return OpenRecordset(text);
}

void DatabaseService::QueryEach(std::string_view sql, const std::vector<SqlValue>& values,
                                const std::function<void(const RowReader&)>& each) {
  RecordsetPtr rows = Query(sql, values);
  if (!rows->IsOpen()) return;
  RecordsetRowReader reader(*rows);
  for (; !rows->Eof(); rows->MoveNext()) each(reader);
}

void DatabaseService::RunInsert(const SqlStatement& statement) {
  OpenRecordset(StatementRunner().InsertText(statement), 128, false);
}

void DatabaseService::RunUpdate(const SqlStatement& statement) {
  OpenRecordset(StatementRunner().UpdateText(statement), 128, false);
}

void DatabaseService::RunDelete(const SqlStatement& statement) {
  OpenRecordset(StatementRunner().DeleteText(statement), 128, false);
}

RecordsetPtr DatabaseService::RunSelect(const SqlStatement& statement) {
  return OpenRecordset(StatementRunner().SelectText(statement), 0, true);
}

RecordsetPtr DatabaseService::RunCount(const SqlStatement& statement) {
  return OpenRecordset(StatementRunner().CountText(statement), 0, true);
}

void DatabaseService::Compact() {
  RaiseWith(err::kInvalidProcedureCall, "this database cannot be compacted", "DatabaseService");
}

}  // namespace host
