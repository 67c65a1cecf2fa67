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

  // The verifications of the host's database by its maintenance worker,
  // each after the host's confirmation (message 2760002, Yes and No), with
  // the worker's progress in the host's window and the end reported.
  // `vbKassimoData` takes the host's second database in too. A failure is
  // shown, not raised: for the nulls through the host's error display
  // under "UIRecovery.DBVerifyNulls", for the others in a box with the
  // number, the description and the table in hand.
  //
  // Nulls: each NULL of a column with a default takes the default.
  void DBVerifyNulls();
  // Relations: the rows without their parent, then the whole file.
  void DBVerifyRelations(bool vbKassimoData);
  // Indexes: the relations, the statistics, the tuning; the databases
  // opened anew; then every table of the host's schema rebuilt.
  void DBVerifyIndexes(bool vbKassimoData);
  // Reads one row of every table of the host's schema, column by column,
  // without a confirmation: a table the database lacks (message 2760029)
  // and a column that cannot be read (2760028) are each named in a box,
  // and the walk goes on.
  void DBCheckIntegrity(bool vbKassimoData);
};

}  // namespace lumaro

#endif  // LUMARO_MAINTENANCE_UI_RECOVERY_H_
