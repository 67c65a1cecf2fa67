#include "standalone/schema/SchemaParts.h"

namespace standalone::schema {
namespace {

// The key of a tender line: the document and the line's TransOrder, from 1.
constexpr std::string_view kTenderLineKeyColumns = R"sql(
  TransSerial VARCHAR(10) NOT NULL,
  TransDocument VARCHAR(10) NOT NULL,
  TransDocNumber INTEGER NOT NULL,
  TransOrder INTEGER NOT NULL)sql";
constexpr std::string_view kTenderLineKey =
    "PRIMARY KEY (TransSerial, TransDocument, TransDocNumber, TransOrder)";

}  // namespace

// Money at the till: receipts (tender transactions), the tender lines of
// sales and receipts with their cheque, card and voucher details, till
// settlements, and frequent-shopper points.
std::vector<std::string_view> TendersSchema() {
  static const std::vector<std::string> kStatements = {
      // AccountingExportDate is NULL until the receipt has been exported.
      CreateTable("TenderTransaction", {R"sql(
  TransSerial VARCHAR(10) NOT NULL,
  TransDocument VARCHAR(10) NOT NULL,
  TransDocNumber INTEGER NOT NULL,
  CreateDate DATETIME,
  TransStatus SMALLINT NOT NULL DEFAULT 0,
  PartyID INTEGER NOT NULL DEFAULT 0,
  CurrencyID VARCHAR(3) NOT NULL DEFAULT '',
  CurrencyExchange FLOAT NOT NULL DEFAULT 1,
  CurrencyFactor FLOAT NOT NULL DEFAULT 1,
  TotalTransactionAmount MONEY NOT NULL DEFAULT 0,
  Comments TEXT NOT NULL DEFAULT '')sql",
                                        kAuditColumns, R"sql(
  AccountingExportDate DATETIME NULL,
  PRIMARY KEY (TransSerial, TransDocument, TransDocNumber))sql"}),
      "CREATE INDEX TenderTransaction_Export_IDX ON TenderTransaction "
      "(AccountingExportDate, WorkstationID, TransSerial)",
      "CREATE INDEX TenderTransaction_CreateDate_IDX ON TenderTransaction (CreateDate)",
      // The tenders of a sale or a receipt.
      CreateTable("TenderLineItem", {kTenderLineKeyColumns, R"sql(
  TenderID INTEGER NOT NULL DEFAULT 0,
  Amount MONEY NOT NULL DEFAULT 0,
  CurrencyID VARCHAR(3) NOT NULL DEFAULT '',
  CurrencyExchange FLOAT NOT NULL DEFAULT 1,
  CurrencyFactor FLOAT NOT NULL DEFAULT 1,
  CreateDate DATETIME)sql",
                                     kAuditColumns, kTenderLineKey}),
      CreateTable("CheckTenderLineItem", {kTenderLineKeyColumns, R"sql(
  CheckSequenceNumber VARCHAR(30) NOT NULL DEFAULT '',
  BankID INTEGER NOT NULL DEFAULT 0,
  CheckDate DATETIME,
  Amount MONEY NOT NULL DEFAULT 0)sql",
                                          kTenderLineKey}),
      CreateTable("CardTenderLineItem", {kTenderLineKeyColumns, R"sql(
  CardNumber VARCHAR(30) NOT NULL DEFAULT '',
  AuthorizationCode VARCHAR(30) NOT NULL DEFAULT '',
  Amount MONEY NOT NULL DEFAULT 0)sql",
                                         kTenderLineKey}),
      CreateTable("VoucherTenderLineItem", {kTenderLineKeyColumns, R"sql(
  VoucherID INTEGER NOT NULL DEFAULT 0,
  Amount MONEY NOT NULL DEFAULT 0)sql",
                                            kTenderLineKey}),
      CreateTable("TurnaroundTenderLine", {kTenderLineKeyColumns, R"sql(
  TenderID INTEGER NOT NULL DEFAULT 0,
  Amount MONEY NOT NULL DEFAULT 0)sql",
                                           kTenderLineKey}),
      R"sql(
CREATE TABLE Voucher (
  VoucherID INTEGER NOT NULL PRIMARY KEY,
  VoucherNumber VARCHAR(30) NOT NULL DEFAULT '',
  Amount MONEY NOT NULL DEFAULT 0,
  IssueDate DATETIME,
  ExpirationDate DATETIME))sql",
      R"sql(
CREATE TABLE TillSettlementTransaction (
  SettlementID INTEGER NOT NULL PRIMARY KEY,
  WorkstationID INTEGER NOT NULL DEFAULT 0,
  SessionID INTEGER NOT NULL DEFAULT 0,
  CreateDate DATETIME))sql",
      R"sql(
CREATE TABLE TillSettlementDetails (
  SettlementID INTEGER NOT NULL,
  TenderID INTEGER NOT NULL,
  Amount MONEY NOT NULL DEFAULT 0,
  CountedAmount MONEY NOT NULL DEFAULT 0,
  PRIMARY KEY (SettlementID, TenderID)))sql",
      R"sql(
CREATE TABLE TillTender (
  WorkstationID INTEGER NOT NULL,
  SessionID INTEGER NOT NULL,
  TenderID INTEGER NOT NULL,
  Amount MONEY NOT NULL DEFAULT 0,
  PRIMARY KEY (WorkstationID, SessionID, TenderID)))sql",
      R"sql(
CREATE TABLE FrequentShopperPoints (
  TransSerial VARCHAR(10) NOT NULL,
  TransDocument VARCHAR(10) NOT NULL,
  TransDocNumber INTEGER NOT NULL,
  CustomerID INTEGER NOT NULL DEFAULT 0,
  Points FLOAT NOT NULL DEFAULT 0,
  CreateDate DATETIME,
  PRIMARY KEY (TransSerial, TransDocument, TransDocNumber)))sql",
      R"sql(
CREATE TABLE DiscPointsTransaction (
  DiscPointsID INTEGER NOT NULL PRIMARY KEY,
  CustomerID INTEGER NOT NULL DEFAULT 0,
  Points FLOAT NOT NULL DEFAULT 0,
  DiscountAmount MONEY NOT NULL DEFAULT 0,
  CreateDate DATETIME))sql",
  };
  return Views(kStatements);
}

}  // namespace standalone::schema
