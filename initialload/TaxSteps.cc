// The steps of the load that bring the taxes: the rates of the back office,
// its exemption reason, its application parameters, and the tax classes by
// the back office's tax types.

#include <optional>

#include "connector/ModConnectorLumaro.h"
#include "connector/host/Conversions.h"
#include "connector/host/Error.h"
#include "connector/host/FieldConverter.h"
#include "connector/host/Text.h"
#include "initialload/BSOUpgBrevantaLumaroTables.h"
#include "initialload/LoadStep.h"

namespace lumaro {
namespace {

// The host's IVA class (its TaxSequenceID: 1 normal, 2 intermediate, 3
// reduced, 4 exempt) of a rate, by exact comparison of the rate.
int16_t ClassOfRate(double rate, const std::string& region) {
  // 13 % is the intermediate rate on the mainland and the normal one
  // elsewhere.
  if (rate == 13) return host::EqualsNoCase(region, "CON") ? 2 : 1;
  if (rate == 14 || rate == 15 || rate == 19 || rate == 20 || rate == 21 || rate == 23) return 1;
  if (rate == 8 || rate == 9 || rate == 12) return 2;
  if (rate == 4 || rate == 5 || rate == 6) return 3;
  if (rate == 0) return 4;
  return 1;
}

// The back office numbers its tax types otherwise: its type 2 is class 1, 3
// is class 2, 1 is class 3 and 4 is class 4.
int16_t TaxTypeOfClass(int16_t tax_class) {
  static constexpr int16_t kTypes[] = {0, 2, 3, 1, 4};
  return kTypes[tax_class];
}

// The prefix of the back office's parameter of the host's IVA class
// `sequence` (1 to 3) in `region`; empty for a region of none. The region
// "AUT" reads the parameters of "MA" on purpose.
std::string RatePrefix(const std::string& region, int sequence) {
  static constexpr char kClassLetter[] = {' ', 'N', 'I', 'R'};
  char place;
  if (host::EqualsNoCase(region, "CON")) {
    place = 'C';
  } else if (host::EqualsNoCase(region, "MA") || host::EqualsNoCase(region, "AUT")) {
    place = 'M';
  } else if (host::EqualsNoCase(region, "AC")) {
    place = 'A';
  } else {
    return "";
  }
  return std::string("TxIva") + place + kClassLetter[sequence];
}

}  // namespace

std::string BSOUpgBrevantaLumaroTables::GetParameterKeyByDate(const std::string& prefix) {
  std::string n = std::to_string(prefix.size());
  double today = host::NumberTools::ParseNumber(host::FormatDate(host::Today(), "yyyymmdd"), ",");
  // The start 8 stands fixed, whatever the prefix's length.
  host::RecordsetPtr rs = source_.Get().OpenRecordset(
      "SELECT substring(CPar,8, Len(CPar)-" + n + ") AS ParValue From ParEmp WHERE left(CPar," + n +
      ")='" + prefix + "'" + " AND Cast(substring(CPar," + n + "+1,len(CPar)-" + n +
      ") AS Float)<=" + host::NumberText(today) + " ORDER BY CPar DESC");
  std::string key = prefix;
  if (!rs->Eof()) key += host::FieldConverter::ToText(rs->Fields("ParValue"));
  host::RecordsetTools::CloseRecordset(rs);
  return key;
}

void BSOUpgBrevantaLumaroTables::Upgrade_Taxes() {
  LoadStep step("Upgrade_Taxes");
  // Kept from one class to the next: a region of none leaves the statement
  // of the class before in place.
  std::string source_sql;
  for (int sequence = 1; sequence <= 4; ++sequence) {
    step.Run(sequence, [&] {
      std::shared_ptr<host::SystemSettings> settings = ModConnectorLumaro::GetSystemSettings();
      if (sequence == 4) {
        source_sql = "SELECT 0 AS TaxRate FROM ParEmp";
      } else if (std::string prefix = RatePrefix(settings->TaxRegionID, sequence);
                 !prefix.empty()) {
        source_sql = "SELECT Valor AS TaxRate FROM ParEmp WHERE CPar='" +
                     GetParameterKeyByDate(prefix) + "'";
      }
      std::optional<host::Variant> rate = FirstValue(source_.Get(), source_sql, "TaxRate");
      if (!rate) return;
      double source_rate = host::FieldConverter::ToNumber(*rate);
      host::DatabaseService& pos = LoadTarget();
      const host::SqlFormat& format = pos.SqlFormat();
      std::string clause = " WHERE TaxGroupID ='IVA' " + std::string(" AND CountryID='") +
                           format.QuoteText(settings->CountryID) + "'" + " AND TaxRegionID='" +
                           format.QuoteText(settings->TaxRegionID) + "'" +
                           " AND TaxSequenceID=" + std::to_string(sequence);
      std::optional<host::Variant> host_rate =
          FirstValue(pos, "SELECT * From TaxTable" + clause, "TaxRate");
      // A missing row is not made.
      if (host_rate && host::FieldConverter::ToNumber(*host_rate) != source_rate) {
        pos.OpenRecordset("UPDATE TaxTable SET TaxRate=" + format.Number(source_rate) + clause);
      }
    });
  }
}

void BSOUpgBrevantaLumaroTables::Upgrade_TaxExemptionReason() {
  LoadStep step("Upgrade_TaxExemptionReason");
  step.Run(1, [&] {
    std::optional<host::Variant> reason = FirstValue(
        source_.Get(), "SELECT Valor FROM ParEMp WHERE CPar='TaxExemptionReason'", "Valor");
    if (!reason) return;
    host::DatabaseService& pos = LoadTarget();
    // For every country and region.
    pos.OpenRecordset("UPDATE TaxTable SET TaxExemptionReason='" +
                      pos.SqlFormat().QuoteText(host::FieldConverter::ToText(*reason)) + "'" +
                      " WHERE TaxGroupID ='IVA'" + " AND TaxSequenceID=4");
  });
}

void BSOUpgBrevantaLumaroTables::Load_ApplicationParam() {
  LoadStep step("Load_ApplicationParam");
  std::shared_ptr<host::SystemSettings> settings;
  std::shared_ptr<host::SystemSettings> context_settings;
  if (!step.Run(1, [&] {
        settings = ModConnectorLumaro::GetSystemSettings();
        context_settings = ModConnectorLumaro::Host().SystemManager().Context().Settings();
      })) {
    return;
  }
  // Both the load's settings and the host's, which may be one object.
  auto both = [&](auto set) {
    set(*settings);
    set(*context_settings);
  };
  const host::SqlFormat& format = LoadTarget().SqlFormat();
  step.Run(2, [&] {
    both([](host::SystemSettings& s) { s.UsePropertyItems = true; });
    LoadTarget().OpenRecordset("UPDATE ConfSystem SET UsePropertyItems = " +
                               format.Boolean(settings->UsePropertyItems));
  });
  step.Run(3, [&] {
    std::optional<host::Variant> applies = FirstValue(
        source_.Get(), "SELECT Valor AS TemIRRetC FROM ParEmp WHERE CPar='TemIRRetC'", "TemIRRetC");
    if (!applies) return;
    bool flag = host::FieldConverter::ToBoolean(*applies);
    both([flag](host::SystemSettings& s) { s.AplySalesRetentionTax = flag; });
    std::optional<host::Variant> rate = FirstValue(
        source_.Get(), "SELECT Valor AS TxIRRet FROM ParEmp WHERE CPar='TxIRRet'", "TxIRRet");
    // Without its rate, the retention tax stays as it is, and is written
    // all the same.
    if (rate) {
      double value = host::NumberTools::ParseNumber(host::FieldConverter::ToText(*rate), ".");
      both([value](host::SystemSettings& s) { s.RetentionTax = value; });
    }
    host::KeyDictionary& keys = ModConnectorLumaro::RunDictionary();
    keys.Add(host::Variant(settings->AplySalesRetentionTax), "AplyRetentionTax|");
    keys.Add(host::Variant(settings->RetentionTax), "RetentionTax|");
    LoadTarget().OpenRecordset("UPDATE ConfSystem SET AplySalesRetentionTax = " +
                               format.Boolean(settings->AplySalesRetentionTax) +
                               ", RetentionTax=" + format.Number(settings->RetentionTax));
  });
  step.Run(4, [&] {
    if (!HasRows(source_.Get(), "SELECT * FROM ArAgr")) return;
    both([](host::SystemSettings& s) { s.UseCompositeItems = true; });
    LoadTarget().OpenRecordset("UPDATE ConfSystem SET UseCompositeItems = " +
                               format.Boolean(settings->UseCompositeItems));
  });
}

void BSOUpgBrevantaLumaroTables::Load_Taxes() {
  LoadStep step("Load_Taxes");
  std::shared_ptr<host::SystemSettings> settings;
  host::KeyDictionary* keys = nullptr;
  host::RecordsetPtr rs;
  if (!step.Run(1, [&] {
        settings = ModConnectorLumaro::GetSystemSettings();
        keys = &ModConnectorLumaro::RunDictionary();
        rs = LoadTarget().OpenRecordset("SELECT * From TaxTable WHERE TaxGroupID ='IVA' " +
                                        std::string(" AND CountryID='") + settings->CountryID +
                                        "'" + " AND TaxRegionID='" + settings->TaxRegionID + "'");
      })) {
    return;
  }
  bool more = !rs->Eof();
  while (more) {
    step.Run(2, [&] {
      double rate = host::FieldConverter::ToNumber(rs->Fields("TaxRate"));
      int16_t tax_class = ClassOfRate(rate, settings->TaxRegionID);
      std::string type = std::to_string(TaxTypeOfClass(tax_class));
      // The classes are fixed by value: two rows of one class add the same
      // keys twice, and the first value stays.
      keys->Add(host::Variant(tax_class), "TaxableGroupIDTipoIva|" + type);
      keys->Add(host::Variant(tax_class), "TaxableGroupIDPorIva|" + host::NumberText(rate));
      keys->Add(host::Variant(rate), "TaxRate_TipoIva|" + type);
    });
    more = step.Run(3, [&] { rs->MoveNext(); }) && !rs->Eof();
  }
  host::RecordsetTools::CloseRecordset(rs);
}

}  // namespace lumaro
