#ifndef LUMARO_CONNECTOR_HOST_SYSTEM_SETTINGS_H_
#define LUMARO_CONNECTOR_HOST_SYSTEM_SETTINGS_H_

#include <cstdint>
#include <map>
#include <string>

namespace host {

// The host's company-wide defaults (its ConfSystem row), as an object in
// memory. Changing a member changes the object only; whoever changes the
// database row says so.
struct SystemSettings {
  // The key by which the host reloads this object.
  int32_t Key = 1;
  std::string CountryID;
  std::string TaxRegionID;
  std::string LanguageID;
  std::string DefaultUnitOfMeasureID;
  std::string DefaultCurrencyID;
  int16_t TaxRegime = 0;
  bool AplySalesRetentionTax = false;
  double RetentionTax = 0;
  double CustomerRangeStart = 0;
  double CustomerRangeEnd = 0;
  bool UsePropertyItems = false;
  bool UsePropertyTable = false;
  bool UseCompositeItems = false;
  // Items sold in units of measure, and units measured by a formula.
  bool UseUnitOfMeasureItems = false;
  bool UseUnitWithFormulaItems = false;
  // The host's special configurations by their number: whether each is
  // active.
  std::map<int32_t, bool> SpecialConfigurations;
};

}  // namespace host

#endif  // LUMARO_CONNECTOR_HOST_SYSTEM_SETTINGS_H_
