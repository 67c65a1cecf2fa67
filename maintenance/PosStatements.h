#ifndef LUMARO_MAINTENANCE_POS_STATEMENTS_H_
#define LUMARO_MAINTENANCE_POS_STATEMENTS_H_

#include <string>

#include "connector/ModConnectorLumaro.h"

namespace lumaro {

// The host's POS database, on which the clearing runs.
inline host::DatabaseService& PosDatabase() {
  return ModConnectorLumaro::Host().DataManager().Connection().Database();
}

// Runs one statement on the POS database; a failure raises.
inline void RunOnPos(const std::string& sql) { PosDatabase().OpenRecordset(sql); }

}  // namespace lumaro

#endif  // LUMARO_MAINTENANCE_POS_STATEMENTS_H_
