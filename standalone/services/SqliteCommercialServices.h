#ifndef LUMARO_STANDALONE_SERVICES_SQLITE_COMMERCIAL_SERVICES_H_
#define LUMARO_STANDALONE_SERVICES_SQLITE_COMMERCIAL_SERVICES_H_

// The one-table entities a load saves as they come: carriers, price lines,
// the places of loading and unloading, and the units of measure. Each is a
// row under its own id; a save inserts it when told it is new (a unit: when
// its id has no row), and updates it otherwise.

#include <string>
#include <unordered_map>

#include "connector/host/DatabaseService.h"
#include "connector/host/EntityServices.h"
#include "standalone/services/EntityRows.h"

namespace standalone {

class SqliteCarrierService : public host::CarrierService {
 public:
  explicit SqliteCarrierService(host::DatabaseService& db) : db_(db), writer_(db) {}
  std::shared_ptr<host::Carrier> Get(double carrier_id) override;
  double GetIDFromKey(std::string_view carrier_key) override;
  double GetFirstID() override;
  void Save(const host::Carrier& carrier, bool is_new) override;

 private:
  host::DatabaseService& db_;
  EntityWriter writer_;
};

// Keeps the keys it has read for its own life (the run that made it), and
// those its own saves give.
class SqlitePriceLineService : public host::PriceLineService {
 public:
  explicit SqlitePriceLineService(host::DatabaseService& db) : db_(db), writer_(db) {}
  std::string GetKey(double price_line_id) override;
  double GetID(std::string_view price_line_key) override;
  // The first line above 0: line 0 holds the cost and is no one's price.
  double GetFirstID() override;
  host::RecordsetPtr GetPriceLines() override;
  double NextID() override;
  void Save(const host::PriceLine& line, bool is_new) override;

 private:
  host::DatabaseService& db_;
  EntityWriter writer_;
  std::unordered_map<double, std::string> keys_;
};

class SqliteLoadUnloadPlaceService : public host::LoadUnloadPlaceService {
 public:
  explicit SqliteLoadUnloadPlaceService(host::DatabaseService& db) : db_(db), writer_(db) {}
  bool Exists(double place_id) override;
  void Save(const host::LoadUnloadPlace& place, bool is_new) override;

 private:
  host::DatabaseService& db_;
  EntityWriter writer_;
};

// Units of measure: the table UnitOfMeasure, by UnitOfMeasureID.
class SqliteUnitOfMeasureService : public host::UnitOfMeasureService {
 public:
  explicit SqliteUnitOfMeasureService(host::DatabaseService& db) : db_(db), writer_(db) {}
  bool Exists(std::string_view unit_id) override;
  void Save(const host::UnitOfMeasure& unit) override;

 private:
  host::DatabaseService& db_;
  EntityWriter writer_;
};

}  // namespace standalone

#endif  // LUMARO_STANDALONE_SERVICES_SQLITE_COMMERCIAL_SERVICES_H_
