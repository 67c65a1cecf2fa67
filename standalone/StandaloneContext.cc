#include "standalone/StandaloneContext.h"

#include "connector/host/Error.h"
#include "connector/host/FieldConverter.h"
#include "standalone/services/SqliteEntityServices.h"

namespace standalone {

using host::FieldConverter;

const host::DocumentDefinition& DocumentTable::Item(std::string_view trans_document) {
  if (!documents_) {
    documents_.emplace();
    auto rs = db_.OpenRecordset(
        "SELECT TransDocumentID, Description, UsesPayment, DocumentSign, PaymentMode "
        "FROM Documents");
    for (; !rs->Eof(); rs->MoveNext()) {
      host::DocumentDefinition definition;
      definition.TransDocument = FieldConverter::ToText(rs->Fields("TransDocumentID"));
      definition.Description = FieldConverter::ToText(rs->Fields("Description"));
      definition.AsksPayment = FieldConverter::ToBoolean(rs->Fields("UsesPayment"));
      definition.EntrySign = FieldConverter::ToText(rs->Fields("DocumentSign"));
      definition.PaymentBehaviour.PaymentMode =
          static_cast<int16_t>(FieldConverter::ToNumber(rs->Fields("PaymentMode")));
      documents_->emplace(definition.TransDocument, definition);
    }
  }
  auto it = documents_->find(trans_document);
  if (it == documents_->end()) {
    host::RaiseWith(host::err::kInvalidProcedureCall,
                    "O documento " + std::string(trans_document) + " não está definido neste posto",
                    "Documents");
  }
  return it->second;
}

std::string StandaloneWorkstation::SeriesKey() const {
  auto rs = db_.OpenRecordset("SELECT TransSerial FROM Workstation WHERE WorkstationID=" +
                              std::to_string(id_));
  return rs->Eof() ? "" : FieldConverter::ToText(rs->Fields(0));
}

StandaloneContext::StandaloneContext(host::DatabaseService& db, HostContextStore& store,
                                     int32_t workstation_id, int32_t user_id, int32_t session_id)
    : db_(db),
      store_(store),
      workstation_(db, workstation_id),
      user_id_(user_id),
      session_id_(session_id) {}

std::shared_ptr<host::SystemSettings> StandaloneContext::LoadSettings(int32_t key) {
  auto rs = db_.OpenRecordset("SELECT * FROM ConfSystem WHERE ConfSystemID=" + std::to_string(key));
  if (rs->Eof()) return nullptr;
  auto settings = std::make_shared<host::SystemSettings>();
  settings->Key = key;
  settings->CountryID = FieldConverter::ToText(rs->Fields("CountryID"));
  settings->TaxRegionID = FieldConverter::ToText(rs->Fields("TaxRegionID"));
  settings->LanguageID = FieldConverter::ToText(rs->Fields("LanguageID"));
  settings->DefaultUnitOfMeasureID = FieldConverter::ToText(rs->Fields("DefaultUnitOfMeasureID"));
  settings->DefaultCurrencyID = FieldConverter::ToText(rs->Fields("DefaultCurrencyID"));
  settings->TaxRegime = static_cast<int16_t>(FieldConverter::ToNumber(rs->Fields("TaxRegime")));
  settings->AplySalesRetentionTax = FieldConverter::ToBoolean(rs->Fields("AplySalesRetentionTax"));
  settings->RetentionTax = FieldConverter::ToNumber(rs->Fields("RetentionTax"));
  settings->CustomerRangeStart = FieldConverter::ToNumber(rs->Fields("CustomerRangeStart"));
  settings->CustomerRangeEnd = FieldConverter::ToNumber(rs->Fields("CustomerRangeEnd"));
  settings->UsePropertyItems = FieldConverter::ToBoolean(rs->Fields("UsePropertyItems"));
  settings->UsePropertyTable = FieldConverter::ToBoolean(rs->Fields("UsePropertyTable"));
  settings->UseCompositeItems = FieldConverter::ToBoolean(rs->Fields("UseCompositeItems"));
  settings->UseUnitOfMeasureItems = FieldConverter::ToBoolean(rs->Fields("UseUnitOfMeasureItems"));
  settings->UseUnitWithFormulaItems =
      FieldConverter::ToBoolean(rs->Fields("UseUnitWithFormulaItems"));
  for (auto special = db_.OpenRecordset("SELECT ConfSpecialID, Active FROM ConfSpecial");
       !special->Eof(); special->MoveNext()) {
    settings->SpecialConfigurations[static_cast<int32_t>(FieldConverter::ToNumber(
        special->Fields("ConfSpecialID")))] = FieldConverter::ToBoolean(special->Fields("Active"));
  }
  return settings;
}

std::string StandaloneContext::CurrentUserName() const {
  if (user_name_) return *user_name_;
  auto rs = db_.OpenRecordset("SELECT AppUserName FROM AppUsers WHERE AppUserID=" +
                              std::to_string(user_id_));
  return rs->Eof() ? "" : FieldConverter::ToText(rs->Fields("AppUserName"));
}

std::shared_ptr<host::SystemSettings> StandaloneContext::Settings() {
  if (!settings_) {
    settings_ = LoadSettings(1);
    if (!settings_) {
      host::RaiseWith(host::err::kInvalidProcedureCall,
                      "The POS database has no system configuration (ConfSystem)", "SystemContext");
    }
  }
  return settings_;
}

void StandaloneContext::SetSettings(std::shared_ptr<host::SystemSettings> settings) {
  settings_ = std::move(settings);
  default_currency_.reset();
}

const host::Currency& StandaloneContext::Defaults() {
  if (!default_currency_) {
    SqliteCurrencyService currencies(db_);
    auto currency = currencies.Get(Settings()->DefaultCurrencyID, "");
    if (!currency) {
      host::RaiseWith(host::err::kInvalidProcedureCall,
                      "The default currency " + Settings()->DefaultCurrencyID + " does not exist",
                      "SystemContext");
    }
    default_currency_ = *currency;
  }
  return *default_currency_;
}

host::Crypto& StandaloneContext::Crypto() {
  if (!crypto_) crypto_ = std::make_unique<SodiumCrypto>(WorkFolder());
  return *crypto_;
}

}  // namespace standalone
