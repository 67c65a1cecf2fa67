#include "exchange/import/ImportFilters.h"

#include "connector/host/Conversions.h"
#include "connector/host/Text.h"
#include "exchange/import/RecordLayouts.h"

namespace lumaro {

bool ImportFilters::InList(const std::string& list, const std::string& code) {
  return list.empty() || code.empty() || host::InStr(";" + list + ";", ";" + code + ";") > 0;
}

bool ImportFilters::PassSalesmanFilter(const Record& record) const {
  return InList(settings_.InitializeSalesman, FieldText(record, layout::vn::kCode));
}

bool ImportFilters::PassCustomerFilter(const Record& record) const {
  // All three are read, whatever the first answers.
  bool group = InList(settings_.InitializeCustomerGroup, FieldText(record, layout::cl::kGroup));
  bool zone = InList(settings_.InitializeZone, FieldText(record, layout::cl::kZone));
  bool salesman = InList(settings_.InitializeSalesman, FieldText(record, layout::cl::kSalesman));
  return group && zone && salesman;
}

bool ImportFilters::PassFamilyAt(const Record& record, size_t first_level_position) const {
  if (settings_.InitializeFamily.empty() || settings_.InitializeFamilyLevel.empty()) return true;
  static constexpr const char* kLevels[] = {"1", "2", "3", "4"};
  for (size_t level = 0; level < 4; ++level) {
    if (settings_.InitializeFamilyLevel == kLevels[level]) {
      return InList(settings_.InitializeFamily,
                    host::FieldAt(record, first_level_position + level));
    }
  }
  return true;  // any other level names no code
}

bool ImportFilters::PassFamilyFilter(const Record& record) const {
  return PassFamilyAt(record, layout::fa::kLevel1.position);
}

bool ImportFilters::PassItemFamilyFilter(const Record& record) const {
  // The AL records hold the family codes at the same positions as AR.
  return PassFamilyAt(record, layout::ar::kFirstFamilyLevel);
}

bool ImportFilters::PassPriceLineFilter(const Record& record) const {
  return InList(settings_.InitializePriceLine, FieldText(record, layout::ap::kPriceLine));
}

bool ImportFilters::PassValidity(const Record& record, host::Date today) {
  double from = FieldNumber(record, layout::ar::kValidFrom);
  double to = FieldNumber(record, layout::ar::kValidTo);
  double now = host::Val(host::FormatDate(today, "YYYYMMDD"));
  double kind = FieldNumber(record, layout::ar::kValidityKind);
  if (kind == 1) return from <= now;
  if (kind == 2) return from <= now && now <= to;
  if (kind == 3) return false;
  if (kind == 4) return now < from;
  if (kind == 5) return !(from <= now && now <= to);
  return true;  // 0 and any other kind: always valid
}

}  // namespace lumaro
