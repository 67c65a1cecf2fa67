#include "exchange/export/KeyCaches.h"

#include <optional>

#include "connector/ModConnectorLumaro.h"
#include "connector/host/Conversions.h"
#include "connector/host/Error.h"
#include "connector/host/FieldConverter.h"

namespace lumaro {
namespace {

host::Host& Host() { return ModConnectorLumaro::Host(); }

host::DatabaseService& Database() { return Host().DataManager().Connection().Database(); }

std::string KeyOf(std::string_view prefix, double id) {
  return std::string(prefix) + host::NumberText(id);
}

// The first column of the first row of a query; nothing when no row.
std::optional<std::string> FirstText(const std::string& sql) {
  host::RecordsetPtr rs = Database().OpenRecordset(sql, 128, true);
  std::optional<std::string> text;
  if (!rs->Eof()) text = host::FieldConverter::ToText(rs->Fields(0));
  host::RecordsetTools::CloseRecordset(rs);
  return text;
}

template <typename Service, typename Make>
Service& Lazy(std::unique_ptr<Service>& service, Make make) {
  if (!service) service = make();
  return *service;
}

}  // namespace

KeyCaches::KeyCaches() = default;
KeyCaches::~KeyCaches() = default;

template <typename LookUp>
std::string KeyCaches::Cached(std::string_view prefix, double id, LookUp look_up) {
  host::KeyDictionary& dictionary = ModConnectorLumaro::RunDictionary();
  std::string key = KeyOf(prefix, id);
  if (dictionary.Exists(key)) return host::FieldConverter::ToText(dictionary.Item(key));
  std::optional<std::string> found = look_up();
  if (!found) return "";
  dictionary.Add(host::Variant(*found), key);
  return *found;
}

std::string KeyCaches::GetAppUserKey(double id) {
  return Cached("AppUserKey|", id, [&] {
    return FirstText("SELECT AppUserKey FROM AppUsers WHERE AppUserID=" + host::NumberText(id));
  });
}

// Kept on purpose, because the file's values depend on it: this routine
// reads under "CustomerLevelKey|" but stores under "SalesmanKey|", so it
// never finds its own and always asks the database, and it stores what it
// got, empty text too. A salesman whose id equals a level looked up earlier
// in the run (and who was not looked up before it) then gets the level's
// key, since the first value of a key stays.
std::string KeyCaches::GetCustomerLevelKey(double id) {
  host::KeyDictionary& dictionary = ModConnectorLumaro::RunDictionary();
  std::string read_key = KeyOf("CustomerLevelKey|", id);
  if (dictionary.Exists(read_key)) return host::FieldConverter::ToText(dictionary.Item(read_key));
  std::optional<std::string> found =
      FirstText("SELECT GroupKey FROM CustomerGroups WHERE GroupID=" +
                Database().SqlFormat().Number(id));
  std::string key_text = found.value_or("");
  dictionary.Add(host::Variant(key_text), KeyOf("SalesmanKey|", id));
  return key_text;
}

std::string KeyCaches::GetSalesmanKey(double id) {
  return Cached("SalesmanKey|", id, [&]() -> std::optional<std::string> {
    auto salesman = Lazy(salesmen_, [] { return Host().NewSalesmanService(); }).Get(id, "");
    if (!salesman) return std::nullopt;
    return salesman->SalesmanKey;
  });
}

std::string KeyCaches::GetCarrierKey(double id) {
  return Cached("CarrierKey|", id, [&]() -> std::optional<std::string> {
    auto carrier = Lazy(carriers_, [] { return Host().NewCarrierService(); }).Get(id);
    if (!carrier) return std::nullopt;
    return carrier->CarrierKey;
  });
}

std::string KeyCaches::GetPaymentKey(double id) {
  return Cached("PaymentKey|", id, [&]() -> std::optional<std::string> {
    auto payment = Lazy(payments_, [] { return Host().NewPaymentService(); }).Get(id);
    if (!payment) return std::nullopt;
    return payment->PaymentKey;
  });
}

std::string KeyCaches::GetTenderKey(double id) {
  return Cached("TenderKey|", id, [&]() -> std::optional<std::string> {
    auto tender = Lazy(tenders_, [] { return Host().NewTenderService(); }).Get(id, "");
    if (!tender) return std::nullopt;
    return tender->TenderKey;
  });
}

std::string KeyCaches::GetPriceLineID(std::string_view key) {
  host::KeyDictionary& dictionary = ModConnectorLumaro::RunDictionary();
  std::string dictionary_key = "PriceLineID|" + std::string(key);
  if (dictionary.Exists(dictionary_key)) {
    return host::FieldConverter::ToText(dictionary.Item(dictionary_key));
  }
  double id = Lazy(price_lines_, [] { return Host().NewPriceLineService(); }).GetID(key);
  if (!(id > 0)) return "";
  std::string text = host::NumberText(id);
  dictionary.Add(host::Variant(text), dictionary_key);
  return text;
}

std::string KeyCaches::GetPriceLineKey(double price_line_id) {
  return Lazy(price_lines_, [] { return Host().NewPriceLineService(); }).GetKey(price_line_id);
}

std::string KeyCaches::GetItemKey(std::string_view item_id) {
  return Lazy(items_, [] { return Host().NewItemService(); }).GetKey(item_id);
}

int32_t KeyCaches::CurrencyExportCode(std::string_view currency_id) {
  auto currency = ModConnectorLumaro::GetCurrency(currency_id);
  if (!currency) {
    // What reading the export code of an empty reference raises.
    host::Raise(host::err::kObjectNotSet, "GetCurrency");
  }
  return currency->ExportCode;
}

}  // namespace lumaro
