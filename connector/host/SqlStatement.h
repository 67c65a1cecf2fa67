#ifndef LUMARO_CONNECTOR_HOST_SQL_STATEMENT_H_
#define LUMARO_CONNECTOR_HOST_SQL_STATEMENT_H_

#include <string>
#include <string_view>
#include <vector>

#include "connector/host/Date.h"

namespace host {

// One typed value of a statement: what a column is set to, what a key
// compares with, or what a ? of a statement's text stands for.
struct SqlValue {
  enum class Kind { kText, kBoolean, kDate, kDateTime, kTime, kNumber, kNull };

  static SqlValue Text(std::string_view value) { return {Kind::kText, std::string(value), 0, {}}; }
  static SqlValue Number(double value) { return {Kind::kNumber, {}, value, {}}; }
  static SqlValue Boolean(bool value);
  static SqlValue Date(host::Date value);      // the date alone
  static SqlValue DateTime(host::Date value);  // date and time
  static SqlValue Time(host::Date value);      // the time alone
  static SqlValue Null() { return {Kind::kNull, {}, 0, {}}; }

  Kind kind = Kind::kNull;
  std::string text;   // kText
  double number = 0;  // kNumber, kBoolean (-1/0)
  host::Date date;    // kDate, kDateTime, kTime
};

// One statement on one table, built column by column; a DatabaseService runs
// it (RunInsert, RunUpdate, ...) or a StatementRunner turns it into SQL text.
// Setting a column or key a second time replaces its value, so that one
// statement can be refilled row after row (AddNewColumn, which does not look,
// excepted).
class SqlStatement {
 public:
  using Kind = SqlValue::Kind;

  struct Column : SqlValue {
    std::string name;
  };

  void SetTable(std::string table) { table_ = std::move(table); }
  const std::string& Table() const { return table_; }
  // The host's mode of the statement; kept for the caller, it does not
  // change the text that a runner builds.
  void SetOperation(int operation) { operation_ = operation; }
  int Operation() const { return operation_; }

  void Text(std::string_view column, std::string_view value);
  void Boolean(std::string_view column, bool value);
  void Date(std::string_view column, host::Date value);      // the date alone
  void DateTime(std::string_view column, host::Date value);  // date and time
  void Time(std::string_view column, host::Date value);      // the time alone
  void Number(std::string_view column, double value);
  void Null(std::string_view column);
  // Sets a column to a value of any kind, as the setters above do.
  void Set(std::string_view column, SqlValue value) { Put(columns_, column, std::move(value)); }
  // Adds a column that the statement does not have yet, without looking
  // for it: for a writer that sets each of its columns once. A column added
  // twice this way is in the statement twice.
  void AddNewColumn(std::string_view column, SqlValue value);
  void SelectColumn(std::string_view column);
  void KeyNumber(std::string_view column, double value);
  void KeyText(std::string_view column, std::string_view value);

  // Room for `count` columns in all, so that a writer that knows how many
  // it will set does not move them as they come.
  void ReserveColumns(size_t count) { columns_.reserve(count); }

  // Empties columns, keys and selected columns; keeps table and operation.
  void ClearColumns();

  const std::vector<Column>& Columns() const { return columns_; }
  const std::vector<Column>& Keys() const { return keys_; }
  const std::vector<std::string>& SelectedColumns() const { return selected_; }

 private:
  static void Put(std::vector<Column>& list, std::string_view name, SqlValue value);
  static void Append(std::vector<Column>& list, std::string_view name, SqlValue value);

  std::string table_;
  int operation_ = 0;
  std::vector<Column> columns_;
  std::vector<Column> keys_;
  std::vector<std::string> selected_;
};

}  // namespace host

#endif  // LUMARO_CONNECTOR_HOST_SQL_STATEMENT_H_
