#ifndef LUMARO_BENCH_FLOOR_IMPORT_REFERENCES_H_
#define LUMARO_BENCH_FLOOR_IMPORT_REFERENCES_H_

// What the import floor reads of the host besides the items: the rows every
// item needs, read once, and the lookups it keeps for the run.

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "bench/floor/Sqlite.h"

namespace bench {

struct ImportReferences {
  std::vector<int64_t> price_lines;  // every price line of the host, in order
  std::unordered_map<std::string, int64_t> price_line_of_key;  // the lowest id of a key
  int64_t default_family = 0;                                  // the root family
  int64_t default_supplier = 0;                                // the lowest supplier id
  std::string default_unit;
  std::string currency;  // the default currency, its exchange and factor
  double exchange = 1;
  double factor = 1;
  std::unordered_map<int64_t, double> rate_of_class;  // IVA rate by TaxSequenceID
  bool has_warehouse_1 = false;                       // where the lots go

  static ImportReferences Read(Database& db);
};

// The POS's IVA class (TaxSequenceID) of a back-office tax type; 0 for none.
int64_t ClassOfTaxType(std::string_view type);

// The property of a back-office lot kind; empty for a kind that names none.
std::string PropertyOfLotKind(double kind);

// The id of a family key, or the root family's when no family has it; each
// key read once.
class FamilyIds {
 public:
  FamilyIds(Database& db, int64_t default_family);
  int64_t Of(std::string_view key);

 private:
  Statement find_;
  int64_t default_family_;
  std::unordered_map<std::string, int64_t> known_;
};

// The six rules (PropertyRule1 to 6 of an Item row) that an item takes from
// its property; each property read once. Throws for a property the host
// does not have, as the import fails on it.
class PropertyRules {
 public:
  explicit PropertyRules(Database& db);
  const std::vector<int64_t>& Of(const std::string& property);

 private:
  Statement read_;
  std::unordered_map<std::string, std::vector<int64_t>> known_;
};

}  // namespace bench

#endif  // LUMARO_BENCH_FLOOR_IMPORT_REFERENCES_H_
