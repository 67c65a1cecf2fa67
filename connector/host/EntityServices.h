#ifndef LUMARO_CONNECTOR_HOST_ENTITY_SERVICES_H_
#define LUMARO_CONNECTOR_HOST_ENTITY_SERVICES_H_

// The host's entity services. A lookup that finds nothing gives an empty
// reference, id 0 or empty text, never an error; a failure of the database
// is a raised host::Error.

#include <memory>
#include <string>
#include <string_view>

#include "connector/host/Currency.h"
#include "connector/host/Entities.h"
#include "connector/host/Recordset.h"

namespace host {

class CurrencyService {
 public:
  virtual ~CurrencyService() = default;
  virtual std::shared_ptr<Currency> Get(std::string_view currency_id,
                                        std::string_view second_key) = 0;
};

class SalesmanService {
 public:
  virtual ~SalesmanService() = default;
  virtual std::shared_ptr<Salesman> Get(double salesman_id, std::string_view salesman_key) = 0;
};

class CarrierService {
 public:
  virtual ~CarrierService() = default;
  virtual std::shared_ptr<Carrier> Get(double carrier_id) = 0;
};

class PaymentService {
 public:
  virtual ~PaymentService() = default;
  virtual std::shared_ptr<Payment> Get(double payment_id) = 0;
};

class TenderService {
 public:
  virtual ~TenderService() = default;
  virtual std::shared_ptr<Tender> Get(double tender_id, std::string_view tender_key) = 0;
};

class PriceLineService {
 public:
  virtual ~PriceLineService() = default;
  // The back office's key of a price line; empty when unknown.
  virtual std::string GetKey(double price_line_id) = 0;
  // The id of the price line with that key; 0 when unknown.
  virtual double GetID(std::string_view price_line_key) = 0;
  // Every price line of the host, ordered by id.
  virtual RecordsetPtr GetPriceLines() = 0;
};

class ItemService {
 public:
  virtual ~ItemService() = default;
  // The back office's key of an item; empty when unknown.
  virtual std::string GetKey(std::string_view item_id) = 0;
};

}  // namespace host

#endif  // LUMARO_CONNECTOR_HOST_ENTITY_SERVICES_H_
