#ifndef LUMARO_CONNECTOR_HOST_DATA_MAINTENANCE_H_
#define LUMARO_CONNECTOR_HOST_DATA_MAINTENANCE_H_

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "connector/host/DatabaseService.h"

namespace host {

// What the maintenance worker tells as it goes: its task, a detail of it
// (a table), and its position.
class DataMaintenanceEvents {
 public:
  virtual ~DataMaintenanceEvents() = default;
  virtual void Progress(std::string_view task, std::string_view detail, int32_t actual,
                        int32_t total) = 0;
};

// The host's worker that repairs its databases. It is given each database
// with the host's schema of it (the tables and columns the host expects),
// then asked for its operations; what each does to the data is the host's.
// A failure is a raised host::Error.
class DataMaintenance {
 public:
  virtual ~DataMaintenance() = default;
  virtual void AddDatabase(DatabaseService& database, std::vector<TableDefinition> schema) = 0;
  virtual void SetEvents(DataMaintenanceEvents* events) = 0;

  // Gives every NULL of a column that has a default that default.
  virtual void VerifyNulls() = 0;
  // The first and second operations on the relations between tables: the
  // rows whose parent is missing, then the consistency of the whole file.
  virtual void CheckRelations() = 0;
  virtual void CheckConsistency() = 0;
  // The operations on the indexes: their statistics gathered anew, and the
  // planner's own tuning.
  virtual void AnalyzeIndexes() = 0;
  virtual void OptimizeIndexes() = 0;
  // Closes each database and opens it again, its schema read anew.
  virtual void Reconnect() = 0;
  // Whether a table of the schema stands in its database.
  virtual bool TableExists(std::string_view table) = 0;
  // Rebuilds the indexes of one table.
  virtual void RebuildTable(std::string_view table) = 0;
};

}  // namespace host

#endif  // LUMARO_CONNECTOR_HOST_DATA_MAINTENANCE_H_
