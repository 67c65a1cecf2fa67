// The order of the load of the tables: the clearing, the taxes, and the
// main sequence.

#include "connector/ModConnectorLumaro.h"
#include "connector/host/Conversions.h"
#include "connector/host/Error.h"
#include "connector/host/Text.h"
#include "initialload/BSOUpgBrevantaLumaroTables.h"
#include "initialload/LoadStep.h"
#include "maintenance/UIRecovery.h"

namespace lumaro {
namespace {

// The series of the documents a plain load makes when the host numbers
// them apart from its tills'; a series of that kind.
constexpr const char* kExternalSeries = "EXT";
constexpr int16_t kSeriesNumberedElsewhere = 2;

}  // namespace

void BSOUpgBrevantaLumaroTables::InitializeTillara() {
  initialize_mode_ = true;
  // No handler of its own: a failure of the clearing reaches the caller.
  ClearPosTables();
  ExecuteCompactDatabase();
  Upgrade_Taxes();
  Upgrade_TaxExemptionReason();
  UpgradeTables();
  Upgrade_Documents();
}

void BSOUpgBrevantaLumaroTables::ClearPosTables() {
  UIRecovery recovery;
  // Promotions, discounts, items, families, suppliers, customers, payment
  // terms, zones, events, price history, banks; not the salesmen (6) nor
  // the no-sale records (11).
  for (int32_t kind : {0, 1, 2, 3, 4, 5, 7, 8, 9, 10, 12}) recovery.DeleteKassimoTables(kind);
  recovery.DBDeleteAllRecordsInTable("Carrier");
  recovery.DBDeleteAllRecordsInTable("CustomerGroups");
  // The rows of id 0 of price lines, colours and sizes stay on purpose.
  for (const char* sql :
       {"DELETE FROM [PriceLine] WHERE [PriceLineID]>0", "DELETE FROM [Color] WHERE [ColorID]>0",
        "DELETE FROM [Size] WHERE [SizeID]>0", "DELETE FROM [ItemPropertytable]",
        "DELETE FROM [ItemProperty]"}) {
    LoadTarget().OpenRecordset(sql);
  }
}

void BSOUpgBrevantaLumaroTables::ExecuteCompactDatabase() {
  try {
    LoadTarget().Compact();
  } catch (const host::Error& error) {
    LoadStep("ExecuteCompactDatabase").Run(1, [&] { throw error; });
    ModConnectorLumaro::Host().UIManager().MsgBox(
        std::to_string(error.Number()) + " - " + error.Description(), host::msgbox::kCritical);
  }
}

void BSOUpgBrevantaLumaroTables::UpgradeTables() {
  LoadStep step("UpgradeTables");
  step.Run(1, [&] {
    if (HasRows(source_.Get(), "SELECT * FROM CDPag")) UIRecovery().DeleteKassimoTables(7);
  });
  step.Run(2, [&] {
    host::Host& host = ModConnectorLumaro::Host();
    host::SystemContext& context = host.SystemManager().Context();
    if (context.ExternalSeries() && !initialize_mode_) {
      series_key_ = kExternalSeries;
      Create_Serie(series_key_);
      host.UIManager().Refresh();
    } else {
      series_key_ = context.CurrentWorkstation().SeriesKey();
    }
  });
  Load_ApplicationParam();
  if (initialize_mode_) LoadTenders();
  Load_Taxes();
  Upgrade_ProvinceCodes();
  Upgrade_LocalityCodes();
  Upgrade_PriceLine();
  Upgrade_Bank();
  Upgrade_Zone();
  Upgrade_Carrier();
  Upgrade_Payment();
  Upgrade_Salesman();
  if (initialize_mode_) ClearSalesmenParties();
  Update_LoadUnloadPlace();
  Upgrade_Supplier();
  Upgrade_Family();
  Upgrade_Warehouse();
  Upgrade_CustomerGroups();
  Upgrade_Customer();
  // The ledger accounts and the stock belong to a plain load, not to the
  // initial one.
  if (!initialize_mode_) Upgrade_CustomerLedgerAccount();
  Upgrade_UnitOfMeasure();
  Create_Properties();
  Initialize_ItemProperty();
  Upgrade_Item();
  Upgrade_ItemComponents();
  Upgrade_ItemAlternative();
  if (!initialize_mode_) LoadStock();
}

void BSOUpgBrevantaLumaroTables::Create_Serie(const std::string& code) {
  LoadStep("Create_Serie").Run(1, [&] {
    host::SeriesCatalogue& catalogue =
        ModConnectorLumaro::Host().ModuleManager().ConnectorRegistry().SeriesCatalogue();
    host::Series series;
    series.TransSerial = host::UCase(code);
    series.SeriesType = kSeriesNumberedElsewhere;
    catalogue.Save(series, !catalogue.Exists(series.TransSerial));
  });
}

int16_t BSOUpgBrevantaLumaroTables::GetFamilyLevelDigits(int level) {
  int16_t digits = 0;
  LoadStep("Load_ApplicationParam").Run(1, [&] {
    std::optional<host::Variant> value = FirstValue(
        source_.Get(), "SELECT Valor FROM ParEmp WHERE CPar='CFam" + std::to_string(level) + "'",
        "Valor");
    if (value) digits = host::CInt(*value);
  });
  return digits;
}

}  // namespace lumaro
