#ifndef LUMARO_EXCHANGE_IMPORT_IMPORT_FILTERS_H_
#define LUMARO_EXCHANGE_IMPORT_IMPORT_FILTERS_H_

#include <string>

#include "connector/LumaroConnectorSetting.h"
#include "connector/host/Date.h"
#include "exchange/import/ImportRecord.h"

namespace lumaro {

// Which records of an import file the settings let through. The lists of
// the settings that also steer the initial load (customer groups, zones,
// salesmen, families at a level, price lines) hold back-office codes
// separated by ";". A code passes when the list is empty, when the code is
// empty, or when it stands between two ";" of the list. Each filter reads
// the positions it tests, so a record too short for them fails (error 9).
class ImportFilters {
 public:
  explicit ImportFilters(const LumaroConnectorSetting& settings) : settings_(settings) {}

  static bool InList(const std::string& list, const std::string& code);

  bool PassSalesmanFilter(const Record& record) const;
  bool PassCustomerFilter(const Record& record) const;
  bool PassFamilyFilter(const Record& record) const;
  bool PassItemFamilyFilter(const Record& record) const;
  bool PassPriceLineFilter(const Record& record) const;
  // Whether an item is valid on `today` by its kind of validity (position
  // 16) and its two dates (17 and 18).
  static bool PassValidity(const Record& record, host::Date today);

 private:
  // The family filter on the code at the settings' level; level 1 stands at
  // `first_level_position`.
  bool PassFamilyAt(const Record& record, size_t first_level_position) const;

  const LumaroConnectorSetting& settings_;
};

}  // namespace lumaro

#endif  // LUMARO_EXCHANGE_IMPORT_IMPORT_FILTERS_H_
