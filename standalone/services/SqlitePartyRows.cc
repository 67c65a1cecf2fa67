#include "standalone/services/SqlitePartyRows.h"

#include <vector>

#include "connector/host/FieldConverter.h"
#include "standalone/services/EntityColumns.h"

namespace standalone {
namespace {

using host::BankAccount;
using host::PartyAddress;
using host::Person;
using host::SqlValue;
using host::Telephone;

// A PartyAddress row but its key.
const EntityColumns<PartyAddress> kAddressColumns = {
    {"AddressLine1", &PartyAddress::AddressLine1}, {"AddressLine2", &PartyAddress::AddressLine2},
    {"PostalCode", &PartyAddress::PostalCode},     {"CountryID", &PartyAddress::CountryID},
    {"ProvinceID", &PartyAddress::ProvinceID},     {"LocalityID", &PartyAddress::LocalityID},
};

// A Person row but its PartyID.
const EntityColumns<Person> kPersonColumns = {
    {"PersonID", &Person::PersonID},
    {"Title", &Person::Title},
    {"Name", &Person::Name},
};

// A Telephone row but its PartyID and PersonID.
const EntityColumns<Telephone> kTelephoneColumns = {
    {"TelephoneID", &Telephone::TelephoneID},
    {"TelephoneType", &Telephone::TelephoneType},
    {"TelephoneNumber", &Telephone::TelephoneNumber},
};

// A PartyBankAccount row but its PartyID.
const EntityColumns<BankAccount> kBankAccountColumns = {
    {"BankAccountID", &BankAccount::BankAccountID}, {"BankID", &BankAccount::BankID},
    {"BankName", &BankAccount::BankName},           {"Description", &BankAccount::Description},
    {"CountryID", &BankAccount::CountryID},         {"BankCode", &BankAccount::BankCode},
    {"BranchCode", &BankAccount::BranchCode},       {"AccountNumber", &BankAccount::AccountNumber},
    {"CheckDigits", &BankAccount::CheckDigits},     {"CurrencyID", &BankAccount::CurrencyID},
};

host::SqlStatement OnTable(const char* table) {
  host::SqlStatement statement;
  statement.SetTable(table);
  return statement;
}

// A row of `table` that the party `party_id` holds: its PartyID, then the
// entity's columns.
template <typename Entity>
host::SqlStatement HeldRow(const char* table, double party_id, const EntityColumns<Entity>& columns,
                           const Entity& entity) {
  host::SqlStatement row = OnTable(table);
  row.Number("PartyID", party_id);
  columns.Write(entity, row);
  return row;
}

}  // namespace

void PartyRows::AddPartyIfMissing(double party_id, int16_t party_type,
                                  const std::optional<host::Date>& creation_date) {
  if (RowExists(db_, "Party", "PartyID", party_id)) return;
  host::SqlStatement party = OnTable("Party");
  party.Number("PartyID", party_id);
  party.Number("PartyType", party_type);
  SetDate(party, "CreationDate", creation_date);
  writer_.Insert(std::move(party));
}

void PartyRows::WriteAddress(const PartyAddress& address) {
  bool exists = !db_.Query("SELECT AddressID FROM PartyAddress WHERE PartyID=? AND AddressID=?",
                           {SqlValue::Number(address.PartyID), SqlValue::Number(address.AddressID)})
                     ->Eof();
  host::SqlStatement row = OnTable("PartyAddress");
  kAddressColumns.Write(address, row);
  if (exists) {
    row.KeyNumber("PartyID", address.PartyID);
    row.KeyNumber("AddressID", address.AddressID);
    writer_.Update(std::move(row));
  } else {
    row.Number("PartyID", address.PartyID);
    row.Number("AddressID", address.AddressID);
    writer_.Insert(std::move(row));
  }
}

void PartyRows::ReplaceCollections(double party_id, double main_address_id,
                                   const host::Party& party) {
  // The further addresses go one by one: a delete names its rows by equal
  // keys only.
  std::vector<double> stored;
  for (auto rs = db_.Query("SELECT AddressID FROM PartyAddress WHERE PartyID=? AND AddressID<>?",
                           {SqlValue::Number(party_id), SqlValue::Number(main_address_id)});
       !rs->Eof(); rs->MoveNext()) {
    stored.push_back(host::FieldConverter::ToNumber(rs->Fields(0)));
  }
  for (double address_id : stored) {
    host::SqlStatement gone = OnTable("PartyAddress");
    gone.KeyNumber("PartyID", party_id);
    gone.KeyNumber("AddressID", address_id);
    writer_.Delete(std::move(gone));
  }
  for (const char* table : {"Person", "Telephone", "PartyBankAccount"}) {
    host::SqlStatement gone = OnTable(table);
    gone.KeyNumber("PartyID", party_id);
    writer_.Delete(std::move(gone));
  }

  for (const PartyAddress& address : party.Addresses) {
    host::SqlStatement row = HeldRow("PartyAddress", party_id, kAddressColumns, address);
    row.Number("AddressID", address.AddressID);
    writer_.Insert(std::move(row));
  }
  for (const Person& person : party.Persons) {
    writer_.Insert(HeldRow("Person", party_id, kPersonColumns, person));
    for (const Telephone& telephone : person.Telephones) {
      host::SqlStatement number = HeldRow("Telephone", party_id, kTelephoneColumns, telephone);
      number.Number("PersonID", person.PersonID);
      writer_.Insert(std::move(number));
    }
  }
  for (const BankAccount& account : party.BankAccounts) {
    writer_.Insert(HeldRow("PartyBankAccount", party_id, kBankAccountColumns, account));
  }
}

}  // namespace standalone
