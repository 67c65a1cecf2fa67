#include "standalone/services/SqliteWarehouseService.h"

#include "connector/host/Conversions.h"
#include "connector/host/FieldConverter.h"
#include "standalone/services/EntityColumns.h"

namespace standalone {
namespace {

using host::FieldConverter;
using host::SqlValue;
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

std::shared_ptr<Warehouse> SqliteWarehouseService::Load(int16_t warehouse_id) {
  auto rs =
      db_.Query("SELECT * FROM Warehouse WHERE WarehouseID=?", {SqlValue::Number(warehouse_id)});
  if (rs->Eof()) return nullptr;
  auto warehouse = std::make_shared<Warehouse>();
  warehouse->WarehouseID =
      static_cast<int16_t>(FieldConverter::ToNumber(rs->Fields("WarehouseID")));
  kWarehouseColumns.Read(*rs, *warehouse);
  return warehouse;
}

std::vector<int16_t> SqliteWarehouseService::GetWarehouses() {
  std::vector<int16_t> ids;
  for (auto rs = db_.OpenRecordset("SELECT WarehouseID FROM Warehouse ORDER BY WarehouseID");
       !rs->Eof(); rs->MoveNext()) {
    ids.push_back(static_cast<int16_t>(FieldConverter::ToNumber(rs->Fields(0))));
  }
  return ids;
}

void SqliteWarehouseService::InsertItemsInStock(int16_t warehouse_id) {
  const SqlValue id = SqlValue::Number(warehouse_id);
  db_.Query(
      "INSERT INTO Stock (ItemID, WarehouseID, ColorID, SizeID, LotID) "
      "SELECT ItemID, ?, 0, 0, '' FROM Item WHERE ControlsStock<>0 "
      "AND EXISTS (SELECT 1 FROM Warehouse WHERE WarehouseID=?) "
      "AND NOT EXISTS (SELECT 1 FROM Stock WHERE Stock.ItemID=Item.ItemID AND "
      "Stock.WarehouseID=? AND Stock.ColorID=0 AND Stock.SizeID=0 AND Stock.LotID='')",
      {id, id, id});
}

}  // namespace standalone
