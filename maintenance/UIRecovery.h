#ifndef LUMARO_MAINTENANCE_UI_RECOVERY_H_
#define LUMARO_MAINTENANCE_UI_RECOVERY_H_

#include <cstdint>
#include <string>

namespace lumaro {

// The clearing of the host's database before the initial load fills it:
// everything transactional, one table, the documents of one kind, or the
// master data of one kind. Children go before their parents. Nothing runs
// in a transaction of its own: what was cleared stays cleared when a later
// step fails.
class UIRecovery {
 public:
  // Every transactional table, after the host's confirmation (message
  // 2760002, Yes and No); then lots, quantities, costs and the last
  // documents of items, stock, customers and suppliers, the series' numbers
  // and the carriers' kilometres are set back. A failure goes to the host's
  // error display under "UIRecovery.DBDeleteAllRecords" and ends it.
  // Returns whether it ran to its end (false when declined or failed).
  bool DBDeleteAllRecords();
  // Empties one table; a table the schema does not have is passed over. A
  // failure goes to the host's error display under
  // "UIRecovery.DBDeleteAllRecords", not to the caller.
  void DBDeleteAllRecordsInTable(const std::string& table);
  // The documents of a kind: -1 points, 0 purchases, 1 sales, 2 stock
  // movements, 5 till cash movements, 6 account documents (receipts with
  // `behavior` 0, payments with 1), 18 deposits; any other kind, nothing.
  // A failed statement raises to the caller.
  void DeleteKassimoDocuments(int32_t document_type, int32_t behavior);
  // The master data of a kind: 0 promotions, 1 discounts, 2 items,
  // 3 families, 4 suppliers, 5 customers, 6 salesmen, 7 payment terms,
  // 8 zones, 9 events, 10 selling price history, 11 no-sale records,
  // 12 banks. Parties go by the range of ids of their kind. A failed
  // statement raises to the caller.
  void DeleteKassimoTables(int32_t table_type);
};

}  // namespace lumaro

#endif  // LUMARO_MAINTENANCE_UI_RECOVERY_H_
