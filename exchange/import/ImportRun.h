#ifndef LUMARO_EXCHANGE_IMPORT_IMPORT_RUN_H_
#define LUMARO_EXCHANGE_IMPORT_IMPORT_RUN_H_

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "connector/LumaroConnectorSetting.h"
#include "connector/host/DatabaseService.h"
#include "connector/host/EntityServices.h"
#include "connector/host/Error.h"
#include "connector/host/IConnectorEvents.h"
#include "connector/host/ImportObserver.h"
#include "connector/host/KeyDictionary.h"
#include "connector/host/SettingStore.h"
#include "exchange/import/ImportFilters.h"
#include "exchange/import/ImportRecord.h"
#include "importlog/DSOLumaroLog.h"

namespace lumaro {

class PassReading;

// The import of the back office's master data: every ITpv file of the
// exchange folder that the log does not hold yet (or whose date moved), each
// in one transaction of the POS database, read once for the header, once to
// count and once for each of the nine passes, in the order of their
// dependencies: salesmen, customers, families, items (kits after the rest),
// prices, barcodes, stock by lot, kit components.
//
// A record whose save the host refuses goes to the error file beside the
// import file, and the pass goes on. Any other failure (a record too short
// for a position read, a field that is no number or no truth value, a
// failure of the host outside a save) ends the run with the error raised
// again with the source "<ImportData>" and the file's transaction left open:
// the caller rolls it back. Files imported before it stay imported.
class ImportRun {
 public:
  // Counts of what there is to process in a file, for the progress totals:
  // records for FA, VN, CL, AR; items (runs of records of one item) for AP,
  // AB, AL, AG.
  struct Counters {
    int32_t FA = 0, VN = 0, CL = 0, AR = 0, AP = 0, AB = 0, AL = 0, AG = 0;
  };

  ImportRun(LumaroConnectorSetting& settings, host::SettingStore& setting_store, DSOLumaroLog& log,
            std::shared_ptr<host::IConnectorEvents> notifier);
  ~ImportRun();
  ImportRun(const ImportRun&) = delete;
  ImportRun& operator=(const ImportRun&) = delete;

  // The run over the exchange folder.
  void ImportData();

  // Whether the file's first line is this company's and year's header.
  bool CheckImportHeader(const std::string& path);
  // Whether the file (log.Filename, a full path on entry, the bare name on
  // return) is to be read: not in the log, or its date moved. May replace
  // `log` by a copy of the stored row.
  bool CheckFileToImport(std::unique_ptr<LumaroLog>& log);
  void CountImportRecords(const std::string& path);

  // The passes; each returns whether it read the file to its end.
  bool ImportSalesman(const std::string& path);
  bool ImportCustomer(const std::string& path);
  bool ImportFamily(const std::string& path);
  bool ImportItem(const std::string& path, bool first_round);
  bool ImportItemSellingPrices(const std::string& path);
  bool ImportBarCode(const std::string& path);
  bool ImportPropertyItem(const std::string& path);
  bool ImportItemKitComponents(const std::string& path);

  // Writes a refused record to the error file beside the import file.
  void LogImportError(const std::string& path, const std::string& line, const host::Error& error);

  const Counters& counters() const { return counters_; }
  bool ImportHasErrors() const { return import_has_errors_; }

 private:
  friend class PassReading;

  // Runs the nine passes in their order while each reads its file to the
  // end; false when one did not (the chain broke).
  bool RunPasses(const std::string& path);
  // Imports one file that passed the header and log tests: true when it was
  // committed, false when its chain broke and it was rolled back.
  bool ImportFile(const std::string& path, const std::string& name, std::unique_ptr<LumaroLog> log,
                  double& last_number);

  // A save under the pass's protection: a refusal goes to the error file
  // with `line` and the pass goes on. Tells the host's observer, if any,
  // what became of the record. Returns whether it was saved.
  bool ProtectedSave(const std::string& path, const std::string& line, std::string_view tag,
                     int64_t line_number, host::ImportObserver::Outcome outcome,
                     const std::function<void()>& save);
  void Observe(std::string_view tag, int64_t line, host::ImportObserver::Outcome outcome,
               std::string_view description = "");

  // The walk the prices, barcodes and kits passes share: the records of one
  // item stand together; the item in hand collects them and is saved once,
  // when the item changes and at the end of the file.
  struct ItemWalk {
    std::string_view tag;
    int32_t title_message;
    const RecordField* item_field;
    int32_t total;
    // An item is saved when the current id is not empty and, when this is
    // true, the item in hand has an id too.
    bool save_needs_item_id;
    // Set after the fields above: what is done when an item is taken, with
    // each record of the item, and to save it.
    std::function<void(std::shared_ptr<host::Item>&, std::string& current_id)> on_item = {};
    std::function<void(host::Item&, const Record&)> on_record = {};
    std::function<void(host::Item&)> save = {};
  };
  bool WalkItems(const std::string& path, const ItemWalk& walk);

  // Fills a customer from its record, the fall-backs included; runs also for
  // a record that will not be saved.
  void FillCustomer(host::Customer& customer, const Record& record);
  double GetParentFamilyID(const Record& record);
  // Fills an item from its AR record.
  void FillItem(host::Item& item, const Record& record, host::KeyDictionary& keys,
                host::FamilyService& families);
  // The rules of an item that had no property: those of its property, or
  // the rules of an item without one.
  void ApplyPropertyRules(host::Item& item);
  // The host's price lines, read at first use and kept for the run.
  host::Recordset& PriceLineRows();
  // The three values of the tax context, from the system settings.
  host::TaxCalculator::Context TaxContext();
  // The id of the price line of a back-office key, asked once a run.
  double GetPriceLineID(const std::string& key);
  void UpdateStockProperty(const std::string& property_id, const Record& record);
  std::string Title(int32_t message) const;
  // The system settings that the notifier hands out; raises 91 when there is
  // no notifier or it hands out none.
  const host::SystemSettings& NotifierSettings();

  host::DatabaseService& Database();
  host::SalesmanService& Salesmen();
  host::CustomerService& Customers();
  host::FamilyService& Families();
  host::ItemService& Items();
  host::PriceLineService& PriceLines();
  host::PartyAddressService& Addresses();
  host::CustomerZoneService& Zones();
  host::CustomerGroupService& CustomerGroups();
  host::CarrierService& Carriers();
  host::PaymentService& Payments();
  host::TenderService& Tenders();
  host::SupplierService& Suppliers();
  host::ItemPropertyService& ItemProperties();

  LumaroConnectorSetting& settings_;
  host::SettingStore& setting_store_;
  DSOLumaroLog& log_;
  std::shared_ptr<host::IConnectorEvents> notifier_;
  ImportFilters filters_;
  Counters counters_;
  bool import_has_errors_ = false;

  // The host's services, each made at its first use and kept for the run.
  std::unique_ptr<host::SalesmanService> salesmen_;
  std::unique_ptr<host::CustomerService> customers_;
  std::unique_ptr<host::FamilyService> families_;
  std::unique_ptr<host::ItemService> items_;
  std::unique_ptr<host::PriceLineService> price_lines_;
  std::unique_ptr<host::PartyAddressService> addresses_;
  std::unique_ptr<host::CustomerZoneService> zones_;
  std::unique_ptr<host::CustomerGroupService> customer_groups_;
  std::unique_ptr<host::CarrierService> carriers_;
  std::unique_ptr<host::PaymentService> payments_;
  std::unique_ptr<host::TenderService> tenders_;
  std::unique_ptr<host::SupplierService> suppliers_;
  std::unique_ptr<host::ItemPropertyService> item_properties_;
  // The host's price lines, read at first use and kept for the run.
  host::RecordsetPtr price_line_rows_;
  std::shared_ptr<host::SystemSettings> notifier_settings_;
};

}  // namespace lumaro

#endif  // LUMARO_EXCHANGE_IMPORT_IMPORT_RUN_H_
