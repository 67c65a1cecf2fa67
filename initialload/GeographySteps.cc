// The districts, municipalities and zones of the back office, as the
// provinces, localities and zones of the POS's own country.

#include "connector/ModConnectorLumaro.h"
#include "connector/host/Conversions.h"
#include "connector/host/Text.h"
#include "initialload/BSOUpgBrevantaLumaroTables.h"
#include "initialload/LoadStep.h"

namespace lumaro {
namespace {

constexpr int32_t kEuropeanZone = 3880039;
constexpr int32_t kOutsideZone = 3880040;
// A province or locality id of this length or more is not loaded.
constexpr size_t kLongestCode = 9;

std::string Quote(std::string_view text) { return LoadTarget().SqlFormat().QuoteText(text); }

// A code part in two digits: "7" gives "07"; an empty part gives "00".
std::string TwoDigits(const std::string& part) {
  return part.empty() ? "00" : host::Format(host::Variant(part), "00");
}

// Finds a row of the POS (none when the lookup failed) and closes it.
struct Lookup {
  bool done = false;
  bool found = false;
  host::Variant first;  // the named column of the row found
};
Lookup Look(LoadStep& step, int line, const std::string& sql, const char* column) {
  Lookup lookup;
  lookup.done = step.Run(line, [&] {
    std::optional<host::Variant> value = FirstValue(LoadTarget(), sql, column);
    lookup.found = value.has_value();
    if (value) lookup.first = *value;
  });
  return lookup;
}

}  // namespace

void BSOUpgBrevantaLumaroTables::Upgrade_ProvinceCodes() {
  LoadStep step("Upgrade_ProvinceCodes");
  Progress("ProvinceCodes");
  const std::string country = ModConnectorLumaro::GetSystemSettings()->CountryID;
  host::SqlStatement statement;
  statement.SetTable("ProvinceCodes");
  ForEachSourceRow(
      step, source_.Get(), "SELECT * From Distr", "ProvinceCodes", events_,
      [&](const host::Recordset& rs) {
        std::string code;
        std::string province;
        step.Run(2, [&] {
          code = SourceTrimmed(rs, "CDist");
          province = TwoDigits(code);
        });
        if (province.size() > kLongestCode) return;
        statement.ClearColumns();
        statement.SetOperation(2);
        statement.Text("CountryID", country);
        statement.Text("ProvinceID", province);
        step.Run(3, [&] { statement.Text("ProvinceName", SourceTrimmed(rs, "DESCR")); });
        SetUserAuditColumns(statement);
        Lookup row = Look(step, 4,
                          "SELECT * FROM [ProvinceCodes] WHERE [CountryID] = '" + Quote(country) +
                              "' AND [ProvinceID] = '" + Quote(province) + "'",
                          "ProvinceID");
        if (!row.done) return;
        const std::string key = "ProvinceCodes|" + code;
        if (!row.found) {
          step.Run(5, [&] { RunInsertText(statement); });
          step.Run(6, [&] { Keys().Add(host::Variant(province), key); });
          return;
        }
        std::string existing = host::Trim(host::CStr(row.first));
        statement.KeyText("CountryID", country);
        statement.KeyText("ProvinceID", existing);
        step.Run(7, [&] { RunUpdateText(statement); });
        step.Run(8, [&] { Keys().Add(host::Variant(existing), key); });
        // The municipalities of a district there already are
        // made anew by the next step.
        step.Run(9, [&] {
          LoadTarget().OpenRecordset("DELETE FROM LocalityCodes WHERE [CountryID] = '" + country +
                                     "' AND ProvinceID ='" + province + "'");
        });
      });
}

void BSOUpgBrevantaLumaroTables::Upgrade_LocalityCodes() {
  LoadStep step("Upgrade_LocalityCodes");
  Progress("LocalityCodes");
  const std::string country = ModConnectorLumaro::GetSystemSettings()->CountryID;
  host::SqlStatement statement;
  statement.SetTable("LocalityCodes");
  ForEachSourceRow(
      step, source_.Get(), "SELECT * From Conce", "LocalityCodes", events_,
      [&](const host::Recordset& rs) {
        // All but the last two characters are the district, those two the
        // municipality.
        std::string code;
        std::string province;
        std::string locality;
        step.Run(2, [&] {
          code = SourceTrimmed(rs, "CConc");
          size_t split = code.size() < 2 ? 0 : code.size() - 2;
          province = TwoDigits(code.substr(0, split));
          locality = TwoDigits(code.substr(split));
        });
        if (locality.size() > kLongestCode) return;
        statement.ClearColumns();
        statement.SetOperation(2);
        Lookup row;
        step.Run(3, [&] {
          double number = host::CDbl(host::Variant(locality));
          row = Look(step, 4,
                     "SELECT * FROM [LocalityCodes] WHERE [CountryID] = '" + Quote(country) +
                         "' AND [ProvinceID] = '" + Quote(province) +
                         "' AND [LocalityID] = " + host::NumberText(number),
                     "ProvinceID");
          statement.Text("CountryID", country);
          statement.Text("ProvinceID", province);
          statement.Number("LocalityID", number);
        });
        step.Run(5, [&] { statement.Text("LocalityName", SourceTrimmed(rs, "DESCR")); });
        SetUserAuditColumns(statement);
        if (!row.done) return;
        const std::string key = "LocalityCodes|" + code;
        if (!row.found) {
          step.Run(6, [&] { RunInsertText(statement); });
          step.Run(7, [&] { Keys().Add(host::Variant(locality), key); });
          return;
        }
        std::string existing = host::Trim(host::CStr(row.first));
        statement.KeyText("CountryID", country);
        statement.KeyText("ProvinceID", existing);
        step.Run(8,
                 [&] { statement.KeyNumber("LocalityID", host::CDbl(host::Variant(locality))); });
        step.Run(9, [&] { RunUpdateText(statement); });
        // Kept as it always was: a locality there already leaves its
        // province's id under the key, a new one its own id. Readers take
        // the value as a number.
        step.Run(10, [&] { Keys().Add(host::Variant(existing), key); });
      });
}

void BSOUpgBrevantaLumaroTables::Upgrade_Zone() {
  LoadStep step("Upgrade_Zone");
  Progress("Zone");
  std::shared_ptr<host::SystemSettings> settings = ModConnectorLumaro::GetSystemSettings();
  const std::string currency = HostContext().Defaults().CurrencyID;
  std::string sql = "SELECT * FROM ZPais";
  if (!ZoneLimit.empty()) sql += " WHERE CPais IN (" + ZoneLimit + ")";
  host::SqlStatement statement;
  statement.SetTable("Zone");
  ForEachSourceRow(step, source_.Get(), sql, "Zone", events_, [&](const host::Recordset& rs) {
    statement.ClearColumns();
    statement.SetOperation(2);
    std::string description;
    double code = 0;
    step.Run(2, [&] {
      description = SourceTrimmed(rs, "DESCR");
      if (description.empty()) description = SourceTrimmed(rs, "Sigla");
      statement.Text("Description", description);
    });
    step.Run(3, [&] {
      code = SourceNumber(rs, "CPais");
      statement.Number("ZoneType", GetZoneType(code));
    });
    step.Run(4, [&] { statement.Text("ZoneKey", SourceText(rs, "CPais")); });
    statement.Text("CountryID", settings->CountryID);
    statement.Text("CurrencyID", currency);
    statement.Text("TaxRegionID", settings->TaxRegionID);
    SetAuditColumns(statement);
    // A zone is known by its description.
    Lookup row =
        Look(step, 5, "SELECT ZoneID FROM [Zone]  WHERE Description = '" + Quote(description) + "'",
             "ZoneID");
    if (!row.done) return;
    double zone_id = 0;
    if (!row.found) {
      zone_id = GetNewIDFromTable("Zone", "ZoneID");
      statement.Number("ZoneID", zone_id);
      step.Run(6, [&] { RunInsertText(statement); });
    } else {
      zone_id = host::CDbl(row.first);
      statement.KeyNumber("ZoneID", zone_id);
      step.Run(7, [&] { RunUpdateText(statement); });
    }
    step.Run(8, [&] { Keys().Add(host::Variant(zone_id), "Zone|" + host::NumberText(code)); });
  });
  if (!initialize_mode_) Create_ZoneEX();
  step.Run(9, [&] {
    const std::string first = "Select TOP 1 ZoneID FROM [Zone]";
    std::optional<host::Variant> zone = FirstValue(LoadTarget(), first, "ZoneID");
    if (!zone) {
      Create_ZoneUE();
      zone = FirstValue(LoadTarget(), first, "ZoneID");
    }
    if (zone) Keys().Add(*zone, "Zone|");
  });
}

void BSOUpgBrevantaLumaroTables::Create_ZoneUE() {
  CreateZone("Create_ZoneUE", kEuropeanZone, 1, "Zone|UE");
}

void BSOUpgBrevantaLumaroTables::Create_ZoneEX() {
  CreateZone("Create_ZoneEX", kOutsideZone, 2, "Zone|EX");
}

void BSOUpgBrevantaLumaroTables::CreateZone(const char* step_name, int32_t description,
                                            int16_t zone_type, const char* key) {
  LoadStep step(step_name);
  std::shared_ptr<host::SystemSettings> settings = ModConnectorLumaro::GetSystemSettings();
  host::SqlStatement statement;
  statement.SetTable("Zone");
  statement.SetOperation(2);
  statement.Text("Description", CatalogueText(description));
  statement.Number("ZoneType", zone_type);
  statement.Text("CurrencyID", HostContext().Defaults().CurrencyID);
  statement.Text("CountryID", settings->CountryID);
  statement.Text("TaxRegionID", settings->TaxRegionID);
  SetAuditColumns(statement);
  // No lookup first: each call makes a zone.
  double zone_id = GetNewIDFromTable("Zone", "ZoneID");
  statement.Number("ZoneID", zone_id);
  step.Run(1, [&] { RunInsertText(statement); });
  step.Run(2, [&] { Keys().Add(host::Variant(zone_id), key); });
}

}  // namespace lumaro
