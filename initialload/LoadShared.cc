#include "initialload/LoadShared.h"

#include "connector/ModConnectorLumaro.h"
#include "connector/host/Conversions.h"
#include "connector/host/Error.h"
#include "connector/host/FieldConverter.h"
#include "connector/host/Text.h"
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

int16_t TaxRegimeOfZone(double zone_code) {
  // The host's tax regimes of partners in the Union and outside it.
  constexpr int16_t kEuropeanRegime = 5;
  constexpr int16_t kOutsideRegime = 6;
  switch (GetZoneType(zone_code)) {
    case 1:
      return kEuropeanRegime;
    case 2:
      return kOutsideRegime;
    default:
      return ModConnectorLumaro::GetSystemSettings()->TaxRegime;
  }
}

void SetAuditColumns(host::SqlStatement& statement) {
  host::SystemContext& context = ModConnectorLumaro::Host().SystemManager().Context();
  statement.Number("WorkstationID", context.CurrentWorkstation().WorkstationID());
  statement.Number("SessionID", context.CurrentSession());
  statement.Number("UserAlt", context.CurrentUser());
  statement.Date("DtAlt", host::Today());
  statement.Time("HrAlt", host::Now());
}

void SetUserAuditColumns(host::SqlStatement& statement) {
  host::SystemContext& context = ModConnectorLumaro::Host().SystemManager().Context();
  statement.Number("UserAlt", context.CurrentUser());
  statement.Date("DtAlt", host::Today());
  statement.Time("HrAlt", host::Now());
}

double ForEachSourceRow(LoadStep& step, host::DatabaseService& source, const std::string& sql,
                        const std::string& task, LoadEvents* events,
                        const std::function<void(const host::Recordset&)>& row) {
  host::RecordsetPtr rs;
  if (!step.Run(1, [&] { rs = source.OpenRecordset(sql); })) return 0;
  double total = rs->RecordCount();
  double count = 0;
  for (; total > 0 && !rs->Eof(); rs->MoveNext()) {
    ++count;
    row(*rs);
    if (events) events->ProgressCurrent(task, count, total);
  }
  host::RecordsetTools::CloseRecordset(rs);
  return total;
}

std::string SourceText(const host::Recordset& row, const char* column) {
  return host::FieldConverter::ToText(row.Fields(column));
}
std::string SourceTrimmed(const host::Recordset& row, const char* column) {
  return host::Trim(SourceText(row, column));
}
double SourceNumber(const host::Recordset& row, const char* column) {
  return host::FieldConverter::ToNumber(row.Fields(column));
}
bool SourceBoolean(const host::Recordset& row, const char* column) {
  return host::FieldConverter::ToBoolean(row.Fields(column));
}
host::Date SourceDate(const host::Recordset& row, const char* column) {
  return host::FieldConverter::ToDate(row.Fields(column));
}
std::string SourceNumberText(const host::Recordset& row, const char* column) {
  return host::NumberText(SourceNumber(row, column));
}
bool SourceHasColumn(const host::Recordset& row, const char* column) {
  const auto& columns = row.Columns();
  if (columns) return columns->IndexOf(column) >= 0;
  for (int i = 0; i < row.FieldCount(); ++i) {
    if (host::UCase(row.FieldName(i)) == host::UCase(column)) return true;
  }
  return false;
}

host::SystemContext& HostContext() { return ModConnectorLumaro::Host().SystemManager().Context(); }
std::string CatalogueText(int32_t id) {
  return ModConnectorLumaro::Host().UIManager().Messages().Text(id);
}

host::KeyDictionary& Keys() { return ModConnectorLumaro::RunDictionary(); }
std::string KeyText(const std::string& key) { return host::CStr(Keys().Item(key)); }
double KeyNumber(const std::string& key) {
  host::Variant value = Keys().Item(key);
  return host::CStr(value).empty() ? 0 : host::CDbl(value);
}

void RunInsertText(const host::SqlStatement& statement) {
  LoadTarget().OpenRecordset(LoadTarget().StatementRunner().InsertText(statement));
}

void RunUpdateText(const host::SqlStatement& statement) {
  LoadTarget().OpenRecordset(LoadTarget().StatementRunner().UpdateText(statement));
}

}  // namespace lumaro
