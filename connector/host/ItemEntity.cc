#include "connector/host/ItemEntity.h"

#include "connector/host/Conversions.h"
#include "connector/host/FieldConverter.h"
#include "connector/host/Text.h"

namespace host {

ItemSellingPrice* ItemSellingPrices::Find(double price_line_id, double color_id,
                                          std::string_view lot_id) {
  for (ItemSellingPrice& row : rows) {
    if (row.PriceLineID == price_line_id && row.ColorID == color_id && row.LotID == lot_id) {
      return &row;
    }
  }
  return nullptr;
}

bool ItemBarcodes::Exists(std::string_view barcode, std::string_view unit) const {
  for (const ItemBarcode& row : rows) {
    if (row.Barcode == barcode && row.UnitOfMeasureID == unit) return true;
  }
  return false;
}

void ItemBarcodes::Remove(std::string_view barcode, std::string_view unit) {
  for (auto it = rows.begin(); it != rows.end(); ++it) {
    if (it->Barcode == barcode && it->UnitOfMeasureID == unit) {
      rows.erase(it);
      return;
    }
  }
}

void ItemComponent::MakeLookup() {
  if (ComponentItemID.empty()) {
    ComponentLookup = ComponentDescription + "|" + ComponentShortDescription;
    return;
  }
  ComponentLookup = UCase(NumberText(ComponentOrder) + "|" + ComponentItemID + "|" +
                          NumberText(ComponentColorID) + "|" + NumberText(ComponentSizeID) + "|" +
                          ComponentDescription + "|" + ComponentShortDescription);
}

bool ItemAlternatives::Exists(std::string_view item_id) const {
  for (const AlternativeItem& row : rows) {
    if (row.AlternativeItemID == item_id) return true;
  }
  return false;
}

void Item::PriceLines(Recordset& price_lines) {
  for (; !price_lines.Eof(); price_lines.MoveNext()) {
    double line = FieldConverter::ToNumber(price_lines.Fields("PriceLineID"));
    if (SellingPrices.Find(line) != nullptr) continue;
    ItemSellingPrice row;
    row.PriceLineID = line;
    SellingPrices.Add(std::move(row));
  }
}

bool Item::HasProperties() const {
  return !PropertyID1.empty() || !PropertyID2.empty() || !PropertyID3.empty();
}

}  // namespace host
