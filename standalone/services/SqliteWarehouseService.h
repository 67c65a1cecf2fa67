#ifndef LUMARO_STANDALONE_SERVICES_SQLITE_WAREHOUSE_SERVICE_H_
#define LUMARO_STANDALONE_SERVICES_SQLITE_WAREHOUSE_SERVICE_H_

#include "connector/host/DatabaseService.h"
#include "connector/host/EntityServices.h"
#include "standalone/services/EntityRows.h"

namespace standalone {

// Warehouses: the table Warehouse, keyed by the back office's WarehouseKey.
class SqliteWarehouseService : public host::WarehouseService {
 public:
  explicit SqliteWarehouseService(host::DatabaseService& db) : db_(db), writer_(db) {}
  // The greatest id plus 1; 1 for none. Raises 6 (overflow) past 32767.
  int16_t NextID() override;
  // By key, the empty key is a key like another: the factory's warehouse 1
  // has it.
  bool Exists(int16_t warehouse_id, std::string_view warehouse_key) override;
  // Under `warehouse_id`; the warehouse's own WarehouseID is not read.
  void Save(const host::Warehouse& warehouse, int16_t warehouse_id, bool is_new) override;
  std::shared_ptr<host::Warehouse> Load(int16_t warehouse_id) override;
  std::vector<int16_t> GetWarehouses() override;
  // The row of no colour, size or lot (ColorID 0, SizeID 0, LotID ''), in
  // one statement; nothing for a warehouse that does not exist.
  void InsertItemsInStock(int16_t warehouse_id) override;

 private:
  host::DatabaseService& db_;
  EntityWriter writer_;
};

}  // namespace standalone

#endif  // LUMARO_STANDALONE_SERVICES_SQLITE_WAREHOUSE_SERVICE_H_
