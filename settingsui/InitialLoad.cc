#include "settingsui/InitialLoad.h"

#include "connector/ModConnectorLumaro.h"
#include "connector/host/Conversions.h"
#include "connector/host/Text.h"
#include "importlog/DSOLumaroLog.h"
#include "initialload/BSOUpgBrevantaLumaroConfiguration.h"
#include "initialload/BSOUpgBrevantaLumaroTables.h"
#include "settingsui/BackOfficeConnection.h"
#include "settingsui/SettingsRules.h"

namespace lumaro {
namespace {

constexpr int32_t kNotConnected = 4140033;
constexpr int32_t kPreparing = 3880108;
constexpr int32_t kLoadEnded = 4140037;

host::Host& Host() { return ModConnectorLumaro::Host(); }

void Show(const std::string& text) { Host().UIManager().MsgBox(text, host::msgbox::kInformation); }

// Customers made at the till whose sales are not exported yet: the load
// would lose them.
bool PendingCustomers() {
  return HasRows(LoadTarget(), std::string("SELECT * FROM Customer") +
                                   " INNER JOIN SaleTransaction ON (SaleTransaction.PartyID = "
                                   "Customer.CustomerID)" +
                                   " WHERE SaleTransaction.AccountingExportDate Is Null" +
                                   " AND Customer.CustomerKey =''");
}

}  // namespace

std::string QuotedList(const std::string& codes) {
  std::string list = host::Replace(codes, ";", "','");
  return list.empty() ? list : "'" + list + "'";
}

std::string PlainList(const std::string& codes) { return host::Replace(codes, ";", ","); }

bool RunInitialLoad(LumaroConnectorSetting& settings, LoadEvents* events, bool store_settings) {
  host::UIManager& ui = Host().UIManager();
  if (PendingCustomers()) {
    Show("\r\nExistem clientes que ainda não foram exportados com vendas emitidas.");
    return false;
  }
  if (!ValidateSettings(settings, true)) return false;
  // The settings form publishes the series of the active points once the
  // load has run (frmSettings::PublishSeries).
  if (store_settings) Host().NewSettingStore()->Save(settings);
  std::shared_ptr<host::DatabaseService> back_office = ConnectBackOffice(settings);
  if (!back_office) {
    Show(ui.Messages().Text(kNotConnected));
    return false;
  }
  // The run's dictionary lives for the load, and goes when it ends, also
  // when a failure of the clearing ends it.
  struct RunDictionary {
    RunDictionary() { ModConnectorLumaro::NewRunDictionary(); }
    ~RunDictionary() { ModConnectorLumaro::DropRunDictionary(); }
  };
  if (events) events->ProgressGlobal(ui.Messages().Text(kPreparing), "");
  {
    RunDictionary dictionary;
    BSOUpgBrevantaLumaroConfiguration configuration;
    BSOUpgBrevantaLumaroTables tables;
    configuration.SetSourceDatabase(back_office);
    configuration.SetDelegationID(settings.LumaroDelegationID);
    configuration.SetEvents(events);
    tables.SetSourceDatabase(back_office);
    tables.TillID = settings.TillID;
    tables.DelegationID = settings.LumaroDelegationID;
    tables.SetEvents(events);
    configuration.SetAppUsersLimit(QuotedList(settings.InitializeAppUser));
    configuration.InitializeTillara();
    tables.CustomerGroupLimit = QuotedList(settings.InitializeCustomerGroup);
    tables.ZoneLimit = PlainList(settings.InitializeZone);
    tables.SalesmanLimit = QuotedList(settings.InitializeSalesman);
    tables.FamilyLevelLimit = host::CInt(host::Variant(host::Val(settings.InitializeFamilyLevel)));
    tables.FamilyLimit = QuotedList(settings.InitializeFamily);
    tables.PriceLineLimit = PlainList(settings.InitializePriceLine);
    tables.DocumentLimit = PlainList(settings.InitializeDocument);
    tables.InitializeTillara();
  }
  DSOLumaroLog log_store;
  if (log_store.CheckOrCreateLumaroLogTable()) {
    LumaroLog log;
    log.WorkstationID = host::CInt(
        host::Variant(Host().SystemManager().Context().CurrentWorkstation().WorkstationID()));
    log.ImportDate = host::Now();
    log.Filename = "Inicialização em " + host::CStr(host::Variant(host::Now()));
    log.IsNew = true;
    log_store.Save(log);
  }
  Show(ui.Messages().Text(kLoadEnded));
  host::SystemContext& context = Host().SystemManager().Context();
  context.SetSettings(context.LoadSettings(context.Settings()->Key));
  return true;
}

}  // namespace lumaro
