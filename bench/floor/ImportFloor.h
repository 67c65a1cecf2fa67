#ifndef LUMARO_BENCH_FLOOR_IMPORT_FLOOR_H_
#define LUMARO_BENCH_FLOOR_IMPORT_FLOOR_H_

#include <string>

#include "bench/floor/BackOfficeText.h"

namespace bench {

struct ImportFloorCounts {
  long records = 0;       // lines read
  long rows_written = 0;  // rows inserted, updated or deleted (sqlite3_total_changes)
};

// The floor of `lumaro import` for one file: the rows the import leaves in
// Item, ItemSellingPrices and StockProperty, written with prepared
// statements in one transaction, the file read once, a line at a time.
//
// For each item: one lookup of its key; a new item gets its Item row and a
// price row on every price line of the host (the prices of its AP records,
// zero elsewhere); an item found gets one UPDATE of its Item row and an
// upsert of each price its AP records give. The first AB barcode marked
// main goes into the Item row. Each AL lot of an item tracked by a property
// is one upsert of its StockProperty row in warehouse 1 (its item is looked
// up once, as the lots stand together at the end of the file).
//
// It takes the records the benchmark's files hold and throws on any other
// (kits, barcodes not marked main, validity periods, records of an item
// away from its AR record): the benchmark checks its rows against the
// connector's. `clock` stands for the connector's --now; `workstation` for
// its --workstation (user and session are 1, as the lumaro program runs).
ImportFloorCounts RunImportFloor(const std::string& db_path, const std::string& file_path,
                                 const Clock& clock, int workstation);

}  // namespace bench

#endif  // LUMARO_BENCH_FLOOR_IMPORT_FLOOR_H_
