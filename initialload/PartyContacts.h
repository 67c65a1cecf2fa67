#ifndef LUMARO_INITIALLOAD_PARTY_CONTACTS_H_
#define LUMARO_INITIALLOAD_PARTY_CONTACTS_H_

#include <string>

#include "connector/host/DatabaseService.h"
#include "connector/host/Entities.h"
#include "initialload/LoadStep.h"

namespace lumaro {

// The contacts of a customer or a supplier, as the back office keeps them:
// three fixed people on its row, and further addresses in a table of their
// own, each with the people to call there. Customers and suppliers take
// them alike.

// Adds a person to the party, numbered after the others, with one
// telephone (kind 0) when `telephone` is not empty.
void AddPerson(host::Party& party, const std::string& title, const std::string& name,
               const std::string& telephone);

// The treasury, commercial and management contacts of the row (ATTTes and
// TelTes, ATTCom and TelCom, ATTGer and Telger), each when its trimmed name
// or telephone is not empty.
void AddRowContacts(LoadStep& step, const host::Recordset& row, host::Party& party);

// The further addresses that `sql` reads on the back office (CliMo or
// ForMo rows), numbered from 1, with a person for the address's telephone
// and fax, and one for its manager.
void AddFurtherAddresses(LoadStep& step, host::DatabaseService& source, const std::string& sql,
                         host::Party& party);

// A taxpayer number as the POS keeps it: trimmed, every "." a blank.
std::string FederalTaxID(const host::Recordset& row);

}  // namespace lumaro

#endif  // LUMARO_INITIALLOAD_PARTY_CONTACTS_H_
