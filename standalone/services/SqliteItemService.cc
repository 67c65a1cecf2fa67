#include "standalone/services/SqliteItemService.h"

#include "connector/host/FieldConverter.h"

namespace standalone {
namespace {

using host::FieldConverter;
using host::Item;

// The columns of the Item row, each with the member that holds it; reading
// and writing an item go through these one list.
struct TextColumn {
  const char* name;
  std::string Item::*member;
};
struct NumberColumn {
  const char* name;
  double Item::*member;
};
struct SmallColumn {
  const char* name;
  int16_t Item::*member;
};
struct LongColumn {
  const char* name;
  int32_t Item::*member;
};
struct TruthColumn {
  const char* name;
  bool Item::*member;
};

constexpr TextColumn kTextColumns[] = {
    {"ItemKey", &Item::ItemKey},
    {"ShortDescription", &Item::ShortDescription},
    {"Description", &Item::Description},
    {"BaseUnitOfMeasureID", &Item::BaseUnitOfMeasureID},
    {"SaleUnitOfMeasureID", &Item::SaleUnitOfMeasureID},
    {"AltUnitOfMeasureID1", &Item::AltUnitOfMeasureID1},
    {"AltUnitOfMeasureID2", &Item::AltUnitOfMeasureID2},
    {"AltUnitOfMeasureID3", &Item::AltUnitOfMeasureID3},
    {"CurrencyID", &Item::CurrencyID},
    {"PropertyID1", &Item::PropertyID1},
    {"PropertyID2", &Item::PropertyID2},
    {"PropertyID3", &Item::PropertyID3},
    {"ImageFile", &Item::ImageFile},
    {"Barcode", &Item::Barcode},
};
constexpr NumberColumn kNumberColumns[] = {
    {"SupplierID", &Item::SupplierID},         {"SaleUnitFactor", &Item::SaleUnitFactor},
    {"AltUnitFactor", &Item::AltUnitFactor},   {"CurrencyExchange", &Item::CurrencyExchange},
    {"CurrencyFactor", &Item::CurrencyFactor},
};
constexpr SmallColumn kSmallColumns[] = {
    {"ItemType", &Item::ItemType},
    {"ComponentsKind", &Item::ComponentsKind},
    {"TaxableGroupID", &Item::TaxableGroupID},
    {"PropertyRule1", &Item::PropertyRule1},
    {"PropertyRule2", &Item::PropertyRule2},
    {"PropertyRule4", &Item::PropertyRule4},
    {"PropertyRule5", &Item::PropertyRule5},
    {"PropertyRule6", &Item::PropertyRule6},
};
constexpr LongColumn kLongColumns[] = {
    {"AuxiliaryCode1", &Item::AuxiliaryCode1},
    {"AuxiliaryCode2", &Item::AuxiliaryCode2},
    {"AuxiliaryCode3", &Item::AuxiliaryCode3},
    {"AuxiliaryCode4", &Item::AuxiliaryCode4},
};
constexpr TruthColumn kTruthColumns[] = {
    {"IsComposed", &Item::IsComposed},       {"ControlsStock", &Item::ControlsStock},
    {"PropertyRule3", &Item::PropertyRule3}, {"UseImageInSale", &Item::UseImageInSale},
    {"UsesScale", &Item::UsesScale},
};

int16_t Small(const host::Variant& value) {
  return static_cast<int16_t>(FieldConverter::ToNumber(value));
}

host::SqlStatement RowOf(const char* table, std::string_view item_id) {
  host::SqlStatement statement;
  statement.SetTable(table);
  statement.Text("ItemID", item_id);
  return statement;
}

}  // namespace

host::RecordsetPtr SqliteItemService::RowsOf(const char* table, std::string_view item_id,
                                             const char* order_by) {
  return db_.OpenRecordset("SELECT * FROM " + std::string(table) + " WHERE ItemID='" +
                           db_.SqlFormat().QuoteText(item_id) + "'" +
                           (order_by ? std::string(" ORDER BY ") + order_by : ""));
}

std::string SqliteItemService::GetKey(std::string_view item_id) {
  std::string id(item_id);
  auto it = keys_.find(id);
  if (it != keys_.end()) return it->second;
  auto rs = RowsOf("Item", item_id);
  std::string key = rs->Eof() ? "" : FieldConverter::ToText(rs->Fields("ItemKey"));
  keys_.emplace(std::move(id), key);
  return key;
}

std::string SqliteItemService::GetItemIDFromKey(std::string_view item_key) {
  if (item_key.empty()) return "";
  auto rs = db_.OpenRecordset("SELECT TOP 1 ItemID FROM Item WHERE ItemKey='" +
                              db_.SqlFormat().QuoteText(item_key) + "' ORDER BY ItemID");
  return rs->Eof() ? "" : FieldConverter::ToText(rs->Fields(0));
}

bool SqliteItemService::Exists(std::string_view item_id) {
  return !db_.OpenRecordset("SELECT ItemID FROM Item WHERE ItemID='" +
                            db_.SqlFormat().QuoteText(item_id) + "'")
              ->Eof();
}

bool SqliteItemService::HasComponents(std::string_view item_id) {
  return !db_.OpenRecordset("SELECT TOP 1 ItemID FROM ItemComponents WHERE ItemID='" +
                            db_.SqlFormat().QuoteText(item_id) + "'")
              ->Eof();
}

std::shared_ptr<host::Item> SqliteItemService::Get(std::string_view item_id) {
  auto rs = RowsOf("Item", item_id);
  if (rs->Eof()) return nullptr;
  auto item = std::make_shared<Item>();
  item->ItemID = FieldConverter::ToText(rs->Fields("ItemID"));
  for (const auto& c : kTextColumns)
    item.get()->*c.member = FieldConverter::ToText(rs->Fields(c.name));
  for (const auto& c : kNumberColumns) {
    item.get()->*c.member = FieldConverter::ToNumber(rs->Fields(c.name));
  }
  for (const auto& c : kSmallColumns) item.get()->*c.member = Small(rs->Fields(c.name));
  for (const auto& c : kLongColumns) {
    item.get()->*c.member = static_cast<int32_t>(FieldConverter::ToNumber(rs->Fields(c.name)));
  }
  for (const auto& c : kTruthColumns) {
    item.get()->*c.member = FieldConverter::ToBoolean(rs->Fields(c.name));
  }
  item->Family.FamilyID = FieldConverter::ToNumber(rs->Fields("FamilyID"));
  item->ItemDate = DateOrNull(rs->Fields("ItemDate"));
  LoadCollections(*item);
  return item;
}

void SqliteItemService::LoadCollections(Item& item) {
  for (auto rs = RowsOf("ItemSellingPrices", item.ItemID, "PriceLineID, ColorID, SizeID, LotID");
       !rs->Eof(); rs->MoveNext()) {
    host::ItemSellingPrice price;
    price.PriceLineID = FieldConverter::ToNumber(rs->Fields("PriceLineID"));
    price.ColorID = FieldConverter::ToNumber(rs->Fields("ColorID"));
    price.SizeID = FieldConverter::ToNumber(rs->Fields("SizeID"));
    price.LotID = FieldConverter::ToText(rs->Fields("LotID"));
    price.PriceWithoutTax = FieldConverter::ToNumber(rs->Fields("PriceWithoutTax"));
    price.PriceWithTax = FieldConverter::ToNumber(rs->Fields("PriceWithTax"));
    price.PriceDate = DateOrNull(rs->Fields("PriceDate"));
    price.PriceStatus = Small(rs->Fields("PriceStatus"));
    item.SellingPrices.Add(std::move(price));
  }
  // An item has a price on every line of the host, also on a line made after it.
  if (!price_lines_read_) {
    for (auto rs = db_.OpenRecordset("SELECT PriceLineID FROM PriceLine ORDER BY PriceLineID");
         !rs->Eof(); rs->MoveNext()) {
      price_lines_.push_back(FieldConverter::ToNumber(rs->Fields(0)));
    }
    price_lines_read_ = true;
  }
  for (double line : price_lines_) {
    if (item.SellingPrices.Find(line) != nullptr) continue;
    host::ItemSellingPrice price;
    price.PriceLineID = line;
    item.SellingPrices.Add(std::move(price));
  }
  for (auto rs = RowsOf("ItemSupplier", item.ItemID, "SupplierID"); !rs->Eof(); rs->MoveNext()) {
    host::ItemSupplier supplier;
    supplier.SupplierID = FieldConverter::ToNumber(rs->Fields("SupplierID"));
    supplier.SupplierItemRef = FieldConverter::ToText(rs->Fields("SupplierItemRef"));
    supplier.SupplierRefStatus = Small(rs->Fields("SupplierRefStatus"));
    supplier.LastCostPrice = FieldConverter::ToNumber(rs->Fields("LastCostPrice"));
    supplier.LastCostPriceWithTax = FieldConverter::ToNumber(rs->Fields("LastCostPriceWithTax"));
    supplier.Discount1 = FieldConverter::ToNumber(rs->Fields("Discount1"));
    supplier.Discount2 = FieldConverter::ToNumber(rs->Fields("Discount2"));
    supplier.Discount3 = FieldConverter::ToNumber(rs->Fields("Discount3"));
    supplier.LastCostDate = DateOrNull(rs->Fields("LastCostDate"));
    supplier.CurrencyID = FieldConverter::ToText(rs->Fields("CurrencyID"));
    supplier.CurrencyFactor = FieldConverter::ToNumber(rs->Fields("CurrencyFactor"));
    supplier.CurrencyExchange = FieldConverter::ToNumber(rs->Fields("CurrencyExchange"));
    item.Suppliers.push_back(std::move(supplier));
  }
  for (auto rs = RowsOf("POSIdentity", item.ItemID, "rowid"); !rs->Eof(); rs->MoveNext()) {
    host::ItemBarcode barcode;
    barcode.Barcode = FieldConverter::ToText(rs->Fields("Barcode"));
    barcode.UnitOfMeasureID = FieldConverter::ToText(rs->Fields("UnitOfMeasureID"));
    barcode.Quantity = FieldConverter::ToNumber(rs->Fields("Quantity"));
    barcode.CurrencyID = FieldConverter::ToText(rs->Fields("CurrencyID"));
    barcode.CurrencyFactor = FieldConverter::ToNumber(rs->Fields("CurrencyFactor"));
    barcode.CurrencyExchange = FieldConverter::ToNumber(rs->Fields("CurrencyExchange"));
    item.Barcodes.Add(std::move(barcode));
  }
  for (auto rs = RowsOf("ItemComponents", item.ItemID, "ComponentOrder"); !rs->Eof();
       rs->MoveNext()) {
    host::ItemComponent component;
    component.ComponentItemID = FieldConverter::ToText(rs->Fields("ComponentItemID"));
    component.ComponentKey = FieldConverter::ToText(rs->Fields("ComponentKey"));
    component.ComponentColorID = FieldConverter::ToNumber(rs->Fields("ComponentColorID"));
    component.ComponentSizeID = FieldConverter::ToNumber(rs->Fields("ComponentSizeID"));
    component.ComponentQuantity = FieldConverter::ToNumber(rs->Fields("ComponentQuantity"));
    component.ComponentOrder = Small(rs->Fields("ComponentOrder"));
    component.ComponentLookup = FieldConverter::ToText(rs->Fields("ComponentLookup"));
    item.Components.Add(std::move(component));
  }
  for (auto rs = RowsOf("AlternativeItem", item.ItemID, "AlternativeOrder"); !rs->Eof();
       rs->MoveNext()) {
    item.Alternatives.Add({Small(rs->Fields("AlternativeOrder")),
                           FieldConverter::ToText(rs->Fields("AlternativeItemID"))});
  }
  for (auto rs = RowsOf("ItemPropertytable", item.ItemID); !rs->Eof(); rs->MoveNext()) {
    item.PropertyTable.push_back({FieldConverter::ToText(rs->Fields("PropertyValue1")),
                                  FieldConverter::ToText(rs->Fields("PropertyValue2")),
                                  FieldConverter::ToText(rs->Fields("PropertyValue3"))});
  }
}

void SqliteItemService::Save(const Item& item) {
  bool exists = Exists(item.ItemID);
  writer_.Atomically([&] {
    WriteItemRow(item, exists);
    WriteSellingPrices(item.SellingPrices, item.ItemID);
    WriteCollections(item);
  });
  keys_[item.ItemID] = item.ItemKey;
}

void SqliteItemService::SaveSellingPrices(const host::ItemSellingPrices& prices,
                                          std::string_view item_id) {
  writer_.Atomically([&] { WriteSellingPrices(prices, item_id); });
}

void SqliteItemService::WriteItemRow(const Item& item, bool exists) {
  host::SqlStatement row;
  row.SetTable("Item");
  for (const auto& c : kTextColumns) row.Text(c.name, item.*c.member);
  for (const auto& c : kNumberColumns) row.Number(c.name, item.*c.member);
  for (const auto& c : kSmallColumns) row.Number(c.name, item.*c.member);
  for (const auto& c : kLongColumns) row.Number(c.name, item.*c.member);
  for (const auto& c : kTruthColumns) row.Boolean(c.name, item.*c.member);
  row.Number("FamilyID", item.Family.FamilyID);
  SetDate(row, "ItemDate", item.ItemDate);
  if (exists) {
    row.KeyText("ItemID", item.ItemID);
    writer_.Update(row);
  } else {
    row.Text("ItemID", item.ItemID);
    writer_.Insert(row);
  }
}

void SqliteItemService::DeleteRows(const char* table, std::string_view item_id) {
  host::SqlStatement statement;
  statement.SetTable(table);
  statement.KeyText("ItemID", item_id);
  writer_.Delete(statement);
}

void SqliteItemService::WriteSellingPrices(const host::ItemSellingPrices& prices,
                                           std::string_view item_id) {
  DeleteRows("ItemSellingPrices", item_id);
  for (const host::ItemSellingPrice& price : prices.rows) {
    host::SqlStatement row = RowOf("ItemSellingPrices", item_id);
    row.Number("PriceLineID", price.PriceLineID);
    row.Number("ColorID", price.ColorID);
    row.Number("SizeID", price.SizeID);
    row.Text("LotID", price.LotID);
    row.Number("PriceWithoutTax", price.PriceWithoutTax);
    row.Number("PriceWithTax", price.PriceWithTax);
    SetDate(row, "PriceDate", price.PriceDate);
    row.Number("PriceStatus", price.PriceStatus);
    writer_.Insert(row);
  }
}

void SqliteItemService::WriteCollections(const Item& item) {
  DeleteRows("ItemSupplier", item.ItemID);
  for (const host::ItemSupplier& supplier : item.Suppliers) {
    host::SqlStatement row = RowOf("ItemSupplier", item.ItemID);
    row.Number("SupplierID", supplier.SupplierID);
    row.Text("SupplierItemRef", supplier.SupplierItemRef);
    row.Number("SupplierRefStatus", supplier.SupplierRefStatus);
    row.Number("LastCostPrice", supplier.LastCostPrice);
    row.Number("LastCostPriceWithTax", supplier.LastCostPriceWithTax);
    row.Number("Discount1", supplier.Discount1);
    row.Number("Discount2", supplier.Discount2);
    row.Number("Discount3", supplier.Discount3);
    SetDate(row, "LastCostDate", supplier.LastCostDate);
    row.Text("CurrencyID", supplier.CurrencyID);
    row.Number("CurrencyFactor", supplier.CurrencyFactor);
    row.Number("CurrencyExchange", supplier.CurrencyExchange);
    writer_.Insert(row);
  }
  DeleteRows("POSIdentity", item.ItemID);
  for (const host::ItemBarcode& barcode : item.Barcodes.rows) {
    host::SqlStatement row = RowOf("POSIdentity", item.ItemID);
    row.Text("Barcode", barcode.Barcode);
    row.Text("UnitOfMeasureID", barcode.UnitOfMeasureID);
    row.Number("Quantity", barcode.Quantity);
    row.Text("CurrencyID", barcode.CurrencyID);
    row.Number("CurrencyFactor", barcode.CurrencyFactor);
    row.Number("CurrencyExchange", barcode.CurrencyExchange);
    writer_.Insert(row);
  }
  DeleteRows("ItemComponents", item.ItemID);
  for (const host::ItemComponent& component : item.Components.rows) {
    host::SqlStatement row = RowOf("ItemComponents", item.ItemID);
    row.Number("ComponentOrder", component.ComponentOrder);
    row.Text("ComponentItemID", component.ComponentItemID);
    row.Text("ComponentKey", component.ComponentKey);
    row.Number("ComponentColorID", component.ComponentColorID);
    row.Number("ComponentSizeID", component.ComponentSizeID);
    row.Number("ComponentQuantity", component.ComponentQuantity);
    row.Text("ComponentLookup", component.ComponentLookup);
    writer_.Insert(row);
  }
  DeleteRows("AlternativeItem", item.ItemID);
  for (const host::AlternativeItem& alternative : item.Alternatives.rows) {
    host::SqlStatement row = RowOf("AlternativeItem", item.ItemID);
    row.Number("AlternativeOrder", alternative.AlternativeOrder);
    row.Text("AlternativeItemID", alternative.AlternativeItemID);
    writer_.Insert(row);
  }
  DeleteRows("ItemPropertytable", item.ItemID);
  for (const host::ItemPropertyValue& value : item.PropertyTable) {
    host::SqlStatement row = RowOf("ItemPropertytable", item.ItemID);
    row.Text("PropertyValue1", value.PropertyValue1);
    row.Text("PropertyValue2", value.PropertyValue2);
    row.Text("PropertyValue3", value.PropertyValue3);
    writer_.Insert(row);
  }
}

}  // namespace standalone
