#ifndef LUMARO_BENCH_TOOLS_ITEM_FILE_H_
#define LUMARO_BENCH_TOOLS_ITEM_FILE_H_

#include <cstdint>
#include <string>

namespace bench {

struct ItemFileShape {
  long items = 100000;
  uint64_t seed = 1;
  std::string company = "EMP01";  // the header's company and year, as
  int year = 2026;                // examples/settings.xml has them
};

// Writes an import file in the back office's form (Windows-1252, CR LF):
// the HF header, then for item i (code A000001 on) an AR record (family 01,
// tax type, unit and dates drawn from the seed), its AP prices on price
// lines 1 to 3 (the third with tax included) and one main AB barcode; after
// all items, two AL lots of every fifth item, which its AR marks as tracked
// by lot. Returns the number of lines written.
long WriteItemFile(const std::string& path, const ItemFileShape& shape);

}  // namespace bench

#endif  // LUMARO_BENCH_TOOLS_ITEM_FILE_H_
