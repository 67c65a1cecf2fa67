#include "standalone/services/SqliteCommercialServices.h"

#include "connector/host/FieldConverter.h"
#include "standalone/services/EntityColumns.h"

namespace standalone {
namespace {

using host::Carrier;
using host::FieldConverter;
using host::LoadUnloadPlace;
using host::PriceLine;
using host::UnitOfMeasure;

// The Carrier row but its id.
const EntityColumns<Carrier> kCarrierColumns = {
    {"CarrierKey", &Carrier::CarrierKey},         {"Description", &Carrier::CarrierName},
    {"CurrencyID", &Carrier::CurrencyID},         {"CurrencyExchange", &Carrier::CurrencyExchange},
    {"CurrencyFactor", &Carrier::CurrencyFactor}, {"CurrentKm", &Carrier::CurrentKm},
};

// The PriceLine row but its id.
const EntityColumns<PriceLine> kPriceLineColumns = {
    {"PriceLineKey", &PriceLine::PriceLineKey},
    {"ShortName", &PriceLine::ShortName},
    {"Description", &PriceLine::Description},
    {"LanguageID", &PriceLine::LanguageID},
};

// The LoadUnloadPlace row but its id.
const EntityColumns<LoadUnloadPlace> kPlaceColumns = {
    {"Description", &LoadUnloadPlace::Description},
};

// The UnitOfMeasure row but its id.
const EntityColumns<UnitOfMeasure> kUnitColumns = {
    {"Description", &UnitOfMeasure::Description},
    {"LanguageID", &UnitOfMeasure::LanguageID},
    {"BaseUnitOfMeasureID", &UnitOfMeasure::BaseUnitOfMeasureID},
    {"UnitRatio", &UnitOfMeasure::UnitRatio},
    {"UnitFormula", &UnitOfMeasure::UnitFormula},
};

}  // namespace

std::shared_ptr<Carrier> SqliteCarrierService::Get(double carrier_id) {
  auto rs =
      db_.Query("SELECT * FROM Carrier WHERE CarrierID=?", {host::SqlValue::Number(carrier_id)});
  if (rs->Eof()) return nullptr;
  auto carrier = std::make_shared<Carrier>();
  carrier->CarrierID = FieldConverter::ToNumber(rs->Fields("CarrierID"));
  kCarrierColumns.Read(*rs, *carrier);
  return carrier;
}

double SqliteCarrierService::GetIDFromKey(std::string_view carrier_key) {
  return IdFromKey(db_, "Carrier", "CarrierID", "CarrierKey", carrier_key);
}

double SqliteCarrierService::GetFirstID() { return FirstId(db_, "Carrier", "CarrierID"); }

void SqliteCarrierService::Save(const Carrier& carrier, bool is_new) {
  SaveRow(writer_, "Carrier", kCarrierColumns, carrier, "CarrierID", carrier.CarrierID, is_new);
}

std::string SqlitePriceLineService::GetKey(double price_line_id) {
  auto it = keys_.find(price_line_id);
  if (it != keys_.end()) return it->second;
  auto rs = db_.Query("SELECT PriceLineKey FROM PriceLine WHERE PriceLineID=?",
                      {host::SqlValue::Number(price_line_id)});
  std::string key = rs->Eof() ? "" : FieldConverter::ToText(rs->Fields(0));
  keys_.emplace(price_line_id, key);
  return key;
}

double SqlitePriceLineService::GetID(std::string_view price_line_key) {
  return IdFromKey(db_, "PriceLine", "PriceLineID", "PriceLineKey", price_line_key);
}

double SqlitePriceLineService::GetFirstID() {
  return FirstId(db_, "PriceLine", "PriceLineID", "PriceLineID>0");
}

host::RecordsetPtr SqlitePriceLineService::GetPriceLines() {
  return db_.OpenRecordset("SELECT * FROM PriceLine ORDER BY PriceLineID");
}

double SqlitePriceLineService::NextID() { return NextId(db_, "PriceLine", "PriceLineID"); }

void SqlitePriceLineService::Save(const PriceLine& line, bool is_new) {
  // Read again at the next GetKey: the caller's transaction may yet undo
  // the save.
  keys_.erase(line.PriceLineID);
  SaveRow(writer_, "PriceLine", kPriceLineColumns, line, "PriceLineID", line.PriceLineID, is_new);
}

bool SqliteLoadUnloadPlaceService::Exists(double place_id) {
  return RowExists(db_, "LoadUnloadPlace", "LoadUnloadPlaceID", place_id);
}

void SqliteLoadUnloadPlaceService::Save(const LoadUnloadPlace& place, bool is_new) {
  SaveRow(writer_, "LoadUnloadPlace", kPlaceColumns, place, "LoadUnloadPlaceID",
          place.LoadUnloadPlaceID, is_new);
}

bool SqliteUnitOfMeasureService::Exists(std::string_view unit_id) {
  return !db_.Query("SELECT UnitOfMeasureID FROM UnitOfMeasure WHERE UnitOfMeasureID=?",
                    {host::SqlValue::Text(unit_id)})
              ->Eof();
}

void SqliteUnitOfMeasureService::Save(const UnitOfMeasure& unit) {
  host::SqlStatement row;
  row.SetTable("UnitOfMeasure");
  kUnitColumns.Write(unit, row);
  if (Exists(unit.UnitOfMeasureID)) {
    row.KeyText("UnitOfMeasureID", unit.UnitOfMeasureID);
    writer_.Update(std::move(row));
  } else {
    row.Text("UnitOfMeasureID", unit.UnitOfMeasureID);
    writer_.Insert(std::move(row));
  }
}

}  // namespace standalone
