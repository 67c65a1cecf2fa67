// The clearing of the documents of one kind: their rows in every table that
// refers to them, found by the kind of their document type, and their
// series set back to nothing issued.

#include <initializer_list>

#include "maintenance/PosStatements.h"
#include "maintenance/UIRecovery.h"

namespace lumaro {
namespace {

using Tables = std::initializer_list<const char*>;

// Which document types: a kind, with a behaviour and accounts when given.
// The text is the condition on Documents as the clearing has always
// written it.
struct Kind {
  std::string text;

  explicit Kind(int type) : text(std::to_string(type)) {}
  // Another type besides: what follows binds to it alone, AND binding
  // before OR.
  Kind& OrType(int type) {
    text += " OR TransDocType = " + std::to_string(type);
    return *this;
  }
  Kind& Behavior(int behavior) {
    text += " AND AccountBehavior = " + std::to_string(behavior);
    return *this;
  }
  Kind& Account(int account) {
    text += " AND AccountUsed = " + std::to_string(account);
    return *this;
  }
  Kind& Accounts(int first, int second) {
    text += " AND (AccountUsed = " + std::to_string(first) +
            " OR AccountUsed = " + std::to_string(second) + ")";
    return *this;
  }
  std::string Documents() const {
    return "(SELECT DISTINCT TransDocumentID FROM Documents WHERE TransDocType  = " + text + ")";
  }
};

// The rows of the tables that belong to documents of the kind; the bank's
// ledger names its document in another column.
void DeleteByDocument(const Kind& kind, Tables tables) {
  for (const char* table : tables) {
    std::string column =
        std::string(table) == "BankLedgerAccount" ? "ReferenceTransDocument" : "TransDocument";
    RunOnPos("DELETE FROM  " + std::string(table) + " WHERE " + column + " IN " + kind.Documents());
  }
}

void ResetSeries(const Kind& kind) {
  RunOnPos(
      "UPDATE [DocumentsSeriesNumber] SET [TransDocNumber] = 0, LastDocumentSignature='', "
      "LastCreateDate = NULL WHERE [TransDocID] IN " +
      kind.Documents());
}

// The ledger rows that removed receipts settled are open again. Kept as
// the clearing has always had it: any receipt of behaviour 0 reopens the
// documents it names in this ledger, whatever account it was made for.
void RestorePendingAmounts(const char* ledger) {
  RunOnPos("UPDATE  [" + std::string(ledger) +
           "] SET [TotalPendingAmount] = [TotalAmount] WHERE TransDocument IN (SELECT DISTINCT "
           "[DocID] FROM [AccountTransactionDetails] WHERE TransDocument IN " +
           Kind(3).Behavior(0).Documents() + " )");
}

// The tables of an account document of the behaviour, in every ledger.
constexpr Tables kAccountDocumentTables = {
    "TaxTransactionDetail",  "TaxTransaction",       "LedgerAccountTransaction",
    "CustomerLedgerAccount", "PayLedgerAccount",     "SupplierLedgerAccount",
    "SalesmanLedgerAccount", "ReceiveLedgerAccount", "VoucherTenderLineItem",
    "CheckTenderLineItem",   "CardTenderLineItem",   "TenderLineItem",
    "BankLedgerAccount"};
constexpr Tables kTenderLines = {"VoucherTenderLineItem", "CheckTenderLineItem",
                                 "CardTenderLineItem", "TenderLineItem"};

}  // namespace

void UIRecovery::DeleteKassimoDocuments(int32_t document_type, int32_t behavior) {
  auto clear = [this](Tables tables) {
    for (const char* table : tables) DBDeleteAllRecordsInTable(table);
  };
  switch (document_type) {
    case 0:  // purchases
      clear({"StockAdjustmentReport"});
      DeleteByDocument(
          Kind(0), {"TaxTransactionDetail", "TaxTransaction", "VoucherTenderLineItem",
                    "CheckTenderLineItem", "CardTenderLineItem", "TenderLineItem", "StockHistory",
                    "TurnaroundTenderLine", "SupplierLedgerAccount", "SalesmanLedgerAccount",
                    "ReceiveLedgerAccount", "TransactionExtraFields", "FrequentShopperPoints",
                    "BankLedgerAccount", "AccountTransaction", "AccountTransactionDetails"});
      DeleteByDocument(Kind(3).Behavior(0).Accounts(2, 3),
                       {"SupplierLedgerAccount", "AccountTransactionDetails", "AccountTransaction",
                        "CheckTenderLineItem", "CardTenderLineItem", "TenderLineItem"});
      DeleteByDocument(Kind(13).Account(2), {"BankReceipt", "BankReceiptHistory"});
      clear({"PriceChangeByDocument", "BuyShareOtherCosts", "BuyTransactionDetails",
             "BuyTransaction"});
      DeleteByDocument(Kind(0), {"TransactionPropDetails"});
      RunOnPos(
          "UPDATE [Supplier] SET [LastTransSerial] = '',[LastTransDocument] = "
          "'',[LastTransDocNumber] = 0,[LastUpdated] = NULL ");
      ResetSeries(Kind(0));
      ResetSeries(Kind(13).Account(2));
      DeleteByDocument(Kind(0), {"TransactionStatusFlowHistory"});
      clear({"TempTurnaroundRecSelect"});
      break;
    case 1:  // sales
      DeleteByDocument(
          Kind(1), {"TaxTransactionDetail", "TaxTransaction", "PostVoidTaxTransactionDetail",
                    "PostVoidTaxTransaction", "VoucherTenderLineItem", "CheckTenderLineItem",
                    "CardTenderLineItem", "TenderLineItem", "StockHistory", "TurnaroundTenderLine",
                    "CustomerLedgerAccount"});
      DeleteByDocument(Kind(3).Behavior(0).Accounts(0, 1),
                       {"CustomerLedgerAccount", "AccountTransactionDetails", "AccountTransaction",
                        "CheckTenderLineItem", "CardTenderLineItem", "TenderLineItem"});
      DeleteByDocument(Kind(1),
                       {"SalesmanLedgerAccount", "ReceiveLedgerAccount", "TransactionExtraFields",
                        "FrequentShopperPoints", "BankLedgerAccount", "AccountTransaction",
                        "AccountTransactionDetails"});
      DeleteByDocument(Kind(13).Account(0), {"BankReceipt", "BankReceiptHistory"});
      DeleteByDocument(Kind(3).Behavior(2), kAccountDocumentTables);
      clear({"DiscPointsTransaction",
             "Voucher",
             "ExpeditionReport",
             "TillSettlementDetails",
             "TillSettlementTransaction",
             "TillTender",
             "SaleTransactionDetails",
             "SaleTransaction",
             "SaleTransactionLog",
             "ItemContractHistory",
             "ItemContractSaleDetails",
             "ItemContractSale",
             "PostVoidTransaction",
             "PostVoidTranPropDetails",
             "PostVoidTransactionHeader",
             "POSNoSaleTransaction",
             "IssuedTmpTaxTrans",
             "IssuedTmpTaxTransDetail",
             "IssuedTmpTrans",
             "IssuedTmpTransDetails",
             "IssuedTmpTransPropDetails",
             "BankRemittance",
             "BankRemittanceDetails",
             "SaleRouteHistory",
             "TempComissionTransactionDetails",
             "TransCumulativeDiscounts"});
      DeleteByDocument(Kind(1), {"TransactionPropDetails"});
      RunOnPos(
          "UPDATE [Customer] SET [FrequentShopperPoints] = 0, [LastTransSerial] = "
          "'',[LastTransDocument] = '',[LastTransDocNumber] = 0,[LastUpdated] = NULL ");
      // The sales, or the account documents of behaviour 0: the condition
      // reads "type 1, or type 3 with behaviour 0", AND binding first.
      ResetSeries(Kind(1).OrType(3).Behavior(0));
      ResetSeries(Kind(13).Account(0));
      ResetSeries(Kind(3).Behavior(2));
      DeleteByDocument(Kind(1), {"TransactionStatusFlowHistory"});
      clear({"TempTurnaroundRecSelect"});
      break;
    case 2:  // stock movements
      DeleteByDocument(Kind(2), {"TaxTransactionDetail", "TaxTransaction"});
      clear({"StockHistory", "StockTransactionDetails", "StockTransaction"});
      DeleteByDocument(Kind(2), {"TransactionPropDetails"});
      ResetSeries(Kind(2));
      DeleteByDocument(Kind(2), {"TransactionStatusFlowHistory"});
      break;
    case 5:  // till cash movements
      clear({"TenderTransaction"});
      DeleteByDocument(Kind(5), kTenderLines);
      ResetSeries(Kind(5));
      break;
    case 6:  // account documents
      if (behavior == 1) {
        DeleteByDocument(Kind(3).Behavior(1), kAccountDocumentTables);
        ResetSeries(Kind(3).Behavior(1));
      } else if (behavior == 0) {
        RestorePendingAmounts("SupplierLedgerAccount");
        RestorePendingAmounts("CustomerLedgerAccount");
        RestorePendingAmounts("SalesmanLedgerAccount");
        DeleteByDocument(
            Kind(3).Behavior(0),
            {"AccountTransactionDetails", "AccountTransaction", "CustomerLedgerAccount",
             "PayLedgerAccount", "SupplierLedgerAccount", "SalesmanLedgerAccount",
             "ReceiveLedgerAccount", "VoucherTenderLineItem", "CheckTenderLineItem",
             "CardTenderLineItem", "TenderLineItem", "BankLedgerAccount"});
        ResetSeries(Kind(3).Behavior(0));
      }
      break;
    case 18:  // deposits
      DeleteByDocument(Kind(18), {"BankLedgerAccount"});
      clear({"DepositTransactionDetails", "DepositTransaction"});
      ResetSeries(Kind(18));
      break;
    case -1:  // frequent-shopper points
      clear({"DiscPointsTransaction", "FrequentShopperPoints"});
      RunOnPos("UPDATE [Customer] SET [FrequentShopperPoints] = 0");
      break;
    default:
      break;
  }
}

}  // namespace lumaro
