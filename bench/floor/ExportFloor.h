#ifndef LUMARO_BENCH_FLOOR_EXPORT_FLOOR_H_
#define LUMARO_BENCH_FLOOR_EXPORT_FLOOR_H_

#include <string>

#include "bench/floor/BackOfficeText.h"

namespace bench {

// The exchange point whose pending rows are exported (examples/settings.xml's
// one entry).
struct ExportEntry {
  std::string code = "02";           // LumaroWorkstationID
  std::string serial = "A";          // TransSerial
  std::string workstations = "1,2";  // WorkstationList
};

struct ExportFloorCounts {
  long lines = 0;   // lines written
  long marked = 0;  // customers, sales and receipts marked as sent
};

// The floor of `lumaro export` for one entry: the queries of the export's
// walk, each prepared once and each read whole before its rows are walked,
// as the connector does: the first dates, the new customers, the pending
// sales and for each its tenders, its lines and each line's IVA rate, the
// pending receipts and for each its tender lines and each line's cheque.
// The back office's keys of the ids met (salesman, carrier, user, customer
// level, payment, price line, item, currency) are read once an id. It
// writes one line for each record the connector writes (HF, CL, FC, FP, FM,
// FL, TC, TL; each the record's tag and the values read) and marks each
// customer, sale and receipt after its last line, each UPDATE in its own
// autocommit transaction, as the connector runs them. `clock` stands for the
// connector's --now: the marks hold its date.
ExportFloorCounts RunExportFloor(const std::string& db_path, const std::string& file_path,
                                 const Clock& clock, const ExportEntry& entry);

}  // namespace bench

#endif  // LUMARO_BENCH_FLOOR_EXPORT_FLOOR_H_
