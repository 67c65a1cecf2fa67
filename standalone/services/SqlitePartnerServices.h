#ifndef LUMARO_STANDALONE_SERVICES_SQLITE_PARTNER_SERVICES_H_
#define LUMARO_STANDALONE_SERVICES_SQLITE_PARTNER_SERVICES_H_

// The parties beside the customers: suppliers and banks. Each has its own
// row and a party whose PartyID the system manager's PartyIDBase gives its
// id and kind (1 a supplier, 3 a bank); a save adds the Party row when
// there is none, and with the entity's Party set replaces what the party
// holds beside its main address.

#include <cstdint>

#include "connector/host/DatabaseService.h"
#include "connector/host/EntityServices.h"
#include "connector/host/Host.h"
#include "standalone/services/EntityRows.h"
#include "standalone/services/SqlitePartyRows.h"

namespace standalone {

// Suppliers: the table Supplier, with the main address in PartyAddress
// (the party's AddressID of the supplier, normally 0), as a customer's.
class SqliteSupplierService : public host::SupplierService {
 public:
  static constexpr int kPartyKind = 1;

  SqliteSupplierService(host::DatabaseService& db, host::SystemManager& system)
      : db_(db), system_(system), writer_(db), party_rows_(db, writer_) {}
  // The first supplier by id.
  double GetDefaultSupplierID() override;
  double NextID() override;
  // Under the supplier's SupplierID.
  void Save(const host::Supplier& supplier, bool is_new) override;

 private:
  host::DatabaseService& db_;
  host::SystemManager& system_;
  EntityWriter writer_;
  PartyRows party_rows_;
};

// Banks: the table Bank; a bank has no main address, and its accounts are
// its party's (PartyBankAccount).
class SqliteBankService : public host::BankService {
 public:
  static constexpr int kPartyKind = 3;

  SqliteBankService(host::DatabaseService& db, host::SystemManager& system)
      : system_(system), writer_(db), party_rows_(db, writer_) {}
  // Under `bank_id`; the bank's own BankID is not read.
  void Save(const host::Bank& bank, int32_t bank_id, bool is_new) override;

 private:
  host::SystemManager& system_;
  EntityWriter writer_;
  PartyRows party_rows_;
};

}  // namespace standalone

#endif  // LUMARO_STANDALONE_SERVICES_SQLITE_PARTNER_SERVICES_H_
