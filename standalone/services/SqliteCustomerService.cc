#include "standalone/services/SqliteCustomerService.h"

#include "connector/host/FieldConverter.h"

namespace standalone {
namespace {

using host::FieldConverter;

constexpr int kCustomerPartyKind = 1;

int16_t Small(const host::Variant& value) {
  return static_cast<int16_t>(FieldConverter::ToNumber(value));
}

}  // namespace

double SqliteCustomerService::GetCustomerIDFromKey(std::string_view customer_key) {
  return IdFromKey(db_, "Customer", "CustomerID", "CustomerKey", customer_key);
}

bool SqliteCustomerService::Exists(double customer_id) {
  return RowExists(db_, "Customer", "CustomerID", customer_id);
}

std::shared_ptr<host::Customer> SqliteCustomerService::Get(double customer_id) {
  auto rs = db_.OpenRecordset(
      "SELECT Customer.*, PartyAddress.AddressLine1, PartyAddress.AddressLine2, "
      "PartyAddress.PostalCode, PartyAddress.ProvinceID, PartyAddress.LocalityID FROM Customer "
      "LEFT JOIN PartyAddress ON (PartyAddress.PartyID = Customer.CustomerID AND "
      "PartyAddress.AddressID = Customer.AddressID) WHERE Customer.CustomerID=" +
      db_.SqlFormat().Number(customer_id));
  if (rs->Eof()) return nullptr;
  auto c = std::make_shared<host::Customer>();
  const host::Recordset& row = *rs;
  auto text = [&row](const char* name) { return FieldConverter::ToText(row.Fields(name)); };
  auto number = [&row](const char* name) { return FieldConverter::ToNumber(row.Fields(name)); };
  auto truth = [&row](const char* name) { return FieldConverter::ToBoolean(row.Fields(name)); };
  c->CustomerID = number("CustomerID");
  c->CustomerKey = text("CustomerKey");
  c->OrganizationName = text("OrganizationName");
  c->AddressID = number("AddressID");
  c->AddressLine1 = text("AddressLine1");
  c->AddressLine2 = text("AddressLine2");
  c->PostalCode = text("PostalCode");
  c->CountryID = text("CountryID");
  c->ProvinceID = text("ProvinceID");
  c->LocalityID = number("LocalityID");
  c->CurrencyID = text("CurrencyID");
  c->EmailAddress = text("EmailAddress");
  c->Telephone1 = text("Telephone1");
  c->Fax = text("Fax");
  c->FederalTaxID = text("FederalTaxID");
  c->ZoneID = number("ZoneID");
  c->CustomerLevel = number("CustomerLevel");
  c->PriceLineID = Small(row.Fields("PriceLineID"));
  c->SalesmanID = number("SalesmanID");
  c->CarrierID = number("CarrierID");
  c->PaymentID = number("PaymentID");
  c->TenderID = number("TenderID");
  c->TaxRegime = Small(row.Fields("TaxRegime"));
  c->DirectDiscount = number("DirectDiscount");
  c->SecondDiscount = number("SecondDiscount");
  c->CreditLimitType = Small(row.Fields("CreditLimitType"));
  c->CreditLimitAmount = number("CreditLimitAmount");
  c->CreditLimitDays = Small(row.Fields("CreditLimitDays"));
  c->CreditCurrencyID = text("CreditCurrencyID");
  c->CreditCurrencyExchange = number("CreditCurrencyExchange");
  c->CreditCurrencyFactor = number("CreditCurrencyFactor");
  c->AplyRetentionTax = truth("AplyRetentionTax");
  c->RetentionTax = number("RetentionTax");
  c->Inactive = truth("Inactive");
  c->Comments = text("Comments");
  c->PresetText = text("PresetText");
  c->CreationDate = DateOrNull(row.Fields("CreationDate"));
  return c;
}

void SqliteCustomerService::Save(const host::Customer& c, double customer_id) {
  host::SqlStatement customer;
  customer.SetTable("Customer");
  customer.Text("CustomerKey", c.CustomerKey);
  customer.Text("OrganizationName", c.OrganizationName);
  customer.Number("AddressID", c.AddressID);
  customer.Text("CountryID", c.CountryID);
  customer.Text("CurrencyID", c.CurrencyID);
  customer.Text("EmailAddress", c.EmailAddress);
  customer.Text("Telephone1", c.Telephone1);
  customer.Text("Fax", c.Fax);
  customer.Text("FederalTaxID", c.FederalTaxID);
  customer.Number("ZoneID", c.ZoneID);
  customer.Number("CustomerLevel", c.CustomerLevel);
  customer.Number("PriceLineID", c.PriceLineID);
  customer.Number("SalesmanID", c.SalesmanID);
  customer.Number("CarrierID", c.CarrierID);
  customer.Number("PaymentID", c.PaymentID);
  customer.Number("TenderID", c.TenderID);
  customer.Number("TaxRegime", c.TaxRegime);
  customer.Number("DirectDiscount", c.DirectDiscount);
  customer.Number("SecondDiscount", c.SecondDiscount);
  customer.Number("CreditLimitType", c.CreditLimitType);
  customer.Number("CreditLimitAmount", c.CreditLimitAmount);
  customer.Number("CreditLimitDays", c.CreditLimitDays);
  customer.Text("CreditCurrencyID", c.CreditCurrencyID);
  customer.Number("CreditCurrencyExchange", c.CreditCurrencyExchange);
  customer.Number("CreditCurrencyFactor", c.CreditCurrencyFactor);
  customer.Boolean("AplyRetentionTax", c.AplyRetentionTax);
  customer.Number("RetentionTax", c.RetentionTax);
  customer.Boolean("Inactive", c.Inactive);
  customer.Text("Comments", c.Comments);
  customer.Text("PresetText", c.PresetText);
  SetDate(customer, "CreationDate", c.CreationDate);

  host::SqlStatement address;
  address.SetTable("PartyAddress");
  address.Text("AddressLine1", c.AddressLine1);
  address.Text("AddressLine2", c.AddressLine2);
  address.Text("PostalCode", c.PostalCode);
  address.Text("CountryID", c.CountryID);
  address.Text("ProvinceID", c.ProvinceID);
  address.Number("LocalityID", c.LocalityID);

  const host::SqlFormat& format = db_.SqlFormat();
  bool address_exists = !db_.OpenRecordset("SELECT AddressID FROM PartyAddress WHERE PartyID=" +
                                           format.Number(customer_id) +
                                           " AND AddressID=" + format.Number(c.AddressID))
                             ->Eof();
  bool customer_exists = Exists(customer_id);
  writer_.Atomically([&] {
    if (customer_exists) {
      customer.KeyNumber("CustomerID", customer_id);
      writer_.Update(customer);
    } else {
      customer.Number("CustomerID", customer_id);
      writer_.Insert(customer);
      if (!RowExists(db_, "Party", "PartyID", customer_id)) {
        host::SqlStatement party;
        party.SetTable("Party");
        party.Number("PartyID", customer_id);
        party.Number("PartyType", kCustomerPartyKind);
        SetDate(party, "CreationDate", c.CreationDate);
        writer_.Insert(party);
      }
    }
    if (address_exists) {
      address.KeyNumber("PartyID", customer_id);
      address.KeyNumber("AddressID", c.AddressID);
      writer_.Update(address);
    } else {
      address.Number("PartyID", customer_id);
      address.Number("AddressID", c.AddressID);
      writer_.Insert(address);
    }
  });
}

}  // namespace standalone
