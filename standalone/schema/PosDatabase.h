#ifndef LUMARO_STANDALONE_SCHEMA_POS_DATABASE_H_
#define LUMARO_STANDALONE_SCHEMA_POS_DATABASE_H_

#include "standalone/PosEngine.h"

namespace standalone {

enum class PreparedAs { kCreated, kUpgraded, kCurrent };

// Brings a POS database to the current schema version in one transaction:
// an empty database gets the schema and the factory data of a fresh POS; an
// older one its upgrade steps; a current one nothing. Raises, changing
// nothing, for a database that is newer than this program or that holds
// tables but no POS schema.
PreparedAs PreparePosDatabase(PosEngine& database);

}  // namespace standalone

#endif  // LUMARO_STANDALONE_SCHEMA_POS_DATABASE_H_
