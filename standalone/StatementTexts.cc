#include "standalone/StatementTexts.h"

namespace standalone {
namespace {

void AppendBracketed(std::string& text, const std::string& name) {
  text += '[';
  text += name;
  text += ']';
}

void AppendWhere(std::string& text, const host::SqlStatement& statement,
                 const StatementTexts::ValueText& value) {
  bool first = true;
  for (const auto& key : statement.Keys()) {
    text += first ? " WHERE " : " AND ";
    first = false;
    AppendBracketed(text, key.name);
    text += '=';
    text += value(key);
  }
}

}  // namespace

std::string StatementTexts::Build(Shape shape, const host::SqlStatement& statement,
                                  const ValueText& value) {
  std::string text;
  switch (shape) {
    case Shape::kInsert: {
      text = "INSERT INTO ";
      AppendBracketed(text, statement.Table());
      std::string values;
      for (const auto& column : statement.Columns()) {
        text += values.empty() ? " (" : ", ";
        values += values.empty() ? "" : ", ";
        AppendBracketed(text, column.name);
        values += value(column);
      }
      text += ") VALUES (" + values + ")";
      return text;
    }
    case Shape::kUpdate: {
      text = "UPDATE ";
      AppendBracketed(text, statement.Table());
      bool first = true;
      for (const auto& column : statement.Columns()) {
        text += first ? " SET " : ", ";
        first = false;
        AppendBracketed(text, column.name);
        text += '=';
        text += value(column);
      }
      break;
    }
    case Shape::kDelete:
      text = "DELETE FROM ";
      AppendBracketed(text, statement.Table());
      break;
    case Shape::kSelect: {
      text = "SELECT ";
      const auto& selected = statement.SelectedColumns();
      if (selected.empty()) text += '*';
      for (size_t i = 0; i < selected.size(); ++i) {
        if (i > 0) text += ", ";
        AppendBracketed(text, selected[i]);
      }
      text += " FROM ";
      AppendBracketed(text, statement.Table());
      break;
    }
    case Shape::kCount:
      text = "SELECT COUNT(*) AS [Count] FROM ";
      AppendBracketed(text, statement.Table());
      break;
  }
  AppendWhere(text, statement, value);
  return text;
}

std::string StatementTexts::Literals(Shape shape, const host::SqlStatement& statement) const {
  return Build(shape, statement,
               [this](const host::SqlValue& value) { return host::SqlLiteral(format_, value); });
}

std::string StatementTexts::InsertText(const host::SqlStatement& statement) const {
  return Literals(Shape::kInsert, statement);
}

std::string StatementTexts::UpdateText(const host::SqlStatement& statement) const {
  return Literals(Shape::kUpdate, statement);
}

std::string StatementTexts::DeleteText(const host::SqlStatement& statement) const {
  return Literals(Shape::kDelete, statement);
}

std::string StatementTexts::SelectText(const host::SqlStatement& statement) const {
  return Literals(Shape::kSelect, statement);
}

std::string StatementTexts::CountText(const host::SqlStatement& statement) const {
  return Literals(Shape::kCount, statement);
}

}  // namespace standalone
