// The clearing of everything transactional, of one table, and of the master
// data by kind. The lists are the order of deletion: children first.

#include "maintenance/UIRecovery.h"

#include <initializer_list>

#include "connector/host/Conversions.h"
#include "connector/host/Error.h"
#include "maintenance/PosStatements.h"

namespace lumaro {
namespace {

constexpr int32_t kConfirmClearing = 2760002;
constexpr int32_t kClearing = 2760005;
constexpr int32_t kClearingTable = 2760006;
constexpr char kAllRecordsSource[] = "UIRecovery.DBDeleteAllRecords";
// What SQL Server answers when a table cannot be truncated.
constexpr int32_t kCannotTruncate = static_cast<int32_t>(0x80040E14);

using Tables = std::initializer_list<const char*>;

// Every transactional table. TemporaryAccumulated stands twice, as it
// always has; the second clearing finds it empty.
constexpr Tables kTransactionalTables = {"EntryLogSalesperson",
                                         "POSNoSaleTransaction",
                                         "SpY",
                                         "TempItem",
                                         "TempItemSellingPrices",
                                         "TempItemPricesProperty",
                                         "TemporaryAccumulated",
                                         "TempSpecialRptItems",
                                         "TempStock",
                                         "TempStockProperty",
                                         "TempTaxSalesFirst",
                                         "TempTaxTransaction",
                                         "TempTaxTransactionDetail",
                                         "TempTransaction",
                                         "TempTransactionDetails",
                                         "TempTransactionPropDetails",
                                         "TempComissionTransactionDetails",
                                         "TillSettlementDetails",
                                         "TillSettlementTransaction",
                                         "TillTender",
                                         "Session",
                                         "Voucher",
                                         "CheckTenderLineItem",
                                         "VoucherTenderLineItem",
                                         "CardTenderLineItem",
                                         "TenderLineItem",
                                         "AccountTransactionDetails",
                                         "AccountTransaction",
                                         "TenderTransaction",
                                         "LedgerAccountTransaction",
                                         "ReceiveLedgerAccount",
                                         "PayLedgerAccount",
                                         "SalesmanLedgerAccount",
                                         "CustomerLedgerAccount",
                                         "SupplierLedgerAccount",
                                         "BankLedgerAccount",
                                         "TransactionExtraFields",
                                         "StockHistory",
                                         "TaxTransactionDetail",
                                         "TaxTransaction",
                                         "PostVoidTaxTransactionDetail",
                                         "PostVoidTaxTransaction",
                                         "TransactionPropDetails",
                                         "SaleTransactionDetails",
                                         "SaleTransaction",
                                         "SaleTransactionLog",
                                         "ItemContractHistory",
                                         "ItemContractSaleDetails",
                                         "ItemContractSale",
                                         "BuyShareOtherCosts",
                                         "BuyTransactionDetails",
                                         "BuyTransaction",
                                         "StockTransactionDetails",
                                         "StockTransaction",
                                         "PostVoidTransaction",
                                         "PostVoidTranPropDetails",
                                         "PostVoidTransactionHeader",
                                         "IssuedTmpTaxTrans",
                                         "IssuedTmpTaxTransDetail",
                                         "IssuedTmpTrans",
                                         "IssuedTmpTransDetails",
                                         "IssuedTmpTransPropDetails",
                                         "DepositTransactionDetails",
                                         "DepositTransaction",
                                         "TemporaryAccumulated",
                                         "ItemSellingPriceHistory",
                                         "ItemCostChange",
                                         "BankRemittanceDetails",
                                         "BankRemittance",
                                         "BankReceiptHistory",
                                         "BankReceipt",
                                         "FrequentShopperPoints",
                                         "Events",
                                         "EventsRecurrencePattern",
                                         "TurnaroundTenderLine",
                                         "CommunicationLog",
                                         "TableChanges",
                                         "SaleRouteHistory",
                                         "TempTurnaroundRecSelect",
                                         "DiscPointsTransaction",
                                         "StockProperty",
                                         "PriceChangeByDocument",
                                         "TempItemSellingPricesLabels",
                                         "TransactionStatusFlowHistory",
                                         "TransCumulativeDiscounts",
                                         "TagAlongEdition",
                                         "ItemReserve"};

// What the clearing of everything transactional sets back afterwards.
constexpr Tables kAfterAllRecords = {
    "DELETE FROM [ItemSellingPrices] WHERE LEN([LotID]) > 0",
    "DELETE FROM [Stock] WHERE LEN([LotID]) > 0",
};
constexpr char kQuantitiesBack[] =
    "CustomerOrderQty = 0, SupplierOrderQty = 0, CustomerConsignmentQty = 0, "
    "SupplierConsignmentQty = 0, PhysicalQty = 0, AvailableQty = 0, CustomerOrderUnits = 0, "
    "SupplierOrderUnits = 0, CustomerConsignmentUnits = 0, SupplierConsignmentUnits = 0, "
    "PhysicalUnits = 0, AvailableUnits = 0, ";
constexpr char kCostsAndDatesBack[] =
    "AverageCostStockValue = 0, LastCostStockValue = 0, LastReceivedDate = NULL, "
    "LastOutgoingDate = NULL";

// The tables of a party, in the order of deletion; a kind's rows go by the
// range of its ids.
constexpr Tables kPartyTables = {"PartyAddress",  "PartyBankAccount", "Telephone",
                                 "EmailAddress",  "Person",           "PartyExtraFields",
                                 "PartyMessages", "PartyComments",    "OtherContact"};

// The kinds of party, by the host's party kind numbers: customers keep
// their own numbers, below the first kind's range.
enum PartyKind { kCustomers = 0, kSuppliers = 1, kSalesmen = 2, kBanks = 3 };

// The condition on PartyID of a kind's rows. The upper bound is exclusive
// after the subtraction, so that the last id below the next kind's start
// stays: kept as the clearing has always written it.
std::string PartyRange(PartyKind kind) {
  host::SystemManager& system = ModConnectorLumaro::Host().SystemManager();
  auto start = [&](int k) { return system.PartyIDBase(1, k); };
  if (kind == kCustomers) return " WHERE [PartyID] < " + host::NumberText(start(1));
  return " WHERE [PartyID] > " + host::NumberText(start(kind) - 1) + " AND [PartyID] < " +
         host::NumberText(start(kind + 1) - 1);
}

void DeletePartyRows(const char* table, PartyKind kind) {
  RunOnPos("DELETE FROM [" + std::string(table) + "]" + PartyRange(kind));
}

}  // namespace

void UIRecovery::DBDeleteAllRecordsInTable(const std::string& table) {
  try {
    host::DatabaseService& db = PosDatabase();
    if (!db.Schema().TableExists(table)) return;
    host::UIManager& ui = ModConnectorLumaro::Host().UIManager();
    ui.ShowProgress(ui.Messages().Format(kClearingTable, {host::Variant(table)}));
    bool truncate = db.DatabaseKind() != 0;
    try {
      RunOnPos((truncate ? "TRUNCATE TABLE [" : "DELETE FROM [") + table + "]");
    } catch (const host::Error& error) {
      // A table that other tables refer to cannot be truncated.
      if (!truncate || db.DatabaseKind() != 1 || error.Number() != kCannotTruncate) throw;
      RunOnPos("DELETE FROM [" + table + "]");
    }
  } catch (const host::Error& error) {
    // Reported under the name of the clearing of everything, as it always
    // has been.
    ModConnectorLumaro::Host().UIManager().ShowError(error.Number(), error.Description(),
                                                     kAllRecordsSource);
  }
}

bool UIRecovery::DBDeleteAllRecords() {
  host::UIManager& ui = ModConnectorLumaro::Host().UIManager();
  if (ui.MsgBox(ui.Messages().Text(kConfirmClearing),
                host::msgbox::kYesNo | host::msgbox::kQuestion) != host::msgbox::kYes) {
    return false;
  }
  try {
    ui.ShowProgress(ui.Messages().Text(kClearing));
    for (const char* table : kTransactionalTables) DBDeleteAllRecordsInTable(table);
    for (const char* sql : kAfterAllRecords) RunOnPos(sql);
    DBDeleteAllRecordsInTable("ItemLot");
    RunOnPos(std::string("UPDATE [Item] SET ") + kQuantitiesBack + "AverageCostPrice = 0, " +
             kCostsAndDatesBack);
    RunOnPos(std::string("UPDATE [Stock] SET ") + kQuantitiesBack + kCostsAndDatesBack);
    RunOnPos(
        "UPDATE [Customer] SET LastUpdated = NULL, LastTransSerial = '', LastTransDocument = '', "
        "LastTransDocNumber = 0, FrequentShopperPoints = 0");
    RunOnPos(
        "UPDATE [Supplier] SET LastUpdated = NULL, LastTransSerial = '', LastTransDocument = '', "
        "LastTransDocNumber = 0");
    RunOnPos(
        "UPDATE [DocumentsSeriesNumber] SET TransDocNumber = 0, LastDocumentSignature = '', "
        "LastCreateDate = NULL");
    RunOnPos("UPDATE [Carrier] SET CurrentKm = 0");
    ui.CloseProgress();
    return true;
  } catch (const host::Error& error) {
    ui.CloseProgress();
    ui.ShowError(error.Number(), error.Description(), kAllRecordsSource);
    return false;
  }
}

void UIRecovery::DeleteKassimoTables(int32_t table_type) {
  auto clear = [this](Tables tables) {
    for (const char* table : tables) DBDeleteAllRecordsInTable(table);
  };
  // A kind's own tables, its party rows, then its last tables; banks put
  // their own table before Party, unlike the other kinds.
  auto parties = [&](PartyKind kind, Tables first, Tables last) {
    clear(first);
    for (const char* table : kPartyTables) DeletePartyRows(table, kind);
    if (kind == kBanks) {
      clear(last);
      DeletePartyRows("Party", kind);
    } else {
      DeletePartyRows("Party", kind);
      clear(last);
    }
  };
  switch (table_type) {
    case 0:
      clear({"PromotionSearchLst", "Promotion", "ConfDiscFreqShopPoints"});
      break;
    case 1:
      clear({"DiscountScalingItem", "DiscountEligibleItem", "DiscountDefinition"});
      break;
    case 2:
      // ItemCollection stands twice, as it always has.
      clear({"ItemReserve",
             "ItemLot",
             "ItemSellingPrices",
             "ItemPricesProperty",
             "ItemCollection",
             "ItemExtraFields",
             "ItemNames",
             "AlternativeItem",
             "ItemSerial",
             "ItemCollection",
             "ItemSupplier",
             "POSIdentity",
             "ItemCostChange",
             "ItemSellingPriceHistory",
             "ItemSize",
             "ItemColor",
             "StockHistory",
             "Stock",
             "StockProperty",
             "TagAlongEdition",
             "CustomerContractItem",
             "ItemComponents",
             "ItemAlternative",
             "AggregateGroupItemDetails",
             "AggregateGroupItem",
             "ItemContractItems",
             "ItemContract",
             "ItemUnits",
             "Item"});
      break;
    case 3:
      clear({"BalconyScaleSectionFamily", "SupplierFamilyDiscounts", "FamilyProfitRate", "Family"});
      break;
    case 4:
      parties(kSuppliers, {"SupplierFamilyDiscounts", "SupplierLedgerAccount"}, {"Supplier"});
      break;
    case 5:
      parties(kCustomers,
              {"CustomerLedgerAccount", "CustomerContractItem", "CustomerContract", "ItemReserve",
               "UareU_Customer"},
              {"SubRoutes", "Routes", "CustomerImpute", "Customer"});
      break;
    case 6:
      parties(kSalesmen,
              {"UareU_Salesman", "ComissionBySalesman", "AppSalesmansGroups", "SalesmanRoutes",
               "SalesmanLedgerAccount"},
              {"Salesman"});
      break;
    case 7:
      clear({"Installment", "Payment"});
      break;
    case 8:
      clear({"Zone"});
      break;
    case 9:
      clear({"Events", "EventsRecurrencePattern"});
      break;
    case 10:
      clear({"ItemSellingPriceHistory"});
      break;
    case 11:
      clear({"POSNoSaleTransaction"});
      break;
    case 12:
      parties(kBanks, {"BankCategory", "BankLedgerAccount", "BankMethod"}, {"Bank"});
      break;
    default:
      break;
  }
}

}  // namespace lumaro
