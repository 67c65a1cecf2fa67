#ifndef LUMARO_STANDALONE_SERVICES_SQLITE_ENTITY_SERVICES_H_
#define LUMARO_STANDALONE_SERVICES_SQLITE_ENTITY_SERVICES_H_

// The host's small entity services over the POS database: those that only
// find a row by id or key, or name the first one. They share one shape: a
// row found gives the entity, no row gives an empty reference, 0 or empty
// text. The services that save entities have files of their own.

#include <string>

#include "connector/host/DatabaseService.h"
#include "connector/host/EntityServices.h"
#include "connector/host/SaleDocumentReader.h"
#include "connector/host/SystemContext.h"
#include "standalone/services/EntityRows.h"

namespace standalone {

class SqliteCurrencyService : public host::CurrencyService {
 public:
  explicit SqliteCurrencyService(host::DatabaseService& db) : db_(db) {}
  std::shared_ptr<host::Currency> Get(std::string_view currency_id,
                                      std::string_view second_key) override;

 private:
  host::DatabaseService& db_;
};

class SqlitePaymentService : public host::PaymentService {
 public:
  explicit SqlitePaymentService(host::DatabaseService& db) : db_(db) {}
  std::shared_ptr<host::Payment> Get(double payment_id) override;
  double GetFirstID() override;

 private:
  host::DatabaseService& db_;
};

// Tenders: the table Tender, with the tender's name in the host's language
// (that of the context's settings) in TenderNames.
class SqliteTenderService : public host::TenderService {
 public:
  SqliteTenderService(host::DatabaseService& db, host::SystemContext& context)
      : db_(db), context_(context), writer_(db) {}
  std::shared_ptr<host::Tender> Get(double tender_id, std::string_view tender_key) override;
  // The first tender by id (cash, in a new POS).
  double GetDefaultTenderID() override;
  bool Exists(double tender_id) override;
  // The Tender row, and its name in the host's language, which takes the
  // place of the one there (a tender saved as not new but without a name
  // gets one); the names in other languages stay.
  void Save(const host::Tender& tender, bool is_new) override;

 private:
  host::DatabaseService& db_;
  host::SystemContext& context_;
  EntityWriter writer_;
};

class SqliteCustomerZoneService : public host::CustomerZoneService {
 public:
  explicit SqliteCustomerZoneService(host::DatabaseService& db) : db_(db) {}
  double GetIDFromKey(std::string_view zone_key) override;
  double GetFirstID() override;

 private:
  host::DatabaseService& db_;
};

class SqliteCustomerGroupService : public host::CustomerGroupService {
 public:
  explicit SqliteCustomerGroupService(host::DatabaseService& db) : db_(db) {}
  double GetIDFromKey(std::string_view group_key) override;

 private:
  host::DatabaseService& db_;
};

class SqlitePartyAddressService : public host::PartyAddressService {
 public:
  explicit SqlitePartyAddressService(host::DatabaseService& db) : db_(db) {}
  std::shared_ptr<host::PartyAddress> GetPartyAddress(double address_id, double party_id) override;

 private:
  host::DatabaseService& db_;
};

class SqliteItemPropertyService : public host::ItemPropertyService {
 public:
  explicit SqliteItemPropertyService(host::DatabaseService& db) : db_(db) {}
  std::shared_ptr<host::ItemProperty> Load(std::string_view property_id1,
                                           std::string_view property_id2,
                                           std::string_view property_id3) override;

 private:
  host::DatabaseService& db_;
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
