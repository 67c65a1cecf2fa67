#include "initialload/LoadShared.h"

#include "connector/ModConnectorLumaro.h"
#include "connector/host/Error.h"
#include "connector/host/FieldConverter.h"
#include "initialload/LoadStep.h"

namespace lumaro {

SourceDatabase::~SourceDatabase() {
  if (!source_) return;
  try {
    source_->Disconnect();
  } catch (const host::Error&) {
    // Closing what is going anyway (another load object may have closed it).
  }
}

host::DatabaseService& SourceDatabase::Get() {
  if (!source_) host::Raise(host::err::kObjectNotSet, "SourceDatabase");
  return *source_;
}

host::DatabaseService& LoadTarget() {
  return ModConnectorLumaro::Host().DataManager().Connection().Database();
}

std::optional<host::Variant> FirstValue(host::DatabaseService& db, const std::string& sql,
                                        const char* column) {
  host::RecordsetPtr rs = db.OpenRecordset(sql);
  std::optional<host::Variant> value;
  if (!rs->Eof()) value = rs->Fields(column);
  host::RecordsetTools::CloseRecordset(rs);
  return value;
}

bool HasRows(host::DatabaseService& db, const std::string& sql) {
  host::RecordsetPtr rs = db.OpenRecordset(sql);
  bool any = !rs->Eof();
  host::RecordsetTools::CloseRecordset(rs);
  return any;
}

double GetNewIDFromTable(const std::string& table, const std::string& field) {
  double id = 0;
  LoadStep("GetNewIDFromTable").Run(1, [&] {
    host::RecordsetPtr rs =
        LoadTarget().OpenRecordset("SELECT MAX([" + field + "])+1 FROM [" + table + "]");
    id = rs->Eof() || rs->Fields(0).IsNull() ? 1 : host::FieldConverter::ToNumber(rs->Fields(0));
    host::RecordsetTools::CloseRecordset(rs);
  });
  return id;
}

int16_t GetZoneType(double code) {
  if (code >= 500 && code <= 699) return 1;
  if (code >= 700 && code <= 999) return 2;
  return 0;
}

std::string GetCountryID(double code) {
  std::string country;
  LoadStep("GetCountryID").Run(1, [&] {
    if (code >= 1 && code <= 499) country = ModConnectorLumaro::GetSystemSettings()->CountryID;
  });
  return country;
}

void SetAuditColumns(host::SqlStatement& statement) {
  host::SystemContext& context = ModConnectorLumaro::Host().SystemManager().Context();
  statement.Number("WorkstationID", context.CurrentWorkstation().WorkstationID());
  statement.Number("SessionID", context.CurrentSession());
  statement.Number("UserAlt", context.CurrentUser());
  statement.Date("DtAlt", host::Today());
  statement.Time("HrAlt", host::Now());
}

void RunInsertText(const host::SqlStatement& statement) {
  LoadTarget().OpenRecordset(LoadTarget().StatementRunner().InsertText(statement));
}

void RunUpdateText(const host::SqlStatement& statement) {
  LoadTarget().OpenRecordset(LoadTarget().StatementRunner().UpdateText(statement));
}

}  // namespace lumaro
