// The back office's articles as the POS's items, each whole: its prices on
// every price line, its suppliers, its barcodes and its picture.

#include <cstdio>

#include "connector/ModConnectorLumaro.h"
#include "connector/host/Conversions.h"
#include "connector/host/Error.h"
#include "connector/host/FieldConverter.h"
#include "connector/host/FileSystem.h"
#include "connector/host/Text.h"
#include "initialload/BSOUpgBrevantaLumaroTables.h"
#include "initialload/LoadStep.h"

namespace lumaro {
namespace {

constexpr size_t kShortDescriptionLength = 50;
// Pictures are written in blocks of this many bytes.
constexpr size_t kPictureBlock = 16384;

// The articles in force today: TipVal 0 always, 1 from its date, 2 within
// its period, 4 before its date, 5 outside its period; 3 and any other
// never.
constexpr const char* kInForce =
    " , 0 AS CostPrice, 0 AS LastCostPrice FROM Artig"
    " WHERE (TipVal = 0"
    " OR (TipVal =1 AND DtValDe<=GetDate()) "
    " OR (TipVal =2 AND GetDate() BETWEEN DtValDe AND DtValAte)"
    " OR (TipVal =4 AND DtValDe > GetDate()) "
    " OR (TipVal =5 AND GetDate() NOT BETWEEN DtValDe AND DtValAte))";

bool Is(const std::string& text, const char* value) { return host::UCase(text) == value; }

// The tax context of the prices, read anew for each price.
host::TaxCalculator::Context TaxContext() {
  std::shared_ptr<host::SystemSettings> settings = ModConnectorLumaro::GetSystemSettings();
  return {settings->CountryID, settings->TaxRegionID, settings->TaxRegime};
}

}  // namespace

std::string BSOUpgBrevantaLumaroTables::ItemQuery() {
  host::DatabaseService& source = source_.Get();
  // The sales tax type comes from the article's column where the table has
  // one, else from the back office's function for today.
  host::RecordsetPtr probe = source.OpenRecordset("SELECT Top 0 * FROM Artig");
  bool has_column = probe->HasField("RIVA");
  host::RecordsetTools::CloseRecordset(probe);
  std::string sql =
      has_column ? "SELECT Artig.*" : "SELECT Artig.*, dbo.Artig_RIVA(CArt,GETDATE(),'V') RIVA";
  sql += kInForce;
  if (FamilyLevelLimit >= 1 && FamilyLevelLimit <= 4) {
    std::string column = "CFam" + std::to_string(FamilyLevelLimit);
    sql += FamilyLimit.empty() ? " AND " + column + " <>''"
                               : " AND " + column + " IN (" + FamilyLimit + ")";
  }
  return sql;
}

void BSOUpgBrevantaLumaroTables::Upgrade_Item() {
  LoadStep step("Upgrade_Item");
  Progress("Item");
  host::Host& host = ModConnectorLumaro::Host();
  ItemTools tools;
  host::RecordsetPtr rs;
  if (!step.Run(1, [&] {
        tools.items = host.NewItemService();
        tools.properties = host.NewItemPropertyService();
        tools.families = host.NewFamilyService();
        tools.taxes = host.NewTaxCalculator();
        tools.price_lines = host.NewPriceLineService()->GetPriceLines();
        rs = source_.Get().OpenRecordset(ItemQuery());
      })) {
    return;
  }
  double total = rs->Eof() ? 0 : rs->RecordCount();
  double count = 0;
  // The item in hand: the last one built.
  std::optional<host::Item> built;
  for (; total > 0 && !rs->Eof() && !rs->Bof(); rs->MoveNext()) {
    ++count;
    std::string code;
    step.Run(2, [&] { code = SourceTrimmed(*rs, "CArt"); });
    bool is_new = false;
    if (!code.empty()) step.Run(3, [&] { is_new = !tools.items->Exists(code); });
    if (is_new) {
      built = BuildItem(step, *rs, code, tools);
      step.Run(4, [&] { tools.items->Save(*built); });
    }
    if (events_) events_->ProgressCurrent("Item", count, total);
    // Kept as it always was: an article there already takes the id of the
    // last item built, and the first, when there is none, fails and is
    // logged. The initial load clears the items first, so it never meets
    // this.
    step.Run(5, [&] {
      if (!built) host::Raise(host::err::kObjectNotSet, "Upgrade_Item");
      Keys().Add(host::Variant(built->ItemID), "ItemID|" + SourceText(*rs, "CArt"));
    });
  }
  host::RecordsetTools::CloseRecordset(rs);
}

host::Item BSOUpgBrevantaLumaroTables::BuildItem(LoadStep& step, const host::Recordset& rs,
                                                 const std::string& code, ItemTools& tools) {
  host::Item item;
  std::shared_ptr<host::SystemSettings> settings = ModConnectorLumaro::GetSystemSettings();
  const host::Currency& currency = HostContext().Defaults();
  step.Run(10, [&] { tools.price_lines->MoveFirst(); });
  item.ItemID = code;
  step.Run(11, [&] { item.ItemKey = SourceText(rs, "CArt"); });
  std::string kind;
  step.Run(12, [&] {
    kind = SourceText(rs, "TipArt");
    if (Is(kind, "S")) {
      item.ItemType = 1;
    } else if (Is(kind, "F")) {
      item.ItemType = initialize_mode_ ? 0 : 6;  // a plain item in the initial load
    } else if (Is(kind, "G")) {
      item.ItemType = 4;
      item.IsComposed = true;
    } else {
      item.ItemType = 0;
    }
  });
  step.Run(13, [&] {
    item.ShortDescription = host::Left(SourceTrimmed(rs, "Sigla"), kShortDescriptionLength);
  });
  step.Run(14, [&] { item.Description = SourceTrimmed(rs, "DESCR"); });
  item.AuxiliaryCode1 = 0;
  item.AuxiliaryCode2 = 0;
  step.Run(15, [&] {
    item.BaseUnitOfMeasureID = KeyText("UnitOfMeasure|" + SourceTrimmed(rs, "Unid"));
    if (item.BaseUnitOfMeasureID.empty())
      item.BaseUnitOfMeasureID = settings->DefaultUnitOfMeasureID;
  });
  step.Run(16, [&] {
    item.SaleUnitOfMeasureID = KeyText("UnitOfMeasure|" + SourceTrimmed(rs, "UnVE"));
    if (item.SaleUnitOfMeasureID.empty()) {
      item.SaleUnitOfMeasureID = settings->DefaultUnitOfMeasureID;
      item.SaleUnitFactor = 1;
    } else {
      item.SaleUnitFactor = SourceNumber(rs, "UPUV");
    }
  });
  item.AltUnitOfMeasureID1 = item.SaleUnitOfMeasureID;
  item.AltUnitOfMeasureID3 = item.SaleUnitOfMeasureID;
  item.AltUnitOfMeasureID2 = item.SaleUnitOfMeasureID;
  item.AltUnitFactor = item.SaleUnitFactor;
  // Kept as it always was: the sale unit's factor is repaired, the
  // alternative unit's stays 0.
  if (item.AltUnitFactor == 0) item.SaleUnitFactor = 1;
  step.Run(17, [&] {
    item.TaxableGroupID =
        host::CInt(host::Variant(KeyNumber("TaxableGroupIDTipoIva|" + SourceTrimmed(rs, "RIVA"))));
  });
  item.CurrencyID = currency.CurrencyID;
  item.CurrencyExchange = currency.Exchange;
  item.CurrencyFactor = currency.Factor;
  item.ControlsStock = !Is(kind, "G") && !Is(kind, "S") && !Is(kind, "D") && !initialize_mode_;
  step.Run(18, [&] {
    item.Family.FamilyID = KeyNumber("Family|" + SourceText(rs, "CFam"));
    if (item.Family.FamilyID == 0) item.Family.FamilyID = KeyNumber("Family|");
    tools.families->Get(item.Family.FamilyID);  // read and left unused, as it always was
  });
  item.PropertyID1.clear();
  step.Run(19, [&] {
    if (SourceNumber(rs, "TemLot") != 0) {
      item.PropertyID1 = KeyText("ItemProperty|" + SourceText(rs, "CArt"));
    }
  });
  item.AuxiliaryCode4 = 0;
  step.Run(20, [&] { item.UseImageInSale = SourceBoolean(rs, "UsaImgInFAC"); });
  step.Run(21, [&] {
    // Whatever UsaImgInFAC says; the bytes are written as they stand.
    item.ImageFile = SaveImageToFileFromRsField(rs.Fields("Img"), HostContext().ItemImageFolder(),
                                                code + " " + SourceTrimmed(rs, "Sigla") + ".bmp");
  });
  step.Run(22, [&] { item.UsesScale = SourceBoolean(rs, "UsaBalVen"); });
  item.AuxiliaryCode3 = 0;
  step.Run(23, [&] { item.PriceLines(*tools.price_lines); });

  bool per_sale_unit = false;
  step.Run(24, [&] { per_sale_unit = Is(SourceText(rs, "UPUV"), "S"); });
  auto add_tax = [&](double price) {
    return tools.taxes->AddTax(price, item.TaxableGroupID, TaxContext());
  };
  step.Run(25, [&] {
    double cost = SourceNumber(rs, "CostPrice");
    if (per_sale_unit) cost *= item.AltUnitFactor;
    if (host::ItemSellingPrice* row = item.SellingPrices.Find(0, 0, "")) {
      row->PriceWithoutTax = cost;
      row->PriceWithTax = add_tax(cost);
    }
  });
  AddItemPrices(step, rs, per_sale_unit, item, tools);
  if (item.HasProperties()) {
    std::shared_ptr<host::ItemProperty> property;
    step.Run(26, [&] {
      property = tools.properties->Load(item.PropertyID1, item.PropertyID2, item.PropertyID3);
    });
    // Each rule is copied by itself: without the record, each fails.
    auto copy = [&](int line, const std::function<void(const host::ItemProperty&)>& rule) {
      step.Run(line, [&] {
        if (!property) host::Raise(host::err::kObjectNotSet, "Upgrade_Item");
        rule(*property);
      });
    };
    copy(27, [&](const host::ItemProperty& p) { item.PropertyRule2 = p.PropertyRule2(); });
    copy(28, [&](const host::ItemProperty& p) { item.PropertyRule1 = p.PropertyRule1(); });
    copy(29, [&](const host::ItemProperty& p) { item.PropertyRule3 = p.PropertyRule3(); });
    copy(32, [&](const host::ItemProperty& p) { item.PropertyRule5 = p.PropertyRule5(); });
    copy(33, [&](const host::ItemProperty& p) { item.PropertyRule4 = p.PropertyRule4(); });
    copy(34, [&](const host::ItemProperty& p) { item.PropertyRule6 = p.PropertyRule6(); });
  } else {
    item.PropertyRule2 = 2;
    item.PropertyRule1 = -1;
    item.PropertyRule3 = false;
    item.PropertyRule5 = 0;
    item.PropertyRule4 = 0;
    item.PropertyTable.clear();
  }
  AddItemSuppliers(step, rs, item, tools);
  AddItemBarcodes(step, rs, item);
  return item;
}

void BSOUpgBrevantaLumaroTables::AddItemPrices(LoadStep& step, const host::Recordset& article,
                                               bool per_sale_unit, host::Item& item,
                                               ItemTools& tools) {
  host::DatabaseService& source = source_.Get();
  host::RecordsetPtr rs;
  if (!step.Run(30, [&] {
        rs = source.OpenRecordset("SELECT * FROM ArPre WHERE CArt='" +
                                  source.SqlFormat().QuoteText(SourceText(article, "CArt")) + "'");
      })) {
    return;
  }
  for (; !rs->Eof() && !rs->Bof(); rs->MoveNext()) {
    step.Run(31, [&] {
      std::string line = SourceNumberText(*rs, "CPre");
      // A line that was not loaded (the price line limit) has no key.
      double price_line = KeyNumber("PriceLine|" + line);
      if (!(price_line > 0)) return;
      host::ItemSellingPrice* row = item.SellingPrices.Find(price_line, 0, "");
      if (row == nullptr) host::Raise(host::err::kObjectNotSet, "Upgrade_Item");
      if (host::IsDate(rs->Fields("DtPre"))) row->PriceDate = SourceDate(*rs, "DtPre");
      row->PriceStatus = 0;
      double price = SourceNumber(*rs, "prev");
      if (per_sale_unit) price *= item.AltUnitFactor;
      if (host::CBool(Keys().Item("PriceLineTaxIncluded|" + line))) {
        row->PriceWithTax = price;
        row->PriceWithoutTax =
            tools.taxes->RemoveTax(row->PriceWithTax, item.TaxableGroupID, TaxContext());
      } else {
        row->PriceWithoutTax = price;
        row->PriceWithTax =
            tools.taxes->AddTax(row->PriceWithoutTax, item.TaxableGroupID, TaxContext());
      }
    });
  }
  host::RecordsetTools::CloseRecordset(rs);
}

void BSOUpgBrevantaLumaroTables::AddItemSuppliers(LoadStep& step, const host::Recordset& article,
                                                  host::Item& item, ItemTools& tools) {
  host::DatabaseService& source = source_.Get();
  const host::Currency& currency = HostContext().Defaults();
  host::RecordsetPtr rs;
  if (step.Run(40, [&] {
        rs = source.OpenRecordset("SELECT * FROM ArFor WHERE Cart='" +
                                  source.SqlFormat().QuoteText(SourceText(article, "CArt")) + "'");
      })) {
    for (; !rs->Eof() && !rs->Bof(); rs->MoveNext()) {
      host::ItemSupplier supplier;
      step.Run(41, [&] {
        supplier.SupplierID = KeyNumber("Supplier|" + SourceNumberText(*rs, "CFor"));
      });
      step.Run(42, [&] { supplier.SupplierItemRef = SourceTrimmed(*rs, "RFor"); });
      supplier.SupplierRefStatus = 0;
      step.Run(43, [&] {
        supplier.LastCostPrice = SourceNumber(*rs, "UPC");
        supplier.LastCostPriceWithTax =
            tools.taxes->AddTax(supplier.LastCostPrice, item.TaxableGroupID, TaxContext());
      });
      step.Run(44, [&] {
        supplier.Discount1 = SourceNumber(*rs, "Dsc1");
        supplier.Discount2 = SourceNumber(*rs, "Dsc2");
        supplier.Discount3 = SourceNumber(*rs, "Dsc3");
      });
      step.Run(45, [&] {
        if (host::IsDate(rs->Fields("DtUPC"))) supplier.LastCostDate = SourceDate(*rs, "DtUPC");
      });
      supplier.CurrencyID = currency.CurrencyID;
      supplier.CurrencyFactor = currency.Factor;
      supplier.CurrencyExchange = currency.Exchange;
      // The first known supplier is the item's own; an unknown one is
      // dropped.
      if (supplier.SupplierID > 0) {
        item.Suppliers.push_back(supplier);
        if (item.SupplierID == 0) item.SupplierID = supplier.SupplierID;
      }
    }
    host::RecordsetTools::CloseRecordset(rs);
  }
  if (item.SupplierID == 0) item.SupplierID = KeyNumber("Supplier|-1");
}

void BSOUpgBrevantaLumaroTables::AddItemBarcodes(LoadStep& step, const host::Recordset& article,
                                                 host::Item& item) {
  host::DatabaseService& source = source_.Get();
  host::RecordsetPtr rs;
  if (!step.Run(50, [&] {
        rs = source.OpenRecordset("SELECT * FROM ArBar WHERE CArt = '" +
                                  source.SqlFormat().QuoteText(SourceText(article, "CArt")) + "'");
      })) {
    return;
  }
  item.Barcodes = host::ItemBarcodes();
  for (; !rs->Eof(); rs->MoveNext()) {
    step.Run(51, [&] {
      std::string barcode = SourceText(*rs, "CBar");  // not trimmed
      // The first barcode marked for labels is the item's own.
      if (SourceBoolean(*rs, "EEtiq") && item.Barcode.empty()) {
        item.Barcode = barcode;
        return;
      }
      host::ItemBarcode row;
      row.Barcode = barcode;
      row.UnitOfMeasureID = item.SaleUnitOfMeasureID;
      row.Quantity = 1;
      row.CurrencyID = item.CurrencyID;
      row.CurrencyFactor = item.CurrencyFactor;
      row.CurrencyExchange = item.CurrencyExchange;
      item.Barcodes.Add(row);
    });
  }
  host::RecordsetTools::CloseRecordset(rs);
}

std::string BSOUpgBrevantaLumaroTables::SaveImageToFileFromRsField(const host::Variant& field,
                                                                   const std::string& folder,
                                                                   const std::string& file_name) {
  std::string written;
  // Its own handler: a failure is logged and ends it, with no path.
  LoadStep("SaveImageToFileFromRsField").Run(1, [&] {
    if (!host::FolderExists(folder)) return;
    std::string path = host::BuildPath(folder, file_name);
    for (int counter = 1; host::FileExists(path); ++counter) {
      path = host::BuildPath(folder, std::to_string(counter) + file_name);
    }
    if (field.Type() != host::VariantType::kBytes || field.AsBytes().empty()) return;
    const host::Variant::Bytes& bytes = field.AsBytes();
    std::FILE* file = std::fopen(path.c_str(), "wb");
    if (file == nullptr)
      host::RaiseWith(host::err::kPathNotFound, "Cannot write '" + path + "'",
                      "SaveImageToFileFromRsField");
    // The remainder first, then the whole blocks.
    size_t at = 0;
    size_t first = bytes.size() % kPictureBlock;
    bool ok = std::fwrite(bytes.data(), 1, first, file) == first;
    for (at = first; ok && at < bytes.size(); at += kPictureBlock) {
      ok = std::fwrite(bytes.data() + at, 1, kPictureBlock, file) == kPictureBlock;
    }
    ok = std::fclose(file) == 0 && ok;
    if (!ok) host::RaiseWith(57, "Cannot write '" + path + "'", "SaveImageToFileFromRsField");
    written = path;
  });
  return written;
}

}  // namespace lumaro
