#include "connector/host/SqlStatement.h"

#include "connector/host/Conversions.h"

namespace host {

SqlValue SqlValue::Boolean(bool value) {
  return {Kind::kBoolean, {}, BooleanNumber(value) * 1.0, {}};
}

SqlValue SqlValue::Date(host::Date value) { return {Kind::kDate, {}, 0, DatePart(value)}; }

SqlValue SqlValue::DateTime(host::Date value) { return {Kind::kDateTime, {}, 0, value}; }

SqlValue SqlValue::Time(host::Date value) { return {Kind::kTime, {}, 0, TimePart(value)}; }

void SqlStatement::Put(std::vector<Column>& list, std::string_view name, SqlValue value) {
  for (Column& existing : list) {
    if (existing.name == name) {
      static_cast<SqlValue&>(existing) = std::move(value);
      return;
    }
  }
  Append(list, name, std::move(value));
}

void SqlStatement::Append(std::vector<Column>& list, std::string_view name, SqlValue value) {
  // Room for a few at once: most statements have several columns.
  if (list.capacity() == 0) list.reserve(8);
  list.push_back(Column{std::move(value), std::string(name)});
}

void SqlStatement::AddNewColumn(std::string_view column, SqlValue value) {
  Append(columns_, column, std::move(value));
}

void SqlStatement::Text(std::string_view column, std::string_view value) {
  Put(columns_, column, SqlValue::Text(value));
}

void SqlStatement::Boolean(std::string_view column, bool value) {
  Put(columns_, column, SqlValue::Boolean(value));
}

void SqlStatement::Date(std::string_view column, host::Date value) {
  Put(columns_, column, SqlValue::Date(value));
}

void SqlStatement::DateTime(std::string_view column, host::Date value) {
  Put(columns_, column, SqlValue::DateTime(value));
}

void SqlStatement::Time(std::string_view column, host::Date value) {
  Put(columns_, column, SqlValue::Time(value));
}

void SqlStatement::Number(std::string_view column, double value) {
  Put(columns_, column, SqlValue::Number(value));
}

void SqlStatement::Null(std::string_view column) { Put(columns_, column, SqlValue::Null()); }

void SqlStatement::SelectColumn(std::string_view column) {
  for (const std::string& existing : selected_) {
    if (existing == column) return;
  }
  selected_.emplace_back(column);
}

void SqlStatement::KeyNumber(std::string_view column, double value) {
  Put(keys_, column, SqlValue::Number(value));
}

void SqlStatement::KeyText(std::string_view column, std::string_view value) {
  Put(keys_, column, SqlValue::Text(value));
}

void SqlStatement::ClearColumns() {
  columns_.clear();
  keys_.clear();
  selected_.clear();
}

}  // namespace host
