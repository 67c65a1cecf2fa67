#include "standalone/services/SqliteDataMaintenance.h"

#include "connector/host/Error.h"
#include "connector/host/FieldConverter.h"

namespace standalone {
namespace {

using host::FieldConverter;

// Raises what a check found: its count and its first finding.
void RaiseFindings(const char* what, int count, const std::string& first) {
  if (count == 0) return;
  host::RaiseWith(host::err::kSqlRefused,
                  std::to_string(count) + " " + what + " found; the first: " + first,
                  "DataMaintenance");
}

}  // namespace

void SqliteDataMaintenance::AddDatabase(host::DatabaseService& database,
                                        std::vector<host::TableDefinition> schema) {
  databases_.push_back({&database, std::move(schema)});
}

void SqliteDataMaintenance::Tell(std::string_view task, std::string_view detail, int32_t actual,
                                 int32_t total) {
  if (events_) events_->Progress(task, detail, actual, total);
}

void SqliteDataMaintenance::OnEach(const char* sql) {
  for (Database& database : databases_) database.service->OpenRecordset(sql);
}

void SqliteDataMaintenance::VerifyNulls() {
  for (Database& database : databases_) {
    host::DatabaseService& db = *database.service;
    int32_t position = 0;
    const int32_t total = static_cast<int32_t>(database.schema.size());
    for (const host::TableDefinition& table : database.schema) {
      Tell("Nulls", table.name, ++position, total);
      if (!db.Schema().TableExists(table.name)) continue;
      host::RecordsetPtr columns =
          db.OpenRecordset("SELECT name, dflt_value FROM pragma_table_info('" + table.name + "')");
      for (; !columns->Eof(); columns->MoveNext()) {
        if (columns->Fields("dflt_value").IsNull()) continue;
        std::string column = FieldConverter::ToText(columns->Fields("name"));
        db.OpenRecordset("UPDATE [" + table.name + "] SET [" + column +
                         "] = " + FieldConverter::ToText(columns->Fields("dflt_value")) +
                         " WHERE [" + column + "] IS NULL");
      }
    }
  }
}

void SqliteDataMaintenance::CheckRelations() {
  for (Database& database : databases_) {
    Tell("Relations", "", 1, 1);
    host::RecordsetPtr found = database.service->OpenRecordset("PRAGMA foreign_key_check");
    std::string first;
    if (!found->Eof()) {
      first = "a row of " + FieldConverter::ToText(found->Fields(0)) + " refers to a missing " +
              FieldConverter::ToText(found->Fields(2));
    }
    RaiseFindings("rows without their parent", found->Eof() ? 0 : found->RecordCount(), first);
  }
}

void SqliteDataMaintenance::CheckConsistency() {
  for (Database& database : databases_) {
    Tell("Consistency", "", 1, 1);
    host::RecordsetPtr found = database.service->OpenRecordset("PRAGMA integrity_check");
    std::string first = found->Eof() ? "ok" : FieldConverter::ToText(found->Fields(0));
    if (first != "ok") RaiseFindings("faults of the file", found->RecordCount(), first);
  }
}

void SqliteDataMaintenance::AnalyzeIndexes() { OnEach("ANALYZE"); }

void SqliteDataMaintenance::OptimizeIndexes() { OnEach("PRAGMA optimize"); }

void SqliteDataMaintenance::Reconnect() {
  for (Database& database : databases_) database.service->Schema().Refresh();
}

bool SqliteDataMaintenance::TableExists(std::string_view table) {
  for (Database& database : databases_) {
    if (database.service->Schema().TableExists(table)) return true;
  }
  return false;
}

void SqliteDataMaintenance::RebuildTable(std::string_view table) {
  for (Database& database : databases_) {
    if (database.service->Schema().TableExists(table)) {
      database.service->OpenRecordset("REINDEX [" + std::string(table) + "]");
    }
  }
}

}  // namespace standalone
