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

namespace {

constexpr size_t kKeptTexts = 16;

template <typename Named>
bool SameNames(const std::vector<std::string>& names, const std::vector<Named>& columns) {
  if (names.size() != columns.size()) return false;
  for (size_t i = 0; i < names.size(); ++i) {
    if (names[i] != columns[i].name) return false;
  }
  return true;
}

bool HasColumns(StatementTexts::Shape shape) {
  return shape == StatementTexts::Shape::kInsert || shape == StatementTexts::Shape::kUpdate;
}

// An insert names no row: its keys are not in its text.
bool HasKeys(StatementTexts::Shape shape) { return shape != StatementTexts::Shape::kInsert; }

}  // namespace

bool MarkerTexts::Fits(const Kept& kept, StatementTexts::Shape shape,
                       const host::SqlStatement& statement) {
  return kept.shape == shape && kept.table == statement.Table() &&
         (!HasKeys(shape) || SameNames(kept.keys, statement.Keys())) &&
         (!HasColumns(shape) || SameNames(kept.columns, statement.Columns()));
}

const std::string& MarkerTexts::Text(StatementTexts::Shape shape,
                                     const host::SqlStatement& statement,
                                     std::vector<const host::SqlValue*>& values) {
  values.clear();
  // The markers stand for the columns (an insert's or an update's), then
  // for the keys: the order in which Build writes them.
  if (HasColumns(shape)) {
    for (const auto& column : statement.Columns()) values.push_back(&column);
  }
  if (HasKeys(shape)) {
    for (const auto& key : statement.Keys()) values.push_back(&key);
  }
  auto build = [&] {
    return StatementTexts::Build(shape, statement,
                                 [](const host::SqlValue&) { return std::string("?"); });
  };
  // A select's chosen columns are part of its text: it is built anew and
  // not kept, so that it does not push out the texts that come again.
  if (shape == StatementTexts::Shape::kSelect) {
    select_text_ = build();
    return select_text_;
  }
  for (size_t i = 0; i < kept_.size(); ++i) {
    if (!Fits(kept_[i], shape, statement)) continue;
    if (i > 0) std::swap(kept_[i], kept_[0]);
    return kept_[0].text;
  }
  Kept kept{shape, statement.Table(), {}, {}, build()};
  if (HasColumns(shape)) {
    for (const auto& column : statement.Columns()) kept.columns.push_back(column.name);
  }
  if (HasKeys(shape)) {
    for (const auto& key : statement.Keys()) kept.keys.push_back(key.name);
  }
  if (kept_.size() == kKeptTexts) kept_.pop_back();
  kept_.insert(kept_.begin(), std::move(kept));
  return kept_[0].text;
}

}  // namespace standalone
