// The customer pass: every CL record that the filter lets through becomes a
// new or an updated customer, keyed on the back office's number, which is
// also the id of a customer the POS did not have.

#include "connector/ModConnectorLumaro.h"
#include "connector/host/Conversions.h"
#include "connector/host/Error.h"
#include "connector/host/Text.h"
#include "connector/host/UIManager.h"
#include "exchange/import/ImportRun.h"
#include "exchange/import/PassReading.h"
#include "exchange/import/RecordLayouts.h"

namespace lumaro {
namespace {

constexpr int32_t kCustomersTitle = 4140038;
// The key of a customer made at the till and sent to the back office, until
// the back office sends it back under its number.
constexpr char kExportedKey[] = "Exported";
using Outcome = host::ImportObserver::Outcome;

}  // namespace

bool ImportRun::ImportCustomer(const std::string& path) {
  try {
    using namespace layout::cl;
    PassReading reading(*this, path, "CL", Title(kCustomersTitle), counters_.CL);
    host::CustomerService& customers = Customers();
    host::UIManager& ui = ModConnectorLumaro::Host().UIManager();
    while (reading.Next()) {
      const Record& record = reading.record();
      if (!filters_.PassCustomerFilter(record)) continue;

      auto customer = std::make_shared<host::Customer>();
      customer->CustomerKey = FieldText(record, kNumber);
      customer->CustomerID = customers.GetCustomerIDFromKey(customer->CustomerKey);
      bool is_new = false;
      bool do_save = true;
      if (customer->CustomerID != 0) {
        customer = customers.Get(customer->CustomerID);
        if (!customer) host::Raise(host::err::kObjectNotSet);
      } else {
        is_new = true;
        double number = FieldNumber(record, kNumberAsId);
        if (customers.Exists(number)) {
          std::shared_ptr<host::Customer> taken = customers.Get(number);
          if (taken && taken->CustomerKey == kExportedKey) {
            // The customer the till made comes back from the back office.
            customer = taken;
            is_new = false;
          } else {
            // The text ends in the working record's id, still 0 here: the box
            // says that the number is taken, not which. Kept as it is, and so
            // is the wait inside the file's transaction.
            ui.MsgBox("Já existe um cliente com o nº" + host::NumberText(customer->CustomerID),
                      host::msgbox::kOkOnly);
            do_save = false;
          }
        }
        if (is_new) {
          // The POS's id of an imported customer is the back office's number.
          customer->CustomerID = number;
          std::shared_ptr<host::PartyAddress> address =
              Addresses().GetPartyAddress(0, customer->CustomerID);
          if (!address) host::Raise(host::err::kObjectNotSet);
          customer->AddressID = address->AddressID;
        }
      }
      FillCustomer(*customer, record);
      if (do_save) {
        double id = customer->CustomerID;
        ProtectedSave(path, reading.line(), "CL", reading.line_number(),
                      is_new ? Outcome::kAdded : Outcome::kUpdated,
                      [&] { customers.Save(*customer, id); });
      } else {
        Observe("CL", reading.line_number(), Outcome::kRefused,
                "Já existe um cliente com o nº" + FieldText(record, kNumber));
      }
      reading.CountAndReport();
    }
    return reading.AtEnd();
  } catch (const host::Error& error) {
    throw error.WithSource("<ImportCustomer>");
  }
}

void ImportRun::FillCustomer(host::Customer& customer, const Record& record) {
  using namespace layout::cl;
  customer.CustomerKey = FieldText(record, kNumber);
  customer.OrganizationName = FieldText(record, kName);
  customer.AddressLine1 = FieldText(record, kAddress);
  customer.AddressLine2 = FieldText(record, kLocality);
  customer.PostalCode = FieldText(record, kPostalCode);
  customer.ZoneID = Zones().GetIDFromKey(FieldText(record, kZone));
  customer.EmailAddress = FieldText(record, kEmail);
  customer.Telephone1 = FieldText(record, kTelephone);
  customer.Fax = FieldText(record, kFax);
  customer.FederalTaxID = FieldText(record, kTaxpayer);
  customer.CustomerLevel = CustomerGroups().GetIDFromKey(FieldText(record, kGroup));
  customer.PriceLineID =
      host::CInt(host::Variant(PriceLines().GetID(FieldText(record, kPriceLine))));
  customer.SalesmanID = Salesmen().GetIDFromKey(FieldText(record, kSalesman));
  customer.DirectDiscount = FieldNumber(record, kDiscount);
  customer.CarrierID = Carriers().GetIDFromKey(FieldText(record, kCarrier));

  // No limit comes across in this direction: the two codes only mark a
  // customer with a limit, of zero; amount and days are cleared.
  std::string credit = host::UCase(FieldText(record, kCredit));
  customer.CreditLimitType = credit == "I" || credit == "L" ? 1 : 0;
  customer.CreditLimitAmount = 0;
  customer.CreditLimitDays = 0;

  std::shared_ptr<host::SystemSettings> settings = ModConnectorLumaro::GetSystemSettings();
  const host::Currency& currency = ModConnectorLumaro::Host().SystemManager().Context().Defaults();
  customer.AplyRetentionTax = FieldTruth(record, kRetention);
  customer.RetentionTax = settings->RetentionTax;
  customer.CreditCurrencyID = currency.CurrencyID;
  customer.CreditCurrencyExchange = currency.Exchange;
  customer.CreditCurrencyFactor = currency.Factor;
  customer.Inactive = FieldTruth(record, kInactive);
  customer.Comments = FieldText(record, kComments);

  // The host's first records stand in for what the record does not name.
  if (customer.ZoneID == 0) customer.ZoneID = Zones().GetFirstID();
  if (customer.CarrierID == 0) customer.CarrierID = Carriers().GetFirstID();
  if (customer.PriceLineID == 0) {
    customer.PriceLineID = host::CInt(host::Variant(PriceLines().GetFirstID()));
  }
  if (customer.SalesmanID == 0) customer.SalesmanID = Salesmen().GetFirstID();
  if (customer.PaymentID == 0) customer.PaymentID = Payments().GetFirstID();
  if (customer.TenderID == 0) customer.TenderID = Tenders().GetDefaultTenderID();
  if (customer.TaxRegime == 0) customer.TaxRegime = settings->TaxRegime;
}

}  // namespace lumaro
