#ifndef LUMARO_EXCHANGE_EXPORT_KEY_CACHES_H_
#define LUMARO_EXCHANGE_EXPORT_KEY_CACHES_H_

#include <memory>
#include <string>
#include <string_view>

#include "connector/host/EntityServices.h"

namespace lumaro {

// Turns host ids into the back office's keys for one run, asking the
// database or the host's service once a run as far as it finds something:
// each result is kept in the run dictionary under a prefix followed by the
// id as number text ("SalesmanKey|7"). An id that finds nothing gives empty
// text and keeps nothing, so it is asked again. The host services are made
// at their first use and kept to the end of the run.
class KeyCaches {
 public:
  KeyCaches();
  ~KeyCaches();

  std::string GetAppUserKey(double id);
  std::string GetCustomerLevelKey(double id);
  std::string GetSalesmanKey(double id);
  std::string GetCarrierKey(double id);
  std::string GetPaymentKey(double id);
  std::string GetTenderKey(double id);
  // The reverse direction, for the import: the id of a price line's key, as
  // number text; empty when the host knows no such key.
  std::string GetPriceLineID(std::string_view key);

  // Through the host's services, asked at each call (the stand-alone host's
  // services keep what they read for their life, which is the run's).
  std::string GetPriceLineKey(double price_line_id);
  std::string GetItemKey(std::string_view item_id);
  // The export code of a currency (through the one-entry currency cache).
  int32_t CurrencyExportCode(std::string_view currency_id);

 private:
  // The cached value of the key, or runs `look_up` and keeps its result when
  // it found something.
  template <typename LookUp>
  std::string Cached(std::string_view prefix, double id, LookUp look_up);

  std::unique_ptr<host::SalesmanService> salesmen_;
  std::unique_ptr<host::CarrierService> carriers_;
  std::unique_ptr<host::PaymentService> payments_;
  std::unique_ptr<host::TenderService> tenders_;
  std::unique_ptr<host::PriceLineService> price_lines_;
  std::unique_ptr<host::ItemService> items_;
};

}  // namespace lumaro

#endif  // LUMARO_EXCHANGE_EXPORT_KEY_CACHES_H_
