#include "initialload/PartyContacts.h"

#include "connector/host/Text.h"
#include "initialload/LoadShared.h"

namespace lumaro {
namespace {

constexpr int32_t kTreasury = 3880103;
constexpr int32_t kCommercial = 3880104;
constexpr int32_t kManagement = 3880105;
constexpr int32_t kManager = 3880106;

constexpr int16_t kTelephone = 0;
constexpr int16_t kFax = 1;

void AddTelephone(host::Person& person, int16_t kind, const std::string& number) {
  host::Telephone telephone;
  telephone.TelephoneID = static_cast<int32_t>(person.Telephones.size() + 1);
  telephone.TelephoneType = kind;
  telephone.TelephoneNumber = number;
  person.Telephones.push_back(telephone);
}

// The person of a name and telephone pair, when either is given.
void AddPair(const host::Recordset& row, host::Party& party, int32_t title, const char* name,
             const char* telephone) {
  std::string who = SourceTrimmed(row, name);
  std::string number = SourceTrimmed(row, telephone);
  if (!who.empty() || !number.empty()) AddPerson(party, CatalogueText(title), who, number);
}

}  // namespace

void AddPerson(host::Party& party, const std::string& title, const std::string& name,
               const std::string& telephone) {
  host::Person person;
  person.PersonID = static_cast<int32_t>(party.Persons.size() + 1);
  person.Title = title;
  person.Name = name;
  if (!telephone.empty()) AddTelephone(person, kTelephone, telephone);
  party.Persons.push_back(std::move(person));
}

void AddRowContacts(LoadStep& step, const host::Recordset& row, host::Party& party) {
  step.Run(40, [&] { AddPair(row, party, kTreasury, "ATTTes", "TelTes"); });
  step.Run(41, [&] { AddPair(row, party, kCommercial, "ATTCom", "TelCom"); });
  step.Run(42, [&] { AddPair(row, party, kManagement, "ATTGer", "Telger"); });
}

void AddFurtherAddresses(LoadStep& step, host::DatabaseService& source, const std::string& sql,
                         host::Party& party) {
  host::RecordsetPtr rs;
  if (!step.Run(43, [&] { rs = source.OpenRecordset(sql); })) return;
  for (; !rs->Eof(); rs->MoveNext()) {
    host::PartyAddress address;
    address.PartyID = party.PartyID;
    address.AddressID = static_cast<double>(party.Addresses.size() + 1);
    step.Run(44, [&] {
      // The lines as they stand: only the postal code is trimmed.
      address.AddressLine1 = SourceText(*rs, "Morada");
      address.AddressLine2 = SourceText(*rs, "Local");
      address.PostalCode = SourceTrimmed(*rs, "CPostal");
      address.CountryID = GetCountryID(SourceNumber(*rs, "CPais"));
    });
    step.Run(45, [&] {
      std::string telephone = SourceText(*rs, "Telef");
      std::string fax = SourceText(*rs, "Fax");
      if (telephone.empty() && fax.empty()) return;
      // The address's own telephone and fax, on a person named after it.
      AddPerson(party, SourceText(*rs, "CMor"), address.AddressLine1, telephone);
      if (!fax.empty()) AddTelephone(party.Persons.back(), kFax, fax);
    });
    step.Run(46, [&] { AddPair(*rs, party, kManager, "ATTGer", "Telger"); });
    party.Addresses.push_back(address);
  }
  host::RecordsetTools::CloseRecordset(rs);
}

std::string FederalTaxID(const host::Recordset& row) {
  return host::Replace(SourceTrimmed(row, "NCONTRIB"), ".", " ");
}

}  // namespace lumaro
