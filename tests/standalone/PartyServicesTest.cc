// Customers, suppliers and banks save their party with them: the Party row,
// the main address, and, when the entity carries its Party, the further
// addresses, persons with their telephones and bank accounts, which replace
// those stored.

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>

#include "connector/host/EntityServices.h"
#include "tests/host/HostTestTools.h"
#include "tests/support/TestHost.h"

namespace standalone {
namespace {

using host::RaisedNumber;

constexpr int32_t kTextTooLong = -2147217833;

host::PartyAddress Address(double address_id, const std::string& line1) {
  host::PartyAddress address;
  address.AddressID = address_id;
  address.AddressLine1 = line1;
  address.PostalCode = "1000-001";
  address.CountryID = "PT";
  return address;
}

host::Person Person(int32_t person_id, const std::string& title, const std::string& name) {
  host::Person person;
  person.PersonID = person_id;
  person.Title = title;
  person.Name = name;
  return person;
}

void AddTelephone(host::Person& person, int32_t telephone_id, int16_t type,
                  const std::string& number) {
  host::Telephone telephone;
  telephone.TelephoneID = telephone_id;
  telephone.TelephoneType = type;
  telephone.TelephoneNumber = number;
  person.Telephones.push_back(telephone);
}

class PartyServices : public ::testing::Test {
 protected:
  // A party's rows, one text per table, each row as its columns joined by
  // ":" and ordered by key.
  std::string Addresses(double party_id) {
    return host_.Rows("SELECT AddressID || ':' || AddressLine1 FROM PartyAddress WHERE PartyID = " +
                      Id(party_id) + " ORDER BY AddressID");
  }
  std::string Persons(double party_id) {
    return host_.Rows(
        "SELECT PersonID || ':' || Title || ':' || Name FROM Person WHERE PartyID = " +
        Id(party_id) + " ORDER BY PersonID");
  }
  std::string Telephones(double party_id) {
    return host_.Rows(
        "SELECT PersonID || ':' || TelephoneID || ':' || TelephoneType || ':' || TelephoneNumber "
        "FROM Telephone WHERE PartyID = " +
        Id(party_id) + " ORDER BY PersonID, TelephoneID");
  }
  std::string PartyType(double party_id) {
    return host_.Scalar("SELECT PartyType FROM Party WHERE PartyID = " + Id(party_id));
  }

  static std::string Id(double id) { return std::to_string(static_cast<long long>(id)); }

  testsupport::TestHost host_;
};

TEST_F(PartyServices, ASuppliersPartyReadsBackAndASecondSaveReplacesIt) {
  // Customer 7 has a party of its own, under PartyID 7, that the supplier's
  // save must leave alone.
  host_.Exec(
      "INSERT INTO Person (PartyID, PersonID, Name) VALUES (7, 1, 'Cliente');"
      "INSERT INTO Telephone (PartyID, PersonID, TelephoneID, TelephoneNumber) VALUES (7, 1, 1, "
      "'200');"
      "INSERT INTO PartyAddress (PartyID, AddressID, AddressLine1) VALUES (7, 1, 'Do cliente');");
  auto suppliers = host_.Host().NewSupplierService();
  EXPECT_EQ(suppliers->NextID(), 1);

  host::Supplier supplier;
  supplier.SupplierID = 7;
  supplier.SupplierKey = "F7";
  supplier.OrganizationName = "Fornecedor, Lda";
  supplier.AddressLine1 = "Rua Principal";
  supplier.CountryID = "PT";
  supplier.CreationDate = host::MakeDate(2026, 3, 1);
  supplier.Party = host_.Host().NewParty(1, supplier.SupplierID);
  supplier.Party->Addresses = {Address(1, "Armazém"), Address(2, "Escritório")};
  host::Person ana = Person(1, "Sr.ª", "Ana");
  AddTelephone(ana, 1, 0, "211");
  AddTelephone(ana, 2, 1, "212");
  host::Person rui = Person(2, "", "Rui");
  AddTelephone(rui, 1, 0, "213");
  supplier.Party->Persons = {ana, rui};
  suppliers->Save(supplier, true);

  const double party_id = 10000000007;
  EXPECT_EQ(supplier.Party->PartyID, party_id);
  EXPECT_EQ(host_.Rows("SELECT SupplierKey || ':' || OrganizationName || ':' || AddressID FROM "
                       "Supplier"),
            "F7:Fornecedor, Lda:0");
  EXPECT_EQ(PartyType(party_id), "1");
  EXPECT_EQ(host_.Scalar("SELECT CreationDate || '' FROM Party WHERE PartyID = 10000000007"),
            "2026-03-01 00:00:00");
  EXPECT_EQ(Addresses(party_id), "0:Rua Principal,1:Armazém,2:Escritório");
  EXPECT_EQ(host_.Scalar("SELECT PostalCode || CountryID FROM PartyAddress WHERE AddressID = 2 "
                         "AND PartyID = 10000000007"),
            "1000-001PT");
  EXPECT_EQ(Persons(party_id), "1:Sr.ª:Ana,2::Rui");
  EXPECT_EQ(Telephones(party_id), "1:1:0:211,1:2:1:212,2:1:0:213");
  EXPECT_EQ(suppliers->NextID(), 8);

  // Fewer of everything, and a new main address line.
  supplier.AddressLine1 = "Rua Nova";
  supplier.Party->Addresses = {Address(1, "Armazém novo")};
  host::Person rita = Person(1, "", "Rita");
  AddTelephone(rita, 3, 0, "219");
  supplier.Party->Persons = {rita};
  suppliers->Save(supplier, false);

  EXPECT_EQ(host_.Scalar("SELECT COUNT(*) FROM Supplier"), "1");
  EXPECT_EQ(host_.Scalar("SELECT COUNT(*) FROM Party WHERE PartyID = 10000000007"), "1");
  EXPECT_EQ(Addresses(party_id), "0:Rua Nova,1:Armazém novo");
  EXPECT_EQ(Persons(party_id), "1::Rita");
  EXPECT_EQ(Telephones(party_id), "1:3:0:219");

  EXPECT_EQ(Addresses(7), "1:Do cliente");
  EXPECT_EQ(Persons(7), "1::Cliente");
  EXPECT_EQ(Telephones(7), "1:1:0:200");
}

TEST_F(PartyServices, ACustomerSavedWithoutItsPartyKeepsItsContacts) {
  auto customers = host_.Host().NewCustomerService();
  host::Customer customer;
  customer.CustomerID = 12;
  customer.OrganizationName = "Cliente";
  customer.AddressLine1 = "Rua A";
  customer.Party.emplace();  // a customer's party is as the load builds it
  customer.Party->Addresses = {Address(1, "Entrega")};
  host::Person ana = Person(1, "", "Ana");
  AddTelephone(ana, 1, 0, "211");
  customer.Party->Persons = {ana};
  customers->Save(customer, customer.CustomerID);
  EXPECT_EQ(PartyType(12), "1");
  EXPECT_EQ(Addresses(12), "0:Rua A,1:Entrega");

  customer.Party.reset();
  customer.AddressLine1 = "Rua B";
  customers->Save(customer, customer.CustomerID);
  EXPECT_EQ(Addresses(12), "0:Rua B,1:Entrega");
  EXPECT_EQ(Persons(12), "1::Ana");
  EXPECT_EQ(Telephones(12), "1:1:0:211");
  EXPECT_EQ(customers->Get(12)->AddressLine1, "Rua B");

  // An empty party holds nothing beside the main address.
  customer.Party.emplace();
  customers->Save(customer, customer.CustomerID);
  EXPECT_EQ(Addresses(12), "0:Rua B");
  EXPECT_EQ(Persons(12), "");
  EXPECT_EQ(Telephones(12), "");
}

TEST_F(PartyServices, ABanksAccountsAreThoseOfItsParty) {
  auto banks = host_.Host().NewBankService();
  host::Bank bank;
  bank.BankKey = "CGD";
  bank.Name = "Caixa";
  bank.Party = host_.Host().NewParty(3, 4);
  EXPECT_EQ(bank.Party->PartyType, 3);
  host::BankAccount account;
  account.BankAccountID = 1;
  account.BankID = 4;
  account.Description = "Ordem";
  account.BankCode = "0035";
  account.AccountNumber = "123";
  account.CurrencyID = "EUR";
  bank.Party->BankAccounts.push_back(account);
  account.BankAccountID = 2;
  account.Description = "Prazo";
  account.AccountNumber = "456";
  bank.Party->BankAccounts.push_back(account);
  banks->Save(bank, 4, true);

  const char* const kAccounts =
      "SELECT BankAccountID || ':' || BankID || ':' || Description || ':' || BankCode || ':' || "
      "AccountNumber || ':' || CurrencyID FROM PartyBankAccount WHERE PartyID = 30000000004 "
      "ORDER BY BankAccountID";
  EXPECT_EQ(host_.Rows("SELECT BankID || ':' || BankKey || ':' || Name FROM Bank"), "4:CGD:Caixa");
  EXPECT_EQ(PartyType(30000000004), "3");
  EXPECT_EQ(host_.Rows(kAccounts), "1:4:Ordem:0035:123:EUR,2:4:Prazo:0035:456:EUR");
  EXPECT_EQ(host_.Scalar("SELECT COUNT(*) FROM PartyAddress"), "0") << "a bank has no address";

  bank.Name = "Caixa Geral";
  bank.Party->BankAccounts.erase(bank.Party->BankAccounts.begin());
  banks->Save(bank, 4, false);
  EXPECT_EQ(host_.Rows("SELECT Name FROM Bank WHERE BankID = 4"), "Caixa Geral");
  EXPECT_EQ(host_.Rows(kAccounts), "2:4:Prazo:0035:456:EUR");
}

TEST_F(PartyServices, ARefusedSaveLeavesTheSupplierAndItsPartyAsTheyWere) {
  auto suppliers = host_.Host().NewSupplierService();
  host::Supplier supplier;
  supplier.SupplierID = 3;
  supplier.OrganizationName = "Antes";
  supplier.AddressLine1 = "Rua Principal";
  supplier.Party = host_.Host().NewParty(1, 3);
  supplier.Party->Addresses = {Address(1, "Armazém")};
  supplier.Party->Persons = {Person(1, "", "Ana")};
  suppliers->Save(supplier, true);
  const double party_id = 10000000003;

  // A telephone longer than its column is refused before anything is
  // written; an address under the main address's id, when the database
  // runs the writes.
  host::Supplier too_long = supplier;
  too_long.Party->Persons.front().Telephones.resize(1);
  too_long.Party->Persons.front().Telephones[0].TelephoneNumber = std::string(31, '9');
  host::Supplier broken_key = supplier;
  broken_key.Party->Addresses.push_back(Address(0, "Outra principal"));
  const std::pair<host::Supplier*, int32_t> refusals[] = {{&too_long, kTextTooLong},
                                                          {&broken_key, host::err::kSqlRefused}};
  for (const auto& [refused, number] : refusals) {
    refused->OrganizationName = "Depois";
    refused->AddressLine1 = "Rua Nova";
    refused->Party->Addresses.front().AddressLine1 = "Armazém novo";
    refused->Party->Persons.push_back(Person(2, "", "Rui"));
    EXPECT_EQ(RaisedNumber([&] { suppliers->Save(*refused, false); }), number);
    EXPECT_EQ(host_.Scalar("SELECT OrganizationName FROM Supplier"), "Antes");
    EXPECT_EQ(Addresses(party_id), "0:Rua Principal,1:Armazém");
    EXPECT_EQ(Persons(party_id), "1::Ana");
    EXPECT_EQ(Telephones(party_id), "");
  }
}

}  // namespace
}  // namespace standalone
