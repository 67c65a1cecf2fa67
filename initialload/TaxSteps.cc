// The steps of the load that bring the taxes: the tax classes by the back
// office's tax types.

#include "connector/ModConnectorLumaro.h"
#include "connector/host/Conversions.h"
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

}  // namespace

void BSOUpgBrevantaLumaroTables::Load_Taxes() {
  LoadStep step("Load_Taxes");
  std::shared_ptr<host::SystemSettings> settings;
  host::KeyDictionary* keys = nullptr;
  host::RecordsetPtr rs;
  if (!step.Run(1, [&] {
        settings = ModConnectorLumaro::GetSystemSettings();
        keys = &ModConnectorLumaro::RunDictionary();
        rs = ModConnectorLumaro::Host().DataManager().Connection().Database().OpenRecordset(
            "SELECT * From TaxTable WHERE TaxGroupID ='IVA' " + std::string(" AND CountryID='") +
            settings->CountryID + "'" + " AND TaxRegionID='" + settings->TaxRegionID + "'");
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
