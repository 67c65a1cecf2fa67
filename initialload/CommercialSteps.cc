// The tables that customers and items refer to: price lines, carriers,
// payment terms with their installments, salesmen and customer groups.

#include "connector/ModConnectorLumaro.h"
#include "connector/host/Conversions.h"
#include "connector/host/Text.h"
#include "initialload/BSOUpgBrevantaLumaroTables.h"
#include "initialload/LoadStep.h"

namespace lumaro {
namespace {

constexpr int32_t kMadeUpSalesman = 3880026;
// Every payment term of the back office is paid with the host's tender 1.
constexpr int16_t kTheTender = 1;
// The payment date types and installment kinds of the host.
constexpr int16_t kPaidNow = 3;
constexpr int16_t kPaidAfterDays = 0;
constexpr int16_t kTwoParts = -1;
constexpr int16_t kInParts = 2;

// Adds the first id of a POS table under `key`, if it has a row.
void AddFirstId(LoadStep& step, int line, const std::string& sql, const char* column,
                const std::string& key, bool replace = false) {
  step.Run(line, [&] {
    std::optional<host::Variant> first = FirstValue(LoadTarget(), sql, column);
    if (first) Keys().Add(*first, key, replace);
  });
}

}  // namespace

void BSOUpgBrevantaLumaroTables::Upgrade_PriceLine() {
  LoadStep step("Upgrade_PriceLine");
  Progress("PriceLine");
  std::string sql = "SELECT * FROM Preca";
  if (!PriceLineLimit.empty()) sql += " WHERE Cpre IN (" + PriceLineLimit + ")";
  std::unique_ptr<host::PriceLineService> lines;
  step.Run(1, [&] {
    lines = ModConnectorLumaro::Host().NewPriceLineService();
    // The back office's lines replace the POS's (the initial load has
    // cleared them already); line 0 stays.
    if (!initialize_mode_ && HasRows(source_.Get(), sql)) {
      LoadTarget().OpenRecordset("DELETE FROM [PriceLine] WHERE [PriceLineID]>0");
    }
  });
  const std::string language = ModConnectorLumaro::GetSystemSettings()->LanguageID;
  ForEachSourceRow(step, source_.Get(), sql, "PriceLine", events_, [&](const host::Recordset& rs) {
    host::PriceLine line;
    std::string code;
    step.Run(2, [&] { line.PriceLineID = lines->NextID(); });
    step.Run(3, [&] { code = SourceNumberText(rs, "CPre"); });
    line.PriceLineKey = code;
    step.Run(4, [&] { line.ShortName = SourceTrimmed(rs, "Sigla"); });
    step.Run(5, [&] { line.Description = SourceTrimmed(rs, "DESCR"); });
    line.LanguageID = language;
    step.Run(6, [&] { lines->Save(line, true); });
    step.Run(7, [&] { Keys().Add(host::Variant(line.PriceLineID), "PriceLine|" + code); });
    step.Run(8, [&] {
      Keys().Add(host::Variant(SourceBoolean(rs, "IvaI")), "PriceLineTaxIncluded|" + code);
    });
  });
}

void BSOUpgBrevantaLumaroTables::Upgrade_Carrier() {
  LoadStep step("Upgrade_Carrier");
  Progress("Carrier");
  std::unique_ptr<host::CarrierService> carriers;
  step.Run(1, [&] { carriers = ModConnectorLumaro::Host().NewCarrierService(); });
  const host::Currency& currency = HostContext().Defaults();
  ForEachSourceRow(
      step, source_.Get(), "SELECT * FROM MeExp ORDER BY CMExp", "Carrier", events_,
      [&](const host::Recordset& rs) {
        host::Carrier carrier;
        std::string code;
        carrier.CarrierID = GetNewIDFromTable("Carrier", "CarrierID");
        step.Run(2, [&] {
          carrier.CarrierKey = SourceText(rs, "CMExp");
          code = host::Trim(carrier.CarrierKey);
        });
        step.Run(3, [&] {
          carrier.CarrierName = SourceTrimmed(rs, "DESCR");
          if (carrier.CarrierName.empty()) carrier.CarrierName = code;
        });
        carrier.CurrencyID = currency.CurrencyID;
        carrier.CurrencyExchange = currency.Exchange;
        carrier.CurrencyFactor = currency.Factor;
        carrier.CurrentKm = 0;
        step.Run(4, [&] { carriers->Save(carrier, true); });
        step.Run(5, [&] { Keys().Add(host::Variant(carrier.CarrierID), "Carrier|" + code); });
      });
  AddFirstId(step, 6, "Select TOP 1 CarrierID FROM [Carrier]", "CarrierID", "Carrier|", true);
}

void BSOUpgBrevantaLumaroTables::Upgrade_Payment() {
  LoadStep step("Upgrade_Payment");
  Progress("Payment");
  host::SqlStatement statement;
  statement.SetTable("Payment");
  ForEachSourceRow(step, source_.Get(), "SELECT * FROM CDPag", "Payment", events_,
                   [&](const host::Recordset& rs) {
                     statement.ClearColumns();
                     statement.SetOperation(2);
                     double payment_id = GetNewIDFromTable("Payment", "PaymentID");
                     statement.Number("PaymentID", payment_id);
                     std::string code;
                     step.Run(2, [&] {
                       statement.Text("PaymentKey", SourceText(rs, "CPag"));
                       code = SourceTrimmed(rs, "CPag");
                     });
                     step.Run(3, [&] {
                       std::string description = SourceTrimmed(rs, "DESCR");
                       statement.Text("Description", description.empty() ? code : description);
                     });
                     auto terms = [&](int16_t installments, int16_t date_type, double days) {
                       statement.Number("Installments", installments);
                       statement.Number("PaymentDateType", date_type);
                       statement.Number("PaymentDays", days);
                     };
                     std::vector<Installment> kept;
                     step.Run(4, [&] {
                       if (SourceBoolean(rs, "PPag")) {  // paid in cash
                         terms(0, kPaidNow, 0);
                         return;
                       }
                       std::string kind = host::UCase(SourceText(rs, "tipo"));
                       if (kind == "D") {
                         double days = SourceNumber(rs, "Dias");
                         if (days <= 0) {
                           terms(0, kPaidNow, 0);
                         } else {
                           terms(0, kPaidAfterDays, days);
                         }
                       } else if (kind == "P") {
                         double last_days = 0;
                         std::vector<Installment> parts =
                             ReadInstallments(SourceText(rs, "CPag"), last_days);
                         size_t n = parts.size();
                         if (n == 1) {
                           terms(0, kPaidNow, last_days);
                         } else if (n == 2) {
                           // Told by the days of the last part alone.
                           terms(0, last_days != 0 ? kPaidAfterDays : kPaidNow, last_days);
                           statement.Number("InstallmentsType", kTwoParts);
                         } else if (n >= 3) {
                           statement.Number("Installments", static_cast<double>(n - 1));
                           statement.Number("PaymentDateType", kPaidNow);
                           statement.Number("InstallmentsType", kInParts);
                           kept = std::move(parts);
                         }
                       }
                     });
                     // No lookup first: the payment terms were cleared before the load.
                     step.Run(5, [&] { RunInsertText(statement); });
                     if (!kept.empty()) SaveInstallments(payment_id, kept);
                     step.Run(6, [&] { Keys().Add(host::Variant(payment_id), "Payment|" + code); });
                     step.Run(7, [&] { Keys().Add(host::Variant(kTheTender), "Tender|" + code); });
                   });
  step.Run(8, [&] {
    std::optional<host::Variant> first =
        FirstValue(LoadTarget(), "Select TOP 1 PaymentID FROM Payment", "PaymentID");
    if (!first) return;
    Keys().Add(*first, "Payment|");
    Keys().Add(host::Variant(kTheTender), "Tender|");
  });
}

std::vector<BSOUpgBrevantaLumaroTables::Installment> BSOUpgBrevantaLumaroTables::ReadInstallments(
    const std::string& code, double& last_days) {
  host::DatabaseService& source = source_.Get();
  host::RecordsetPtr rs =
      source.OpenRecordset("SELECT * FROM CdCob WHERE Dias>0 AND Perc<>0 AND Cpag='" +
                           source.SqlFormat().QuoteText(code) + "'");
  std::vector<Installment> parts;
  double before = 0;
  for (; !rs->Eof(); rs->MoveNext()) {
    double days = SourceNumber(*rs, "Dias");
    Installment part;
    part.InstallmentID = static_cast<int16_t>(parts.size() + 1);
    part.InstallmentPercent = SourceNumber(*rs, "PERC");
    part.DaysSinceLastPayment = host::CInt(host::Variant(days - before));
    parts.push_back(part);
    before = days;
    last_days = days;
  }
  host::RecordsetTools::CloseRecordset(rs);
  return parts;
}

void BSOUpgBrevantaLumaroTables::SaveInstallments(double payment_id,
                                                  const std::vector<Installment>& installments) {
  LoadStep step("SaveInstallments");
  host::SqlStatement statement;
  statement.SetTable("Installment");
  statement.SetOperation(2);
  statement.KeyNumber("PaymentID", payment_id);
  statement.Number("PaymentID", payment_id);
  SetAuditColumns(statement);
  for (const Installment& part : installments) {
    statement.Number("InstallmentID", part.InstallmentID);
    statement.Number("DaysSinceLastPayment", part.DaysSinceLastPayment);
    statement.Number("InstallmentPercent", part.InstallmentPercent);
    step.Run(1, [&] { RunInsertText(statement); });
  }
}

void BSOUpgBrevantaLumaroTables::Upgrade_Salesman() {
  LoadStep step("Upgrade_Salesman");
  // Every salesman is marked as not reloaded; those that stay so go at the
  // end of the load.
  if (initialize_mode_) {
    step.Run(1, [&] { LoadTarget().OpenRecordset("Update Salesman SET UserAlt=0"); });
  }
  Progress("Salesman");
  std::unique_ptr<host::SalesmanService> salesmen;
  std::string sql;
  step.Run(2, [&] {
    salesmen = ModConnectorLumaro::Host().NewSalesmanService();
    // Inactive salesmen stay behind.
    sql = "SELECT * FROM Vendr WHERE EInact=" + source_.Get().SqlFormat().Boolean(false);
    if (!SalesmanLimit.empty()) sql += " AND CVen IN (" + SalesmanLimit + ")";
  });
  std::shared_ptr<host::SystemSettings> settings = ModConnectorLumaro::GetSystemSettings();
  host::SqlStatement statement;
  statement.SetTable("Salesman");
  ForEachSourceRow(step, source_.Get(), sql, "Salesman", events_, [&](const host::Recordset& rs) {
    statement.ClearColumns();
    statement.SetOperation(2);
    double salesman_id = 0;
    std::string code;
    step.Run(3, [&] {
      code = SourceTrimmed(rs, "CVen");
      if (initialize_mode_) salesman_id = salesmen->GetIDFromKey(SourceText(rs, "CVen"));
    });
    bool is_new = salesman_id == 0;
    if (is_new) {
      salesman_id = GetNewIDFromTable("Salesman", "SalesmanID");
      statement.Number("SalesmanID", salesman_id);
    } else {
      statement.KeyNumber("SalesmanID", salesman_id);
    }
    step.Run(4, [&] { statement.Text("SalesmanKey", SourceText(rs, "CVen")); });
    step.Run(5, [&] {
      std::string name = SourceTrimmed(rs, "DESCR");
      statement.Text("SalesmanName", name.empty() ? code : name);
    });
    statement.Text("CountryID", settings->CountryID);
    statement.Number("SalesmanLevel", 0);
    statement.Number("MaximumDiscount", 100);
    step.Run(6, [&] { statement.Text("Comments", SourceTrimmed(rs, "Obs")); });
    statement.Number("SalesGroupID", 0);
    statement.Number("ComissionOnSale", 0);
    statement.Number("ComissionOnPay", 100);
    statement.Number("ComissionIncidenceType", 0);
    statement.Text("SpokenLanguageID", settings->LanguageID);
    // The user in UserAlt takes the mark off.
    SetAuditColumns(statement);
    step.Run(7, [&] { is_new ? RunInsertText(statement) : RunUpdateText(statement); });
    step.Run(8, [&] { Keys().Add(host::Variant(salesman_id), "Salesman|" + code); });
  });
  step.Run(9, [&] {
    std::optional<host::Variant> first =
        FirstValue(LoadTarget(), "Select TOP 1 SalesmanID FROM Salesman", "SalesmanID");
    if (first) {
      Keys().Add(*first, "Salesman|");
      return;
    }
    // None at all: one is made up, so that customers have a salesman.
    statement.ClearColumns();
    statement.SetOperation(2);
    double salesman_id = GetNewIDFromTable("Salesman", "SalesmanID");
    statement.Number("SalesmanID", salesman_id);
    statement.Text("SalesmanName", CatalogueText(kMadeUpSalesman));
    SetAuditColumns(statement);
    RunInsertText(statement);
    Keys().Add(host::Variant(salesman_id), "Salesman|");
  });
}

void BSOUpgBrevantaLumaroTables::Upgrade_CustomerGroups() {
  LoadStep step("Upgrade_CustomerGroups");
  Progress("CustomerGroups");
  std::string sql = "SELECT * FROM GrpCl";
  if (!CustomerGroupLimit.empty()) sql += " WHERE CGrpC IN (" + CustomerGroupLimit + ")";
  host::SqlStatement statement;
  statement.SetTable("CustomerGroups");
  ForEachSourceRow(
      step, source_.Get(), sql, "CustomerGroups", events_, [&](const host::Recordset& rs) {
        statement.ClearColumns();
        statement.SetOperation(2);
        double group_id = GetNewIDFromTable("CustomerGroups", "GroupID");
        statement.Number("GroupID", group_id);
        std::string code;
        step.Run(2, [&] {
          statement.Text("GroupKey", SourceText(rs, "CGrpC"));
          code = SourceTrimmed(rs, "CGrpC");
        });
        step.Run(3, [&] {
          std::string description = SourceTrimmed(rs, "DESCR");
          statement.Text("Description", description.empty() ? code : description);
        });
        SetAuditColumns(statement);
        step.Run(4, [&] { RunInsertText(statement); });
        step.Run(5, [&] { Keys().Add(host::Variant(group_id), "CustomerGroups|" + code); });
      });
}

}  // namespace lumaro
