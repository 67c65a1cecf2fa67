#include "connector/host/DatabaseService.h"

namespace host {

void DatabaseService::RunInsert(const SqlStatement& statement) {
  OpenRecordset(StatementRunner().InsertText(statement), 128, false);
}

void DatabaseService::RunUpdate(const SqlStatement& statement) {
  OpenRecordset(StatementRunner().UpdateText(statement), 128, false);
}

void DatabaseService::RunDelete(const SqlStatement& statement) {
  OpenRecordset(StatementRunner().DeleteText(statement), 128, false);
}

RecordsetPtr DatabaseService::RunSelect(const SqlStatement& statement) {
  return OpenRecordset(StatementRunner().SelectText(statement), 0, true);
}

RecordsetPtr DatabaseService::RunCount(const SqlStatement& statement) {
  return OpenRecordset(StatementRunner().CountText(statement), 0, true);
}

}  // namespace host
