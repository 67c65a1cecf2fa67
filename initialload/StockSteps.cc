// The stock of a plain load: one opening movement "ES" of the back office's
// stock by lot, the reorder levels of each article, and a stock row for
// every item in every warehouse. The initial load brings no stock.

#include "connector/ModConnectorLumaro.h"
#include "connector/host/Conversions.h"
#include "connector/host/Error.h"
#include "initialload/BSOUpgBrevantaLumaroTables.h"
#include "initialload/LoadStep.h"

namespace lumaro {
namespace {

constexpr const char* kOpeningDocument = "ES";
constexpr int16_t kProgramMovement = 2;

}  // namespace

void BSOUpgBrevantaLumaroTables::LoadStock() {
  LoadStep step("UpgradeTables");
  step.Run(27, [&] { PrepareStockTransaction(); });
  Upgrade_Stock();
  if (!stock_document_ || stock_document_->Transaction().Details.empty()) return;
  Progress("StockTransaction");
  step.Run(28, [&] { stock_document_->Prepare(true); });
  step.Run(29, [&] { stock_document_->Commit(true); });
}

void BSOUpgBrevantaLumaroTables::PrepareStockTransaction() {
  stock_document_ = ModConnectorLumaro::Host().NewStockDocument();
  stock_document_->DocumentMode = kProgramMovement;
  stock_document_->NewTransaction(kOpeningDocument, series_key_);
  stock_document_->Transaction().TransactionFlag = 0;
}

void BSOUpgBrevantaLumaroTables::Upgrade_Stock() {
  LoadStep step("Upgrade_Stock");
  host::SqlStatement statement;
  Progress("Stock");
  host::DatabaseService& source = source_.Get();
  host::RecordsetPtr lots;
  host::RecordsetPtr levels;
  if (!step.Run(1, [&] {
        lots = source.OpenRecordset(
            "SELECT CArt AS ARTIGO, CLot, CArm AS ARMAZEM, QtdExi AS EXISTENC FROM ArLoA WHERE "
            "QtdExi <>0 ORDER BY CArt");
        levels = source.OpenRecordset(
            "SELECT Artig.CArt AS ARTIGO, ArRup.CArm, ArRup.StMi, ArRup.StMe, ArRup.StMa FROM "
            "Artig INNER JOIN ArRup ON (ArRup.CRup=Artig.Crup)");
      })) {
    return;
  }
  double total = lots->RecordCount() + levels->RecordCount();
  double count = 0;
  auto progress = [&] {
    ++count;
    if (events_) events_->ProgressCurrent("Stock", count, total);
  };
  // A warehouse the load did not bring brings no stock.
  for (; !lots->Eof(); lots->MoveNext()) {
    step.Run(2, [&] {
      std::string warehouse = KeyText("Warehouse|" + SourceText(*lots, "ARMAZEM"));
      if (warehouse.empty()) return;
      ItemStockEntry entry;
      entry.ItemID = KeyText("ItemID|" + SourceText(*lots, "ARTIGO"));
      entry.LotID = SourceText(*lots, "CLot");
      entry.WarehouseID = host::CInt(host::Variant(warehouse));
      entry.Quantity = SourceNumber(*lots, "EXISTENC");
      AddStockTransactionDetail(entry);
    });
    progress();
  }
  statement.SetTable("Stock");
  host::DatabaseService& pos = LoadTarget();
  for (; !levels->Eof(); levels->MoveNext()) {
    step.Run(3, [&] {
      std::string warehouse = KeyText("Warehouse|" + SourceNumberText(*levels, "CArm"));
      if (warehouse.empty()) return;
      // One level for both; StMe and StMa are not read. A stock row not
      // there is not made.
      double level = SourceNumber(*levels, "StMi");
      statement.ClearColumns();
      statement.Number("ReorderPoint", level);
      statement.Number("RestockLevel", level);
      statement.Text("BinLocation", "");
      statement.KeyText("ItemID", KeyText("ItemID|" + SourceText(*levels, "ARTIGO")));
      statement.KeyNumber("WarehouseID", host::CDbl(host::Variant(warehouse)));
      statement.KeyNumber("ColorID", 0);
      statement.KeyNumber("SizeID", 0);
      pos.RunUpdate(statement);
    });
    progress();
  }
  host::RecordsetTools::CloseRecordset(lots);
  host::RecordsetTools::CloseRecordset(levels);
}

void BSOUpgBrevantaLumaroTables::AddStockTransactionDetail(const ItemStockEntry& entry) {
  LoadStep step("AddStockTransactionDetail");
  // Without a prepared movement there is nowhere to add the line.
  if (!step.Run(3, [&] {
        if (!stock_document_) host::Raise(host::err::kObjectNotSet, "AddStockTransactionDetail");
      })) {
    return;
  }
  host::Host& host = ModConnectorLumaro::Host();
  host::StockTransaction& movement = stock_document_->Transaction();
  // An item the dictionary does not know fails here; its line goes on.
  std::shared_ptr<host::Item> item;
  step.Run(1, [&] {
    item = host.NewItemService()->Get(entry.ItemID);
    if (!item) host::Raise(host::err::kObjectNotSet, "AddStockTransactionDetail");
  });
  // The first line's warehouse is the whole movement's.
  if (movement.Details.empty()) {
    step.Run(2, [&] {
      std::unique_ptr<host::WarehouseService> warehouses = host.NewWarehouseService();
      movement.FromWarehouse = warehouses->Load(entry.WarehouseID);
      movement.ToWarehouse = warehouses->Load(entry.WarehouseID);
    });
  }
  host::StockTransactionDetail line;
  line.ItemID = entry.ItemID;
  line.SizeID = entry.SizeID;
  line.ColorID = entry.ColorID;
  line.TransDate = movement.TransDate;
  line.DateTwo = movement.DateTwo;
  line.DateThree = movement.TransDate;
  if (item) {
    line.Description = item->Description;
    line.TaxableGroupID = item->TaxableGroupID;
  }
  line.ItemValue = 0;  // the host keeps no value of an item it would give here
  line.LineValue3 = entry.EntryValue2;
  line.LineValue1 = entry.EntryValue1;
  line.LineValue2 = entry.EntryValue1;
  line.Quantity = entry.Quantity;
  line.WarehouseID = entry.WarehouseID;
  line.FromWarehouseID = line.WarehouseID;
  line.ToWarehouseID = line.WarehouseID;
  line.LineNumber = static_cast<int32_t>(movement.Details.size() + 1);
  line.LineCurrency = HostContext().Defaults();
  movement.Details.push_back(line);
}

void BSOUpgBrevantaLumaroTables::insertItemsInStock() {
  LoadStep("insertItemsInStock").Run(1, [&] {
    std::unique_ptr<host::WarehouseService> warehouses =
        ModConnectorLumaro::Host().NewWarehouseService();
    for (int16_t warehouse : warehouses->GetWarehouses()) warehouses->InsertItemsInStock(warehouse);
  });
}

}  // namespace lumaro
