#include "standalone/StatementTexts.h"

namespace standalone {
namespace {

std::string Bracketed(const std::string& name) { return "[" + name + "]"; }

}  // namespace

std::string StatementTexts::Value(const host::SqlStatement::Column& column) const {
  using Kind = host::SqlStatement::Kind;
  switch (column.kind) {
    case Kind::kText:
      return "'" + format_.QuoteText(column.text) + "'";
    case Kind::kBoolean:
      return format_.Boolean(column.number != 0);
    case Kind::kNumber:
      return format_.Number(column.number);
    case Kind::kDate:
    case Kind::kDateTime:
      return format_.DateLiteral(column.date);
    case Kind::kTime:
      return format_.TimeLiteral(column.date);
    case Kind::kNull:
      return "NULL";
  }
  return "NULL";
}

std::string StatementTexts::Where(const host::SqlStatement& statement) const {
  std::string where;
  for (const auto& key : statement.Keys()) {
    where += where.empty() ? " WHERE " : " AND ";
    where += Bracketed(key.name) + "=" + Value(key);
  }
  return where;
}

std::string StatementTexts::InsertText(const host::SqlStatement& statement) const {
  std::string names;
  std::string values;
  for (const auto& column : statement.Columns()) {
    if (!names.empty()) {
      names += ", ";
      values += ", ";
    }
    names += Bracketed(column.name);
    values += Value(column);
  }
  return "INSERT INTO " + Bracketed(statement.Table()) + " (" + names + ") VALUES (" + values + ")";
}

std::string StatementTexts::UpdateText(const host::SqlStatement& statement) const {
  std::string sets;
  for (const auto& column : statement.Columns()) {
    if (!sets.empty()) sets += ", ";
    sets += Bracketed(column.name) + "=" + Value(column);
  }
  return "UPDATE " + Bracketed(statement.Table()) + " SET " + sets + Where(statement);
}

std::string StatementTexts::DeleteText(const host::SqlStatement& statement) const {
  return "DELETE FROM " + Bracketed(statement.Table()) + Where(statement);
}

std::string StatementTexts::SelectText(const host::SqlStatement& statement) const {
  std::string columns;
  for (const std::string& name : statement.SelectedColumns()) {
    if (!columns.empty()) columns += ", ";
    columns += Bracketed(name);
  }
  if (columns.empty()) columns = "*";
  return "SELECT " + columns + " FROM " + Bracketed(statement.Table()) + Where(statement);
}

std::string StatementTexts::CountText(const host::SqlStatement& statement) const {
  return "SELECT COUNT(*) AS [Count] FROM " + Bracketed(statement.Table()) + Where(statement);
}

}  // namespace standalone
