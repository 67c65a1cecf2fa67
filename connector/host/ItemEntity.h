#ifndef LUMARO_CONNECTOR_HOST_ITEM_ENTITY_H_
#define LUMARO_CONNECTOR_HOST_ITEM_ENTITY_H_

// The host's item entity with its collections, and the rules of an item
// property. The item service (EntityServices.h) reads an item whole and saves
// it whole: its row and every collection.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "connector/host/Date.h"
#include "connector/host/Recordset.h"

namespace host {

// The price of an item on one price line (line 0 holds the cost), for one
// colour, size and lot.
struct ItemSellingPrice {
  double PriceLineID = 0;
  double ColorID = 0;
  double SizeID = 0;
  std::string LotID;
  double PriceWithoutTax = 0;
  double PriceWithTax = 0;
  std::optional<Date> PriceDate;  // empty: NULL
  int16_t PriceStatus = 0;
};

class ItemSellingPrices {
 public:
  // The row of the price line, colour and lot; nullptr when there is none.
  ItemSellingPrice* Find(double price_line_id, double color_id = 0, std::string_view lot_id = "");
  void Add(ItemSellingPrice row) { rows.push_back(std::move(row)); }
  std::vector<ItemSellingPrice> rows;
};

// A further barcode of an item (the main one is Item::Barcode).
struct ItemBarcode {
  std::string Barcode;
  std::string UnitOfMeasureID;
  double Quantity = 1;
  std::string CurrencyID;
  double CurrencyFactor = 1;
  double CurrencyExchange = 1;
};

class ItemBarcodes {
 public:
  bool Exists(std::string_view barcode, std::string_view unit) const;
  // Removes the row of that barcode and unit, if there is one.
  void Remove(std::string_view barcode, std::string_view unit);
  void Add(ItemBarcode row) { rows.push_back(std::move(row)); }
  size_t Count() const { return rows.size(); }
  std::vector<ItemBarcode> rows;
};

// A component of a kit.
struct ItemComponent {
  std::string ComponentItemID;
  std::string ComponentKey;
  double ComponentColorID = 0;
  double ComponentSizeID = 0;
  double ComponentQuantity = 0;
  int16_t ComponentOrder = 0;
  // The row's text key: see MakeLookup.
  std::string ComponentLookup;
  // The row's two descriptions, which the host fills for a component that
  // names no item; the connector leaves them empty.
  std::string ComponentDescription;
  std::string ComponentShortDescription;

  // Upper-cased "<order>|<item>|<colour>|<size>|<description>|<short
  // description>", or "<description>|<short description>" when the row names
  // no item.
  void MakeLookup();
};

class ItemComponents {
 public:
  void Add(ItemComponent row) { rows.push_back(std::move(row)); }
  int16_t Count() const { return static_cast<int16_t>(rows.size()); }
  std::vector<ItemComponent> rows;
};

struct AlternativeItem {
  int16_t AlternativeOrder = 0;
  std::string AlternativeItemID;
};

class ItemAlternatives {
 public:
  bool Exists(std::string_view item_id) const;
  int16_t Count() const { return static_cast<int16_t>(rows.size()); }
  void Add(AlternativeItem row) { rows.push_back(std::move(row)); }
  std::vector<AlternativeItem> rows;
};

struct ItemSupplier {
  double SupplierID = 0;
  std::string SupplierItemRef;
  int16_t SupplierRefStatus = 0;
  double LastCostPrice = 0;
  double LastCostPriceWithTax = 0;
  double Discount1 = 0;
  double Discount2 = 0;
  double Discount3 = 0;
  std::optional<Date> LastCostDate;
  std::string CurrencyID;
  double CurrencyFactor = 1;
  double CurrencyExchange = 1;
};

// One row of an item's table of property values.
struct ItemPropertyValue {
  std::string PropertyValue1;
  std::string PropertyValue2;
  std::string PropertyValue3;
};

struct ItemFamily {
  double FamilyID = 0;
};

struct Item {
  std::string ItemID;
  std::string ItemKey;
  std::string ShortDescription;
  std::string Description;
  int16_t ItemType = 0;
  bool IsComposed = false;
  int16_t ComponentsKind = 0;
  ItemFamily Family;
  double SupplierID = 0;
  int16_t TaxableGroupID = 0;
  std::string BaseUnitOfMeasureID;
  std::string SaleUnitOfMeasureID;
  double SaleUnitFactor = 1;
  std::string AltUnitOfMeasureID1;
  std::string AltUnitOfMeasureID2;
  std::string AltUnitOfMeasureID3;
  double AltUnitFactor = 0;
  int32_t AuxiliaryCode1 = 0;
  int32_t AuxiliaryCode2 = 0;
  int32_t AuxiliaryCode3 = 0;
  int32_t AuxiliaryCode4 = 0;
  std::string CurrencyID;
  double CurrencyExchange = 1;
  double CurrencyFactor = 1;
  bool ControlsStock = false;
  std::string PropertyID1;
  std::string PropertyID2;
  std::string PropertyID3;
  int16_t PropertyRule1 = 0;
  int16_t PropertyRule2 = 0;
  bool PropertyRule3 = false;
  int16_t PropertyRule4 = 0;
  int16_t PropertyRule5 = 0;
  int16_t PropertyRule6 = 0;
  bool UseImageInSale = false;
  std::string ImageFile;
  bool UsesScale = false;
  std::optional<Date> ItemDate;
  std::string Barcode;  // the main barcode

  ItemSellingPrices SellingPrices;
  std::vector<ItemSupplier> Suppliers;
  ItemBarcodes Barcodes;
  ItemComponents Components;
  ItemAlternatives Alternatives;
  std::vector<ItemPropertyValue> PropertyTable;

  // Makes a selling price row (prices 0, no date) for every price line of
  // the recordset, from its current row to its end; the column PriceLineID
  // names the line. Rows the item has already are kept.
  void PriceLines(Recordset& price_lines);
  // Whether the item is tracked by a property (lot, serial number, colour
  // and size).
  bool HasProperties() const;
};

// A rule by which items are tracked: by lot, serial number, colour and size.
// The host presents its settings to an item as six rules.
struct ItemProperty {
  std::string PropertyID;
  std::string Description;
  std::string KeyDescription;
  int16_t PropertyKeyType = 0;
  int16_t ControlMode = 0;
  int16_t ControlType = 0;
  bool UsePropertyTable = false;
  bool UseProductionDate = false;
  bool UseExpirationDate = false;
  int16_t ExpirationDateControl = 0;
  double MaximumQuantity = 0;

  int16_t PropertyRule1() const { return UseProductionDate ? -1 : 0; }
  int16_t PropertyRule2() const { return ControlType; }
  bool PropertyRule3() const { return UsePropertyTable; }
  int16_t PropertyRule4() const { return UseExpirationDate ? -1 : 0; }
  int16_t PropertyRule5() const { return static_cast<int16_t>(MaximumQuantity); }
  int16_t PropertyRule6() const { return ExpirationDateControl; }
};

}  // namespace host

#endif  // LUMARO_CONNECTOR_HOST_ITEM_ENTITY_H_
