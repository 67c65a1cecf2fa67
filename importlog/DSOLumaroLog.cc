#include "importlog/DSOLumaroLog.h"

#include "connector/ModConnectorLumaro.h"
#include "connector/host/DatabaseService.h"
#include "connector/host/Error.h"
#include "connector/host/FieldConverter.h"

namespace lumaro {
namespace {

constexpr char kTable[] = "LumaroLog";

host::DatabaseService& Database() {
  return ModConnectorLumaro::Host().DataManager().Connection().Database();
}

host::SqlStatement KeyedStatement(int16_t workstation_id, const std::string& filename) {
  host::SqlStatement statement;
  statement.SetTable(kTable);
  statement.KeyNumber("WorkstationID", workstation_id);
  statement.KeyText("Filename", filename);
  return statement;
}

}  // namespace

host::RecordsetPtr DSOLumaroLog::GetLumaroLogRS() {
  try {
    return Database().OpenRecordset(
        "SELECT WorkstationID, Filename, ImportDate, FileSize, FileDate FROM LumaroLog ORDER BY "
        "WorkstationID, ImportDate, FileDate DESC");
  } catch (const host::Error&) {
    return nullptr;
  }
}

bool DSOLumaroLog::Delete(int16_t workstation_id, const std::string& filename) {
  try {
    Database().RunDelete(KeyedStatement(workstation_id, filename));
    return true;
  } catch (const host::Error&) {
    return false;
  }
}

bool DSOLumaroLog::Save(const LumaroLog& log) {
  try {
    host::SqlStatement statement;
    statement.SetTable(kTable);
    if (log.IsNew) {
      statement.Number("WorkstationID", log.WorkstationID);
      statement.Text("Filename", log.Filename);
    } else {
      statement.KeyNumber("WorkstationID", log.WorkstationID);
      statement.KeyText("Filename", log.Filename);
    }
    statement.DateTime("ImportDate", host::Now());
    statement.Number("FileSize", log.FileSize);
    statement.DateTime("FileDate", log.FileDate);
    host::DatabaseService& db = Database();
    if (log.IsNew) {
      db.RunInsert(statement);
    } else {
      db.RunUpdate(statement);
    }
    return true;
  } catch (const host::Error&) {
    return false;
  }
}

std::unique_ptr<LumaroLog> DSOLumaroLog::GetLogInfo(int16_t workstation_id,
                                                    const std::string& filename) {
  host::RecordsetPtr rs;
  try {
    host::SqlStatement statement = KeyedStatement(workstation_id, filename);
    statement.SelectColumn("FileDate");
    statement.SelectColumn("FileSize");
    statement.SelectColumn("ImportDate");
    rs = Database().RunSelect(statement);
    std::unique_ptr<LumaroLog> log;
    if (!rs->Eof()) {
      log = std::make_unique<LumaroLog>();
      log->WorkstationID = workstation_id;
      log->Filename = filename;
      log->FileDate = host::FieldConverter::ToDate(rs->Fields("FileDate"));
      log->FileSize = static_cast<float>(host::FieldConverter::ToNumber(rs->Fields("FileSize")));
      log->ImportDate = host::FieldConverter::ToDate(rs->Fields("ImportDate"));
    }
    host::RecordsetTools::CloseRecordset(rs);
    return log;
  } catch (const host::Error&) {
    host::RecordsetTools::CloseRecordset(rs);
    return nullptr;
  }
}

bool DSOLumaroLog::CheckOrCreateLumaroLogTable() {
  try {
    host::SchemaService& schema = Database().Schema();
    if (schema.TableExists(kTable)) return true;
    using Type = host::TableDefinition::ColumnType;
    host::TableDefinition table;
    table.name = kTable;
    table.columns = {{"WorkstationID", Type::kInteger, 0},
                     {"Filename", Type::kText, 50},
                     {"ImportDate", Type::kDate, 0},
                     {"FileSize", Type::kBigInteger, 0},
                     {"FileDate", Type::kDate, 0}};
    table.indexes = {{"LumaroLog_IDX", {"WorkstationID", "Filename"}}};
    schema.AppendTable(table);
    schema.Refresh();
    return true;
  } catch (const host::Error&) {
    return false;
  }
}

}  // namespace lumaro
