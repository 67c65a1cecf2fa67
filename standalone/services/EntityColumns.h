#ifndef LUMARO_STANDALONE_SERVICES_ENTITY_COLUMNS_H_
#define LUMARO_STANDALONE_SERVICES_ENTITY_COLUMNS_H_

// The columns of a table, each with the member of the entity (or row of a
// collection) that holds it, so that reading a row and writing one go
// through one list.

#include <cstdint>
#include <initializer_list>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <variant>
#include <vector>

#include "connector/host/FieldConverter.h"
#include "connector/host/Recordset.h"
#include "connector/host/RowReader.h"
#include "connector/host/SqlStatement.h"
#include "standalone/services/EntityRows.h"

namespace standalone {

template <typename Entity>
class EntityColumns {
 public:
  using Member =
      std::variant<std::string Entity::*, double Entity::*, int16_t Entity::*, int32_t Entity::*,
                   bool Entity::*, std::optional<host::Date> Entity::*>;
  struct Column {
    const char* name;
    Member member;
  };

  EntityColumns(std::initializer_list<Column> columns) : columns_(columns) {}
  // The first `key_count` columns name a row among the rows of one entity
  // (text or numbers): a row can be written over in place.
  EntityColumns(std::initializer_list<Column> columns, size_t key_count)
      : columns_(columns), key_count_(key_count) {}

  bool HasKey() const { return key_count_ > 0; }

  // The column names, "A, B, C": what a SELECT of the rows reads.
  std::string NameList() const {
    std::string list;
    for (const Column& column : columns_) {
      if (!list.empty()) list += ", ";
      list += column.name;
    }
    return list;
  }

  // A row's columns into the entity's members: for a recordset's current
  // row, what its fields give.
  void Read(const host::RowReader& row, Entity& entity) const {
    const std::vector<int>& positions = PositionsIn(row.Columns());
    for (size_t i = 0; i < columns_.size(); ++i) {
      const Column& column = columns_[i];
      const int at = positions[i];
      // A missing field raises as a recordset's read by name does.
      if (at < 0) host::RaiseNoSuchField(column.name);
      std::visit(
          [&](auto member) {
            auto& field = entity.*member;
            using Field = std::decay_t<decltype(field)>;
            if constexpr (std::is_same_v<Field, std::string>) {
              row.TextInto(at, field);
            } else if constexpr (std::is_same_v<Field, bool>) {
              field = row.Truth(at);
            } else if constexpr (std::is_same_v<Field, std::optional<host::Date>>) {
              field = DateOrNull(row.Value(at));
            } else {
              field = static_cast<Field>(row.Number(at));
            }
          },
          column.member);
    }
  }

  // The current row's columns into the entity's members.
  void Read(const host::Recordset& row, Entity& entity) const {
    row.FieldCount();  // a closed recordset raises first, as a read of a field does
    Read(host::RecordsetRowReader(row), entity);
  }

  // Whether two entities hold the same values in every listed member: what
  // Write would write for one it would write for the other.
  bool Same(const Entity& a, const Entity& b) const { return SameIn(a, b, 0, columns_.size()); }
  // Whether the two rows have the same key.
  bool SameKey(const Entity& a, const Entity& b) const { return SameIn(a, b, 0, key_count_); }

  bool SameRows(const std::vector<Entity>& a, const std::vector<Entity>& b) const {
    if (a.size() != b.size()) return false;
    for (size_t i = 0; i < a.size(); ++i) {
      if (!Same(a[i], b[i])) return false;
    }
    return true;
  }

  // Calls `visit(name, text)` for each text column, in order.
  template <typename Visit>
  void ForEachText(const Entity& entity, Visit visit) const {
    for (const Column& column : columns_) {
      if (const auto* member = std::get_if<std::string Entity::*>(&column.member)) {
        visit(column.name, entity.**member);
      }
    }
  }

  // The entity's members into the statement's columns.
  void Write(const Entity& entity, host::SqlStatement& statement) const {
    // With room for an id or two that the caller adds after.
    statement.ReserveColumns(statement.Columns().size() + columns_.size() + 2);
    WriteFrom(0, columns_.size(), entity, statement);
  }

  // The members in which `entity` differs from `before` into the
  // statement's columns: an UPDATE that leaves the others, and the indexes
  // on them, as they are.
  void WriteChanged(const Entity& entity, const Entity& before,
                    host::SqlStatement& statement) const {
    const bool fresh = NoneSetIn(statement);
    for (size_t i = 0; i < columns_.size(); ++i) {
      if (!SameIn(entity, before, i, i + 1)) WriteColumn(i, entity, statement, fresh);
    }
  }

  // The key's members into the statement's keys, the others into its
  // columns: an UPDATE of the one row.
  void WriteInPlace(const Entity& entity, host::SqlStatement& statement) const {
    for (size_t i = 0; i < key_count_; ++i) {
      std::visit(
          [&](auto member) {
            const auto& field = entity.*member;
            using Field = std::decay_t<decltype(field)>;
            if constexpr (std::is_same_v<Field, std::string>) {
              statement.KeyText(columns_[i].name, field);
            } else if constexpr (std::is_arithmetic_v<Field> && !std::is_same_v<Field, bool>) {
              statement.KeyNumber(columns_[i].name, field);
            } else {
              throw std::logic_error("a key column is text or a number");
            }
          },
          columns_[i].member);
    }
    WriteFrom(key_count_, columns_.size(), entity, statement);
  }

 private:
  // The position of each column among a query's columns, found once for
  // the rows of one statement (they share their columns); the last found
  // is kept, for the thread that asks.
  const std::vector<int>& PositionsIn(
      const std::shared_ptr<const host::RecordsetColumns>& columns) const {
    struct Found {
      const EntityColumns* owner = nullptr;
      std::shared_ptr<const host::RecordsetColumns>
          columns;  // kept alive: no other can take its place
      std::vector<int> positions;
    };
    thread_local Found found;
    if (found.owner != this || found.columns != columns || !columns) {
      found.owner = this;
      found.columns = columns;
      found.positions.clear();
      for (const Column& column : columns_) {
        found.positions.push_back(columns ? columns->IndexOf(column.name) : -1);
      }
    }
    return found.positions;
  }

  // Over the columns [first, end).
  bool SameIn(const Entity& a, const Entity& b, size_t first, size_t end) const {
    for (size_t i = first; i < end; ++i) {
      bool same =
          std::visit([&](auto member) { return a.*member == b.*member; }, columns_[i].member);
      if (!same) return false;
    }
    return true;
  }

  // Whether the statement has none of these columns yet. Each name is in
  // the list once, so that then every column can be added without looking
  // for it among those already set.
  bool NoneSetIn(const host::SqlStatement& statement) const {
    for (const auto& set : statement.Columns()) {
      for (const Column& column : columns_) {
        if (set.name == column.name) return false;
      }
    }
    return true;
  }

  void WriteFrom(size_t first, size_t end, const Entity& entity,
                 host::SqlStatement& statement) const {
    const bool fresh = NoneSetIn(statement);
    for (size_t i = first; i < end; ++i) WriteColumn(i, entity, statement, fresh);
  }

  // Column `i` into the statement; `fresh`: it is not set there yet.
  void WriteColumn(size_t i, const Entity& entity, host::SqlStatement& statement,
                   bool fresh) const {
    const Column& column = columns_[i];
    host::SqlValue value = std::visit(
        [&](auto member) {
          const auto& field = entity.*member;
          using Field = std::decay_t<decltype(field)>;
          if constexpr (std::is_same_v<Field, std::string>) {
            return host::SqlValue::Text(field);
          } else if constexpr (std::is_same_v<Field, bool>) {
            return host::SqlValue::Boolean(field);
          } else if constexpr (std::is_same_v<Field, std::optional<host::Date>>) {
            return DateOrNullValue(field);
          } else {
            return host::SqlValue::Number(field);
          }
        },
        column.member);
    if (fresh) {
      statement.AddNewColumn(column.name, std::move(value));
    } else {
      statement.Set(column.name, std::move(value));
    }
  }

  std::vector<Column> columns_;
  size_t key_count_ = 0;
};

// Writes the entity's row of `table`, whose id column `id_column` is `id`:
// inserts it when `is_new`, else updates the row of that id (none updates
// nothing).
template <typename Entity>
void SaveRow(EntityWriter& writer, const char* table, const EntityColumns<Entity>& columns,
             const Entity& entity, const char* id_column, double id, bool is_new) {
  host::SqlStatement row;
  row.SetTable(table);
  columns.Write(entity, row);
  if (is_new) {
    row.Number(id_column, id);
    writer.Insert(std::move(row));
  } else {
    row.KeyNumber(id_column, id);
    writer.Update(std::move(row));
  }
}

}  // namespace standalone

#endif  // LUMARO_STANDALONE_SERVICES_ENTITY_COLUMNS_H_
