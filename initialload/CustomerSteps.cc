// The customers of the back office with their contacts, further addresses
// and credit; the two fixed places of loading; the customers' opening
// balances.

#include "connector/ModConnectorLumaro.h"
#include "connector/host/Conversions.h"
#include "connector/host/FieldConverter.h"
#include "connector/host/Text.h"
#include "initialload/BSOUpgBrevantaLumaroTables.h"
#include "initialload/LoadStep.h"
#include "initialload/PartyContacts.h"

namespace lumaro {
namespace {

constexpr int32_t kLoadPlace = 3880035;
constexpr int32_t kUnloadPlace = 3880036;
constexpr const char* kPresetText = "###";
// The POS's fixed price line.
constexpr int16_t kFixedPriceLine = 1;
// Opening balances: the document, and the kind of ledger line.
constexpr const char* kOpeningDocument = "SIC";
constexpr int16_t kOpeningKind = 6;
constexpr int16_t kLongestCreditDays = 999;

// The back office's list limits, joined: the customer must meet them all.
std::string CustomerWhere(const BSOUpgBrevantaLumaroTables& load) {
  std::string where;
  auto add = [&](const std::string& limit, const char* column) {
    if (limit.empty()) return;
    if (!where.empty()) where += " AND ";
    where += " " + std::string(column) + " IN (" + limit + ")";
  };
  add(load.CustomerGroupLimit, "CGrpc");
  add(load.ZoneLimit, "CPais");
  add(load.SalesmanLimit, "CVen");
  return where;
}

// A dictionary id, or the fallback when it reads 0.
double OrFallback(double id, double fallback) { return id == 0 ? fallback : id; }

}  // namespace

void BSOUpgBrevantaLumaroTables::Upgrade_Customer() {
  LoadStep step("Upgrade_Customer");
  Progress("Customer");
  host::Host& host = ModConnectorLumaro::Host();
  std::unique_ptr<host::CustomerService> customers;
  std::unique_ptr<host::PartyAddressService> addresses;
  std::unique_ptr<host::CurrencyService> currencies;
  double default_tender = 0;
  if (!step.Run(1, [&] {
        customers = host.NewCustomerService();
        addresses = host.NewPartyAddressService();
        currencies = host.NewCurrencyService();
      })) {
    return;  // no customer could be read or saved
  }
  step.Run(32, [&] { default_tender = host.NewTenderService()->GetDefaultTenderID(); });
  std::string sql = "SELECT * FROM Clien";
  std::string where = CustomerWhere(*this);
  if (!where.empty()) sql += " WHERE " + where;
  const host::Currency& defaults = HostContext().Defaults();
  ForEachSourceRow(step, source_.Get(), sql, "Customer", events_, [&](const host::Recordset& rs) {
    int line = 1;
    auto column = [&](const std::function<void()>& statement) { step.Run(++line, statement); };
    host::Customer customer;
    // The currency: a code read as a number, found in the dictionary, or
    // the POS's own. Kept as it is: a code that is no number reads as 0 and
    // takes the POS's currency, though the currencies' keys are texts.
    std::shared_ptr<host::Currency> currency;
    column([&] {
      std::string id = KeyText("Currency|" + SourceNumberText(rs, "CMoe"));
      if (!id.empty()) currency = currencies->Get(id, "");
    });
    if (!currency) currency = std::make_shared<host::Currency>(defaults);
    double address_id = 0;
    column(
        [&] { address_id = addresses->GetPartyAddress(0, SourceNumber(rs, "CCLI"))->AddressID; });
    std::string code;
    column([&] {
      customer.CustomerKey = SourceText(rs, "CCLI");
      code = host::Trim(customer.CustomerKey);
    });
    column([&] { customer.OrganizationName = SourceTrimmed(rs, "Nome"); });
    column([&] { customer.AddressLine1 = SourceTrimmed(rs, "Morada"); });
    column([&] { customer.AddressLine2 = SourceTrimmed(rs, "Local"); });
    column([&] { customer.PostalCode = SourceTrimmed(rs, "CPostal"); });
    double zone_code = 0;
    column([&] {
      zone_code = SourceNumber(rs, "CPais");
      customer.CountryID = GetCountryID(zone_code);
    });
    column([&] { customer.ProvinceID = KeyText("ProvinceCodes|" + SourceTrimmed(rs, "CDist")); });
    column([&] { customer.LocalityID = KeyNumber("LocalityCodes|" + SourceTrimmed(rs, "CConc")); });
    customer.CurrencyID = currency->CurrencyID;
    column([&] { customer.CustomerID = SourceNumber(rs, "CCLI"); });
    customer.AddressID = address_id;
    column([&] { customer.CreationDate = SourceDate(rs, "DataFich"); });
    column([&] { customer.FederalTaxID = FederalTaxID(rs); });
    column([&] {
      customer.SalesmanID =
          OrFallback(host::CLng(host::Variant(KeyNumber("Salesman|" + SourceTrimmed(rs, "CVen")))),
                     KeyNumber("Salesman|"));
    });
    column([&] {
      customer.ZoneID =
          OrFallback(host::CInt(host::Variant(KeyNumber("Zone|" + host::NumberText(zone_code)))),
                     KeyNumber("Zone|"));
    });
    column([&] {
      std::string payment = SourceTrimmed(rs, "CPag");
      customer.PaymentID = OrFallback(host::CInt(host::Variant(KeyNumber("Payment|" + payment))),
                                      KeyNumber("Payment|"));
      customer.TenderID =
          OrFallback(host::CInt(host::Variant(KeyNumber("Tender|" + payment))), default_tender);
    });
    column([&] {
      customer.CarrierID =
          OrFallback(host::CInt(host::Variant(KeyNumber("Carrier|" + SourceTrimmed(rs, "CMExp")))),
                     KeyNumber("Carrier|"));
    });
    column([&] { customer.EmailAddress = SourceTrimmed(rs, "Email"); });
    column([&] {
      customer.PriceLineID = static_cast<int16_t>(
          OrFallback(host::CInt(host::Variant(KeyNumber("PriceLine|" + SourceTrimmed(rs, "CPre")))),
                     kFixedPriceLine));
    });
    column([&] { customer.DirectDiscount = GetCustomerDirectDiscount(SourceText(rs, "CDsc")); });
    column([&] { customer.SecondDiscount = SourceNumber(rs, "DscFT"); });
    column([&] {
      customer.AplyRetentionTax = rs.HasField("TemIRRet")
                                      ? SourceBoolean(rs, "TemIRRet")
                                      : host::CBool(Keys().Item("AplyRetentionTax|"));
    });
    column([&] { customer.RetentionTax = KeyNumber("RetentionTax|"); });
    column([&] { SetCredit(rs, customer); });
    // The credit's currency is read through the customer's currency.
    customer.CreditCurrencyID = currency->CurrencyID;
    customer.CreditCurrencyFactor = currency->Factor;
    customer.CreditCurrencyExchange = currency->Exchange;
    column([&] {
      customer.CustomerLevel =
          host::CInt(host::Variant(KeyNumber("CustomerGroups|" + SourceTrimmed(rs, "CGrpC"))));
    });
    column([&] {
      std::string notes = SourceTrimmed(rs, "Obs");
      std::string remarks = SourceTrimmed(rs, "Anot");
      customer.Comments = notes + (!notes.empty() && !remarks.empty() ? "\r\n" : "") + remarks;
    });
    column([&] { customer.TaxRegime = TaxRegimeOfZone(zone_code); });
    column([&] { customer.Fax = SourceTrimmed(rs, "Fax"); });
    column([&] { customer.Telephone1 = SourceTrimmed(rs, "TELEF"); });
    column([&] { customer.Inactive = SourceBoolean(rs, "Inact"); });
    customer.PresetText = kPresetText;

    host::Party party;
    party.PartyID = customer.CustomerID;
    AddRowContacts(step, rs, party);
    AddFurtherAddresses(step, source_.Get(),
                        "SELECT * FROM CliMo WHERE CCli=" + host::NumberText(customer.CustomerID),
                        party);
    customer.Party = std::move(party);
    step.Run(60, [&] { customers->Save(customer, customer.CustomerID); });
    step.Run(61, [&] { Keys().Add(host::Variant(customer.CustomerID), "Customer|" + code); });
  });
}

void BSOUpgBrevantaLumaroTables::SetCredit(const host::Recordset& rs, host::Customer& customer) {
  std::string state = host::UCase(SourceTrimmed(rs, "SitCredito"));
  // The initial load brings the state of a customer's credit, not its
  // amount.
  if (initialize_mode_) {
    customer.CreditLimitType = state == "I" || state == "L" ? 1 : 0;
    customer.CreditLimitAmount = 0;
    customer.CreditLimitDays = 0;
    return;
  }
  if (state == "C" || state == "X") {
    customer.CreditLimitType = 0;
  } else if (state == "I") {
    customer.CreditLimitType = 1;
    customer.CreditLimitAmount = 0;
  } else if (state == "L") {
    double days = SourceNumber(rs, "MaxDias");
    customer.CreditLimitType = days > 0 ? 3 : 1;
    customer.CreditLimitAmount = SourceNumber(rs, "MaxSaldo");
    customer.CreditLimitDays =
        host::CInt(host::Variant(std::min<double>(days, kLongestCreditDays)));
  }
}

double BSOUpgBrevantaLumaroTables::GetCustomerDirectDiscount(const std::string& code) {
  if (code.empty()) return 0;
  if (code[0] != '*') return host::ParseNumber(code, ",");
  // A discount code: read once from the back office, then from the
  // dictionary.
  const std::string key = "CustomerDirectDiscount|" + code;
  if (Keys().Exists(key)) return host::CDbl(Keys().Item(key));
  host::DatabaseService& source = source_.Get();
  std::string quoted = source.SqlFormat().QuoteText(code);
  double discount = 0;
  std::optional<host::Variant> value =
      FirstValue(source, "SELECT CDscX FROM Desco WHERE CDsc='" + quoted + "'", "CDscX");
  std::string text = value ? host::FieldConverter::ToText(*value) : "";
  if (value && (text.empty() || text[0] != '*')) {
    discount = host::ParseNumber(text, ".");
    // Read and left unused, as it always was.
    HasRows(source, "SELECT * FROM DesFa WHERE CDsc='" + quoted + "'");
  }
  Keys().Add(host::Variant(discount), key);
  return discount;
}

void BSOUpgBrevantaLumaroTables::Update_LoadUnloadPlace() {
  LoadStep step("Update_LoadUnloadPlace");
  step.Run(1, [&] {
    std::unique_ptr<host::LoadUnloadPlaceService> places =
        ModConnectorLumaro::Host().NewLoadUnloadPlaceService();
    if (places->Exists(1) && places->Exists(2)) return;
    // Either missing: both are made, under new ids.
    for (int32_t description : {kLoadPlace, kUnloadPlace}) {
      host::LoadUnloadPlace place;
      place.LoadUnloadPlaceID = GetNewIDFromTable("LoadUnloadPlace", "LoadUnloadPlaceID");
      place.Description = CatalogueText(description);
      places->Save(place, true);
    }
  });
}

void BSOUpgBrevantaLumaroTables::Upgrade_CustomerLedgerAccount() {
  LoadStep step("Upgrade_CustomerLedgerAccount");
  Progress("CustomerLedgerAccount");
  host::Host& host = ModConnectorLumaro::Host();
  std::unique_ptr<host::CustomerLedgerService> ledger;
  std::shared_ptr<host::Payment> payment;
  const host::Currency& currency = HostContext().Defaults();
  // Reported under "Stock", as it always was.
  ForEachSourceRow(
      step, source_.Get(),
      "SELECT CCon, SalTot AS Saldo FROM TerTo WHERE TCon='C' AND CCon <> 0 AND Saldo<>0 ORDER "
      "BY CCon",
      "Stock", events_, [&](const host::Recordset& rs) {
        if (!ledger) {
          step.Run(2, [&] {
            ledger = host.NewCustomerLedgerService();
            payment = host.NewPaymentService()->Get(KeyNumber("Payment|"));
          });
        }
        host::LedgerLine line;
        line.TransDocument = kOpeningDocument;
        line.TransSerial = series_key_;
        step.Run(3, [&] { line.PartyID = KeyNumber("Customer|" + SourceNumberText(rs, "CCon")); });
        step.Run(4, [&] { line.TotalAmount = SourceNumber(rs, "Saldo"); });
        line.CurrencyID = currency.CurrencyID;
        line.CurrencyFactor = currency.Factor;
        line.CurrencyExchange = currency.Exchange;
        line.CreateDate = host::Today();
        line.DueDate = host::Today();
        if (payment) line.PaymentID = payment->PaymentID;
        line.TransactionKind = kOpeningKind;
        step.Run(5, [&] {
          if (ledger) ledger->Save(line);
        });
      });
}

}  // namespace lumaro
