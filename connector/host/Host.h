#ifndef LUMARO_CONNECTOR_HOST_HOST_H_
#define LUMARO_CONNECTOR_HOST_HOST_H_

// The host's global roots, reached through the one Host object that the host
// hands to the connector when it creates it. The host keeps the object alive
// for as long as any connector it made.

#include <memory>
#include <string_view>

#include "connector/host/DataMaintenance.h"
#include "connector/host/DatabaseService.h"
#include "connector/host/DocumentService.h"
#include "connector/host/EntityServices.h"
#include "connector/host/ExportObserver.h"
#include "connector/host/FileTools.h"
#include "connector/host/ImportObserver.h"
#include "connector/host/SaleDocumentReader.h"
#include "connector/host/Security.h"
#include "connector/host/SeriesCatalogue.h"
#include "connector/host/SettingStore.h"
#include "connector/host/StockDocument.h"
#include "connector/host/SystemContext.h"
#include "connector/host/UIManager.h"
#include "connector/host/WorkstationSeries.h"

namespace host {

// SystemManager: the host's system state.
class SystemManager {
 public:
  virtual ~SystemManager() = default;
  virtual SystemContext& Context() = 0;
  // Rounds a value to the given number of decimals, the host's way.
  virtual double RoundValue(double value, int decimals) const = 0;
  // The first PartyID of a party kind.
  virtual double PartyIDBase(double a, int kind) = 0;
};

// A description of a database to open: the back office's, for the initial
// load.
struct DatabaseDescription {
  int kind = 1;
  std::string DatabaseName;
  std::string Server;
  bool IntegratedSecurity = true;
  std::string Login;
  std::string Password;
};

class DatabaseConnection {
 public:
  virtual ~DatabaseConnection() = default;
  // The POS database.
  virtual DatabaseService& Database() = 0;
  // Opens another database; raises when it cannot be reached.
  virtual std::shared_ptr<DatabaseService> OpenDatabase(const DatabaseDescription& description) = 0;
  // The host's schema of its POS database: the tables and columns it
  // expects there, whatever the file holds.
  virtual std::vector<TableDefinition> PosSchema() = 0;
  // The host's second database and its schema; none when it has none.
  virtual DatabaseService* SecondDatabase() { return nullptr; }
  virtual std::vector<TableDefinition> SecondSchema() { return {}; }
  // The description of a table of the POS database, for a person to read;
  // the table's name when the host has none.
  virtual std::string TableDescription(std::string_view table) { return std::string(table); }
};

// DataManager: the host's data access.
class DataManager {
 public:
  virtual ~DataManager() = default;
  virtual DatabaseConnection& Connection() = 0;
};

// ModuleManager.ConnectorRegistry: what the host keeps for its connectors.
class ConnectorRegistry {
 public:
  virtual ~ConnectorRegistry() = default;
  virtual host::SettingStore& SettingStore() = 0;
  virtual host::SeriesCatalogue& SeriesCatalogue() = 0;
};

class ModuleManager {
 public:
  virtual ~ModuleManager() = default;
  virtual host::ConnectorRegistry& ConnectorRegistry() = 0;
};

class Host {
 public:
  virtual ~Host() = default;

  // The roots.
  virtual host::SystemManager& SystemManager() = 0;
  virtual host::DataManager& DataManager() = 0;
  virtual host::UIManager& UIManager() = 0;
  virtual host::ModuleManager& ModuleManager() = 0;
  virtual host::FileTools& FileTools() = 0;
  virtual const host::NameTools& NameTools() = 0;

  // What the caller makes with a plain New.
  virtual std::unique_ptr<host::SettingStore> NewSettingStore() = 0;
  virtual std::unique_ptr<host::TextSigner> NewTextSigner() = 0;
  virtual std::unique_ptr<host::SaleDocumentReader> NewSaleDocumentReader() = 0;
  virtual std::unique_ptr<host::AppGroupService> NewAppGroupService() = 0;
  virtual std::unique_ptr<host::AppUserService> NewAppUserService() = 0;
  virtual std::unique_ptr<host::CurrencyService> NewCurrencyService() = 0;
  virtual std::unique_ptr<host::SalesmanService> NewSalesmanService() = 0;
  virtual std::unique_ptr<host::CarrierService> NewCarrierService() = 0;
  virtual std::unique_ptr<host::PaymentService> NewPaymentService() = 0;
  virtual std::unique_ptr<host::TenderService> NewTenderService() = 0;
  virtual std::unique_ptr<host::PriceLineService> NewPriceLineService() = 0;
  virtual std::unique_ptr<host::ItemService> NewItemService() = 0;
  virtual std::unique_ptr<host::CustomerService> NewCustomerService() = 0;
  virtual std::unique_ptr<host::PartyAddressService> NewPartyAddressService() = 0;
  virtual std::unique_ptr<host::CustomerZoneService> NewCustomerZoneService() = 0;
  virtual std::unique_ptr<host::CustomerGroupService> NewCustomerGroupService() = 0;
  virtual std::unique_ptr<host::FamilyService> NewFamilyService() = 0;
  virtual std::unique_ptr<host::SupplierService> NewSupplierService() = 0;
  virtual std::unique_ptr<host::ItemPropertyService> NewItemPropertyService() = 0;
  virtual std::unique_ptr<host::TaxCalculator> NewTaxCalculator() = 0;
  virtual std::unique_ptr<host::LoadUnloadPlaceService> NewLoadUnloadPlaceService() = 0;
  virtual std::unique_ptr<host::WarehouseService> NewWarehouseService() = 0;
  virtual std::unique_ptr<host::WorkstationSeriesService> NewWorkstationSeriesService() = 0;
  virtual std::unique_ptr<host::BankService> NewBankService() = 0;
  virtual std::unique_ptr<host::CustomerLedgerService> NewCustomerLedgerService() = 0;
  virtual std::unique_ptr<host::UnitOfMeasureService> NewUnitOfMeasureService() = 0;
  virtual std::unique_ptr<host::DocumentService> NewDocumentService() = 0;
  virtual std::unique_ptr<host::StockDocument> NewStockDocument() = 0;
  virtual std::unique_ptr<host::DataMaintenance> NewDataMaintenance() = 0;
  // A new, empty party of `kind` (1 suppliers, 3 banks: the kinds of
  // SystemManager.PartyIDBase) for the owner of id `id`.
  virtual host::Party NewParty(int16_t kind, double id) = 0;

  // The host's watcher of imports, if it has one; most hosts have none.
  virtual host::ImportObserver* ImportObserver() { return nullptr; }
  // The host's watcher of exports, if it has one; most hosts have none.
  virtual host::ExportObserver* ExportObserver() { return nullptr; }
};

}  // namespace host

#endif  // LUMARO_CONNECTOR_HOST_HOST_H_
