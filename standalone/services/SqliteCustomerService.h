#ifndef LUMARO_STANDALONE_SERVICES_SQLITE_CUSTOMER_SERVICE_H_
#define LUMARO_STANDALONE_SERVICES_SQLITE_CUSTOMER_SERVICE_H_

#include "connector/host/DatabaseService.h"
#include "connector/host/EntityServices.h"
#include "standalone/services/EntityRows.h"
#include "standalone/services/SqlitePartyRows.h"

namespace standalone {

// Customers: the table Customer, the customer's Party row (PartyID = the
// customer's id, party kind 1, added when missing) and its main address in
// PartyAddress; with the customer's Party set, the party's further
// addresses, persons, telephones and bank accounts too. A save writes only
// the columns the entity holds: the till's own columns of an existing
// customer (its last document, its points) stay as they are.
class SqliteCustomerService : public host::CustomerService {
 public:
  explicit SqliteCustomerService(host::DatabaseService& db)
      : db_(db), writer_(db), party_rows_(db, writer_) {}
  double GetCustomerIDFromKey(std::string_view customer_key) override;
  bool Exists(double customer_id) override;
  std::shared_ptr<host::Customer> Get(double customer_id) override;
  void Save(const host::Customer& customer, double customer_id) override;

 private:
  host::DatabaseService& db_;
  EntityWriter writer_;
  PartyRows party_rows_;
};

}  // namespace standalone

#endif  // LUMARO_STANDALONE_SERVICES_SQLITE_CUSTOMER_SERVICE_H_
