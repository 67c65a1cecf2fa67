#ifndef LUMARO_STANDALONE_SERVICES_SQLITE_TAX_CALCULATOR_H_
#define LUMARO_STANDALONE_SERVICES_SQLITE_TAX_CALCULATOR_H_

#include <map>
#include <string>
#include <tuple>

#include "connector/host/DatabaseService.h"
#include "connector/host/EntityServices.h"

namespace standalone {

// Prices with and without IVA. The rate of a taxable group is the TaxRate of
// the IVA row of TaxTable whose sequence is the group, for the context's
// country and region (no row: rate 0). Rates are read once for the
// calculator's life. Results are rounded half away from zero to 4 decimals,
// what a MONEY column keeps.
class SqliteTaxCalculator : public host::TaxCalculator {
 public:
  explicit SqliteTaxCalculator(host::DatabaseService& db) : db_(db) {}
  double AddTax(double price, int16_t taxable_group_id, const Context& context) override;
  double RemoveTax(double price, int16_t taxable_group_id, const Context& context) override;

 private:
  double Rate(int16_t taxable_group_id, const Context& context);

  host::DatabaseService& db_;
  std::map<std::tuple<std::string, std::string, int16_t>, double> rates_;
};

}  // namespace standalone

#endif  // LUMARO_STANDALONE_SERVICES_SQLITE_TAX_CALCULATOR_H_
