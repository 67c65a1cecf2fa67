#include "connector/host/Recordset.h"

#include <cctype>

#include "connector/host/AsciiNames.h"
#include "connector/host/Error.h"
#include "connector/host/RecordsetCriteria.h"
#include "connector/host/Text.h"

namespace host {
// Column names are matched without regard to case. They are nearly always
// plain ASCII (IsAscii), which takes the short way.

RecordsetColumns::RecordsetColumns(std::vector<std::string> names) : names_(std::move(names)) {
  for (const std::string& name : names_) all_ascii_ = all_ascii_ && IsAscii(name);
  if (!all_ascii_) return;
  ascii_index_.reserve(names_.size());
  // The first column of a name wins, as in ADO.
  for (size_t i = 0; i < names_.size(); ++i) ascii_index_.emplace(names_[i], static_cast<int>(i));
}

int RecordsetColumns::IndexOf(std::string_view name) const {
  if (all_ascii_ && IsAscii(name)) {
    auto found = ascii_index_.find(name);
    return found == ascii_index_.end() ? -1 : found->second;
  }
  for (size_t i = 0; i < names_.size(); ++i) {
    if (EqualsNoCase(names_[i], name)) return static_cast<int>(i);
  }
  return -1;
}

Recordset::Recordset() = default;

Recordset::Recordset(std::vector<std::string> column_names, std::vector<Row> rows)
    : Recordset(std::make_shared<const RecordsetColumns>(std::move(column_names)),
                std::move(rows)) {}

Recordset::Recordset(std::shared_ptr<const RecordsetColumns> columns, std::vector<Row> rows)
    : open_(true), columns_(std::move(columns)), rows_(std::move(rows)) {
  visible_.reserve(rows_.size());
  for (size_t i = 0; i < rows_.size(); ++i) visible_.push_back(i);
  position_ = 0;
}

void Recordset::Close() {
  RequireOpen();
  open_ = false;
  rows_.clear();
  visible_.clear();
}

void Recordset::RequireOpen() const {
  if (!open_) Raise(err::kOperationNotAllowedWhenClosed, "Recordset");
}

void Recordset::RequireCurrent() const {
  RequireOpen();
  if (Eof() || Bof()) Raise(err::kNoCurrentRecord, "Recordset");
}

bool Recordset::Eof() const {
  RequireOpen();
  return position_ >= static_cast<int64_t>(visible_.size());
}

bool Recordset::Bof() const {
  RequireOpen();
  return position_ < 0 || visible_.empty();
}

void Recordset::MoveNext() {
  RequireOpen();
  if (Eof()) Raise(err::kNoCurrentRecord, "Recordset");
  ++position_;
}

void Recordset::MovePrevious() {
  RequireOpen();
  if (position_ < 0) Raise(err::kNoCurrentRecord, "Recordset");
  --position_;
}

void Recordset::MoveFirst() {
  RequireOpen();
  position_ = 0;
}

void Recordset::MoveLast() {
  RequireOpen();
  position_ = visible_.empty() ? 0 : static_cast<int64_t>(visible_.size()) - 1;
}

int32_t Recordset::RecordCount() const {
  RequireOpen();
  return static_cast<int32_t>(visible_.size());
}

int Recordset::FieldCount() const {
  RequireOpen();
  return static_cast<int>(columns_->size());
}

const std::string& Recordset::FieldName(int index) const {
  RequireOpen();
  if (index < 0 || index >= static_cast<int>(columns_->size())) {
    Raise(err::kItemNotFound, "Recordset");
  }
  return columns_->Name(index);
}

bool Recordset::HasField(std::string_view name) const { return IndexOf(name) >= 0; }

int Recordset::IndexOf(std::string_view name) const {
  return columns_ ? columns_->IndexOf(name) : -1;
}

const Variant& Recordset::Fields(std::string_view name) const {
  RequireOpen();
  int index = IndexOf(name);
  if (index < 0) RaiseNoSuchField(name);
  return Fields(index);
}

void RaiseNoSuchField(std::string_view name) {
  RaiseWith(err::kItemNotFound,
            StandardDescription(err::kItemNotFound) + " (" + std::string(name) + ")", "Recordset");
}

const Variant& Recordset::Fields(int index) const {
  RequireCurrent();
  if (index < 0 || index >= static_cast<int>(columns_->size()))
    Raise(err::kItemNotFound, "Recordset");
  return rows_[visible_[position_]][index];
}

void Recordset::SetFilter(std::string_view criteria) {
  RequireOpen();
  // The new rows are found first: a criteria that is refused leaves the
  // recordset as it was.
  std::vector<size_t> visible;
  if (Trim(criteria).empty()) {
    for (size_t i = 0; i < rows_.size(); ++i) visible.push_back(i);
  } else {
    RecordsetCriteria parsed(criteria);
    for (size_t i = 0; i < rows_.size(); ++i) {
      const Row& row = rows_[i];
      auto field = [&](std::string_view name) -> const Variant& {
        int index = IndexOf(name);
        if (index < 0) Raise(err::kItemNotFound, "Recordset");
        return row[index];
      };
      if (parsed.Matches(field)) visible.push_back(i);
    }
  }
  visible_ = std::move(visible);
  filter_ = Trim(criteria).empty() ? std::string() : std::string(criteria);
  position_ = 0;
}

bool Recordset::Find(std::string_view criteria) {
  RequireOpen();
  RecordsetCriteria parsed(criteria);
  if (parsed.ClauseCount() != 1) {
    RaiseWith(3001, "Find takes one clause: " + std::string(criteria), "Recordset");
  }
  if (position_ < 0) position_ = 0;
  for (; position_ < static_cast<int64_t>(visible_.size()); ++position_) {
    const Row& row = rows_[visible_[position_]];
    auto field = [&](std::string_view name) -> const Variant& {
      int index = IndexOf(name);
      if (index < 0) Raise(err::kItemNotFound, "Recordset");
      return row[index];
    };
    if (parsed.Matches(field)) return true;
  }
  return false;
}

void RecordsetTools::CloseRecordset(RecordsetPtr& recordset) {
  if (recordset && recordset->IsOpen()) recordset->Close();
  recordset.reset();
}

bool RecordsetTools::Find(const Recordset& recordset, std::string_view field_name) {
  return recordset.IsOpen() && recordset.HasField(field_name);
}

}  // namespace host
