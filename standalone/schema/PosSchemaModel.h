#ifndef LUMARO_STANDALONE_SCHEMA_POS_SCHEMA_MODEL_H_
#define LUMARO_STANDALONE_SCHEMA_POS_SCHEMA_MODEL_H_

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "connector/host/DatabaseService.h"

namespace standalone {

// The POS schema as a model: every table of a fresh POS database with its
// columns (kind and length) in their order, tables by name. Made once, from
// the schema's own statements.
const std::vector<host::TableDefinition>& PosSchemaModel();

// A column of the POS schema as declared: its type and its default, the
// default as SQLite's table_info gives it (a quoted text, a number, an
// expression), none when it has none.
struct ColumnDeclaration {
  std::string name;
  std::string type;
  std::optional<std::string> default_text;
};

// The columns of one table of the POS schema (its name in any case), in
// their order; none for a table the schema lacks.
const std::vector<ColumnDeclaration>& PosColumnDeclarations(std::string_view table);

}  // namespace standalone

#endif  // LUMARO_STANDALONE_SCHEMA_POS_SCHEMA_MODEL_H_
