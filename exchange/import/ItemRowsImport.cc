// The passes that attach rows to the items the item passes made: selling
// prices (AP), barcodes (AB) and kit components (AG). All three share one
// walk over the file: the records of one item stand together, the item in
// hand collects its rows and is saved once, when the item changes and at
// the end of the file.

#include "connector/ModConnectorLumaro.h"
#include "connector/host/Conversions.h"
#include "connector/host/Error.h"
#include "exchange/import/ImportRun.h"
#include "exchange/import/PassReading.h"
#include "exchange/import/RecordLayouts.h"

namespace lumaro {
namespace {

constexpr int32_t kPricesTitle = 4140041;
constexpr int32_t kBarcodesTitle = 4140042;
constexpr int32_t kKitsTitle = 4140051;
constexpr int16_t kKitType = 4;
using Outcome = host::ImportObserver::Outcome;

}  // namespace

bool ImportRun::WalkItems(const std::string& path, const ItemWalk& walk) {
  PassReading reading(*this, path, walk.tag, Title(walk.title_message), walk.total);
  host::ItemService& items = Items();
  std::string current_id;
  std::shared_ptr<host::Item> item;
  int64_t item_line = 0;  // the line of the first record of the item in hand
  auto save_in_hand = [&] {
    bool in_hand =
        !current_id.empty() && (!walk.save_needs_item_id || (item && !item->ItemID.empty()));
    if (!in_hand) return;
    // A refusal names the line now in hand, which is the first line of the
    // next item (or the last line of the file): kept as the error file has
    // always had it.
    ProtectedSave(path, reading.line(), walk.tag, item_line, Outcome::kUpdated,
                  [&] { walk.save(*item); });
    reading.CountAndReport();
  };
  while (reading.Next()) {
    const Record& record = reading.record();
    std::string id = items.GetItemIDFromKey(FieldText(record, *walk.item_field));
    if (id != current_id) {
      save_in_hand();
      current_id = items.GetItemIDFromKey(FieldText(record, *walk.item_field));
      item_line = reading.line_number();
      if (!current_id.empty()) {
        item = items.Get(current_id);
        if (!item) host::Raise(host::err::kObjectNotSet);
        walk.on_item(item, current_id);
      }
    }
    // An unknown item is passed over without a word.
    if (current_id.empty()) continue;
    walk.on_record(*item, record);
  }
  save_in_hand();
  return reading.AtEnd();
}

bool ImportRun::ImportItemSellingPrices(const std::string& path) {
  try {
    using namespace layout::ap;
    std::unique_ptr<host::TaxCalculator> calculator = ModConnectorLumaro::Host().NewTaxCalculator();
    ItemWalk walk{.tag = "AP",
                  .title_message = kPricesTitle,
                  .item_field = &kItem,
                  .total = counters_.AP,
                  .save_needs_item_id = false};
    walk.on_item = [](std::shared_ptr<host::Item>&, std::string&) {};
    walk.on_record = [&](host::Item& item, const Record& record) {
      double line = host::CInt(host::Variant(GetPriceLineID(FieldText(record, kPriceLine))));
      if (line <= 0) return;
      // The filter stands after the key: a refused line still saves the item.
      if (!filters_.PassPriceLineFilter(record)) return;
      host::ItemSellingPrice* price = item.SellingPrices.Find(line);
      if (price == nullptr) host::Raise(host::err::kObjectNotSet);
      if (std::optional<host::Date> date = FieldDate(record, kDate)) price->PriceDate = date;
      double value = FieldNumber(record, kPrice);
      if (FieldTruth(record, kTaxIncluded)) {
        price->PriceWithTax = value;
        price->PriceWithoutTax =
            calculator->RemoveTax(price->PriceWithTax, item.TaxableGroupID, TaxContext());
      } else {
        price->PriceWithoutTax = value;
        price->PriceWithTax =
            calculator->AddTax(price->PriceWithoutTax, item.TaxableGroupID, TaxContext());
      }
    };
    walk.save = [&](host::Item& item) {
      Items().SaveSellingPrices(item.SellingPrices, item.ItemID);
    };
    return WalkItems(path, walk);
  } catch (const host::Error& error) {
    throw error.WithSource("<ImportItemSellingPrices>");
  }
}

bool ImportRun::ImportBarCode(const std::string& path) {
  try {
    using namespace layout::ab;
    std::string main_barcode;
    ItemWalk walk{.tag = "AB",
                  .title_message = kBarcodesTitle,
                  .item_field = &kItem,
                  .total = counters_.AB,
                  .save_needs_item_id = true};
    walk.on_item = [&](std::shared_ptr<host::Item>&, std::string&) { main_barcode.clear(); };
    walk.on_record = [&](host::Item& item, const Record& record) {
      const std::string& barcode = FieldText(record, kBarcode);
      if (barcode.empty()) return;
      // Only the first marked barcode of the item in the file is the main
      // one; a second marked one becomes a further barcode.
      if (FieldTruth(record, kMain) && main_barcode.empty()) {
        main_barcode = barcode;
        item.Barcodes.Remove(barcode, item.SaleUnitOfMeasureID);
        return;
      }
      if (item.Barcodes.Exists(barcode, item.SaleUnitOfMeasureID)) return;
      host::ItemBarcode row;
      row.Barcode = barcode;
      row.UnitOfMeasureID = item.SaleUnitOfMeasureID;
      row.Quantity = 1;
      row.CurrencyID = item.CurrencyID;
      row.CurrencyFactor = item.CurrencyFactor;
      row.CurrencyExchange = item.CurrencyExchange;
      item.Barcodes.Add(std::move(row));
    };
    walk.save = [&](host::Item& item) {
      if (!main_barcode.empty()) item.Barcode = main_barcode;
      Items().Save(item);
    };
    return WalkItems(path, walk);
  } catch (const host::Error& error) {
    throw error.WithSource("<ImportBarCode>");
  }
}

bool ImportRun::ImportItemKitComponents(const std::string& path) {
  try {
    using namespace layout::ag;
    ItemWalk walk{.tag = "AG",
                  .title_message = kKitsTitle,
                  .item_field = &kKit,
                  .total = counters_.AG,
                  .save_needs_item_id = true};
    walk.on_item = [](std::shared_ptr<host::Item>& item, std::string& current_id) {
      // The records of an item that is no kit are passed over.
      if (item->ItemType != kKitType) {
        item = std::make_shared<host::Item>();
        current_id.clear();
      }
      // The components of a kit are replaced, not merged, by each import.
      item->Components = host::ItemComponents();
    };
    walk.on_record = [&](host::Item& item, const Record& record) {
      std::string component_id = Items().GetItemIDFromKey(FieldText(record, kComponent));
      if (component_id.empty()) return;
      host::ItemComponent row;
      row.ComponentItemID = component_id;
      row.ComponentKey = component_id;
      row.ComponentColorID = 0;
      row.ComponentSizeID = 0;
      row.ComponentQuantity = FieldNumber(record, kQuantity);
      row.ComponentOrder = item.Components.Count();
      row.MakeLookup();
      item.Components.Add(std::move(row));
    };
    walk.save = [&](host::Item& item) { Items().Save(item); };
    return WalkItems(path, walk);
  } catch (const host::Error& error) {
    throw error.WithSource("<ImportItemKitComponents>");
  }
}

host::TaxCalculator::Context ImportRun::TaxContext() {
  // Read anew before each computation, as the host may change them.
  std::shared_ptr<host::SystemSettings> settings = ModConnectorLumaro::GetSystemSettings();
  return {settings->CountryID, settings->TaxRegionID, settings->TaxRegime};
}

}  // namespace lumaro
