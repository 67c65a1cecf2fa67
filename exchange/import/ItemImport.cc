// The item passes: AR records become items (ordinary items in a first
// reading, kits in a second, so that a kit comes after everything it could
// be made of), and AL records write the stock of a lot or serial number of
// an item straight into StockProperty.

#include "connector/ModConnectorLumaro.h"
#include "connector/host/Conversions.h"
#include "connector/host/Error.h"
#include "connector/host/Text.h"
#include "exchange/import/ImportRun.h"
#include "exchange/import/PassReading.h"
#include "exchange/import/RecordLayouts.h"

namespace lumaro {
namespace {

constexpr int32_t kItemsTitle = 4140040;
constexpr int32_t kStockByPropertyTitle = 4140052;
using Outcome = host::ImportObserver::Outcome;

host::Host& Host() { return ModConnectorLumaro::Host(); }

// The property (the ids of the rows of ItemProperty) of a back-office lot
// kind; empty for a kind that names none.
std::string PropertyOfLotKind(double kind) {
  if (kind == 1) return "CL";
  if (kind == 2) return "CNS";
  if (kind == 3) return "CCT";
  if (kind == 4) return "RLV";
  if (kind == 5) return "RNV";
  return "";
}

// A unit code of four characters or more is not one of the host's: the
// default unit stands in.
bool IsLongUnit(const std::string& unit) { return host::Len(unit) >= 4; }

}  // namespace

bool ImportRun::ImportItem(const std::string& path, bool first_round) {
  try {
    using namespace layout::ar;
    PassReading reading(*this, path, "AR", Title(kItemsTitle), counters_.AR);
    host::ItemService& items = Items();
    host::FamilyService& families = Families();
    const double default_supplier = Suppliers().GetDefaultSupplierID();
    host::KeyDictionary& keys = ModConnectorLumaro::RunDictionary();
    host::Date today = host::Today();
    while (reading.Next()) {
      const Record& record = reading.record();
      bool family_passes = filters_.PassItemFamilyFilter(record);
      bool valid = ImportFilters::PassValidity(record, today);
      if (!family_passes || !valid) continue;
      // Kits only in the second reading, everything else only in the first.
      bool kit = FieldText(record, kType) == "G";
      if (kit == first_round) continue;

      auto item = std::make_shared<host::Item>();
      item->ItemKey = FieldText(record, kCode);
      item->ItemID = items.GetItemIDFromKey(item->ItemKey);
      bool is_new = item->ItemID.empty();
      if (!is_new) {
        item = items.Get(item->ItemID);
        if (!item) host::Raise(host::err::kObjectNotSet);
      } else {
        item->ItemID = host::Trim(item->ItemKey);
        item->SupplierID = default_supplier;
        item->UseImageInSale = true;
        host::Recordset& lines = PriceLineRows();
        lines.MoveFirst();
        item->PriceLines(lines);
      }
      FillItem(*item, record, keys, families);
      ProtectedSave(path, reading.line(), "AR", reading.line_number(),
                    is_new ? Outcome::kAdded : Outcome::kUpdated, [&] { items.Save(*item); });
      reading.CountAndReport();
    }
    return reading.AtEnd();
  } catch (const host::Error& error) {
    throw error.WithSource("<ImportItem>");
  }
}

void ImportRun::FillItem(host::Item& item, const Record& record, host::KeyDictionary& keys,
                         host::FamilyService& families) {
  using namespace layout::ar;
  std::shared_ptr<host::SystemSettings> settings = ModConnectorLumaro::GetSystemSettings();
  item.ShortDescription = host::Left(host::Trim(FieldText(record, kShortDescription)), 50);
  item.Description = host::Trim(FieldText(record, kDescription));
  // Case-sensitive: "F" and "a" are ordinary items here.
  const std::string& type = FieldText(record, kType);
  if (type == "S") {
    item.ItemType = 1;
  } else if (type == "G") {
    item.ItemType = 4;
    item.IsComposed = true;
  } else {
    item.ItemType = 0;
  }
  item.AuxiliaryCode1 = 0;
  item.Family.FamilyID = families.GetIDFromKey(FieldText(record, kFamily));
  if (item.Family.FamilyID == 0) item.Family.FamilyID = families.GetDefaultFamilyID();
  item.TaxableGroupID =
      host::CInt(keys.Item("TaxableGroupIDTipoIva|" + FieldText(record, kTaxType)));

  // Units: the stock unit, the sale unit and its factor; the alternative
  // units follow the sale unit.
  const std::string& stock_unit = FieldText(record, kStockUnit);
  bool stock_unit_replaced = IsLongUnit(stock_unit);
  bool unit_test = FieldInteger(record, kUnitTest) > 0;
  item.BaseUnitOfMeasureID =
      stock_unit_replaced || unit_test ? settings->DefaultUnitOfMeasureID : stock_unit;
  const std::string& sale_unit = FieldText(record, kSaleUnit);
  item.SaleUnitOfMeasureID = IsLongUnit(sale_unit) ? settings->DefaultUnitOfMeasureID : sale_unit;
  item.SaleUnitFactor = FieldNumber(record, kSaleUnitFactor);
  item.AltUnitOfMeasureID1 = item.SaleUnitOfMeasureID;
  item.AltUnitOfMeasureID3 = item.SaleUnitOfMeasureID;
  item.AltUnitOfMeasureID2 = item.SaleUnitOfMeasureID;
  item.AltUnitFactor = item.SaleUnitFactor;
  // Only the sale factor is repaired: AltUnitFactor stays 0, as the initial
  // load leaves it.
  if (item.AltUnitFactor == 0) item.SaleUnitFactor = 1;

  const host::Currency& currency = Host().SystemManager().Context().Defaults();
  item.CurrencyID = currency.CurrencyID;
  item.CurrencyExchange = currency.Exchange;
  item.CurrencyFactor = currency.Factor;
  item.ControlsStock = false;

  // The alternative is looked up and its row made, but the row is never added
  // to the item: this reading stores no alternative, on purpose. The
  // alternatives come from the initial load alone.
  std::string alternative_id = Items().GetItemIDFromKey(FieldText(record, kAlternative));
  if (!alternative_id.empty() && !item.Alternatives.Exists(alternative_id)) {
    host::AlternativeItem dropped{static_cast<int16_t>(item.Alternatives.Count() + 1),
                                  alternative_id};
    (void)dropped;
  }

  item.AuxiliaryCode4 = 0;
  // An item that has a property keeps it and its rules.
  if (item.PropertyID1.empty()) {
    std::string property = PropertyOfLotKind(FieldNumber(record, kLotKind));
    if (!property.empty()) item.PropertyID1 = property;
    host::DatabaseService& db = Database();
    const host::SqlFormat& format = db.SqlFormat();
    db.OpenRecordset("UPDATE Item SET PropertyID1='" + format.QuoteText(item.PropertyID1) +
                     "' WHERE ItemID ='" + format.QuoteText(item.ItemID) + "'");
    ApplyPropertyRules(item);
  }

  if (std::optional<host::Date> date = FieldDate(record, kDate)) item.ItemDate = date;
  item.UsesScale = FieldTruth(record, kUsesScale);
  if (item.Family.FamilyID == 0) item.Family.FamilyID = families.GetDefaultFamilyID();
}

void ImportRun::ApplyPropertyRules(host::Item& item) {
  if (!item.HasProperties()) {
    item.PropertyRule2 = 2;
    item.PropertyRule1 = -1;
    item.PropertyRule3 = false;
    item.PropertyRule5 = 0;
    item.PropertyRule4 = 0;
    item.PropertyTable.clear();
    return;
  }
  std::shared_ptr<host::ItemProperty> property =
      ItemProperties().Load(item.PropertyID1, item.PropertyID2, item.PropertyID3);
  if (!property) {
    host::RaiseWith(
        host::err::kObjectNotSet,
        "Object variable not set: the POS has no item property '" + item.PropertyID1 + "'");
  }
  item.PropertyRule2 = property->PropertyRule2();
  item.PropertyRule1 = property->PropertyRule1();
  item.PropertyRule3 = property->PropertyRule3();
  item.PropertyRule5 = property->PropertyRule5();
  item.PropertyRule4 = property->PropertyRule4();
  item.PropertyRule6 = property->PropertyRule6();
}

bool ImportRun::ImportPropertyItem(const std::string& path) {
  try {
    using namespace layout::al;
    PassReading reading(*this, path, "AL", Title(kStockByPropertyTitle), counters_.AL);
    host::ItemService& items = Items();
    std::string current_id;
    std::shared_ptr<host::Item> item;
    // One current item: the AL records of an item must stand together.
    while (reading.Next()) {
      const Record& record = reading.record();
      if (!filters_.PassItemFamilyFilter(record)) continue;
      std::string id = items.GetItemIDFromKey(FieldText(record, kItem));
      if (id != current_id) {
        // Counted when the next item comes, so the last item of the file is
        // not counted; an unknown item leaves the one before in hand, which
        // is counted again. Kept as it is: it moves only the progress.
        if (item) reading.CountAndReport();
        current_id = id;
        if (!current_id.empty()) item = items.Get(current_id);
      }
      // An unknown item is no error and no message.
      if (current_id.empty() || !item) continue;
      if (FieldText(record, kValue).empty() || item->PropertyID1.empty()) continue;
      UpdateStockProperty(item->PropertyID1, record);
      Observe("AL", reading.line_number(), Outcome::kAdded);
    }
    return reading.AtEnd();
  } catch (const host::Error& error) {
    throw error.WithSource("<ImportPropertyItem>");
  }
}

void ImportRun::UpdateStockProperty(const std::string&, const Record& record) {
  try {
    using namespace layout::al;
    host::DatabaseService& db = Database();
    const host::SqlFormat& format = db.SqlFormat();
    host::SystemContext& context = Host().SystemManager().Context();
    // The row's ItemID is the back office's code as it stands, not the id
    // found through the key; kept so.
    const std::string item = format.QuoteText(FieldText(record, kItem));
    const std::string value = format.QuoteText(FieldText(record, kValue));
    db.OpenRecordset("DELETE FROM StockProperty WHERE ItemID='" + item + "'" +
                     " AND PropertyValue1='" + value + "'");
    auto date_or_null = [&](const RecordField& field) {
      std::optional<host::Date> date = FieldDate(record, field);
      return date ? ", " + format.DateLiteral(*date) : std::string(", Null");
    };
    std::string production = date_or_null(kProductionDate);
    std::string expiration = date_or_null(kExpirationDate);
    const host::Currency& currency = context.Defaults();
    // Lots and serial numbers alike count one unit each: the host tells the
    // two apart ("CNS", "RNV") but writes the same quantities for both.
    // The one row comes from warehouse 1; without it nothing is written.
    db.OpenRecordset(
        "INSERT INTO StockProperty (ItemID, WarehouseID, PropertyValue1, ProductionDate, "
        "ExpirationDate, PhysicalQty, PhysicalUnits,CurrencyID, CurrencyExchange, "
        "CurrencyFactor,  WorkstationID,SessionID, UserAlt, DtAlt, HrAlt) SELECT '" +
        item + "', WarehouseID, '" + value + "'" + production + expiration + ",1,1,'" +
        format.QuoteText(currency.CurrencyID) + "', " + format.Number(currency.Exchange) + ", " +
        format.Number(currency.Factor) + ", " +
        format.Number(context.CurrentWorkstation().WorkstationID()) + ", " +
        format.Number(context.CurrentSession()) + ", " + format.Number(context.CurrentUser()) +
        ", " + format.DateLiteral(host::Today()) + ", " + format.TimeLiteral(host::Now()) +
        " FROM Warehouse WHERE WarehouseID=1");
  } catch (const host::Error& error) {
    throw error.WithSource("<UpdateStockProperty>");
  }
}

}  // namespace lumaro
