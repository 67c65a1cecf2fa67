#include "bench/floor/ImportFloor.h"

#include <optional>
#include <stdexcept>
#include <vector>

#include "bench/floor/ImportReferences.h"
#include "bench/floor/Sqlite.h"

namespace bench {
namespace {

struct Price {
  int64_t line;
  double without_tax;
  double with_tax;
  std::optional<std::string> date;  // nothing: as it was (NULL for a new row)
};

// An item's values from its AR record and the AP and AB records after it.
struct Item {
  std::string key;
  std::string short_description;
  std::string description;
  int64_t type = 0;
  int64_t family = 0;
  int64_t tax_class = 0;
  std::string base_unit;
  std::string sale_unit;
  double sale_factor = 1;
  double alt_factor = 0;
  std::string lot_property;
  bool uses_scale = false;
  std::optional<std::string> date;
  std::optional<std::string> barcode;
  std::vector<Price> prices;  // one per price line, the last record's
};

// The parameters the INSERT and the UPDATE of an Item row share; a NULL in
// those marked "keep" leaves the stored value (or the column's default).
enum ItemParameter {
  kId = 1,
  kKey,
  kShortDescription,
  kDescription,
  kType,
  kFamily,
  kTaxClass,
  kBaseUnit,
  kSaleUnit,
  kSaleFactor,
  kAltUnit,
  kAltFactor,
  kCurrency,
  kExchange,
  kFactor,
  kProperty,  // keep
  kRule1,     // keep, as the rules up to kRule6
  kRule6 = kRule1 + 5,
  kUsesScale,
  kDate,      // keep
  kBarcode,   // keep
  kSupplier,  // INSERT only
};

constexpr char kInsertItem[] = R"sql(
INSERT INTO Item (ItemID, ItemKey, ShortDescription, Description, ItemType, FamilyID,
  TaxableGroupID, BaseUnitOfMeasureID, SaleUnitOfMeasureID, SaleUnitFactor, AltUnitOfMeasureID1,
  AltUnitOfMeasureID2, AltUnitOfMeasureID3, AltUnitFactor, CurrencyID, CurrencyExchange,
  CurrencyFactor, PropertyID1, PropertyRule1, PropertyRule2, PropertyRule3, PropertyRule4,
  PropertyRule5, PropertyRule6, UsesScale, ItemDate, Barcode, SupplierID, UseImageInSale)
VALUES (?1, ?2, ?3, ?4, ?5, ?6, ?7, ?8, ?9, ?10, ?11, ?11, ?11, ?12, ?13, ?14, ?15, ?16, ?17, ?18,
  ?19, ?20, ?21, coalesce(?22, 0), ?23, ?24, coalesce(?25, ''), ?26, 1))sql";

constexpr char kUpdateItem[] = R"sql(
UPDATE Item SET ItemKey=?2, ShortDescription=?3, Description=?4, ItemType=?5, FamilyID=?6,
  TaxableGroupID=?7, BaseUnitOfMeasureID=?8, SaleUnitOfMeasureID=?9, SaleUnitFactor=?10,
  AltUnitOfMeasureID1=?11, AltUnitOfMeasureID2=?11, AltUnitOfMeasureID3=?11, AltUnitFactor=?12,
  AuxiliaryCode1=0, AuxiliaryCode4=0, CurrencyID=?13, CurrencyExchange=?14, CurrencyFactor=?15,
  ControlsStock=0, PropertyID1=coalesce(?16, PropertyID1),
  PropertyRule1=coalesce(?17, PropertyRule1), PropertyRule2=coalesce(?18, PropertyRule2),
  PropertyRule3=coalesce(?19, PropertyRule3), PropertyRule4=coalesce(?20, PropertyRule4),
  PropertyRule5=coalesce(?21, PropertyRule5), PropertyRule6=coalesce(?22, PropertyRule6),
  UsesScale=?23, ItemDate=coalesce(?24, ItemDate), Barcode=coalesce(?25, Barcode)
WHERE ItemID=?1)sql";

constexpr char kUpsertPrice[] = R"sql(
INSERT INTO ItemSellingPrices (ItemID, PriceLineID, PriceWithoutTax, PriceWithTax, PriceDate)
VALUES (?1, ?2, ?3, ?4, ?5)
ON CONFLICT (ItemID, PriceLineID, ColorID, SizeID, LotID) DO UPDATE SET
  PriceWithoutTax=excluded.PriceWithoutTax, PriceWithTax=excluded.PriceWithTax,
  PriceDate=coalesce(excluded.PriceDate, PriceDate))sql";

constexpr char kUpsertLot[] = R"sql(
INSERT INTO StockProperty (ItemID, WarehouseID, PropertyValue1, ProductionDate, ExpirationDate,
  PhysicalQty, PhysicalUnits, CurrencyID, CurrencyExchange, CurrencyFactor, WorkstationID,
  SessionID, UserAlt, DtAlt, HrAlt)
VALUES (?1, 1, ?2, ?3, ?4, 1, 1, ?5, ?6, ?7, ?8, 1, 1, ?9, ?10)
ON CONFLICT (ItemID, WarehouseID, PropertyValue1, PropertyValue2, PropertyValue3) DO UPDATE SET
  ProductionDate=excluded.ProductionDate, ExpirationDate=excluded.ExpirationDate, PhysicalQty=1,
  PhysicalUnits=1, CurrencyID=excluded.CurrencyID, CurrencyExchange=excluded.CurrencyExchange,
  CurrencyFactor=excluded.CurrencyFactor, WorkstationID=excluded.WorkstationID, SessionID=1,
  UserAlt=1, DtAlt=excluded.DtAlt, HrAlt=excluded.HrAlt)sql";

void BindOptional(Statement& statement, int index, const std::optional<std::string>& text) {
  if (text) {
    statement.Bind(index, *text);
  } else {
    statement.BindNull(index);
  }
}

class ImportFloor {
 public:
  ImportFloor(Database& db, const Clock& clock, int workstation)
      : clock_(clock),
        workstation_(workstation),
        refs_(ImportReferences::Read(db)),
        families_(db, refs_.default_family),
        rules_(db),
        find_item_(db,
                   "SELECT ItemID, PropertyID1 FROM Item WHERE ItemKey=? ORDER BY ItemID LIMIT 1"),
        insert_item_(db, kInsertItem),
        update_item_(db, kUpdateItem),
        upsert_price_(db, kUpsertPrice),
        upsert_lot_(db, kUpsertLot) {}

  // One line of the file, in its order.
  void Take(std::string_view line) {
    text_ = Utf8FromWindows1252(line);
    fields_.Split(text_);
    std::string_view tag = fields_[0];
    if (tag == "HF") return;
    if (tag == "AR") {
      if (in_lots_) throw Unhandled("an AR record after the AL records");
      SaveItem();
      StartItem();
    } else if (tag == "AP") {
      AddPrice();
    } else if (tag == "AB") {
      AddBarcode();
    } else if (tag == "AL") {
      if (!in_lots_) SaveItem();
      in_lots_ = true;
      SaveLot();
    } else {
      throw Unhandled("a record " + std::string(tag));
    }
  }

  void Finish() { SaveItem(); }

 private:
  std::runtime_error Unhandled(const std::string& what) const {
    return std::runtime_error("the import floor does not take " + what + ": " + text_);
  }

  void StartItem() {
    Item& item = item_.emplace();
    const Fields& f = fields_;
    item.key = f[1];
    item.short_description = LeftCharacters(Trim(f[2]), 50);
    item.description = Trim(f[3]);
    if (f[4] == "G") throw Unhandled("a kit");
    item.type = f[4] == "S" ? 1 : 0;
    if (!f[16].empty() && CommaNumber(f[16]) != 0) throw Unhandled("a validity period");
    item.family = families_.Of(f[5]);
    item.tax_class = ClassOfTaxType(f[11]);
    const bool unit_test = !f[15].empty() && CommaNumber(f[15]) > 0;
    auto host_unit = [&](std::string_view unit) {
      return LeftCharacters(unit, 3).size() < unit.size() ? refs_.default_unit : std::string(unit);
    };
    item.base_unit = unit_test ? refs_.default_unit : host_unit(f[13]);
    item.sale_unit = host_unit(f[12]);
    item.sale_factor = CommaNumber(f[14]);
    item.alt_factor = item.sale_factor;
    if (item.alt_factor == 0) item.sale_factor = 1;
    item.lot_property = PropertyOfLotKind(CommaNumber(f[20]));
    item.date = StoredDate(f[22]);
    item.uses_scale = Truth(f[24]);
  }

  Item& ItemOf(std::string_view key) {
    if (!item_ || item_->key != key) throw Unhandled("a record away from its item's AR record");
    return *item_;
  }

  void AddPrice() {
    Item& item = ItemOf(fields_[1]);
    auto line = refs_.price_line_of_key.find(std::string(fields_[2]));
    if (line == refs_.price_line_of_key.end()) return;
    const double value = CommaNumber(fields_[3]);
    auto rate = refs_.rate_of_class.find(item.tax_class);
    const double factor = 1 + (rate == refs_.rate_of_class.end() ? 0 : rate->second) / 100;
    Price price{line->second, value, value, StoredDate(fields_[4])};
    if (Truth(fields_[8])) {
      price.without_tax = RoundMoney(value / factor);
    } else {
      price.with_tax = RoundMoney(value * factor);
    }
    for (Price& known : item.prices) {
      if (known.line == price.line) {
        // A later record of the same line takes its place; a date that is
        // no date leaves the earlier one.
        if (!price.date) price.date = known.date;
        known = price;
        return;
      }
    }
    item.prices.push_back(price);
  }

  void AddBarcode() {
    Item& item = ItemOf(fields_[2]);
    if (fields_[1].empty()) return;
    if (!Truth(fields_[5]) || item.barcode) throw Unhandled("a barcode that is not the main one");
    item.barcode = std::string(fields_[1]);
  }

  void SaveItem() {
    if (!item_) return;
    const Item& item = *item_;
    find_item_.Bind(1, item.key);
    const bool found = find_item_.Step();
    const std::string id = found ? find_item_.Text(0) : std::string(Trim(item.key));
    const bool keeps_property = found && !find_item_.Text(1).empty();
    find_item_.Reset();

    Statement& write = found ? update_item_ : insert_item_;
    write.Bind(kId, id)
        .Bind(kKey, item.key)
        .Bind(kShortDescription, item.short_description)
        .Bind(kDescription, item.description)
        .Bind(kType, item.type)
        .Bind(kFamily, item.family)
        .Bind(kTaxClass, item.tax_class)
        .Bind(kBaseUnit, item.base_unit)
        .Bind(kSaleUnit, item.sale_unit)
        .Bind(kSaleFactor, item.sale_factor)
        .Bind(kAltUnit, item.sale_unit)
        .Bind(kAltFactor, item.alt_factor)
        .Bind(kCurrency, refs_.currency)
        .Bind(kExchange, refs_.exchange)
        .Bind(kFactor, refs_.factor)
        .Bind(kUsesScale, item.uses_scale ? 1 : 0);
    BindOptional(write, kDate, item.date);
    BindOptional(write, kBarcode, item.barcode);
    if (keeps_property) {
      for (int p = kProperty; p <= kRule6; ++p) write.BindNull(p);
    } else {
      write.Bind(kProperty, item.lot_property);
      if (item.lot_property.empty()) {
        // No property: the rules of an item without one; rule 6 stays.
        const int64_t rules[] = {-1, 2, 0, 0, 0};
        for (int r = 0; r < 5; ++r) write.Bind(kRule1 + r, rules[r]);
        write.BindNull(kRule6);
      } else {
        const std::vector<int64_t>& rules = rules_.Of(item.lot_property);
        for (int r = 0; r < 6; ++r) write.Bind(kRule1 + r, rules[r]);
      }
    }
    if (!found) write.Bind(kSupplier, refs_.default_supplier);
    write.Run();

    // A new item has a price on every line of the host; a known one has its
    // rows already, and only those of its AP records change.
    if (found) {
      for (const Price& price : item.prices) SavePrice(id, price);
    } else {
      for (int64_t line : refs_.price_lines) {
        Price price{line, 0, 0, std::nullopt};
        for (const Price& given : item.prices) {
          if (given.line == line) price = given;
        }
        SavePrice(id, price);
      }
    }
    item_.reset();
  }

  void SavePrice(const std::string& id, const Price& price) {
    upsert_price_.Bind(1, id)
        .Bind(2, price.line)
        .Bind(3, price.without_tax)
        .Bind(4, price.with_tax);
    BindOptional(upsert_price_, 5, price.date);
    upsert_price_.Run();
  }

  void SaveLot() {
    const std::string_view key = fields_[1];
    if (key != lot_item_key_) {
      lot_item_key_ = key;
      find_item_.Bind(1, key);
      lot_item_tracked_ = find_item_.Step() && !find_item_.Text(1).empty();
      find_item_.Reset();
    }
    if (!lot_item_tracked_ || fields_[2].empty() || !refs_.has_warehouse_1) return;
    auto date = [&](size_t position) -> std::optional<std::string> {
      if (fields_[position].empty()) return std::nullopt;
      std::optional<std::string> stored = StoredDate(fields_[position]);
      if (!stored) throw Unhandled("a lot date that is no date");
      return stored;
    };
    upsert_lot_.Bind(1, key).Bind(2, fields_[2]);
    BindOptional(upsert_lot_, 3, date(4));
    BindOptional(upsert_lot_, 4, date(5));
    upsert_lot_.Bind(5, refs_.currency)
        .Bind(6, refs_.exchange)
        .Bind(7, refs_.factor)
        .Bind(8, workstation_)
        .Bind(9, clock_.today)
        .Bind(10, clock_.time_of_day)
        .Run();
  }

  const Clock& clock_;
  const int workstation_;
  const ImportReferences refs_;
  FamilyIds families_;
  PropertyRules rules_;
  Statement find_item_;
  Statement insert_item_;
  Statement update_item_;
  Statement upsert_price_;
  Statement upsert_lot_;

  std::string text_;  // the line in hand, in UTF-8
  Fields fields_;
  std::optional<Item> item_;
  bool in_lots_ = false;
  std::string lot_item_key_;
  bool lot_item_tracked_ = false;
};

}  // namespace

ImportFloorCounts RunImportFloor(const std::string& db_path, const std::string& file_path,
                                 const Clock& clock, int workstation) {
  Database db(db_path);
  db.ShareWithTheTill();
  ImportFloor floor(db, clock, workstation);
  LineReader reader(file_path);
  ImportFloorCounts counts;
  const sqlite3_int64 changes_before = sqlite3_total_changes64(db.Handle());
  // One transaction for the file, taken at once, as the connector takes it.
  db.Exec("BEGIN IMMEDIATE");
  for (std::string_view line; reader.Next(line); ++counts.records) floor.Take(line);
  floor.Finish();
  db.Exec("COMMIT");
  counts.rows_written = static_cast<long>(sqlite3_total_changes64(db.Handle()) - changes_before);
  return counts;
}

}  // namespace bench
