#ifndef LUMARO_STANDALONE_SERVICES_SQLITE_STOCK_DOCUMENT_H_
#define LUMARO_STANDALONE_SERVICES_SQLITE_STOCK_DOCUMENT_H_

#include <cstdint>
#include <string>

#include "connector/host/DatabaseService.h"
#include "connector/host/StockDocument.h"
#include "standalone/services/EntityRows.h"

namespace standalone {

// Stock movements: the head in StockTransaction, the lines in
// StockTransactionDetails, numbered by the DocumentsSeriesNumber row of the
// series and document. This host asks nothing on the screen, quiet or not:
// what it cannot write it raises (error 5, source "StockDocument").
class SqliteStockDocument : public host::StockDocument {
 public:
  explicit SqliteStockDocument(host::DatabaseService& db) : db_(db), writer_(db) {}

  // A new movement, dated today (host::Today) in TransDate and DateTwo,
  // without warehouses or lines.
  void NewTransaction(const std::string& document, const std::string& series) override;
  host::StockTransaction& Transaction() override { return transaction_; }
  // Refuses a movement without a document, a series or lines, and one
  // whose line names an item or a warehouse the host does not have.
  void Prepare(bool quiet) override;
  // Checks as Prepare, then in one transaction: takes the next number of
  // the series and document (the row is made at 0 when missing), writes the
  // head and the lines, and adds each line's Quantity to the physical and
  // available quantities and units of its item, and of the item's Stock row
  // of the line's warehouse, colour and size (LotID '', made when missing).
  // The movement takes its number; a refusal leaves nothing written and the
  // number as it was. Committed again, it is written again under the next
  // number.
  void Commit(bool quiet) override;

 private:
  int32_t TakeNumber();
  void WriteHead();
  void WriteLine(const host::StockTransactionDetail& line);
  void AddToStock(const host::StockTransactionDetail& line);

  host::DatabaseService& db_;
  EntityWriter writer_;
  host::StockTransaction transaction_;
};

}  // namespace standalone

#endif  // LUMARO_STANDALONE_SERVICES_SQLITE_STOCK_DOCUMENT_H_
