#ifndef LUMARO_INITIALLOAD_BSO_UPG_BREVANTA_LUMARO_TABLES_H_
#define LUMARO_INITIALLOAD_BSO_UPG_BREVANTA_LUMARO_TABLES_H_

#include <memory>
#include <string>
#include <vector>

#include "connector/host/DatabaseService.h"
#include "connector/host/DocumentService.h"
#include "connector/host/Entities.h"
#include "connector/host/EntityServices.h"
#include "connector/host/StockDocument.h"
#include "initialload/LoadShared.h"

namespace lumaro {

// The load of the POS's tables from the back office's database, after its
// configuration: it clears what the POS holds, then loads the tables in the
// order of their dependencies. Every failed statement of a step is written
// to "Migration.log" and the next one runs; a failure of the clearing
// reaches the caller. The steps of the geography, the commercial tables,
// customers, families, warehouses, suppliers, banks, items, stock,
// documents and tenders are taken in their places as they are built.
class BSOUpgBrevantaLumaroTables {
 public:
  BSOUpgBrevantaLumaroTables() = default;
  BSOUpgBrevantaLumaroTables(const BSOUpgBrevantaLumaroTables&) = delete;
  BSOUpgBrevantaLumaroTables& operator=(const BSOUpgBrevantaLumaroTables&) = delete;

  // The limits of the load, as SQL lists (quoted codes for customer groups,
  // salesmen and families; numbers for zones and price lines; patterns for
  // documents); empty for all.
  std::string CustomerGroupLimit;
  std::string ZoneLimit;
  std::string SalesmanLimit;
  std::string FamilyLimit;
  int16_t FamilyLevelLimit = 0;
  std::string PriceLineLimit;
  std::string DocumentLimit;
  double TillID = 0;
  double DelegationID = 0;

  // The back office's database, connected by the caller.
  void SetSourceDatabase(std::shared_ptr<host::DatabaseService> source) {
    source_.Set(std::move(source));
  }
  // Told of the progress; may be none.
  void SetEvents(LoadEvents* events) { events_ = events; }

  // The whole load of the tables: the POS's master data cleared, the taxes,
  // then UpgradeTables in its initial mode.
  void InitializeTillara();
  // The main sequence of the load without the clearing; by itself (not in
  // the initial mode) it also loads the stock and the ledger accounts.
  void UpgradeTables();
  // The series the load's documents take: set by UpgradeTables.
  const std::string& SeriesKey() const { return series_key_; }

  // Gives every item a stock row in every warehouse of the POS.
  void insertItemsInStock();
  // The back office's stock by lot as the lines of the opening movement,
  // and each article's reorder levels on its stock rows.
  void Upgrade_Stock();

  // Fills the run dictionary with the host's tax class of each of the back
  // office's tax types ("TaxableGroupIDTipoIva|<type>"), of each rate
  // ("TaxableGroupIDPorIva|<rate>") and the rate of each type
  // ("TaxRate_TipoIva|<type>"), from the IVA rows of TaxTable for the
  // host's country and region. A failure is logged and the step goes on.
  void Load_Taxes();

  // The steps of the taxes that the load runs before and at the start of
  // the tables; each of them also runs by itself. Every failed statement is
  // written to "Migration.log" under the step's name, and the step goes on.
  //
  // The IVA rates of the host's country and region, each from the back
  // office's parameter in force today; a rate already equal, or a host row
  // missing, is left as it is.
  void Upgrade_Taxes();
  // The back office's reason of exemption, on the exempt class of every
  // country and region.
  void Upgrade_TaxExemptionReason();
  // The host's use of lots and serial numbers (always on), of the retention
  // tax, and of kits (when the back office has any).
  void Load_ApplicationParam();

 private:
  // The name of the parameter `prefix`<YYYYMMDD> in force today: the latest
  // date not in the future; the bare prefix when there is none.
  std::string GetParameterKeyByDate(const std::string& prefix);
  // The POS's master data cleared before the load (a failure reaches the
  // caller).
  void ClearPosTables();
  void ExecuteCompactDatabase();
  // Makes the series `code` (upper-cased) numbered apart from the tills, or
  // writes over the one there.
  void Create_Serie(const std::string& code);
  // The digits of a family level: the back office's parameter CFam<level>,
  // 0 when there is none. A failure is logged under "Load_ApplicationParam",
  // as it always has been.
  int16_t GetFamilyLevelDigits(int level);

  // The steps of the tables after the taxes, each in its place in the
  // order of the load; those not built yet do nothing.
  void LoadTenders();
  void Upgrade_ProvinceCodes();
  void Upgrade_LocalityCodes();
  void Upgrade_PriceLine();
  void Upgrade_Bank();
  void Upgrade_Zone();
  void Upgrade_Carrier();
  void Upgrade_Payment();
  void Upgrade_Salesman();
  void ClearSalesmenParties();
  void Update_LoadUnloadPlace();
  void Upgrade_Supplier();
  void Upgrade_Family();
  void Upgrade_Warehouse();
  void Upgrade_CustomerGroups();
  void Upgrade_Customer();
  void Upgrade_CustomerLedgerAccount();
  void Upgrade_UnitOfMeasure();
  void Create_Properties();
  void Initialize_ItemProperty();
  void Upgrade_Item();
  void Upgrade_ItemComponents();
  void Upgrade_ItemAlternative();
  void LoadStock();
  void Upgrade_Documents();

  // The zone of the European Union ("Zone|UE") or the one outside it
  // ("Zone|EX"), made anew at each call.
  void Create_ZoneUE();
  void Create_ZoneEX();
  void CreateZone(const char* step_name, int32_t description, int16_t zone_type, const char* key);

  // One part of a payment term paid in parts.
  struct Installment {
    int16_t InstallmentID = 0;
    int16_t DaysSinceLastPayment = 0;
    double InstallmentPercent = 0;
  };
  // The parts of the payment term `code` (those with days and a percentage),
  // each with its days after the one before; `last_days` takes the days of
  // the last.
  std::vector<Installment> ReadInstallments(const std::string& code, double& last_days);
  void SaveInstallments(double payment_id, const std::vector<Installment>& installments);

  // The credit of a customer: its state alone in the initial mode, its
  // amount and days too in a plain load.
  void SetCredit(const host::Recordset& rs, host::Customer& customer);
  // The discount of a customer's discount code: the code itself as a
  // number, or for a code "*..." the back office's discount of that code,
  // read once per load; 0 for an empty code.
  double GetCustomerDirectDiscount(const std::string& code);
  void SetSupplierPayment(const host::Recordset& rs, double default_tender,
                          host::Supplier& supplier);
  // The supplier the POS must have when the back office has none; does
  // nothing once "Supplier|-1" is set.
  void Create_SupplierDefault();

  // The units, the tracking rules and each article's lots.
  void WriteLots(LoadStep& step, const std::string& code);

  // What the load of the items uses for every item.
  struct ItemTools {
    std::unique_ptr<host::ItemService> items;
    std::unique_ptr<host::ItemPropertyService> properties;
    std::unique_ptr<host::FamilyService> families;
    std::unique_ptr<host::TaxCalculator> taxes;
    host::RecordsetPtr price_lines;
  };
  // The articles in force today, of the family limit.
  std::string ItemQuery();
  host::Item BuildItem(LoadStep& step, const host::Recordset& rs, const std::string& code,
                       ItemTools& tools);
  void AddItemPrices(LoadStep& step, const host::Recordset& article, bool per_sale_unit,
                     host::Item& item, ItemTools& tools);
  void AddItemSuppliers(LoadStep& step, const host::Recordset& article, host::Item& item,
                        ItemTools& tools);
  void AddItemBarcodes(LoadStep& step, const host::Recordset& article, host::Item& item);
  // Writes the bytes of a picture as the file `file_name` of `folder`
  // ("1" + the name when that is taken, and so on); the path written, or
  // empty text when the folder is missing, the picture empty or the write
  // failed (logged).
  std::string SaveImageToFileFromRsField(const host::Variant& field, const std::string& folder,
                                         const std::string& file_name);

  // One quantity of the back office's stock by lot, for a movement line.
  struct ItemStockEntry {
    std::string ItemID;
    double ColorID = 0;
    double SizeID = 0;
    std::string LotID;
    int16_t WarehouseID = 0;
    double Quantity = 0;
    double EntryValue1 = 0;
    double EntryValue2 = 0;
  };
  void PrepareStockTransaction();
  void AddStockTransactionDetail(const ItemStockEntry& entry);

  // The tenders, the salesmen and the documents.
  void Upgrade_Tender();
  // Removes the POS's documents without a key, with all their rows, in one
  // transaction; rolled back on a failure, with no entry logged.
  void ClearDocumentsWithoutKey();
  // Whether the code matches one of the patterns (* and ?), any case.
  static bool DocumentMatchesLimit(const std::vector<std::string>& patterns,
                                   const std::string& code);
  host::TransDocument BuildDocument(const host::Recordset& type, const std::string& code,
                                    host::Recordset& movements, host::Recordset& properties,
                                    host::DocumentService& documents);
  static void SetInvoiceBehaviour(host::TransDocument& document,
                                  const std::optional<std::string>& movement,
                                  const std::optional<std::string>& payment);

  // Tells of the table a step begins.
  void Progress(const char* task) {
    if (events_) events_->ProgressGlobal(task, "");
  }

  SourceDatabase source_;  // closed when this object goes
  LoadEvents* events_ = nullptr;
  bool initialize_mode_ = false;
  std::string series_key_;
  // The opening stock movement of a plain load.
  std::unique_ptr<host::StockDocument> stock_document_;
};

}  // namespace lumaro

#endif  // LUMARO_INITIALLOAD_BSO_UPG_BREVANTA_LUMARO_TABLES_H_
