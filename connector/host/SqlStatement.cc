#include "connector/host/SqlStatement.h"

#include "connector/host/Conversions.h"

namespace host {

void SqlStatement::Put(std::vector<Column>& list, Column column) {
  for (Column& existing : list) {
    if (existing.name == column.name) {
      existing = std::move(column);
      return;
    }
  }
  list.push_back(std::move(column));
}

void SqlStatement::Text(std::string_view column, std::string_view value) {
  Put(columns_, Column{std::string(column), Kind::kText, std::string(value), 0, {}});
}

void SqlStatement::Boolean(std::string_view column, bool value) {
  Put(columns_, Column{std::string(column), Kind::kBoolean, {}, BooleanNumber(value) * 1.0, {}});
}

void SqlStatement::Date(std::string_view column, host::Date value) {
  Put(columns_, Column{std::string(column), Kind::kDate, {}, 0, DatePart(value)});
}

void SqlStatement::DateTime(std::string_view column, host::Date value) {
  Put(columns_, Column{std::string(column), Kind::kDateTime, {}, 0, value});
}

void SqlStatement::Time(std::string_view column, host::Date value) {
  Put(columns_, Column{std::string(column), Kind::kTime, {}, 0, TimePart(value)});
}

void SqlStatement::Number(std::string_view column, double value) {
  Put(columns_, Column{std::string(column), Kind::kNumber, {}, value, {}});
}

void SqlStatement::Null(std::string_view column) {
  Put(columns_, Column{std::string(column), Kind::kNull, {}, 0, {}});
}

void SqlStatement::SelectColumn(std::string_view column) {
  for (const std::string& existing : selected_) {
    if (existing == column) return;
  }
  selected_.emplace_back(column);
}

void SqlStatement::KeyNumber(std::string_view column, double value) {
  Put(keys_, Column{std::string(column), Kind::kNumber, {}, value, {}});
}

void SqlStatement::KeyText(std::string_view column, std::string_view value) {
  Put(keys_, Column{std::string(column), Kind::kText, std::string(value), 0, {}});
}

void SqlStatement::ClearColumns() {
  columns_.clear();
  keys_.clear();
  selected_.clear();
}

}  // namespace host
