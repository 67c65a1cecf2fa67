#include "standalone/services/SqliteCustomerService.h"

#include "connector/host/FieldConverter.h"
#include "standalone/services/EntityColumns.h"
#include "standalone/services/SqlitePartyRows.h"

namespace standalone {
namespace {

using host::Customer;
using host::FieldConverter;

constexpr int kCustomerPartyKind = 1;

// The Customer row but its id.
const EntityColumns<Customer> kCustomerColumns = {
    {"CustomerKey", &Customer::CustomerKey},
    {"OrganizationName", &Customer::OrganizationName},
    {"AddressID", &Customer::AddressID},
    {"CountryID", &Customer::CountryID},
    {"CurrencyID", &Customer::CurrencyID},
    {"EmailAddress", &Customer::EmailAddress},
    {"Telephone1", &Customer::Telephone1},
    {"Fax", &Customer::Fax},
    {"FederalTaxID", &Customer::FederalTaxID},
    {"ZoneID", &Customer::ZoneID},
    {"CustomerLevel", &Customer::CustomerLevel},
    {"PriceLineID", &Customer::PriceLineID},
    {"SalesmanID", &Customer::SalesmanID},
    {"CarrierID", &Customer::CarrierID},
    {"PaymentID", &Customer::PaymentID},
    {"TenderID", &Customer::TenderID},
    {"TaxRegime", &Customer::TaxRegime},
    {"DirectDiscount", &Customer::DirectDiscount},
    {"SecondDiscount", &Customer::SecondDiscount},
    {"CreditLimitType", &Customer::CreditLimitType},
    {"CreditLimitAmount", &Customer::CreditLimitAmount},
    {"CreditLimitDays", &Customer::CreditLimitDays},
    {"CreditCurrencyID", &Customer::CreditCurrencyID},
    {"CreditCurrencyExchange", &Customer::CreditCurrencyExchange},
    {"CreditCurrencyFactor", &Customer::CreditCurrencyFactor},
    {"AplyRetentionTax", &Customer::AplyRetentionTax},
    {"RetentionTax", &Customer::RetentionTax},
    {"Inactive", &Customer::Inactive},
    {"Comments", &Customer::Comments},
    {"PresetText", &Customer::PresetText},
    {"CreationDate", &Customer::CreationDate},
};

// The customer's main address as Get reads it: PartyAddress but its key.
const EntityColumns<Customer> kAddressColumns = {
    {"AddressLine1", &Customer::AddressLine1}, {"AddressLine2", &Customer::AddressLine2},
    {"PostalCode", &Customer::PostalCode},     {"CountryID", &Customer::CountryID},
    {"ProvinceID", &Customer::ProvinceID},     {"LocalityID", &Customer::LocalityID},
};

}  // namespace

double SqliteCustomerService::GetCustomerIDFromKey(std::string_view customer_key) {
  return IdFromKey(db_, "Customer", "CustomerID", "CustomerKey", customer_key);
}

bool SqliteCustomerService::Exists(double customer_id) {
  return RowExists(db_, "Customer", "CustomerID", customer_id);
}

std::shared_ptr<host::Customer> SqliteCustomerService::Get(double customer_id) {
  auto rs =
      db_.Query("SELECT * FROM Customer WHERE CustomerID=?", {host::SqlValue::Number(customer_id)});
  if (rs->Eof()) return nullptr;
  auto customer = std::make_shared<Customer>();
  customer->CustomerID = FieldConverter::ToNumber(rs->Fields("CustomerID"));
  kCustomerColumns.Read(*rs, *customer);
  // The customer's own country stays when its address row has none.
  std::string country = customer->CountryID;
  auto address =
      db_.Query("SELECT * FROM PartyAddress WHERE PartyID=? AND AddressID=?",
                {host::SqlValue::Number(customer_id), host::SqlValue::Number(customer->AddressID)});
  if (!address->Eof()) kAddressColumns.Read(*address, *customer);
  if (customer->CountryID.empty()) customer->CountryID = country;
  return customer;
}

void SqliteCustomerService::Save(const Customer& customer, double customer_id) {
  bool customer_exists = Exists(customer_id);
  writer_.Atomically([&] {
    host::SqlStatement row;
    row.SetTable("Customer");
    kCustomerColumns.Write(customer, row);
    if (customer_exists) {
      row.KeyNumber("CustomerID", customer_id);
      writer_.Update(std::move(row));
    } else {
      row.Number("CustomerID", customer_id);
      writer_.Insert(std::move(row));
    }
    party_rows_.AddPartyIfMissing(customer_id, kCustomerPartyKind, customer.CreationDate);
    party_rows_.WriteAddress(MainAddressOf(customer, customer_id));
    if (customer.Party) {
      party_rows_.ReplaceCollections(customer_id, customer.AddressID, *customer.Party);
    }
  });
}

}  // namespace standalone
