#ifndef LUMARO_CONNECTOR_HOST_ENTITIES_H_
#define LUMARO_CONNECTOR_HOST_ENTITIES_H_

// The host's entities, as far as the connector reads or writes them. Each is
// a plain record; its service (EntityServices.h) reads and saves it whole.

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "connector/host/Date.h"

namespace host {

struct Salesman {
  double SalesmanID = 0;
  std::string SalesmanKey;
  std::string SalesmanName;
  std::string Comments;
  std::string CountryID;
  int16_t SalesmanLevel = 0;
  double MaximumDiscount = 0;
  double SalesGroupID = 0;
  double ComissionOnSale = 0;
  double ComissionOnPay = 0;
  int16_t ComissionIncidenceType = 0;
  std::string SpokenLanguageID;
};

struct Carrier {
  double CarrierID = 0;
  std::string CarrierKey;
  std::string CarrierName;  // the Description column
  std::string CurrencyID;
  double CurrencyExchange = 1;
  double CurrencyFactor = 1;
  double CurrentKm = 0;
};

struct PriceLine {
  double PriceLineID = 0;
  std::string PriceLineKey;
  std::string ShortName;
  std::string Description;
  std::string LanguageID;
};

// A place of loading or unloading of goods.
struct LoadUnloadPlace {
  double LoadUnloadPlaceID = 0;
  std::string Description;
};

struct Payment {
  double PaymentID = 0;
  std::string PaymentKey;
  std::string Description;
};

// A way of paying at the till. TenderGroup, TenderKind and the four options
// are the host's (a till of the back office is group 2, kind 4 when it
// takes direct debits).
struct Tender {
  double TenderID = 0;
  std::string TenderKey;
  std::string Description;
  int16_t TenderGroup = 0;
  int16_t TenderKind = 0;
  bool TenderOption1 = false;
  bool TenderOption2 = false;
  bool TenderOption3 = false;
  bool TenderOption4 = false;
};

// A unit of measure; UnitFormula tells how a quantity is measured
// ("<QNT>*<MED1>"), empty for a plain unit.
struct UnitOfMeasure {
  std::string UnitOfMeasureID;
  std::string Description;
  std::string LanguageID;
  std::string BaseUnitOfMeasureID;
  double UnitRatio = 1;
  std::string UnitFormula;
};

// One address of a party: PartyID and AddressID are its key.
struct PartyAddress {
  double PartyID = 0;
  double AddressID = 0;
  std::string AddressLine1;
  std::string AddressLine2;
  std::string PostalCode;
  std::string CountryID;
  std::string ProvinceID;
  double LocalityID = 0;
};

// A telephone of a party's person: TelephoneType 0 a telephone, 1 a fax.
struct Telephone {
  int32_t TelephoneID = 0;
  int16_t TelephoneType = 0;
  std::string TelephoneNumber;
};

// A contact person of a party, with its telephones.
struct Person {
  int32_t PersonID = 0;
  std::string Title;
  std::string Name;
  std::vector<Telephone> Telephones;
};

// A bank account of a party (a bank's own accounts).
struct BankAccount {
  int32_t BankAccountID = 0;
  int32_t BankID = 0;
  std::string BankName;
  std::string Description;
  std::string CountryID;
  std::string BankCode;
  std::string BranchCode;
  std::string AccountNumber;
  std::string CheckDigits;
  std::string CurrencyID;
};

// What a party holds beside its main address (AddressID 0, kept on its
// owner): further addresses (ids from 1), contact persons and bank
// accounts. Saved with its owner, it replaces all the party held of these.
struct Party {
  double PartyID = 0;
  int16_t PartyType = 0;
  std::vector<PartyAddress> Addresses;
  std::vector<Person> Persons;
  std::vector<BankAccount> BankAccounts;
};

// What a customer and a supplier both are: a trading partner with its name,
// its main address, its contacts and its terms.
struct TradingPartner {
  std::string OrganizationName;
  double AddressID = 0;
  std::string AddressLine1;
  std::string AddressLine2;
  std::string PostalCode;
  std::string CountryID;
  std::string ProvinceID;
  double LocalityID = 0;
  std::string CurrencyID;
  std::string EmailAddress;
  std::string Telephone1;
  std::string Fax;
  std::string FederalTaxID;
  double ZoneID = 0;
  double PaymentID = 0;
  double TenderID = 0;
  int16_t TaxRegime = 0;
  double DirectDiscount = 0;
  bool AplyRetentionTax = false;
  double RetentionTax = 0;
  bool Inactive = false;
  std::string Comments;
  std::optional<Date> CreationDate;  // empty: NULL
  // Its further addresses and contacts; none leaves those it has.
  std::optional<host::Party> Party;
};

// A customer with its main address (the party address of AddressID). Its
// party id is its CustomerID.
struct Customer : TradingPartner {
  double CustomerID = 0;
  // The back office's number; "Exported" from the moment the export sent a
  // customer made at the till until the back office sends it back.
  std::string CustomerKey;
  double CustomerLevel = 0;  // the customer group
  int16_t PriceLineID = 0;
  double SalesmanID = 0;
  double CarrierID = 0;
  double SecondDiscount = 0;
  int16_t CreditLimitType = 0;
  double CreditLimitAmount = 0;
  int16_t CreditLimitDays = 0;
  std::string CreditCurrencyID;
  double CreditCurrencyExchange = 1;
  double CreditCurrencyFactor = 1;
  std::string PresetText;
};

// A supplier with its main address (AddressID 0 of its party). Its party is
// of kind 1, with the PartyID that SystemManager.PartyIDBase gives its
// SupplierID.
struct Supplier : TradingPartner {
  double SupplierID = 0;
  std::string SupplierKey;
};

// A bank; its accounts are those of its party (kind 3).
struct Bank {
  int32_t BankID = 0;
  std::string BankKey;
  std::string Name;
  std::string CountryID;
  std::string Telephone1;
  std::string Fax;
  std::optional<host::Party> Party;
};

struct Warehouse {
  int16_t WarehouseID = 0;
  std::string WarehouseKey;
  std::string Description;
  std::string AddressLine1;
  std::string AddressLine2;
  std::string PostalCode;
  std::string CountryID;
};

// One line of a customer's ledger: a document (TransSerial, TransDocument,
// TransDocNumber) that the customer owes or paid.
struct LedgerLine {
  std::string TransSerial;
  std::string TransDocument;
  int32_t TransDocNumber = 0;  // 0: the next number of the series' document
  double PartyID = 0;
  double TotalAmount = 0;
  double TotalPendingAmount = 0;
  double TotalPaidAmount = 0;
  std::string CurrencyID;
  double CurrencyExchange = 1;
  double CurrencyFactor = 1;
  std::optional<Date> CreateDate;
  std::optional<Date> DueDate;
  double PaymentID = 0;
  int16_t TransactionKind = 0;
};

// One of a family's level rows.
struct FamilyLevelRow {
  int16_t LevelNumber = 0;
  double LevelValue = 0;
};

// A family of items: a node of the tree under the general family, with the
// names of its ancestors joined by "\" in FamilyPath.
struct Family {
  double FamilyID = 0;
  std::string FamilyKey;
  std::string FamilyName;
  double ParentFamilyID = 0;
  std::string ParentFamilyName;
  int16_t FamilyLevel = 0;
  std::string FamilyPath;
  double MaximumDiscount = 0;
  bool IsServiceFamily = false;
  int16_t FamilyItemKind = 0;
  std::vector<FamilyLevelRow> LevelRows;
};

}  // namespace host

#endif  // LUMARO_CONNECTOR_HOST_ENTITIES_H_
