#include "standalone/services/SqliteEntityServices.h"

#include "connector/host/FieldConverter.h"
#include "standalone/services/EntityColumns.h"

namespace standalone {
namespace {

using host::FieldConverter;
using host::Tender;

// The Tender row but its id.
const EntityColumns<Tender> kTenderColumns = {
    {"TenderKey", &Tender::TenderKey},         {"Description", &Tender::Description},
    {"TenderGroup", &Tender::TenderGroup},     {"TenderKind", &Tender::TenderKind},
    {"TenderOption1", &Tender::TenderOption1}, {"TenderOption2", &Tender::TenderOption2},
    {"TenderOption3", &Tender::TenderOption3}, {"TenderOption4", &Tender::TenderOption4},
};

// The row of `table` whose `column` is `value`; nullptr when there is none.
host::RecordsetPtr RowWhere(host::DatabaseService& db, std::string_view table,
                            std::string_view column, double value) {
  auto rs = db.Query("SELECT * FROM " + std::string(table) + " WHERE " + std::string(column) + "=?",
                     {host::SqlValue::Number(value)});
  return rs->Eof() ? nullptr : rs;
}

host::RecordsetPtr RowWhere(host::DatabaseService& db, std::string_view table,
                            std::string_view column, std::string_view value) {
  auto rs = db.Query("SELECT * FROM " + std::string(table) + " WHERE " + std::string(column) + "=?",
                     {host::SqlValue::Text(value)});
  return rs->Eof() ? nullptr : rs;
}

// By id, or by key when the id is 0 and a key is given.
host::RecordsetPtr RowByIdOrKey(host::DatabaseService& db, std::string_view table,
                                std::string_view id_column, double id, std::string_view key_column,
                                std::string_view key) {
  if (id == 0 && !key.empty()) return RowWhere(db, table, key_column, key);
  return RowWhere(db, table, id_column, id);
}

}  // namespace

std::shared_ptr<host::Currency> SqliteCurrencyService::Get(std::string_view currency_id,
                                                           std::string_view) {
  auto rs = RowWhere(db_, "Currency", "CurrencyID", currency_id);
  if (!rs) return nullptr;
  auto currency = std::make_shared<host::Currency>();
  currency->CurrencyID = FieldConverter::ToText(rs->Fields("CurrencyID"));
  currency->Exchange = FieldConverter::ToNumber(rs->Fields("SaleExchange"));
  currency->Factor = FieldConverter::ToNumber(rs->Fields("CurrencyFactor"));
  currency->ExportCode = static_cast<int32_t>(FieldConverter::ToNumber(rs->Fields("ExportCode")));
  return currency;
}

std::shared_ptr<host::Payment> SqlitePaymentService::Get(double payment_id) {
  auto rs = RowWhere(db_, "Payment", "PaymentID", payment_id);
  if (!rs) return nullptr;
  auto payment = std::make_shared<host::Payment>();
  payment->PaymentID = FieldConverter::ToNumber(rs->Fields("PaymentID"));
  payment->PaymentKey = FieldConverter::ToText(rs->Fields("PaymentKey"));
  payment->Description = FieldConverter::ToText(rs->Fields("Description"));
  return payment;
}

double SqlitePaymentService::GetFirstID() { return FirstId(db_, "Payment", "PaymentID"); }

std::shared_ptr<host::Tender> SqliteTenderService::Get(double tender_id,
                                                       std::string_view tender_key) {
  auto rs = RowByIdOrKey(db_, "Tender", "TenderID", tender_id, "TenderKey", tender_key);
  if (!rs) return nullptr;
  auto tender = std::make_shared<Tender>();
  tender->TenderID = FieldConverter::ToNumber(rs->Fields("TenderID"));
  kTenderColumns.Read(*rs, *tender);
  return tender;
}

double SqliteTenderService::GetDefaultTenderID() { return FirstId(db_, "Tender", "TenderID"); }

bool SqliteTenderService::Exists(double tender_id) {
  return RowExists(db_, "Tender", "TenderID", tender_id);
}

void SqliteTenderService::Save(const Tender& tender, bool is_new) {
  const std::string language = context_.Settings()->LanguageID;
  writer_.Atomically([&] {
    SaveRow(writer_, "Tender", kTenderColumns, tender, "TenderID", tender.TenderID, is_new);
    host::SqlStatement name;
    name.SetTable("TenderNames");
    name.KeyNumber("TenderID", tender.TenderID);
    name.KeyText("LanguageID", language);
    writer_.Delete(name);
    name.ClearColumns();
    name.Number("TenderID", tender.TenderID);
    name.Text("LanguageID", language);
    name.Text("Description", tender.Description);
    writer_.Insert(std::move(name));
  });
}

double SqliteCustomerZoneService::GetIDFromKey(std::string_view zone_key) {
  return IdFromKey(db_, "Zone", "ZoneID", "ZoneKey", zone_key);
}

double SqliteCustomerZoneService::GetFirstID() { return FirstId(db_, "Zone", "ZoneID"); }

double SqliteCustomerGroupService::GetIDFromKey(std::string_view group_key) {
  return IdFromKey(db_, "CustomerGroups", "GroupID", "GroupKey", group_key);
}

std::shared_ptr<host::PartyAddress> SqlitePartyAddressService::GetPartyAddress(double address_id,
                                                                               double party_id) {
  auto address = std::make_shared<host::PartyAddress>();
  address->PartyID = party_id;
  address->AddressID = address_id;
  auto rs = db_.Query("SELECT * FROM PartyAddress WHERE PartyID=? AND AddressID=?",
                      {host::SqlValue::Number(party_id), host::SqlValue::Number(address_id)});
  if (rs->Eof()) return address;
  address->AddressLine1 = FieldConverter::ToText(rs->Fields("AddressLine1"));
  address->AddressLine2 = FieldConverter::ToText(rs->Fields("AddressLine2"));
  address->PostalCode = FieldConverter::ToText(rs->Fields("PostalCode"));
  address->CountryID = FieldConverter::ToText(rs->Fields("CountryID"));
  address->ProvinceID = FieldConverter::ToText(rs->Fields("ProvinceID"));
  address->LocalityID = FieldConverter::ToNumber(rs->Fields("LocalityID"));
  return address;
}

std::shared_ptr<host::ItemProperty> SqliteItemPropertyService::Load(std::string_view property_id1,
                                                                    std::string_view,
                                                                    std::string_view) {
  auto rs = RowWhere(db_, "ItemProperty", "PropertyID", property_id1);
  if (!rs) return nullptr;
  auto property = std::make_shared<host::ItemProperty>();
  property->PropertyID = FieldConverter::ToText(rs->Fields("PropertyID"));
  property->Description = FieldConverter::ToText(rs->Fields("Description"));
  property->KeyDescription = FieldConverter::ToText(rs->Fields("KeyDescription"));
  property->PropertyKeyType =
      static_cast<int16_t>(FieldConverter::ToNumber(rs->Fields("PropertyKeyType")));
  property->ControlMode = static_cast<int16_t>(FieldConverter::ToNumber(rs->Fields("ControlMode")));
  property->ControlType = static_cast<int16_t>(FieldConverter::ToNumber(rs->Fields("ControlType")));
  property->UsePropertyTable = FieldConverter::ToBoolean(rs->Fields("UsePropertyTable"));
  property->UseProductionDate = FieldConverter::ToBoolean(rs->Fields("UseProductionDate"));
  property->UseExpirationDate = FieldConverter::ToBoolean(rs->Fields("UseExpirationDate"));
  property->ExpirationDateControl =
      static_cast<int16_t>(FieldConverter::ToNumber(rs->Fields("ExpirationDateControl")));
  property->MaximumQuantity = FieldConverter::ToNumber(rs->Fields("MaximumQuantity"));
  return property;
}

bool SqliteSaleDocumentReader::Load(std::string_view trans_serial, std::string_view trans_document,
                                    double trans_doc_number) {
  const host::SqlFormat& format = db_.SqlFormat();
  auto rs = db_.OpenRecordset(
      "SELECT TransSerial, TransDocument, TransDocNumber FROM SaleTransaction WHERE TransSerial='" +
      format.QuoteText(trans_serial) + "' AND TransDocument='" + format.QuoteText(trans_document) +
      "' AND TransDocNumber=" + format.Number(trans_doc_number));
  if (rs->Eof()) {
    party_document_text_.clear();
    return false;
  }
  party_document_text_ = FieldConverter::ToText(rs->Fields("TransDocument")) + " " +
                         FieldConverter::ToText(rs->Fields("TransSerial")) + "/" +
                         FieldConverter::ToText(rs->Fields("TransDocNumber"));
  return true;
}

}  // namespace standalone
