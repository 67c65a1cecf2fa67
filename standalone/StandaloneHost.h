#ifndef LUMARO_STANDALONE_STANDALONE_HOST_H_
#define LUMARO_STANDALONE_STANDALONE_HOST_H_

#include <memory>
#include <string>

#include "connector/host/Host.h"
#include "standalone/HostContextStore.h"
#include "standalone/PosEngine.h"
#include "standalone/SqliteSettingStore.h"
#include "standalone/StandaloneContext.h"

namespace standalone {

// Who the host runs as.
struct Identity {
  int32_t workstation_id = 1;
  int32_t user_id = 1;
  int32_t session_id = 1;
};

// Opens (or creates) the POS database at `path` and brings it to the
// current schema. Raises, leaving no new file behind, when the file cannot
// be opened or created, is not a POS database, or its schema cannot be
// written.
std::unique_ptr<PosEngine> OpenPosDatabase(const std::string& path);

// Connects to a POS database on a server through ODBC (PostgreSQL, SQL
// Server) and brings it to the current schema: an empty database gets the
// schema and factory data of a fresh POS. Raises as OpenPosDatabase does.
std::unique_ptr<PosEngine> OpenPosServer(const std::string& connection_string);

// The stand-alone host: every service the connector asks of its host, over
// one POS database. It sets the thread's regional settings to those of the
// database's host context. Keep it alive while a connector it made lives.
class StandaloneHost : public host::Host {
 public:
  StandaloneHost(std::unique_ptr<PosEngine> database, std::unique_ptr<host::UIManager> ui,
                 Identity identity = {});
  ~StandaloneHost() override;

  host::SystemManager& SystemManager() override;
  host::DataManager& DataManager() override;
  host::UIManager& UIManager() override { return *ui_; }
  host::ModuleManager& ModuleManager() override;
  host::FileTools& FileTools() override;
  const host::NameTools& NameTools() override;

  std::unique_ptr<host::SettingStore> NewSettingStore() override;
  std::unique_ptr<host::TextSigner> NewTextSigner() override;
  std::unique_ptr<host::SaleDocumentReader> NewSaleDocumentReader() override;
  std::unique_ptr<host::AppGroupService> NewAppGroupService() override;
  std::unique_ptr<host::AppUserService> NewAppUserService() override;
  std::unique_ptr<host::CurrencyService> NewCurrencyService() override;
  std::unique_ptr<host::SalesmanService> NewSalesmanService() override;
  std::unique_ptr<host::CarrierService> NewCarrierService() override;
  std::unique_ptr<host::PaymentService> NewPaymentService() override;
  std::unique_ptr<host::TenderService> NewTenderService() override;
  std::unique_ptr<host::PriceLineService> NewPriceLineService() override;
  std::unique_ptr<host::ItemService> NewItemService() override;
  std::unique_ptr<host::CustomerService> NewCustomerService() override;
  std::unique_ptr<host::PartyAddressService> NewPartyAddressService() override;
  std::unique_ptr<host::CustomerZoneService> NewCustomerZoneService() override;
  std::unique_ptr<host::CustomerGroupService> NewCustomerGroupService() override;
  std::unique_ptr<host::FamilyService> NewFamilyService() override;
  std::unique_ptr<host::SupplierService> NewSupplierService() override;
  std::unique_ptr<host::ItemPropertyService> NewItemPropertyService() override;
  std::unique_ptr<host::TaxCalculator> NewTaxCalculator() override;
  std::unique_ptr<host::LoadUnloadPlaceService> NewLoadUnloadPlaceService() override;
  std::unique_ptr<host::WarehouseService> NewWarehouseService() override;
  std::unique_ptr<host::WorkstationSeriesService> NewWorkstationSeriesService() override;
  std::unique_ptr<host::BankService> NewBankService() override;
  std::unique_ptr<host::CustomerLedgerService> NewCustomerLedgerService() override;
  std::unique_ptr<host::UnitOfMeasureService> NewUnitOfMeasureService() override;
  std::unique_ptr<host::DocumentService> NewDocumentService() override;
  std::unique_ptr<host::StockDocument> NewStockDocument() override;
  std::unique_ptr<host::DataMaintenance> NewDataMaintenance() override;
  // PartyID: SystemManager().PartyIDBase(id, kind); PartyType: the kind.
  host::Party NewParty(int16_t kind, double id) override;

  host::ImportObserver* ImportObserver() override { return import_observer_; }
  // Watches the imports from now on; nullptr stops. The observer outlives
  // the runs it watches.
  void SetImportObserver(host::ImportObserver* observer) { import_observer_ = observer; }
  host::ExportObserver* ExportObserver() override { return export_observer_; }
  // Watches the exports from now on, as SetImportObserver.
  void SetExportObserver(host::ExportObserver* observer) { export_observer_ = observer; }

  PosEngine& Database() { return *database_; }
  HostContextStore& ContextStore() { return *context_store_; }
  StandaloneContext& Context() { return *context_; }
  SqliteSettingStore& Settings() { return *setting_store_; }
  // Reads the regional settings of the host context again and applies them
  // to this thread (after `host set`).
  void ApplyRegionalSettings();

 private:
  class Roots;

  std::unique_ptr<PosEngine> database_;
  std::unique_ptr<host::UIManager> ui_;
  std::unique_ptr<HostContextStore> context_store_;
  std::unique_ptr<StandaloneContext> context_;
  std::unique_ptr<SqliteSettingStore> setting_store_;
  std::unique_ptr<Roots> roots_;
  host::ImportObserver* import_observer_ = nullptr;
  host::ExportObserver* export_observer_ = nullptr;
};

}  // namespace standalone

#endif  // LUMARO_STANDALONE_STANDALONE_HOST_H_
