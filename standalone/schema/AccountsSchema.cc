#include "standalone/schema/SchemaParts.h"

namespace standalone::schema {
namespace {

constexpr std::string_view kDocumentKeyColumns = R"sql(
  TransSerial VARCHAR(10) NOT NULL,
  TransDocument VARCHAR(10) NOT NULL,
  TransDocNumber INTEGER NOT NULL)sql";
constexpr std::string_view kDocumentKey =
    "PRIMARY KEY (TransSerial, TransDocument, TransDocNumber)";

// An open item of an account: the document that made it, whose account it is
// (PartyID: the customer, supplier, salesman or bank), what it was worth and
// what is still to be paid. TransactionKind tells what made it (6: an opening
// balance).
constexpr std::string_view kLedgerColumns = R"sql(
  PartyID INTEGER NOT NULL DEFAULT 0,
  CreateDate DATETIME,
  DueDate DATETIME,
  TotalAmount MONEY NOT NULL DEFAULT 0,
  TotalPendingAmount MONEY NOT NULL DEFAULT 0,
  TotalPaidAmount MONEY NOT NULL DEFAULT 0,
  CurrencyID VARCHAR(3) NOT NULL DEFAULT '',
  CurrencyExchange FLOAT NOT NULL DEFAULT 1,
  CurrencyFactor FLOAT NOT NULL DEFAULT 1,
  PaymentID INTEGER NOT NULL DEFAULT 0,
  TransactionKind SMALLINT NOT NULL DEFAULT 0)sql";

}  // namespace

// Account documents and ledgers, bank receipts, remittances and deposits, and
// purchases.
std::vector<std::string_view> AccountsSchema() {
  static const std::vector<std::string> kStatements = {
      CreateTable("AccountTransaction", {kDocumentKeyColumns, R"sql(
  PartyID INTEGER NOT NULL DEFAULT 0,
  CreateDate DATETIME,
  TotalAmount MONEY NOT NULL DEFAULT 0,
  CurrencyID VARCHAR(3) NOT NULL DEFAULT '')sql",
                                         kAuditColumns, kDocumentKey}),
      // DocID is the TransDocument of the document a line settles.
      CreateTable("AccountTransactionDetails", {kDocumentKeyColumns, R"sql(
  LineItemID INTEGER NOT NULL,
  DocID VARCHAR(10) NOT NULL DEFAULT '',
  DocSerial VARCHAR(10) NOT NULL DEFAULT '',
  DocNumber INTEGER NOT NULL DEFAULT 0,
  Amount MONEY NOT NULL DEFAULT 0,
  PRIMARY KEY (TransSerial, TransDocument, TransDocNumber, LineItemID))sql"}),
      CreateTable("LedgerAccountTransaction",
                  {kDocumentKeyColumns, kLedgerColumns, kAuditColumns, kDocumentKey}),
      CreateTable("CustomerLedgerAccount",
                  {kDocumentKeyColumns, kLedgerColumns, kAuditColumns, kDocumentKey}),
      "CREATE INDEX CustomerLedgerAccount_PartyID_IDX ON CustomerLedgerAccount (PartyID)",
      CreateTable("SupplierLedgerAccount",
                  {kDocumentKeyColumns, kLedgerColumns, kAuditColumns, kDocumentKey}),
      CreateTable("SalesmanLedgerAccount",
                  {kDocumentKeyColumns, kLedgerColumns, kAuditColumns, kDocumentKey}),
      CreateTable("ReceiveLedgerAccount",
                  {kDocumentKeyColumns, kLedgerColumns, kAuditColumns, kDocumentKey}),
      CreateTable("PayLedgerAccount",
                  {kDocumentKeyColumns, kLedgerColumns, kAuditColumns, kDocumentKey}),
      // A bank movement names the document behind it in ReferenceTrans...
      CreateTable("BankLedgerAccount", {kDocumentKeyColumns, kLedgerColumns, R"sql(
  ReferenceTransSerial VARCHAR(10) NOT NULL DEFAULT '',
  ReferenceTransDocument VARCHAR(10) NOT NULL DEFAULT '',
  ReferenceTransDocNumber INTEGER NOT NULL DEFAULT 0)sql",
                                        kAuditColumns, kDocumentKey}),
      CreateTable("BankReceipt", {kDocumentKeyColumns, R"sql(
  BankID INTEGER NOT NULL DEFAULT 0,
  CreateDate DATETIME,
  Amount MONEY NOT NULL DEFAULT 0)sql",
                                  kDocumentKey}),
      CreateTable("BankReceiptHistory", {kDocumentKeyColumns, R"sql(
  HistoryDate DATETIME NOT NULL,
  Amount MONEY NOT NULL DEFAULT 0,
  PRIMARY KEY (TransSerial, TransDocument, TransDocNumber, HistoryDate))sql"}),
      R"sql(
CREATE TABLE BankRemittance (
  RemittanceID INTEGER NOT NULL PRIMARY KEY,
  BankID INTEGER NOT NULL DEFAULT 0,
  CreateDate DATETIME))sql",
      R"sql(
CREATE TABLE BankRemittanceDetails (
  RemittanceID INTEGER NOT NULL,
  LineID INTEGER NOT NULL,
  TransSerial VARCHAR(10) NOT NULL DEFAULT '',
  TransDocument VARCHAR(10) NOT NULL DEFAULT '',
  TransDocNumber INTEGER NOT NULL DEFAULT 0,
  Amount MONEY NOT NULL DEFAULT 0,
  PRIMARY KEY (RemittanceID, LineID)))sql",
      CreateTable("DepositTransaction", {kDocumentKeyColumns, R"sql(
  BankID INTEGER NOT NULL DEFAULT 0,
  CreateDate DATETIME,
  Amount MONEY NOT NULL DEFAULT 0)sql",
                                         kAuditColumns, kDocumentKey}),
      CreateTable("DepositTransactionDetails", {kDocumentKeyColumns, R"sql(
  LineItemID INTEGER NOT NULL,
  TenderID INTEGER NOT NULL DEFAULT 0,
  Amount MONEY NOT NULL DEFAULT 0,
  PRIMARY KEY (TransSerial, TransDocument, TransDocNumber, LineItemID))sql"}),
      CreateTable("BuyTransaction", {kDocumentKeyColumns, R"sql(
  SupplierID INTEGER NOT NULL DEFAULT 0,
  CreateDate DATETIME,
  TotalTransactionAmount MONEY NOT NULL DEFAULT 0,
  CurrencyID VARCHAR(3) NOT NULL DEFAULT '')sql",
                                     kAuditColumns, kDocumentKey}),
      CreateTable("BuyTransactionDetails", {kDocumentKeyColumns, R"sql(
  LineItemID INTEGER NOT NULL,
  ItemID VARCHAR(30) NOT NULL DEFAULT '',
  Description VARCHAR(255) NOT NULL DEFAULT '',
  Quantity FLOAT NOT NULL DEFAULT 0,
  UnitPrice MONEY NOT NULL DEFAULT 0,
  PRIMARY KEY (TransSerial, TransDocument, TransDocNumber, LineItemID))sql"}),
      CreateTable("BuyShareOtherCosts", {kDocumentKeyColumns, R"sql(
  LineItemID INTEGER NOT NULL,
  Amount MONEY NOT NULL DEFAULT 0,
  PRIMARY KEY (TransSerial, TransDocument, TransDocNumber, LineItemID))sql"}),
  };
  return Views(kStatements);
}

}  // namespace standalone::schema
