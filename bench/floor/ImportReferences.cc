#include "bench/floor/ImportReferences.h"

#include <stdexcept>

namespace bench {

ImportReferences ImportReferences::Read(Database& db) {
  ImportReferences refs;
  Statement lines(db, "SELECT PriceLineID, PriceLineKey FROM PriceLine ORDER BY PriceLineID");
  while (lines.Step()) {
    refs.price_lines.push_back(lines.Integer(0));
    if (!lines.Text(1).empty()) refs.price_line_of_key.emplace(lines.Text(1), lines.Integer(0));
  }
  Statement family(db,
                   "SELECT FamilyID FROM Family WHERE FamilyKey='GeneralFamily' "
                   "ORDER BY FamilyID LIMIT 1");
  if (family.Step()) refs.default_family = family.Integer(0);
  Statement supplier(db, "SELECT MIN(SupplierID) FROM Supplier");
  if (supplier.Step()) refs.default_supplier = supplier.Integer(0);
  Statement settings(db,
                     "SELECT DefaultUnitOfMeasureID, CountryID, TaxRegionID, CurrencyID, "
                     "SaleExchange, CurrencyFactor "
                     "FROM ConfSystem JOIN Currency ON CurrencyID=DefaultCurrencyID "
                     "WHERE ConfSystemID=1");
  if (!settings.Step()) throw std::runtime_error("no ConfSystem row 1 or no default currency");
  refs.default_unit = settings.Text(0);
  refs.currency = settings.Text(3);
  refs.exchange = settings.Number(4);
  refs.factor = settings.Number(5);
  Statement rates(db,
                  "SELECT TaxSequenceID, TaxRate FROM TaxTable "
                  "WHERE TaxGroupID='IVA' AND CountryID=? AND TaxRegionID=?");
  rates.Bind(1, settings.Text(1)).Bind(2, settings.Text(2));
  while (rates.Step()) refs.rate_of_class.emplace(rates.Integer(0), rates.Number(1));
  Statement warehouse(db, "SELECT 1 FROM Warehouse WHERE WarehouseID=1");
  refs.has_warehouse_1 = warehouse.Step();
  return refs;
}

int64_t ClassOfTaxType(std::string_view type) {
  // The back office numbers the classes otherwise: its type 2 is class 1
  // (normal), 3 is 2, 1 is 3 and 4 is 4 (exempt). The connector learns this
  // from the rates of the mainland table, which has one rate a class.
  if (type == "2") return 1;
  if (type == "3") return 2;
  if (type == "1") return 3;
  if (type == "4") return 4;
  return 0;
}

std::string PropertyOfLotKind(double kind) {
  static const char* const kProperties[] = {"", "CL", "CNS", "CCT", "RLV", "RNV"};
  if (!(kind >= 1 && kind <= 5) || kind != static_cast<int>(kind)) return "";
  return kProperties[static_cast<int>(kind)];
}

FamilyIds::FamilyIds(Database& db, int64_t default_family)
    : find_(db, "SELECT FamilyID FROM Family WHERE FamilyKey=? ORDER BY FamilyID LIMIT 1"),
      default_family_(default_family) {}

int64_t FamilyIds::Of(std::string_view key) {
  std::string text(key);
  auto known = known_.find(text);
  if (known != known_.end()) return known->second;
  find_.Bind(1, text);
  int64_t id = find_.Step() ? find_.Integer(0) : 0;
  find_.Reset();
  if (id == 0) id = default_family_;
  known_.emplace(std::move(text), id);
  return id;
}

PropertyRules::PropertyRules(Database& db)
    : read_(db,
            "SELECT UseProductionDate, ControlType, UsePropertyTable, UseExpirationDate, "
            "MaximumQuantity, ExpirationDateControl FROM ItemProperty WHERE PropertyID=?") {}

const std::vector<int64_t>& PropertyRules::Of(const std::string& property) {
  auto known = known_.find(property);
  if (known != known_.end()) return known->second;
  read_.Bind(1, property);
  if (!read_.Step()) throw std::runtime_error("the POS has no item property " + property);
  std::vector<int64_t> rules = {
      read_.Integer(0) != 0 ? -1 : 0,        read_.Integer(1),
      read_.Integer(2) != 0 ? 1 : 0,         read_.Integer(3) != 0 ? -1 : 0,
      static_cast<int16_t>(read_.Number(4)), read_.Integer(5)};
  read_.Reset();
  return known_.emplace(property, std::move(rules)).first->second;
}

}  // namespace bench
