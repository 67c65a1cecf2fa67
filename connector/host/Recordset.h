#ifndef LUMARO_CONNECTOR_HOST_RECORDSET_H_
#define LUMARO_CONNECTOR_HOST_RECORDSET_H_

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "connector/host/AsciiNames.h"
#include "connector/host/Variant.h"

namespace host {

// The column names of a recordset, shared by every recordset of one
// statement: found by name without regard to case, the first of a name
// winning.
class RecordsetColumns {
 public:
  explicit RecordsetColumns(std::vector<std::string> names);

  size_t size() const { return names_.size(); }
  const std::string& Name(size_t index) const { return names_[index]; }
  int IndexOf(std::string_view name) const;  // -1 when absent

 private:
  std::vector<std::string> names_;
  // Plain ASCII names by name; empty when a name is not plain ASCII, which
  // the slow way compares as Unicode.
  std::unordered_map<std::string, int, AsciiNoCaseHash, AsciiNoCaseEqual> ascii_index_;
  bool all_ascii_ = true;
};

// Raises 3265 for a field `name` that a recordset does not have.
[[noreturn]] void RaiseNoSuchField(std::string_view name);

// A client-side recordset in ADO's manner (cursor location 3): every row is
// read when the statement runs, so RecordCount, MoveFirst, Filter and Find
// work at any time. Fields are found by name without regard to case (the
// first column of that name wins) or by position. A missing field raises
// 3265; reading a field at EOF or BOF raises 3021; using a closed recordset
// raises 3704.
class Recordset {
 public:
  using Row = std::vector<Variant>;

  // A closed recordset: what a statement that returns no rows gives.
  Recordset();
  // An open recordset on the given rows, positioned on the first row.
  Recordset(std::vector<std::string> column_names, std::vector<Row> rows);
  Recordset(std::shared_ptr<const RecordsetColumns> columns, std::vector<Row> rows);

  bool IsOpen() const { return open_; }
  void Close();

  bool Eof() const;
  bool Bof() const;
  void MoveNext();  // raises 3021 when already at EOF
  void MovePrevious();
  void MoveFirst();
  void MoveLast();

  // The rows visible through the filter.
  int32_t RecordCount() const;
  int FieldCount() const;
  const std::string& FieldName(int index) const;
  // The columns, shared by the recordsets of one statement: a caller that
  // reads many rows may find its fields' positions once.
  const std::shared_ptr<const RecordsetColumns>& Columns() const { return columns_; }
  bool HasField(std::string_view name) const;

  // The value of a field in the current row.
  const Variant& Fields(std::string_view name) const;
  const Variant& Fields(int index) const;

  // ADO Filter: "Column op value [AND|OR Column op value ...]", where op is
  // =, <>, <, >, <=, >= or LIKE, and value is 'text', #date#, a number or
  // Null. An empty criteria clears the filter. Moves to the first visible
  // row. Raises 3001 ("arguments are of the wrong type") on bad criteria.
  void SetFilter(std::string_view criteria);
  const std::string& Filter() const { return filter_; }

  // ADO Find: one clause "Column op value"; searches from the current row
  // (forward) and stops on the first match, or leaves the cursor at EOF.
  // Returns whether a row was found.
  bool Find(std::string_view criteria);

 private:
  void RequireOpen() const;
  void RequireCurrent() const;
  int IndexOf(std::string_view name) const;  // -1 when absent

  bool open_ = false;
  std::shared_ptr<const RecordsetColumns> columns_;
  std::vector<Row> rows_;
  std::vector<size_t> visible_;  // row numbers that pass the filter
  std::string filter_;
  // Position within visible_: -1 is BOF, visible_.size() is EOF.
  int64_t position_ = 0;
};

using RecordsetPtr = std::shared_ptr<Recordset>;

// RecordsetTools: the host's recordset helpers.
class RecordsetTools {
 public:
  // Closes the recordset if it is open and empties the reference; harmless
  // on an empty reference.
  static void CloseRecordset(RecordsetPtr& recordset);
  // Whether the recordset has a field of that name (without regard to
  // case): how a caller learns what columns a table has.
  static bool Find(const Recordset& recordset, std::string_view field_name);
};

}  // namespace host

#endif  // LUMARO_CONNECTOR_HOST_RECORDSET_H_
