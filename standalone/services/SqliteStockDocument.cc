#include "standalone/services/SqliteStockDocument.h"

#include <string>
#include <vector>

#include "connector/host/Error.h"
#include "connector/host/FieldConverter.h"
#include "standalone/services/EntityColumns.h"

namespace standalone {
namespace {

using host::SqlValue;
using host::StockTransaction;
using host::StockTransactionDetail;

constexpr const char* kSource = "StockDocument";

// The StockTransaction row but its warehouses (members of members).
const EntityColumns<StockTransaction> kHeadColumns = {
    {"TransSerial", &StockTransaction::TransSerial},
    {"TransDocument", &StockTransaction::TransDocument},
    {"TransDocNumber", &StockTransaction::TransDocNumber},
    {"TransDate", &StockTransaction::TransDate},
    {"DateTwo", &StockTransaction::DateTwo},
    {"TransactionFlag", &StockTransaction::TransactionFlag},
};

// The StockTransactionDetails row but the movement's key and the line's
// currency.
const EntityColumns<StockTransactionDetail> kLineColumns = {
    {"LineNumber", &StockTransactionDetail::LineNumber},
    {"ItemID", &StockTransactionDetail::ItemID},
    {"ColorID", &StockTransactionDetail::ColorID},
    {"SizeID", &StockTransactionDetail::SizeID},
    {"Description", &StockTransactionDetail::Description},
    {"TransDate", &StockTransactionDetail::TransDate},
    {"DateTwo", &StockTransactionDetail::DateTwo},
    {"DateThree", &StockTransactionDetail::DateThree},
    {"ItemValue", &StockTransactionDetail::ItemValue},
    {"LineValue1", &StockTransactionDetail::LineValue1},
    {"LineValue2", &StockTransactionDetail::LineValue2},
    {"LineValue3", &StockTransactionDetail::LineValue3},
    {"Quantity", &StockTransactionDetail::Quantity},
    {"TaxableGroupID", &StockTransactionDetail::TaxableGroupID},
    {"WarehouseID", &StockTransactionDetail::WarehouseID},
    {"FromWarehouseID", &StockTransactionDetail::FromWarehouseID},
    {"ToWarehouseID", &StockTransactionDetail::ToWarehouseID},
};

// What a movement's line adds to the running quantities of its item and of
// its stock row: the quantity, in units as in measures.
constexpr const char* kAddQuantity =
    " SET PhysicalQty=PhysicalQty+?, AvailableQty=AvailableQty+?, "
    "PhysicalUnits=PhysicalUnits+?, AvailableUnits=AvailableUnits+?";

[[noreturn]] void Refuse(const std::string& description) {
  host::RaiseWith(host::err::kInvalidProcedureCall, description, kSource);
}

bool Found(host::DatabaseService& db, const std::string& sql, const SqlValue& value) {
  return !db.Query(sql, {value})->Eof();
}

}  // namespace

void SqliteStockDocument::NewTransaction(const std::string& document, const std::string& series) {
  transaction_ = StockTransaction{};
  transaction_.TransDocument = document;
  transaction_.TransSerial = series;
  transaction_.TransDate = host::Today();
  transaction_.DateTwo = transaction_.TransDate;
}

void SqliteStockDocument::Prepare(bool /*quiet*/) {
  const StockTransaction& movement = transaction_;
  if (movement.TransDocument.empty() || movement.TransSerial.empty()) {
    Refuse("The stock movement has no document or no series (document '" + movement.TransDocument +
           "', series '" + movement.TransSerial + "')");
  }
  const std::string name =
      "The stock movement " + movement.TransDocument + " " + movement.TransSerial;
  if (movement.Details.empty()) Refuse(name + " has no lines");
  for (const StockTransactionDetail& line : movement.Details) {
    const std::string where = name + ", line " + std::to_string(line.LineNumber) + ",";
    if (!Found(db_, "SELECT ItemID FROM Item WHERE ItemID=?", SqlValue::Text(line.ItemID))) {
      Refuse(where + " names the item '" + line.ItemID + "', which does not exist");
    }
    if (!Found(db_, "SELECT WarehouseID FROM Warehouse WHERE WarehouseID=?",
               SqlValue::Number(line.WarehouseID))) {
      Refuse(where + " names the warehouse " + std::to_string(line.WarehouseID) +
             ", which does not exist");
    }
  }
}

void SqliteStockDocument::Commit(bool quiet) {
  Prepare(quiet);
  const int32_t before = transaction_.TransDocNumber;
  db_.BeginTrans();
  try {
    transaction_.TransDocNumber = TakeNumber();
    WriteHead();
    for (const StockTransactionDetail& line : transaction_.Details) {
      WriteLine(line);
      AddToStock(line);
    }
  } catch (...) {
    transaction_.TransDocNumber = before;
    db_.RollbackTrans();
    throw;
  }
  try {
    db_.CommitTrans();
  } catch (...) {
    transaction_.TransDocNumber = before;
    throw;
  }
}

int32_t SqliteStockDocument::TakeNumber() {
  const std::vector<SqlValue> key = {SqlValue::Text(transaction_.TransSerial),
                                     SqlValue::Text(transaction_.TransDocument)};
  auto rs = db_.Query(
      "SELECT TransDocNumber FROM DocumentsSeriesNumber WHERE TransSerial=? AND TransDocID=?", key);
  int32_t last = 0;
  if (rs->Eof()) {
    host::SqlStatement row;
    row.SetTable("DocumentsSeriesNumber");
    row.Text("TransSerial", transaction_.TransSerial);
    row.Text("TransDocID", transaction_.TransDocument);
    row.Number("TransDocNumber", 0);
    writer_.Insert(std::move(row));
  } else {
    last = static_cast<int32_t>(host::FieldConverter::ToNumber(rs->Fields(0)));
  }
  const int32_t number = last + 1;
  db_.Query(
      "UPDATE DocumentsSeriesNumber SET TransDocNumber=? WHERE TransSerial=? AND TransDocID=?",
      {SqlValue::Number(number), key[0], key[1]});
  return number;
}

void SqliteStockDocument::WriteHead() {
  host::SqlStatement row;
  row.SetTable("StockTransaction");
  kHeadColumns.Write(transaction_, row);
  row.Number("FromWarehouseID",
             transaction_.FromWarehouse ? transaction_.FromWarehouse->WarehouseID : 0);
  row.Number("ToWarehouseID", transaction_.ToWarehouse ? transaction_.ToWarehouse->WarehouseID : 0);
  writer_.Insert(std::move(row));
}

void SqliteStockDocument::WriteLine(const StockTransactionDetail& line) {
  host::SqlStatement row;
  row.SetTable("StockTransactionDetails");
  row.Text("TransSerial", transaction_.TransSerial);
  row.Text("TransDocument", transaction_.TransDocument);
  row.Number("TransDocNumber", transaction_.TransDocNumber);
  kLineColumns.Write(line, row);
  row.Text("CurrencyID", line.LineCurrency.CurrencyID);
  row.Number("CurrencyExchange", line.LineCurrency.Exchange);
  row.Number("CurrencyFactor", line.LineCurrency.Factor);
  writer_.Insert(std::move(row));
}

void SqliteStockDocument::AddToStock(const StockTransactionDetail& line) {
  const SqlValue quantity = SqlValue::Number(line.Quantity);
  const std::vector<SqlValue> key = {SqlValue::Text(line.ItemID),
                                     SqlValue::Number(line.WarehouseID),
                                     SqlValue::Number(line.ColorID), SqlValue::Number(line.SizeID)};
  constexpr const char* kStockRow =
      " WHERE ItemID=? AND WarehouseID=? AND ColorID=? AND SizeID=? AND LotID=''";
  if (db_.Query(std::string("SELECT ItemID FROM Stock") + kStockRow, key)->Eof()) {
    host::SqlStatement row;
    row.SetTable("Stock");
    row.Text("ItemID", line.ItemID);
    row.Number("WarehouseID", line.WarehouseID);
    row.Number("ColorID", line.ColorID);
    row.Number("SizeID", line.SizeID);
    row.Text("LotID", "");
    writer_.Insert(std::move(row));
  }
  std::vector<SqlValue> values(4, quantity);
  values.insert(values.end(), key.begin(), key.end());
  db_.Query(std::string("UPDATE Stock") + kAddQuantity + kStockRow, values);
  db_.Query(std::string("UPDATE Item") + kAddQuantity + " WHERE ItemID=?",
            {quantity, quantity, quantity, quantity, key[0]});
}

}  // namespace standalone
