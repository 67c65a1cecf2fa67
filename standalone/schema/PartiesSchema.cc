#include "standalone/schema/SchemaParts.h"

namespace standalone::schema {

// The party rows shared by customers, suppliers, salesmen and banks. Each kind
// owns a range of PartyID; a customer's PartyID is its CustomerID, and its
// main address is AddressID 0.
std::vector<std::string_view> PartiesSchema() {
  static const std::vector<std::string> kStatements = {
      CreateTable("Party", {R"sql(
  PartyID INTEGER NOT NULL PRIMARY KEY,
  PartyType SMALLINT NOT NULL DEFAULT 0,
  CreationDate DATETIME)sql",
                            kAuditColumns}),
      // Holds no name, mail or telephone column on purpose: the export reads
      // Customer.* and PartyAddress.* in one row, and those fields are the
      // customer's.
      CreateTable("PartyAddress", {R"sql(
  PartyID INTEGER NOT NULL,
  AddressID INTEGER NOT NULL,
  AddressLine1 VARCHAR(100) NOT NULL DEFAULT '',
  AddressLine2 VARCHAR(100) NOT NULL DEFAULT '',
  PostalCode VARCHAR(20) NOT NULL DEFAULT '',
  CountryID VARCHAR(5) NOT NULL DEFAULT '',
  ProvinceID VARCHAR(10) NOT NULL DEFAULT '',
  LocalityID INTEGER NOT NULL DEFAULT 0)sql",
                                   kAuditColumns, "PRIMARY KEY (PartyID, AddressID)"}),
      // A bank's accounts.
      R"sql(
CREATE TABLE PartyBankAccount (
  PartyID INTEGER NOT NULL,
  BankAccountID INTEGER NOT NULL,
  BankID INTEGER NOT NULL DEFAULT 0,
  BankName VARCHAR(100) NOT NULL DEFAULT '',
  Description VARCHAR(100) NOT NULL DEFAULT '',
  CountryID VARCHAR(5) NOT NULL DEFAULT '',
  BankCode VARCHAR(10) NOT NULL DEFAULT '',
  BranchCode VARCHAR(10) NOT NULL DEFAULT '',
  AccountNumber VARCHAR(30) NOT NULL DEFAULT '',
  CheckDigits VARCHAR(5) NOT NULL DEFAULT '',
  CurrencyID VARCHAR(3) NOT NULL DEFAULT '',
  PRIMARY KEY (PartyID, BankAccountID)))sql",
      // TelephoneType 0 is a telephone, 1 a fax.
      R"sql(
CREATE TABLE Telephone (
  PartyID INTEGER NOT NULL,
  PersonID INTEGER NOT NULL DEFAULT 0,
  TelephoneID INTEGER NOT NULL,
  TelephoneType SMALLINT NOT NULL DEFAULT 0,
  TelephoneNumber VARCHAR(30) NOT NULL DEFAULT '',
  PRIMARY KEY (PartyID, PersonID, TelephoneID)))sql",
      R"sql(
CREATE TABLE EmailAddress (
  PartyID INTEGER NOT NULL,
  PersonID INTEGER NOT NULL DEFAULT 0,
  EmailID INTEGER NOT NULL,
  EmailAddress VARCHAR(100) NOT NULL DEFAULT '',
  PRIMARY KEY (PartyID, PersonID, EmailID)))sql",
      R"sql(
CREATE TABLE Person (
  PartyID INTEGER NOT NULL,
  PersonID INTEGER NOT NULL,
  Title VARCHAR(50) NOT NULL DEFAULT '',
  Name VARCHAR(100) NOT NULL DEFAULT '',
  PRIMARY KEY (PartyID, PersonID)))sql",
      R"sql(
CREATE TABLE PartyExtraFields (
  PartyID INTEGER NOT NULL,
  FieldID INTEGER NOT NULL,
  FieldValue VARCHAR(255) NOT NULL DEFAULT '',
  PRIMARY KEY (PartyID, FieldID)))sql",
      R"sql(
CREATE TABLE PartyMessages (
  PartyID INTEGER NOT NULL,
  MessageID INTEGER NOT NULL,
  MessageText VARCHAR(255) NOT NULL DEFAULT '',
  PRIMARY KEY (PartyID, MessageID)))sql",
      R"sql(
CREATE TABLE PartyComments (
  PartyID INTEGER NOT NULL,
  CommentID INTEGER NOT NULL,
  CommentText TEXT NOT NULL DEFAULT '',
  PRIMARY KEY (PartyID, CommentID)))sql",
      R"sql(
CREATE TABLE OtherContact (
  PartyID INTEGER NOT NULL,
  ContactID INTEGER NOT NULL,
  ContactType SMALLINT NOT NULL DEFAULT 0,
  ContactValue VARCHAR(100) NOT NULL DEFAULT '',
  PRIMARY KEY (PartyID, ContactID)))sql",
  };
  return Views(kStatements);
}

}  // namespace standalone::schema
