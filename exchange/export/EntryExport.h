#ifndef LUMARO_EXCHANGE_EXPORT_ENTRY_EXPORT_H_
#define LUMARO_EXCHANGE_EXPORT_ENTRY_EXPORT_H_

#include <functional>
#include <memory>
#include <string>

#include "connector/LumaroConnectorSetting.h"
#include "connector/host/Ansi.h"
#include "connector/host/Date.h"
#include "connector/host/Host.h"
#include "connector/host/IConnectorEvents.h"
#include "exchange/export/KeyCaches.h"

namespace lumaro {

// The name of the export file `number` of the point `code`:
// "ETpv <code> <number in seven digits>.txt".
std::string ExportFileName(const std::string& code, double number);

// The export file of one exchange point (a Workstation entry) for one run:
// it selects what the entry's POS workstations and series have pending (or
// made between two dates, for a re-export), writes the header, the new
// customers, the sales and the receipts, and marks each row as it goes.
//
// There is no transaction: after a failure in the middle of a file, the
// partial file stays, the rows marked so far stay marked, and the entry's
// number does not move; the next export of the entry meets the file and
// stops there until a person removes it.
class EntryExport {
 public:
  struct Outcome {
    bool written = false;  // a file was made
    std::string file_name;
    host::Date first_date;  // the header's
    host::ExportObserver::RecordCounts records;
  };

  // `notifier` may be empty: the first report then fails, as nothing can be
  // reported.
  EntryExport(const LumaroConnectorSetting& settings, const Workstation& entry,
              std::shared_ptr<host::IConnectorEvents> notifier, KeyCaches& keys);

  // Writes the file `file_number` into `folder`. Shows a message box and
  // writes nothing when the folder is missing or the file exists already.
  Outcome Run(const std::string& folder, double file_number, host::Date initial_date,
              host::Date final_date);

 private:
  // What the first-date queries found; the date of the header.
  struct FirstDate {
    bool anything = false;
    host::Date date;
  };
  FirstDate FindFirstDate();
  void WriteCustomers();
  void WriteSales();
  void WritePayment(const host::Recordset& sale, const host::DocumentDefinition& definition,
                    const std::string& party_document_text);
  void WriteLines(const host::Recordset& sale, bool tax_included);
  std::string GetTaxRate(const host::Recordset& line);
  void WriteReceipts();
  std::string GetCheckNumber(const host::Recordset& line);

  // " WHERE <p>selection AND <p>WorkstationID IN (<list>)  AND <p>TransSerial ='<serial>'"
  // with the table prefix <p> ("", "SaleTransaction." or "TT."), as the
  // selections of every query of the file read.
  std::string EntryFilter(const std::string& prefix) const;
  host::RecordsetPtr Query(const std::string& sql);
  // Writes one record, and counts it by its tag for the host's watcher.
  void Write(const std::string& record);
  host::IConnectorEvents& Notifier();
  // Tells the host's export watcher, if it has one.
  void Observe(const std::function<void(host::ExportObserver&)>& tell);
  void ReportProgress();

  const LumaroConnectorSetting& settings_;
  Workstation entry_;
  std::shared_ptr<host::IConnectorEvents> notifier_;
  KeyCaches& keys_;
  host::Host& host_;
  host::DatabaseService& db_;
  std::string selection_;
  std::unique_ptr<host::AnsiTextWriter> writer_;
  std::unique_ptr<host::SaleDocumentReader> reader_;
  host::ExportObserver::RecordCounts records_;
  int32_t counter_ = 0;
  int32_t total_ = 0;
};

}  // namespace lumaro

#endif  // LUMARO_EXCHANGE_EXPORT_ENTRY_EXPORT_H_
