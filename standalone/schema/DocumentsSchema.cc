#include "standalone/schema/SchemaParts.h"

namespace standalone::schema {

// Document types, series and their numbering, and which workstation and user
// group may use which document.
std::vector<std::string_view> DocumentsSchema() {
  static const std::vector<std::string> kStatements = {
      R"sql(
CREATE TABLE Series (
  TransSerial VARCHAR(10) NOT NULL PRIMARY KEY,
  Description VARCHAR(50) NOT NULL DEFAULT '',
  SeriesType SMALLINT NOT NULL DEFAULT 0,
  SeriesYear SMALLINT NOT NULL DEFAULT 0,
  SeriesLocked SMALLINT NOT NULL DEFAULT 0))sql",
      // A document type. What a DocumentDefinition offers the export comes
      // from here: AsksPayment is UsesPayment, the entry sign is DocumentSign
      // ("+" or "-"), and PaymentBehaviour.PaymentMode is PaymentMode (1: paid
      // at the till by tenders). Documents without a TransDocumentKey are the
      // host's own; the load replaces them by the back office's.
      CreateTable("Documents", {R"sql(
  TransDocumentID VARCHAR(10) NOT NULL PRIMARY KEY,
  TransDocumentKey VARCHAR(10) NOT NULL DEFAULT '',
  TransDocType SMALLINT NOT NULL DEFAULT 0,
  DocumentBehavior SMALLINT NOT NULL DEFAULT 0,
  AccountBehavior SMALLINT NOT NULL DEFAULT 0,
  AccountUsed SMALLINT NOT NULL DEFAULT 0,
  Description VARCHAR(100) NOT NULL DEFAULT '',
  ShortDescription VARCHAR(12) NOT NULL DEFAULT '',
  DocumentOrder INTEGER NOT NULL DEFAULT 0,
  PriceField VARCHAR(10) NOT NULL DEFAULT '',
  Active BIT NOT NULL DEFAULT 0,
  DocumentActive BIT NOT NULL DEFAULT 0,
  AllowsStock BIT NOT NULL DEFAULT 0,
  UsesPayment BIT NOT NULL DEFAULT 0,
  UsesTender BIT NOT NULL DEFAULT 0,
  IssuesInvoice BIT NOT NULL DEFAULT 0,
  DocumentSign VARCHAR(1) NOT NULL DEFAULT '+',
  TenderMode VARCHAR(1) NOT NULL DEFAULT '',
  PaymentMode SMALLINT NOT NULL DEFAULT 0,
  PaymentOption SMALLINT NOT NULL DEFAULT 0,
  PaymentFlag1 BIT NOT NULL DEFAULT 0,
  PaymentFlag2 BIT NOT NULL DEFAULT 0,
  PaymentFlag3 BIT NOT NULL DEFAULT 0,
  AccountSign1 VARCHAR(1) NOT NULL DEFAULT '',
  AccountSign2 VARCHAR(1) NOT NULL DEFAULT '',
  AccountSign3 VARCHAR(1) NOT NULL DEFAULT '')sql",
                                kAuditColumns}),
      "CREATE INDEX Documents_TransDocumentKey_IDX ON Documents (TransDocumentKey)",
      "CREATE INDEX Documents_TransDocType_IDX ON Documents (TransDocType)",
      R"sql(
CREATE TABLE DocumentsName (
  TransDocumentID VARCHAR(10) NOT NULL,
  LanguageID VARCHAR(5) NOT NULL,
  Description VARCHAR(100) NOT NULL DEFAULT '',
  PRIMARY KEY (TransDocumentID, LanguageID)))sql",
      // The last number of each document in each series.
      R"sql(
CREATE TABLE DocumentsSeriesNumber (
  TransSerial VARCHAR(10) NOT NULL,
  TransDocID VARCHAR(10) NOT NULL,
  TransDocNumber INTEGER NOT NULL DEFAULT 0,
  SeriesActive BIT NOT NULL DEFAULT 0,
  LastDocumentSignature VARCHAR(255) NOT NULL DEFAULT '',
  LastCreateDate DATETIME,
  PRIMARY KEY (TransSerial, TransDocID)))sql",
      // The documents a workstation offers (its Documents catalogue).
      R"sql(
CREATE TABLE ConfWorkstationDocument (
  WorkstationID INTEGER NOT NULL,
  TransDocumentID VARCHAR(10) NOT NULL,
  PRIMARY KEY (WorkstationID, TransDocumentID)))sql",
      // A document's defaults; WorkstationID 0 holds those of every
      // workstation.
      R"sql(
CREATE TABLE ConfWorkstationDocDefaults (
  TransDocumentID VARCHAR(10) NOT NULL,
  WorkstationID INTEGER NOT NULL DEFAULT 0,
  Description VARCHAR(100) NOT NULL DEFAULT '',
  BehaviorClass SMALLINT NOT NULL DEFAULT 0,
  Code1 SMALLINT NOT NULL DEFAULT 0,
  Code2 SMALLINT NOT NULL DEFAULT 0,
  Code3 SMALLINT NOT NULL DEFAULT 0,
  PRIMARY KEY (TransDocumentID, WorkstationID)))sql",
      R"sql(
CREATE TABLE ConfWorkstationDocFields (
  TransDocumentID VARCHAR(10) NOT NULL,
  WorkstationID INTEGER NOT NULL DEFAULT 0,
  FieldID INTEGER NOT NULL,
  FieldOption SMALLINT NOT NULL DEFAULT 0,
  PRIMARY KEY (TransDocumentID, WorkstationID, FieldID)))sql",
      R"sql(
CREATE TABLE ConfWorkstationDocPrinter (
  TransDocumentID VARCHAR(10) NOT NULL,
  WorkstationID INTEGER NOT NULL DEFAULT 0,
  PrinterName VARCHAR(100) NOT NULL DEFAULT '',
  PRIMARY KEY (TransDocumentID, WorkstationID)))sql",
      R"sql(
CREATE TABLE AppDocumentsGroups (
  TransDocumentID VARCHAR(10) NOT NULL,
  AppGroupID INTEGER NOT NULL,
  PRIMARY KEY (TransDocumentID, AppGroupID)))sql",
  };
  return Views(kStatements);
}

}  // namespace standalone::schema
