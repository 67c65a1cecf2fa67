#include "standalone/services/SqliteWarehouseService.h"

#include "connector/host/Conversions.h"
#include "standalone/services/EntityColumns.h"

namespace standalone {
namespace {

using host::Warehouse;

// The Warehouse row but its id.
const EntityColumns<Warehouse> kWarehouseColumns = {
    {"WarehouseKey", &Warehouse::WarehouseKey}, {"Description", &Warehouse::Description},
    {"AddressLine1", &Warehouse::AddressLine1}, {"AddressLine2", &Warehouse::AddressLine2},
    {"PostalCode", &Warehouse::PostalCode},     {"CountryID", &Warehouse::CountryID},
};

}  // namespace

int16_t SqliteWarehouseService::NextID() {
  // Past 32767 it overflows, as a 16-bit id does.
  return host::CInt(host::Variant(NextId(db_, "Warehouse", "WarehouseID")));
}

bool SqliteWarehouseService::Exists(int16_t warehouse_id, std::string_view warehouse_key) {
  if (warehouse_id != 0) return RowExists(db_, "Warehouse", "WarehouseID", warehouse_id);
  return !db_.Query("SELECT WarehouseID FROM Warehouse WHERE WarehouseKey=?",
                    {host::SqlValue::Text(warehouse_key)})
              ->Eof();
}

void SqliteWarehouseService::Save(const Warehouse& warehouse, int16_t warehouse_id, bool is_new) {
  SaveRow(writer_, "Warehouse", kWarehouseColumns, warehouse, "WarehouseID", warehouse_id, is_new);
}

}  // namespace standalone
