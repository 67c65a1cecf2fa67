#ifndef LUMARO_STANDALONE_SERVICES_SQLITE_PARTY_ROWS_H_
#define LUMARO_STANDALONE_SERVICES_SQLITE_PARTY_ROWS_H_

#include <cstdint>
#include <optional>

#include "connector/host/DatabaseService.h"
#include "connector/host/Entities.h"
#include "standalone/services/EntityRows.h"

namespace standalone {

// The rows of a party that its owners (customers, suppliers, banks) write
// with their own: the Party row, the main address, and what the party holds
// beside it (further addresses, persons with their telephones, bank
// accounts). Each call writes through the owner's writer, within the
// owner's EntityWriter::Atomically, so that an owner and its party are
// saved whole or not at all; what a call reads (the rows stored now) it
// reads before any of the owner's writes run.
class PartyRows {
 public:
  PartyRows(host::DatabaseService& db, EntityWriter& writer) : db_(db), writer_(writer) {}

  // Adds the Party row of `party_id` when there is none; one that is there
  // stays as it is.
  void AddPartyIfMissing(double party_id, int16_t party_type,
                         const std::optional<host::Date>& creation_date);

  // Writes the address over the stored one of its PartyID and AddressID, or
  // adds it.
  void WriteAddress(const host::PartyAddress& address);

  // Replaces what the party `party_id` holds beside its main address (the
  // address `main_address_id`, which stays) with what `party` holds: its
  // addresses under their own AddressID, its persons, each person's
  // telephones, and its bank accounts. The PartyID that `party` and its
  // addresses carry is not read: the rows go under `party_id`. An address
  // under the main address's id, or two rows of one key, is a broken key
  // that the database refuses.
  void ReplaceCollections(double party_id, double main_address_id, const host::Party& party);

 private:
  host::DatabaseService& db_;
  EntityWriter& writer_;
};

// The main address of a customer or a supplier, as the party address
// `party_id`, AddressID.
inline host::PartyAddress MainAddressOf(const host::TradingPartner& owner, double party_id) {
  host::PartyAddress address;
  address.PartyID = party_id;
  address.AddressID = owner.AddressID;
  address.AddressLine1 = owner.AddressLine1;
  address.AddressLine2 = owner.AddressLine2;
  address.PostalCode = owner.PostalCode;
  address.CountryID = owner.CountryID;
  address.ProvinceID = owner.ProvinceID;
  address.LocalityID = owner.LocalityID;
  return address;
}

}  // namespace standalone

#endif  // LUMARO_STANDALONE_SERVICES_SQLITE_PARTY_ROWS_H_
