#ifndef LUMARO_STANDALONE_SERVICES_SQLITE_ENTITY_SERVICES_H_
#define LUMARO_STANDALONE_SERVICES_SQLITE_ENTITY_SERVICES_H_

// The host's entity services over the POS database. They share one shape:
// a row found by its id (or key) gives the entity, no row gives an empty
// reference, 0 or empty text.

#include <string>
#include <unordered_map>

#include "connector/host/EntityServices.h"
#include "connector/host/SaleDocumentReader.h"
#include "standalone/sqlite/SqliteDatabase.h"

namespace standalone {

class SqliteCurrencyService : public host::CurrencyService {
 public:
  explicit SqliteCurrencyService(host::DatabaseService& db) : db_(db) {}
  std::shared_ptr<host::Currency> Get(std::string_view currency_id,
                                      std::string_view second_key) override;

 private:
  host::DatabaseService& db_;
};

class SqliteSalesmanService : public host::SalesmanService {
 public:
  explicit SqliteSalesmanService(host::DatabaseService& db) : db_(db) {}
  std::shared_ptr<host::Salesman> Get(double salesman_id, std::string_view salesman_key) override;

 private:
  host::DatabaseService& db_;
};

class SqliteCarrierService : public host::CarrierService {
 public:
  explicit SqliteCarrierService(host::DatabaseService& db) : db_(db) {}
  std::shared_ptr<host::Carrier> Get(double carrier_id) override;

 private:
  host::DatabaseService& db_;
};

class SqlitePaymentService : public host::PaymentService {
 public:
  explicit SqlitePaymentService(host::DatabaseService& db) : db_(db) {}
  std::shared_ptr<host::Payment> Get(double payment_id) override;

 private:
  host::DatabaseService& db_;
};

class SqliteTenderService : public host::TenderService {
 public:
  explicit SqliteTenderService(host::DatabaseService& db) : db_(db) {}
  std::shared_ptr<host::Tender> Get(double tender_id, std::string_view tender_key) override;

 private:
  host::DatabaseService& db_;
};

// Keeps the keys it has read for its own life (the run that made it).
class SqlitePriceLineService : public host::PriceLineService {
 public:
  explicit SqlitePriceLineService(host::DatabaseService& db) : db_(db) {}
  std::string GetKey(double price_line_id) override;
  double GetID(std::string_view price_line_key) override;
  host::RecordsetPtr GetPriceLines() override;

 private:
  host::DatabaseService& db_;
  std::unordered_map<double, std::string> keys_;
};

// Keeps the keys it has read for its own life (the run that made it).
class SqliteItemService : public host::ItemService {
 public:
  explicit SqliteItemService(host::DatabaseService& db) : db_(db) {}
  std::string GetKey(std::string_view item_id) override;

 private:
  host::DatabaseService& db_;
  std::unordered_map<std::string, std::string> keys_;
};

// Reads a sale document's head. Its PartyDocumentText is how the document's
// party knows it: "<TransDocument> <TransSerial>/<TransDocNumber>".
class SqliteSaleDocumentReader : public host::SaleDocumentReader {
 public:
  explicit SqliteSaleDocumentReader(host::DatabaseService& db) : db_(db) {}
  bool Load(std::string_view trans_serial, std::string_view trans_document,
            double trans_doc_number) override;
  std::string PartyDocumentText() const override { return party_document_text_; }

 private:
  host::DatabaseService& db_;
  std::string party_document_text_;
};

}  // namespace standalone

#endif  // LUMARO_STANDALONE_SERVICES_SQLITE_ENTITY_SERVICES_H_
