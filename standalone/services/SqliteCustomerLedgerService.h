#ifndef LUMARO_STANDALONE_SERVICES_SQLITE_CUSTOMER_LEDGER_SERVICE_H_
#define LUMARO_STANDALONE_SERVICES_SQLITE_CUSTOMER_LEDGER_SERVICE_H_

#include "connector/host/DatabaseService.h"
#include "connector/host/EntityServices.h"
#include "standalone/services/EntityRows.h"

namespace standalone {

// The customers' ledgers: the table CustomerLedgerAccount, one row per
// document (TransSerial, TransDocument, TransDocNumber) under the PartyID of
// its customer, which is the customer's id.
class SqliteCustomerLedgerService : public host::CustomerLedgerService {
 public:
  explicit SqliteCustomerLedgerService(host::DatabaseService& db) : db_(db), writer_(db) {}
  // A line numbered 0 takes the greatest number of its series and document
  // plus 1 (1 for the first); a refused line keeps its 0. A number already
  // taken is a broken key that the database refuses.
  void Save(host::LedgerLine& line) override;

 private:
  host::DatabaseService& db_;
  EntityWriter writer_;
};

}  // namespace standalone

#endif  // LUMARO_STANDALONE_SERVICES_SQLITE_CUSTOMER_LEDGER_SERVICE_H_
