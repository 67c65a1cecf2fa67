// The warehouses, suppliers and banks of the back office.

#include "connector/ModConnectorLumaro.h"
#include "connector/host/Conversions.h"
#include "connector/host/Text.h"
#include "initialload/BSOUpgBrevantaLumaroTables.h"
#include "initialload/LoadStep.h"
#include "initialload/PartyContacts.h"

namespace lumaro {
namespace {

constexpr int32_t kMadeUpSupplier = 3880033;
constexpr int16_t kSupplierParty = 1;
constexpr int16_t kBankParty = 3;
constexpr int16_t kEuropeanRegime = 5;
// The tender every supplier pays with.
constexpr double kTheTender = 1;
// Each delegation owns the warehouse codes from its number times this on.
constexpr int16_t kWarehousesPerDelegation = 10000;

}  // namespace

void BSOUpgBrevantaLumaroTables::Upgrade_Warehouse() {
  LoadStep step("Upgrade_Warehouse");
  Progress("Warehouse");
  host::DatabaseService& source = source_.Get();
  std::string sql = "SELECT * From Armaz WHERE EArm=" + source.SqlFormat().Boolean(true);
  if (initialize_mode_) {
    // Kept as it always was: the delegation and the products are 16-bit, so
    // from delegation 3 on the upper bound overflows, the range is not
    // added, and every warehouse of the back office is taken.
    step.Run(1, [&] {
      int16_t delegation = host::CInt(host::Variant(DelegationID));
      std::string from = std::to_string(
          host::CInt(host::Variant(static_cast<double>(delegation) * kWarehousesPerDelegation)));
      std::string to = std::to_string(host::CInt(
          host::Variant((static_cast<double>(delegation) + 1) * kWarehousesPerDelegation)));
      sql += " AND CArm >= " + from + " AND CArm < " + to;
    });
    step.Run(2, [&] { LoadTarget().OpenRecordset("DELETE FROM [Warehouse]"); });
  }
  std::unique_ptr<host::WarehouseService> warehouses;
  step.Run(3, [&] { warehouses = ModConnectorLumaro::Host().NewWarehouseService(); });
  const std::string country = ModConnectorLumaro::GetSystemSettings()->CountryID;
  ForEachSourceRow(step, source, sql, "Warehouse", events_, [&](const host::Recordset& rs) {
    host::Warehouse warehouse;
    // A code beyond 16 bits fails here and takes a new id.
    step.Run(4,
             [&] { warehouse.WarehouseID = host::CInt(host::Variant(SourceNumber(rs, "CArm"))); });
    step.Run(5, [&] { warehouse.WarehouseKey = SourceText(rs, "CArm"); });
    step.Run(6, [&] { warehouse.Description = SourceTrimmed(rs, "Sigla"); });
    step.Run(7, [&] { warehouse.AddressLine1 = SourceTrimmed(rs, "Mora"); });
    step.Run(8, [&] { warehouse.AddressLine2 = SourceTrimmed(rs, "Loca"); });
    step.Run(9, [&] { warehouse.PostalCode = SourceTrimmed(rs, "CodP"); });
    warehouse.CountryID = country;
    if (warehouse.WarehouseID == 0) {
      step.Run(10, [&] { warehouse.WarehouseID = warehouses->NextID(); });
    }
    bool exists = false;
    step.Run(13, [&] { exists = warehouses->Exists(warehouse.WarehouseID, ""); });
    step.Run(14, [&] { warehouses->Save(warehouse, warehouse.WarehouseID, !exists); });
    step.Run(11, [&] {
      Keys().Add(host::Variant(warehouse.WarehouseID), "Warehouse|" + SourceNumberText(rs, "CArm"));
    });
  });
  step.Run(12, [&] {
    std::optional<host::Variant> first =
        FirstValue(LoadTarget(), "Select TOP 1 WarehouseID FROM Warehouse", "WarehouseID");
    if (first) Keys().Add(*first, "Warehouse|");
  });
}

void BSOUpgBrevantaLumaroTables::Upgrade_Supplier() {
  LoadStep step("Upgrade_Supplier");
  Progress("Supplier");
  host::Host& host = ModConnectorLumaro::Host();
  std::unique_ptr<host::SupplierService> suppliers;
  double default_tender = 0;
  step.Run(1, [&] {
    suppliers = host.NewSupplierService();
    std::shared_ptr<host::Tender> tender = host.NewTenderService()->Get(kTheTender, "");
    if (tender) default_tender = tender->TenderID;
  });
  const std::string default_currency = HostContext().Defaults().CurrencyID;
  host::DatabaseService& source = source_.Get();
  ForEachSourceRow(
      step, source, "SELECT * FROM Fornc", "Supplier", events_, [&](const host::Recordset& rs) {
        int line = 1;
        auto column = [&](const std::function<void()>& statement) { step.Run(++line, statement); };
        host::Supplier supplier;
        std::string currency;
        column([&] { currency = KeyText("Currency|" + SourceTrimmed(rs, "CMoe")); });
        if (currency.empty()) currency = default_currency;
        double number = 0;
        column([&] { number = SourceNumber(rs, "CFor"); });
        host::Party party = host.NewParty(kSupplierParty, number);
        column([&] { supplier.SupplierKey = SourceText(rs, "CFor"); });
        column([&] {
          // The street, or else the place alone.
          supplier.AddressLine1 = SourceTrimmed(rs, "Morada");
          if (supplier.AddressLine1.empty()) {
            supplier.AddressLine1 = SourceTrimmed(rs, "Local");
          } else {
            supplier.AddressLine2 = SourceTrimmed(rs, "Local");
          }
        });
        double zone_code = 0;
        column([&] {
          zone_code = SourceNumber(rs, "CPais");
          supplier.CountryID = GetCountryID(zone_code);
        });
        column(
            [&] { supplier.ProvinceID = KeyText("ProvinceCodes|" + SourceTrimmed(rs, "CDist")); });
        column([&] {
          supplier.LocalityID = KeyNumber("LocalityCodes|" + SourceTrimmed(rs, "CConc"));
        });
        column([&] { supplier.PostalCode = SourceTrimmed(rs, "CPostal"); });
        supplier.SupplierID = number;
        supplier.AddressID = 0;  // the party's main address
        column([&] { supplier.OrganizationName = SourceTrimmed(rs, "Nome"); });
        column([&] { supplier.FederalTaxID = FederalTaxID(rs); });
        column([&] {
          supplier.AplyRetentionTax = rs.HasField("TemIRRet")
                                          ? SourceBoolean(rs, "TemIRRet")
                                          : host::CBool(Keys().Item("AplyRetentionTax|"));
        });
        column([&] { supplier.RetentionTax = KeyNumber("RetentionTax|"); });
        column([&] { supplier.EmailAddress = SourceTrimmed(rs, "Email"); });
        column([&] {
          double zone = host::CInt(host::Variant(KeyNumber("Zone|" + host::NumberText(zone_code))));
          supplier.ZoneID = zone == 0 ? KeyNumber("Zone|") : zone;
        });
        supplier.CurrencyID = currency;
        column([&] { SetSupplierPayment(rs, default_tender, supplier); });
        column([&] { supplier.TaxRegime = TaxRegimeOfZone(zone_code); });
        column([&] { supplier.Fax = SourceTrimmed(rs, "Fax"); });
        column([&] { supplier.Telephone1 = SourceTrimmed(rs, "TELEF"); });
        column([&] { supplier.Comments = SourceTrimmed(rs, "Obs"); });
        column([&] { supplier.CreationDate = SourceDate(rs, "DataFich"); });
        column([&] { supplier.DirectDiscount = SourceNumber(rs, "DscCab"); });
        column([&] { supplier.Inactive = SourceBoolean(rs, "Inact"); });
        AddRowContacts(step, rs, party);
        AddFurtherAddresses(step, source,
                            "SELECT * FROM ForMo WHERE CFor=" + source.SqlFormat().Number(number),
                            party);
        supplier.Party = std::move(party);
        step.Run(60, [&] { suppliers->Save(supplier, true); });
        step.Run(61, [&] {
          Keys().Add(host::Variant(supplier.SupplierID), "Supplier|" + host::NumberText(number));
        });
      });
  step.Run(62, [&] {
    std::optional<host::Variant> first =
        FirstValue(LoadTarget(), "Select TOP 1 SupplierID FROM Supplier", "SupplierID");
    if (first) {
      Keys().Add(*first, "Supplier|-1");
    } else {
      Create_SupplierDefault();
    }
  });
}

void BSOUpgBrevantaLumaroTables::SetSupplierPayment(const host::Recordset& rs,
                                                    double default_tender,
                                                    host::Supplier& supplier) {
  // Kept as it always was: the first test reads the code as a number, the
  // lookups after it as its text, while the payment terms wrote the
  // trimmed text.
  if (KeyText("Payment|" + SourceNumberText(rs, "CPag")).empty()) {
    supplier.PaymentID = KeyNumber("Payment|");
    supplier.TenderID = default_tender;
    return;
  }
  std::string code = SourceText(rs, "CPag");
  supplier.PaymentID = KeyNumber("Payment|" + code);
  supplier.TenderID = KeyNumber("Tender|" + code);
  if (supplier.PaymentID == 0) supplier.PaymentID = KeyNumber("Payment|");
  if (supplier.TenderID == 0) supplier.TenderID = default_tender;
}

void BSOUpgBrevantaLumaroTables::Create_SupplierDefault() {
  LoadStep step("Create_SupplierDefault");
  step.Run(1, [&] {
    std::optional<host::Variant> first =
        FirstValue(LoadTarget(), "Select TOP 1 PaymentID FROM Payment", "PaymentID");
    if (first) Keys().Add(*first, "Payment|", true);
  });
  step.Run(2,
           [&] { Keys().Add(host::Variant(static_cast<int16_t>(kTheTender)), "Tender|", true); });
  if (!KeyText("Supplier|-1").empty()) return;  // made already
  if (KeyText("Zone|UE").empty()) Create_ZoneUE();
  host::Host& host = ModConnectorLumaro::Host();
  step.Run(3, [&] {
    std::unique_ptr<host::SupplierService> suppliers = host.NewSupplierService();
    host::Supplier supplier;
    supplier.SupplierID = suppliers->NextID();
    host::Party party = host.NewParty(kSupplierParty, supplier.SupplierID);
    supplier.CountryID = ModConnectorLumaro::GetSystemSettings()->CountryID;
    supplier.OrganizationName = CatalogueText(kMadeUpSupplier);
    supplier.AddressID = 0;
    // The made-up supplier belongs to the European zone, whatever the
    // company's country.
    supplier.ZoneID = host::CInt(host::Variant(KeyNumber("Zone|UE")));
    std::shared_ptr<host::Tender> tender = host.NewTenderService()->Get(kTheTender, "");
    if (tender) supplier.TenderID = tender->TenderID;
    supplier.PaymentID = host::CInt(host::Variant(KeyNumber("Payment|")));
    supplier.TaxRegime = kEuropeanRegime;
    supplier.Party = std::move(party);
    suppliers->Save(supplier, true);
    Keys().Add(host::Variant(supplier.SupplierID), "Supplier|-1");
  });
}

void BSOUpgBrevantaLumaroTables::Upgrade_Bank() {
  LoadStep step("Upgrade_Bank");
  Progress("Bank");
  host::Host& host = ModConnectorLumaro::Host();
  std::unique_ptr<host::BankService> banks;
  step.Run(1, [&] { banks = host.NewBankService(); });
  const std::string country = ModConnectorLumaro::GetSystemSettings()->CountryID;
  const std::string default_currency = HostContext().Defaults().CurrencyID;
  ForEachSourceRow(step, source_.Get(), "SELECT * FROM CoBan WHERE EInact=0", "Bank", events_,
                   [&](const host::Recordset& rs) {
                     host::Bank bank;
                     host::BankAccount account;
                     step.Run(2, [&] {
                       bank.BankID = host::CLng(host::Variant(SourceNumber(rs, "CBan")));
                       account.BankAccountID = bank.BankID;
                     });
                     step.Run(3, [&] { bank.BankKey = SourceText(rs, "CBan"); });
                     step.Run(4, [&] {
                       std::string name = SourceText(rs, "Banco");
                       std::string branch = SourceText(rs, "Balcao");
                       bank.Name = name + (!name.empty() && !branch.empty() ? " " : "") + branch;
                     });
                     bank.CountryID = country;
                     step.Run(5, [&] { bank.Telephone1 = SourceText(rs, "TELEF"); });
                     step.Run(6, [&] { bank.Fax = SourceText(rs, "Fax"); });
                     host::Party party = host.NewParty(kBankParty, bank.BankID);
                     account.BankName = bank.Name;
                     step.Run(7, [&] { account.Description = SourceText(rs, "DESCR"); });
                     account.BankID = bank.BankID;
                     account.CountryID = country;
                     step.Run(8, [&] {
                       account.BankCode = SourceText(rs, "Nib_Ban");
                       account.BranchCode = SourceText(rs, "Nib_Bal");
                       account.AccountNumber = SourceText(rs, "Nib_Con");
                       account.CheckDigits = SourceText(rs, "Nib_Chk");
                     });
                     step.Run(9, [&] {
                       account.CurrencyID = KeyText("Currency|" + SourceText(rs, "CMoe"));
                       if (account.CurrencyID.empty()) account.CurrencyID = default_currency;
                     });
                     // An account without its bank's code is dropped.
                     if (!account.BankCode.empty()) party.BankAccounts.push_back(account);
                     bank.Party = std::move(party);
                     step.Run(10, [&] { banks->Save(bank, bank.BankID, true); });
                     step.Run(11, [&] {
                       Keys().Add(host::Variant(bank.BankID),
                                  "Bank|" + SourceNumberText(rs, "CBan"));
                     });
                   });
}

}  // namespace lumaro
