#include "standalone/services/SqliteItemService.h"

#include <algorithm>
#include <bit>
#include <functional>
#include <iterator>

#include "connector/host/FieldConverter.h"
#include "standalone/services/EntityColumns.h"

namespace standalone {
namespace {

using host::FieldConverter;
using host::Item;

// The Item row but its key and its family (a member of a member).
const EntityColumns<Item> kItemColumns = {
    {"ItemKey", &Item::ItemKey},
    {"ShortDescription", &Item::ShortDescription},
    {"Description", &Item::Description},
    {"ItemType", &Item::ItemType},
    {"IsComposed", &Item::IsComposed},
    {"ComponentsKind", &Item::ComponentsKind},
    {"SupplierID", &Item::SupplierID},
    {"TaxableGroupID", &Item::TaxableGroupID},
    {"BaseUnitOfMeasureID", &Item::BaseUnitOfMeasureID},
    {"SaleUnitOfMeasureID", &Item::SaleUnitOfMeasureID},
    {"SaleUnitFactor", &Item::SaleUnitFactor},
    {"AltUnitOfMeasureID1", &Item::AltUnitOfMeasureID1},
    {"AltUnitOfMeasureID2", &Item::AltUnitOfMeasureID2},
    {"AltUnitOfMeasureID3", &Item::AltUnitOfMeasureID3},
    {"AltUnitFactor", &Item::AltUnitFactor},
    {"AuxiliaryCode1", &Item::AuxiliaryCode1},
    {"AuxiliaryCode2", &Item::AuxiliaryCode2},
    {"AuxiliaryCode3", &Item::AuxiliaryCode3},
    {"AuxiliaryCode4", &Item::AuxiliaryCode4},
    {"CurrencyID", &Item::CurrencyID},
    {"CurrencyExchange", &Item::CurrencyExchange},
    {"CurrencyFactor", &Item::CurrencyFactor},
    {"ControlsStock", &Item::ControlsStock},
    {"PropertyID1", &Item::PropertyID1},
    {"PropertyID2", &Item::PropertyID2},
    {"PropertyID3", &Item::PropertyID3},
    {"PropertyRule1", &Item::PropertyRule1},
    {"PropertyRule2", &Item::PropertyRule2},
    {"PropertyRule3", &Item::PropertyRule3},
    {"PropertyRule4", &Item::PropertyRule4},
    {"PropertyRule5", &Item::PropertyRule5},
    {"PropertyRule6", &Item::PropertyRule6},
    {"UseImageInSale", &Item::UseImageInSale},
    {"ImageFile", &Item::ImageFile},
    {"UsesScale", &Item::UsesScale},
    {"ItemDate", &Item::ItemDate},
    {"Barcode", &Item::Barcode},
};

using host::ItemSellingPrice;
// The first four columns are the key of a price among an item's prices.
const EntityColumns<ItemSellingPrice> kPriceColumns(
    {
        {"PriceLineID", &ItemSellingPrice::PriceLineID},
        {"ColorID", &ItemSellingPrice::ColorID},
        {"SizeID", &ItemSellingPrice::SizeID},
        {"LotID", &ItemSellingPrice::LotID},
        {"PriceWithoutTax", &ItemSellingPrice::PriceWithoutTax},
        {"PriceWithTax", &ItemSellingPrice::PriceWithTax},
        {"PriceDate", &ItemSellingPrice::PriceDate},
        {"PriceStatus", &ItemSellingPrice::PriceStatus},
    },
    4);

using host::ItemSupplier;
const EntityColumns<ItemSupplier> kSupplierColumns = {
    {"SupplierID", &ItemSupplier::SupplierID},
    {"SupplierItemRef", &ItemSupplier::SupplierItemRef},
    {"SupplierRefStatus", &ItemSupplier::SupplierRefStatus},
    {"LastCostPrice", &ItemSupplier::LastCostPrice},
    {"LastCostPriceWithTax", &ItemSupplier::LastCostPriceWithTax},
    {"Discount1", &ItemSupplier::Discount1},
    {"Discount2", &ItemSupplier::Discount2},
    {"Discount3", &ItemSupplier::Discount3},
    {"LastCostDate", &ItemSupplier::LastCostDate},
    {"CurrencyID", &ItemSupplier::CurrencyID},
    {"CurrencyFactor", &ItemSupplier::CurrencyFactor},
    {"CurrencyExchange", &ItemSupplier::CurrencyExchange},
};

using host::ItemBarcode;
const EntityColumns<ItemBarcode> kBarcodeColumns = {
    {"Barcode", &ItemBarcode::Barcode},
    {"UnitOfMeasureID", &ItemBarcode::UnitOfMeasureID},
    {"Quantity", &ItemBarcode::Quantity},
    {"CurrencyID", &ItemBarcode::CurrencyID},
    {"CurrencyFactor", &ItemBarcode::CurrencyFactor},
    {"CurrencyExchange", &ItemBarcode::CurrencyExchange},
};

using host::ItemComponent;
const EntityColumns<ItemComponent> kComponentColumns = {
    {"ComponentOrder", &ItemComponent::ComponentOrder},
    {"ComponentItemID", &ItemComponent::ComponentItemID},
    {"ComponentKey", &ItemComponent::ComponentKey},
    {"ComponentColorID", &ItemComponent::ComponentColorID},
    {"ComponentSizeID", &ItemComponent::ComponentSizeID},
    {"ComponentQuantity", &ItemComponent::ComponentQuantity},
    {"ComponentLookup", &ItemComponent::ComponentLookup},
};

using host::AlternativeItem;
const EntityColumns<AlternativeItem> kAlternativeColumns = {
    {"AlternativeOrder", &AlternativeItem::AlternativeOrder},
    {"AlternativeItemID", &AlternativeItem::AlternativeItemID},
};

using host::ItemPropertyValue;
const EntityColumns<ItemPropertyValue> kPropertyValueColumns = {
    {"PropertyValue1", &ItemPropertyValue::PropertyValue1},
    {"PropertyValue2", &ItemPropertyValue::PropertyValue2},
    {"PropertyValue3", &ItemPropertyValue::PropertyValue3},
};

// The tables of an item's collections, in the order of Collection.
constexpr const char* kCollectionTables[] = {"ItemSellingPrices", "ItemSupplier",
                                             "POSIdentity",       "ItemComponents",
                                             "AlternativeItem",   "ItemPropertytable"};

// ", EXISTS(...)" for each collection `asked`, in their order: whether the
// item whose id `item_id` gives ("?", or a column) has rows in it.
std::string CollectionFlags(unsigned asked, const std::string& item_id) {
  std::string flags;
  for (size_t i = 0; i < std::size(kCollectionTables); ++i) {
    if (asked & (1u << i)) {
      flags += ", EXISTS(SELECT 1 FROM " + std::string(kCollectionTables[i]) +
               " AS C WHERE C.ItemID=" + item_id + ")";
    }
  }
  return flags;
}

}  // namespace

SqliteItemService::Filled SqliteItemService::CollectionsWithRows(std::string_view item_id) {
  const Counters counters = CountersNow();
  const Mask asked = CollectionsToAsk(counters);
  std::string& sql = exists_sql_[asked];
  if (sql.empty())
    sql = "SELECT EXISTS(SELECT 1 FROM Item WHERE ItemID=?)" + CollectionFlags(asked, "?");
  Filled filled;
  db_.QueryEach(
      sql, std::vector<host::SqlValue>(std::popcount(asked) + 1, host::SqlValue::Text(item_id)),
      [&](const host::RowReader& row) {
        filled.item = row.Truth(0);
        ReadFlags(row, 1, asked, filled);
      });
  return filled;
}

SqliteItemService::Mask SqliteItemService::CollectionsToAsk(const Counters& counters) {
  Mask asked = 0;
  for (int i = 0; i < kCollectionCount; ++i) {
    TableState& state = tables_[i];
    const std::optional<int64_t>& counter = counters[i + 1];
    // Asking is always right; leaving a table out needs it known empty now.
    // Without a counter nothing is known, and a table seen with rows is
    // asked about from then on, without looking again.
    if (counter && !state.had_rows && state.empty_at != counter) {
      if (db_.Query("SELECT TOP 1 ItemID FROM " + std::string(kCollectionTables[i]), {})->Eof()) {
        state.empty_at = counter;
      } else {
        state.had_rows = true;
      }
    }
    const bool empty = counter && !state.had_rows && state.empty_at == counter;
    if (!empty) asked |= 1u << i;
  }
  return asked;
}

void SqliteItemService::ReadFlags(const host::RowReader& row, int first, Mask asked,
                                  Filled& filled) {
  int position = first;
  for (int i = 0; i < kCollectionCount; ++i) {
    filled.collection[i] = (asked & (1u << i)) && row.Truth(position++);
  }
}

template <typename Row>
std::vector<Row> SqliteItemService::LoadRows(Collection collection, const Filled& filled,
                                             std::string_view item_id, const char* order_by,
                                             const EntityColumns<Row>& columns) {
  std::vector<Row> rows;
  if (!filled.collection[collection]) return rows;
  // Only the columns the rows hold, in a text written once.
  std::string& sql = load_sql_[collection];
  if (sql.empty()) {
    sql = "SELECT " + columns.NameList() + " FROM " + kCollectionTables[collection] +
          " WHERE ItemID=?" + (order_by ? std::string(" ORDER BY ") + order_by : "");
  }
  db_.QueryEach(sql, {host::SqlValue::Text(item_id)},
                [&](const host::RowReader& row) { columns.Read(row, rows.emplace_back()); });
  return rows;
}

template <typename Row>
void SqliteItemService::WriteRows(Collection collection, std::string_view item_id,
                                  const std::vector<Row>& rows, const std::vector<Row>* loaded,
                                  bool has_rows, const EntityColumns<Row>& columns) {
  if (loaded != nullptr && columns.SameRows(rows, *loaded)) return;
  const char* table = kCollectionTables[collection];
  if (loaded != nullptr && RewriteInPlace(table, item_id, rows, *loaded, columns)) return;
  if (loaded != nullptr ? !loaded->empty() : has_rows) {
    host::SqlStatement existing;
    existing.SetTable(table);
    existing.KeyText("ItemID", item_id);
    writer_.Delete(std::move(existing));
  }
  for (const Row& row : rows) {
    host::SqlStatement insert;
    insert.SetTable(table);
    insert.Text("ItemID", item_id);
    columns.Write(row, insert);
    writer_.Insert(std::move(insert));
  }
}

template <typename Row>
bool SqliteItemService::RewriteInPlace(const char* table, std::string_view item_id,
                                       const std::vector<Row>& rows, const std::vector<Row>& loaded,
                                       const EntityColumns<Row>& columns) {
  if (!columns.HasKey() || rows.size() != loaded.size()) return false;
  for (size_t i = 0; i < rows.size(); ++i) {
    if (!columns.SameKey(rows[i], loaded[i])) return false;
  }
  for (size_t i = 0; i < rows.size(); ++i) {
    if (columns.Same(rows[i], loaded[i])) continue;
    host::SqlStatement row;
    row.SetTable(table);
    row.KeyText("ItemID", item_id);
    columns.WriteInPlace(rows[i], row);
    // The defaults are the table's: a refusal comes at the first row, before
    // anything is written, and then the whole collection is replaced.
    if (!writer_.Rewrite(std::move(row))) return false;
  }
  return true;
}

SqliteItemService::Counters SqliteItemService::CountersNow() const {
  Counters counters;
  counters[0] = db_.ChangeCounter("Item");
  for (int i = 0; i < kCollectionCount; ++i) {
    counters[i + 1] = db_.ChangeCounter(kCollectionTables[i]);
  }
  return counters;
}

SqliteItemService::Trusted SqliteItemService::TrustedFor(std::string_view item_id) const {
  Trusted trusted;
  if (!loaded_ || loaded_->item.ItemID != item_id) return trusted;
  const Counters now = CountersNow();
  auto same = [&](size_t i) { return now[i] && now[i] == loaded_->counters[i]; };
  trusted.item = &loaded_->item;
  trusted.row = same(0);
  trusted.all = trusted.row;
  for (int i = 0; i < kCollectionCount; ++i) {
    trusted.collection[i] = same(i + 1);
    trusted.all = trusted.all && trusted.collection[i];
  }
  return trusted;
}

std::string SqliteItemService::GetKey(std::string_view item_id) {
  std::string id(item_id);
  auto it = keys_.find(id);
  if (it != keys_.end()) return it->second;
  auto rs = db_.Query("SELECT ItemKey FROM Item WHERE ItemID=?", {host::SqlValue::Text(item_id)});
  std::string key = rs->Eof() ? "" : FieldConverter::ToText(rs->Fields(0));
  keys_.emplace(std::move(id), key);
  return key;
}

std::string SqliteItemService::GetItemIDFromKey(std::string_view item_key) {
  if (item_key.empty()) return "";
  std::optional<int64_t> counter = db_.ChangeCounter("Item");
  if (std::optional<std::string> id = ids_.Find(counter, item_key)) return *id;
  // The first id of the key, as ORDER BY ItemID would give it: MIN finds it
  // through the key's index alone, where an ORDER BY made SQLite sort in a
  // temporary table at every lookup (ItemID is no rowid).
  auto rs =
      db_.Query("SELECT MIN(ItemID) FROM Item WHERE ItemKey=?", {host::SqlValue::Text(item_key)});
  std::string id = rs->Eof() ? "" : FieldConverter::ToText(rs->Fields(0));
  ids_.Put(counter, std::string(item_key), id);
  return id;
}

bool SqliteItemService::Exists(std::string_view item_id) {
  return !db_.Query("SELECT ItemID FROM Item WHERE ItemID=?", {host::SqlValue::Text(item_id)})
              ->Eof();
}

bool SqliteItemService::HasComponents(std::string_view item_id) {
  return !db_.Query("SELECT TOP 1 ItemID FROM ItemComponents WHERE ItemID=?",
                    {host::SqlValue::Text(item_id)})
              ->Eof();
}

std::shared_ptr<host::Item> SqliteItemService::Get(std::string_view item_id) {
  const Counters counters = CountersNow();
  // The row's columns that the item holds, and after them whether each
  // collection has rows (of a table with rows at all).
  const Mask asked = CollectionsToAsk(counters);
  std::string& sql = get_sql_[asked];
  if (sql.empty()) {
    sql = "SELECT ItemID, FamilyID, " + kItemColumns.NameList() +
          CollectionFlags(asked, "Item.ItemID") + " FROM Item WHERE ItemID=?";
  }
  std::shared_ptr<Item> item;
  Filled filled;
  filled.item = true;
  db_.QueryEach(sql, {host::SqlValue::Text(item_id)}, [&](const host::RowReader& row) {
    if (item) return;  // one row: ItemID is the key
    item = std::make_shared<Item>();
    row.TextInto(0, item->ItemID);  // the columns ItemID and FamilyID come first
    item->Family.FamilyID = row.Number(1);
    kItemColumns.Read(row, *item);
    const int count = static_cast<int>(row.Columns()->size());
    ReadFlags(row, count - std::popcount(asked), asked, filled);
  });
  if (!item) return nullptr;

  item->SellingPrices.rows =
      LoadRows(kPrices, filled, item->ItemID, "PriceLineID, ColorID, SizeID, LotID", kPriceColumns);
  item->Suppliers = LoadRows(kSuppliers, filled, item->ItemID, "SupplierID", kSupplierColumns);
  item->Barcodes.rows = LoadRows(kBarcodes, filled, item->ItemID, "rowid", kBarcodeColumns);
  item->Components.rows =
      LoadRows(kComponents, filled, item->ItemID, "ComponentOrder", kComponentColumns);
  item->Alternatives.rows =
      LoadRows(kAlternatives, filled, item->ItemID, "AlternativeOrder", kAlternativeColumns);
  item->PropertyTable =
      LoadRows(kPropertyTable, filled, item->ItemID, nullptr, kPropertyValueColumns);
  loaded_ = Loaded{*item, counters};
  // An item has a price on every line of the host, also on a line made after
  // it.
  if (!price_lines_read_) {
    for (auto lines = db_.OpenRecordset("SELECT PriceLineID FROM PriceLine ORDER BY PriceLineID");
         !lines->Eof(); lines->MoveNext()) {
      price_lines_.push_back(FieldConverter::ToNumber(lines->Fields(0)));
    }
    price_lines_read_ = true;
  }
  for (double line : price_lines_) {
    if (item->SellingPrices.Find(line) != nullptr) continue;
    host::ItemSellingPrice price;
    price.PriceLineID = line;
    item->SellingPrices.Add(std::move(price));
  }
  return item;
}

void SqliteItemService::Save(const Item& item) {
  const Trusted trusted = TrustedFor(item.ItemID);
  // Short of all rows as read, which rows there are: a collection that has
  // none needs no delete.
  const Filled filled = trusted.all ? Filled{} : CollectionsWithRows(item.ItemID);
  const bool exists = trusted.row || filled.item;
  const std::optional<int64_t> counter_before = db_.ChangeCounter("Item");
  // A save that writes only what changed refuses what a save of every row
  // would refuse: a text too long for its column, wherever it is. With
  // nothing trusted every row is written whole, and the writes check the
  // same texts in the same order.
  if (trusted.row || std::ranges::any_of(trusted.collection, std::identity{})) {
    CheckWhole(item, exists);
  }
  writer_.Atomically([&] {
    const Item* loaded = trusted.row ? trusted.item : nullptr;
    bool row_unchanged = loaded != nullptr && kItemColumns.Same(item, *loaded) &&
                         item.Family.FamilyID == loaded->Family.FamilyID;
    if (!row_unchanged) {
      host::SqlStatement row;
      row.SetTable("Item");
      // What was read is in the row: only what differs is written.
      if (loaded != nullptr) {
        kItemColumns.WriteChanged(item, *loaded, row);
        if (item.Family.FamilyID != loaded->Family.FamilyID) {
          row.Number("FamilyID", item.Family.FamilyID);
        }
      } else {
        kItemColumns.Write(item, row);
        row.Number("FamilyID", item.Family.FamilyID);
      }
      if (exists) {
        row.KeyText("ItemID", item.ItemID);
        writer_.Update(std::move(row));
      } else {
        row.Text("ItemID", item.ItemID);
        writer_.Insert(std::move(row));
      }
    }
    // Each collection's rows as read, while its table stands still.
    auto write = [&](Collection c, const auto& rows, auto pick, const auto& columns) {
      const auto* before = trusted.collection[c] ? &pick(*trusted.item) : nullptr;
      WriteRows(c, item.ItemID, rows, before, filled.collection[c], columns);
    };
    write(
        kPrices, item.SellingPrices.rows,
        [](const Item& i) -> const auto& { return i.SellingPrices.rows; }, kPriceColumns);
    write(
        kSuppliers, item.Suppliers, [](const Item& i) -> const auto& { return i.Suppliers; },
        kSupplierColumns);
    write(
        kBarcodes, item.Barcodes.rows, [](const Item& i) -> const auto& { return i.Barcodes.rows; },
        kBarcodeColumns);
    write(
        kComponents, item.Components.rows,
        [](const Item& i) -> const auto& { return i.Components.rows; }, kComponentColumns);
    write(
        kAlternatives, item.Alternatives.rows,
        [](const Item& i) -> const auto& { return i.Alternatives.rows; }, kAlternativeColumns);
    write(
        kPropertyTable, item.PropertyTable,
        [](const Item& i) -> const auto& { return i.PropertyTable; }, kPropertyValueColumns);
  });
  loaded_.reset();
  keys_.erase(item.ItemID);  // its key is read again when asked
  ids_.Saved(counter_before, db_.ChangeCounter("Item"), item.ItemID, item.ItemKey);
}

template <typename Row>
void SqliteItemService::CheckRows(Collection collection, const std::string& item_id,
                                  const std::vector<Row>& rows, const EntityColumns<Row>& columns) {
  if (rows.empty()) return;
  const EntityWriter::TextCheck check = writer_.CheckTextsOf(kCollectionTables[collection]);
  for (const Row& row : rows) {
    check("ItemID", item_id);
    columns.ForEachText(row, check);
  }
}

void SqliteItemService::CheckWhole(const Item& item, bool exists) {
  const EntityWriter::TextCheck check = writer_.CheckTextsOf("Item");
  kItemColumns.ForEachText(item, check);
  if (!exists) check("ItemID", item.ItemID);
  CheckRows(kPrices, item.ItemID, item.SellingPrices.rows, kPriceColumns);
  CheckRows(kSuppliers, item.ItemID, item.Suppliers, kSupplierColumns);
  CheckRows(kBarcodes, item.ItemID, item.Barcodes.rows, kBarcodeColumns);
  CheckRows(kComponents, item.ItemID, item.Components.rows, kComponentColumns);
  CheckRows(kAlternatives, item.ItemID, item.Alternatives.rows, kAlternativeColumns);
  CheckRows(kPropertyTable, item.ItemID, item.PropertyTable, kPropertyValueColumns);
}

void SqliteItemService::SaveSellingPrices(const host::ItemSellingPrices& prices,
                                          std::string_view item_id) {
  const Trusted trusted = TrustedFor(item_id);
  CheckRows(kPrices, std::string(item_id), prices.rows, kPriceColumns);
  writer_.Atomically([&] {
    WriteRows(kPrices, item_id, prices.rows,
              trusted.collection[kPrices] ? &trusted.item->SellingPrices.rows : nullptr, true,
              kPriceColumns);
  });
  loaded_.reset();
}

}  // namespace standalone
