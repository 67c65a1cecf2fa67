#ifndef LUMARO_STANDALONE_SCHEMA_POS_SCHEMA_MODEL_H_
#define LUMARO_STANDALONE_SCHEMA_POS_SCHEMA_MODEL_H_

#include <vector>

#include "connector/host/DatabaseService.h"

namespace standalone {

// The POS schema as a model: every table of a fresh POS database with its
// columns (kind and length) in their order, tables by name. Made once, from
// the schema's own statements.
const std::vector<host::TableDefinition>& PosSchemaModel();

}  // namespace standalone

#endif  // LUMARO_STANDALONE_SCHEMA_POS_SCHEMA_MODEL_H_
