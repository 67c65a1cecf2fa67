#include "standalone/services/SqliteTaxCalculator.h"

#include "connector/host/Conversions.h"
#include "connector/host/FieldConverter.h"

namespace standalone {
namespace {

double RoundMoney(double value) { return host::RoundDecimal(value, 4); }

}  // namespace

double SqliteTaxCalculator::Rate(int16_t taxable_group_id, const Context& context) {
  auto key = std::make_tuple(context.CountryID, context.TaxRegionID, taxable_group_id);
  auto found = rates_.find(key);
  if (found != rates_.end()) return found->second;
  auto rs = db_.Query(
      "SELECT TaxRate FROM TaxTable WHERE TaxGroupID='IVA' AND CountryID=? AND TaxRegionID=? AND "
      "TaxSequenceID=?",
      {host::SqlValue::Text(context.CountryID), host::SqlValue::Text(context.TaxRegionID),
       host::SqlValue::Number(taxable_group_id)});
  double rate = rs->Eof() ? 0 : host::FieldConverter::ToNumber(rs->Fields(0));
  rates_.emplace(std::move(key), rate);
  return rate;
}

double SqliteTaxCalculator::AddTax(double price, int16_t taxable_group_id, const Context& context) {
  return RoundMoney(price * (1 + Rate(taxable_group_id, context) / 100));
}

double SqliteTaxCalculator::RemoveTax(double price, int16_t taxable_group_id,
                                      const Context& context) {
  return RoundMoney(price / (1 + Rate(taxable_group_id, context) / 100));
}

}  // namespace standalone
