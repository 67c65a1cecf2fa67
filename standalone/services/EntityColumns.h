#ifndef LUMARO_STANDALONE_SERVICES_ENTITY_COLUMNS_H_
#define LUMARO_STANDALONE_SERVICES_ENTITY_COLUMNS_H_

// The columns of a table, each with the member of the entity (or row of a
// collection) that holds it, so that reading a row and writing one go
// through one list.

#include <cstdint>
#include <initializer_list>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "connector/host/FieldConverter.h"
#include "connector/host/Recordset.h"
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

  // The current row's columns into the entity's members.
  void Read(const host::Recordset& row, Entity& entity) const {
    using host::FieldConverter;
    for (const Column& column : columns_) {
      const host::Variant& value = row.Fields(column.name);
      std::visit(
          [&](auto member) {
            auto& field = entity.*member;
            using Field = std::decay_t<decltype(field)>;
            if constexpr (std::is_same_v<Field, std::string>) {
              field = FieldConverter::ToText(value);
            } else if constexpr (std::is_same_v<Field, bool>) {
              field = FieldConverter::ToBoolean(value);
            } else if constexpr (std::is_same_v<Field, std::optional<host::Date>>) {
              field = DateOrNull(value);
            } else {
              field = static_cast<Field>(FieldConverter::ToNumber(value));
            }
          },
          column.member);
    }
  }

  // Whether two entities hold the same values in every listed member: what
  // Write would write for one it would write for the other.
  bool Same(const Entity& a, const Entity& b) const {
    for (const Column& column : columns_) {
      bool same = std::visit([&](auto member) { return a.*member == b.*member; }, column.member);
      if (!same) return false;
    }
    return true;
  }

  bool SameRows(const std::vector<Entity>& a, const std::vector<Entity>& b) const {
    if (a.size() != b.size()) return false;
    for (size_t i = 0; i < a.size(); ++i) {
      if (!Same(a[i], b[i])) return false;
    }
    return true;
  }

  // The entity's members into the statement's columns.
  void Write(const Entity& entity, host::SqlStatement& statement) const {
    for (const Column& column : columns_) {
      std::visit(
          [&](auto member) {
            const auto& field = entity.*member;
            using Field = std::decay_t<decltype(field)>;
            if constexpr (std::is_same_v<Field, std::string>) {
              statement.Text(column.name, field);
            } else if constexpr (std::is_same_v<Field, bool>) {
              statement.Boolean(column.name, field);
            } else if constexpr (std::is_same_v<Field, std::optional<host::Date>>) {
              SetDate(statement, column.name, field);
            } else {
              statement.Number(column.name, field);
            }
          },
          column.member);
    }
  }

 private:
  std::vector<Column> columns_;
};

}  // namespace standalone

#endif  // LUMARO_STANDALONE_SERVICES_ENTITY_COLUMNS_H_
