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
  std::string CarrierName;
};

struct Payment {
  double PaymentID = 0;
  std::string PaymentKey;
  std::string Description;
};

struct Tender {
  double TenderID = 0;
  std::string TenderKey;
  std::string Description;
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

// A customer with its main address (the party address of AddressID). Its
// party id is its CustomerID.
struct Customer {
  double CustomerID = 0;
  // The back office's number; "Exported" from the moment the export sent a
  // customer made at the till until the back office sends it back.
  std::string CustomerKey;
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
  double CustomerLevel = 0;  // the customer group
  int16_t PriceLineID = 0;
  double SalesmanID = 0;
  double CarrierID = 0;
  double PaymentID = 0;
  double TenderID = 0;
  int16_t TaxRegime = 0;
  double DirectDiscount = 0;
  double SecondDiscount = 0;
  int16_t CreditLimitType = 0;
  double CreditLimitAmount = 0;
  int16_t CreditLimitDays = 0;
  std::string CreditCurrencyID;
  double CreditCurrencyExchange = 1;
  double CreditCurrencyFactor = 1;
  bool AplyRetentionTax = false;
  double RetentionTax = 0;
  bool Inactive = false;
  std::string Comments;
  std::string PresetText;
  std::optional<Date> CreationDate;  // empty: NULL
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
