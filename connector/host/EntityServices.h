#ifndef LUMARO_CONNECTOR_HOST_ENTITY_SERVICES_H_
#define LUMARO_CONNECTOR_HOST_ENTITY_SERVICES_H_

// The host's entity services, one per entity. A lookup that finds nothing
// gives an empty reference, id 0 or empty text, never an error; a failure of
// the database is a raised host::Error. A Save that the database refuses
// (a text too long for its column, a broken key) raises too, and changes
// nothing.
//
// "First" records (the fall-backs a caller takes when a key is unknown) are
// the host's first by id.

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "connector/host/Currency.h"
#include "connector/host/Entities.h"
#include "connector/host/ItemEntity.h"
#include "connector/host/Recordset.h"

namespace host {

// A group of the host's users.
struct AppGroup {
  int16_t AppGroupID = 0;
  std::string AppGroupName;
};

class AppGroupService {
 public:
  virtual ~AppGroupService() = default;
  // The group of that name, or none.
  virtual std::optional<AppGroup> FindByName(std::string_view name) = 0;
  // Adds a new group (its id 0) under the next id, which it takes and
  // returns.
  virtual int16_t Add(AppGroup& group) = 0;
  virtual bool Exists(int16_t group_id) = 0;
};

// One of the host's users: its key (the back office's operator code), its
// name, what it may do, and its groups.
struct AppUser {
  int16_t AppUserID = 0;
  std::string AppUserKey;
  std::string AppUserName;
  int16_t SecurityLevel = 0;
  double MaximumDiscount = 0;
  int32_t DefaultWorkstationID = 0;
  bool Active = true;
  bool CanChangePrices = true;
  bool CanVoidDocuments = true;
  std::vector<int16_t> Groups;
};

class AppUserService {
 public:
  virtual ~AppUserService() = default;
  // The user of that key, or an empty reference.
  virtual std::shared_ptr<AppUser> GetByKey(std::string_view key) = 0;
  // Saves the user and its groups; a new one (id 0) takes the next id.
  virtual void Save(AppUser& user) = 0;
};

class CurrencyService {
 public:
  virtual ~CurrencyService() = default;
  virtual std::shared_ptr<Currency> Get(std::string_view currency_id,
                                        std::string_view second_key) = 0;
};

class SalesmanService {
 public:
  virtual ~SalesmanService() = default;
  // By id, or by key when the id is 0 and a key is given.
  virtual std::shared_ptr<Salesman> Get(double salesman_id, std::string_view salesman_key) = 0;
  // The id of the salesman with that key; 0 for an empty or unknown key.
  virtual double GetIDFromKey(std::string_view salesman_key) = 0;
  virtual double GetFirstID() = 0;
  // The id a new salesman takes.
  virtual double NextID() = 0;
  // Inserts the salesman under `salesman_id`, or updates the one there.
  virtual void Save(const Salesman& salesman, double salesman_id) = 0;
};

class CarrierService {
 public:
  virtual ~CarrierService() = default;
  virtual std::shared_ptr<Carrier> Get(double carrier_id) = 0;
  // 0 for an empty or unknown key.
  virtual double GetIDFromKey(std::string_view carrier_key) = 0;
  virtual double GetFirstID() = 0;
  // Inserts the carrier under its CarrierID when `is_new`, else updates it.
  virtual void Save(const Carrier& carrier, bool is_new) = 0;
};

class PaymentService {
 public:
  virtual ~PaymentService() = default;
  virtual std::shared_ptr<Payment> Get(double payment_id) = 0;
  virtual double GetFirstID() = 0;
};

class TenderService {
 public:
  virtual ~TenderService() = default;
  virtual std::shared_ptr<Tender> Get(double tender_id, std::string_view tender_key) = 0;
  // The tender a customer pays with unless told otherwise.
  virtual double GetDefaultTenderID() = 0;
  virtual bool Exists(double tender_id) = 0;
  // Inserts the tender under its TenderID when `is_new`, else updates it.
  virtual void Save(const Tender& tender, bool is_new) = 0;
};

class UnitOfMeasureService {
 public:
  virtual ~UnitOfMeasureService() = default;
  virtual bool Exists(std::string_view unit_id) = 0;
  // Inserts the unit, or updates the one of its id.
  virtual void Save(const UnitOfMeasure& unit) = 0;
};

class PriceLineService {
 public:
  virtual ~PriceLineService() = default;
  // The back office's key of a price line; empty when unknown.
  virtual std::string GetKey(double price_line_id) = 0;
  // The id of the price line with that key; 0 for an empty or unknown key.
  virtual double GetID(std::string_view price_line_key) = 0;
  // The first price line a customer can buy on (line 0 is the cost).
  virtual double GetFirstID() = 0;
  // Every price line of the host, ordered by id.
  virtual RecordsetPtr GetPriceLines() = 0;
  // The id a new price line takes.
  virtual double NextID() = 0;
  // Inserts the line under its PriceLineID when `is_new`, else updates it.
  virtual void Save(const PriceLine& line, bool is_new) = 0;
};

class LoadUnloadPlaceService {
 public:
  virtual ~LoadUnloadPlaceService() = default;
  virtual bool Exists(double place_id) = 0;
  // Inserts the place under its id when `is_new`, else updates it.
  virtual void Save(const LoadUnloadPlace& place, bool is_new) = 0;
};

// The customers' zones.
class CustomerZoneService {
 public:
  virtual ~CustomerZoneService() = default;
  // 0 for an empty or unknown key.
  virtual double GetIDFromKey(std::string_view zone_key) = 0;
  virtual double GetFirstID() = 0;
};

class CustomerGroupService {
 public:
  virtual ~CustomerGroupService() = default;
  // 0 for an empty or unknown key.
  virtual double GetIDFromKey(std::string_view group_key) = 0;
};

class PartyAddressService {
 public:
  virtual ~PartyAddressService() = default;
  // The address `address_id` of the party: the stored one, or a new record
  // with that key when the party has none.
  virtual std::shared_ptr<PartyAddress> GetPartyAddress(double address_id, double party_id) = 0;
};

class CustomerService {
 public:
  virtual ~CustomerService() = default;
  // The id of the customer with that key; 0 for an empty or unknown key.
  virtual double GetCustomerIDFromKey(std::string_view customer_key) = 0;
  virtual bool Exists(double customer_id) = 0;
  virtual std::shared_ptr<Customer> Get(double customer_id) = 0;
  // Inserts the customer (with its party and main address) under
  // `customer_id`, or updates the one there; with its Party set, the
  // party's further addresses, persons with their telephones, and bank
  // accounts become those.
  virtual void Save(const Customer& customer, double customer_id) = 0;
};

class FamilyService {
 public:
  virtual ~FamilyService() = default;
  // The id of the family with that key, the empty key included; 0 when
  // there is none.
  virtual double GetIDFromKey(std::string_view family_key) = 0;
  virtual bool Exists(double family_id) = 0;
  virtual std::shared_ptr<Family> Get(double family_id) = 0;
  virtual double NextID() = 0;
  // The family that items without one belong to: the root of the tree.
  virtual double GetDefaultFamilyID() = 0;
  // Inserts the family with its level rows under `family_id`, or updates the
  // one there.
  virtual void Save(const Family& family, double family_id) = 0;
};

class SupplierService {
 public:
  virtual ~SupplierService() = default;
  // The supplier of an item that names none; 0 when the host has none.
  virtual double GetDefaultSupplierID() = 0;
  // The id a new supplier takes.
  virtual double NextID() = 0;
  // Inserts the supplier (its party and main address) when `is_new`, else
  // updates it; with its Party set, the party's further addresses, persons
  // with their telephones, and bank accounts become those.
  virtual void Save(const Supplier& supplier, bool is_new) = 0;
};

class BankService {
 public:
  virtual ~BankService() = default;
  // Inserts the bank under `bank_id` (with its party) when `is_new`, else
  // updates it; with its Party set, the party's accounts (and any further
  // addresses and persons) become those.
  virtual void Save(const Bank& bank, int32_t bank_id, bool is_new) = 0;
};

class WarehouseService {
 public:
  virtual ~WarehouseService() = default;
  // The id a new warehouse takes.
  virtual int16_t NextID() = 0;
  // By id, or by key (the empty key too) when the id is 0.
  virtual bool Exists(int16_t warehouse_id, std::string_view warehouse_key) = 0;
  // Inserts the warehouse under `warehouse_id` when `is_new`, else updates
  // it.
  virtual void Save(const Warehouse& warehouse, int16_t warehouse_id, bool is_new) = 0;
  // The warehouse of that id; an empty reference when there is none.
  virtual std::shared_ptr<Warehouse> Load(int16_t warehouse_id) = 0;
  // The ids of every warehouse, in order.
  virtual std::vector<int16_t> GetWarehouses() = 0;
  // Gives every item that controls its stock a stock row (of no quantity)
  // in the warehouse, where it has none.
  virtual void InsertItemsInStock(int16_t warehouse_id) = 0;
};

// The customers' ledgers.
class CustomerLedgerService {
 public:
  virtual ~CustomerLedgerService() = default;
  // Adds the line; one without a number takes the next of its series and
  // document, which is written back into it.
  virtual void Save(LedgerLine& line) = 0;
};

class ItemService {
 public:
  virtual ~ItemService() = default;
  // The back office's key of an item; empty when unknown.
  virtual std::string GetKey(std::string_view item_id) = 0;
  // The id of the item with that key; empty for an empty or unknown key.
  virtual std::string GetItemIDFromKey(std::string_view item_key) = 0;
  virtual bool Exists(std::string_view item_id) = 0;
  // The item with all its collections; an empty reference when there is
  // none. Its selling prices have a row for every price line of the host.
  virtual std::shared_ptr<Item> Get(std::string_view item_id) = 0;
  virtual bool HasComponents(std::string_view item_id) = 0;
  // Inserts the item or updates it, and replaces its collections.
  virtual void Save(const Item& item) = 0;
  // Replaces the selling prices of one item.
  virtual void SaveSellingPrices(const ItemSellingPrices& prices, std::string_view item_id) = 0;
};

class ItemPropertyService {
 public:
  virtual ~ItemPropertyService() = default;
  // The property of an item tracked by up to three properties (the first is
  // the one that counts); an empty reference when the host has no such
  // property.
  virtual std::shared_ptr<ItemProperty> Load(std::string_view property_id1,
                                             std::string_view property_id2,
                                             std::string_view property_id3) = 0;
};

// Prices with and without tax. Made with a fresh tax-rate object: the rates
// it reads are kept for its life.
class TaxCalculator {
 public:
  virtual ~TaxCalculator() = default;
  // The tax context: the country, the region and the tax regime of the
  // prices.
  struct Context {
    std::string CountryID;
    std::string TaxRegionID;
    int16_t TaxRegime = 0;
  };
  virtual double AddTax(double price, int16_t taxable_group_id, const Context& context) = 0;
  virtual double RemoveTax(double price, int16_t taxable_group_id, const Context& context) = 0;
};

}  // namespace host

#endif  // LUMARO_CONNECTOR_HOST_ENTITY_SERVICES_H_
