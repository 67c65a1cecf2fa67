#ifndef LUMARO_STANDALONE_SERVICES_SQLITE_DATA_MAINTENANCE_H_
#define LUMARO_STANDALONE_SERVICES_SQLITE_DATA_MAINTENANCE_H_

#include <utility>
#include <vector>

#include "connector/host/DataMaintenance.h"

namespace standalone {

// The maintenance worker over SQLite databases:
// - nulls: each NULL of a column that declares a default takes it;
// - relations: PRAGMA foreign_key_check, then PRAGMA integrity_check; what
//   either finds is raised, with the first of its findings;
// - indexes: ANALYZE, PRAGMA optimize, and REINDEX of one table;
// - reconnection: SQLite reads a changed schema by itself, so the schema is
//   only read anew.
class SqliteDataMaintenance : public host::DataMaintenance {
 public:
  void AddDatabase(host::DatabaseService& database,
                   std::vector<host::TableDefinition> schema) override;
  void SetEvents(host::DataMaintenanceEvents* events) override { events_ = events; }
  void VerifyNulls() override;
  void CheckRelations() override;
  void CheckConsistency() override;
  void AnalyzeIndexes() override;
  void OptimizeIndexes() override;
  void Reconnect() override;
  bool TableExists(std::string_view table) override;
  void RebuildTable(std::string_view table) override;

 private:
  struct Database {
    host::DatabaseService* service;
    std::vector<host::TableDefinition> schema;
  };
  void Tell(std::string_view task, std::string_view detail, int32_t actual, int32_t total);
  // Runs `sql` on each database.
  void OnEach(const char* sql);

  std::vector<Database> databases_;
  host::DataMaintenanceEvents* events_ = nullptr;
};

}  // namespace standalone

#endif  // LUMARO_STANDALONE_SERVICES_SQLITE_DATA_MAINTENANCE_H_
