#ifndef LUMARO_BENCH_TOOLS_POS_DATA_H_
#define LUMARO_BENCH_TOOLS_POS_DATA_H_

// The rows the benchmark adds to a POS database that `lumaro init` made and
// `lumaro settings load examples/settings.xml` set up.

#include <cstdint>

#include "bench/floor/Sqlite.h"

namespace bench {

// What an import of the generated file needs: price lines 1 to 3 known by
// the back office's keys "1" to "3", the root family and family "01", and
// the lot rule "CL" that the items tracked by lot follow.
void AddImportReferences(Database& db);

struct SalesShape {
  long documents = 20000;
  int lines = 3;
  long customers = 2000;
  long receipts = 2000;
  uint64_t seed = 1;
};

// A day of sales on POS workstations 1 and 2, series A, all pending: cash
// sales (TVD 1 to `documents`) of `lines` lines, each line with its IVA row,
// each sale with one tender line for its total; `customers` new customers
// (no back-office key, ids from 5001), each the party of one sale when
// there are as many sales; `receipts` receipts (TRC 1 to `receipts`), each
// with one or two tender lines from TransOrder 1. Written in one
// transaction.
void AddSales(Database& db, const SalesShape& shape);

}  // namespace bench

#endif  // LUMARO_BENCH_TOOLS_POS_DATA_H_
