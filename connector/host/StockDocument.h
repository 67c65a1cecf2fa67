#ifndef LUMARO_CONNECTOR_HOST_STOCK_DOCUMENT_H_
#define LUMARO_CONNECTOR_HOST_STOCK_DOCUMENT_H_

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "connector/host/Currency.h"
#include "connector/host/Date.h"
#include "connector/host/Entities.h"

namespace host {

// One line of a stock movement: a quantity of an item into or out of a
// warehouse. ItemValue, LineValue1 to LineValue3, DateTwo and DateThree are
// the host's, copied as the caller gives them.
struct StockTransactionDetail {
  int32_t LineNumber = 0;
  std::string ItemID;
  double ColorID = 0;
  double SizeID = 0;
  std::string Description;
  std::optional<Date> TransDate;
  std::optional<Date> DateTwo;
  std::optional<Date> DateThree;
  double ItemValue = 0;
  double LineValue1 = 0;
  double LineValue2 = 0;
  double LineValue3 = 0;
  double Quantity = 0;
  int16_t TaxableGroupID = 0;
  int16_t WarehouseID = 0;
  int16_t FromWarehouseID = 0;
  int16_t ToWarehouseID = 0;
  Currency LineCurrency;
};

// A stock movement: its document in its series, its dates, its warehouses
// and its lines.
struct StockTransaction {
  std::string TransSerial;
  std::string TransDocument;
  int32_t TransDocNumber = 0;  // given when it is committed
  std::optional<Date> TransDate;
  std::optional<Date> DateTwo;
  std::shared_ptr<Warehouse> FromWarehouse;
  std::shared_ptr<Warehouse> ToWarehouse;
  int16_t TransactionFlag = 0;
  std::vector<StockTransactionDetail> Details;
};

// The host's document of stock movements: it makes a movement, then
// prepares and commits it, which writes it, its lines, and the stock they
// move.
class StockDocument {
 public:
  virtual ~StockDocument() = default;
  // 2: a movement made by a program, not at the till.
  int16_t DocumentMode = 0;
  // Begins a movement of `document` in `series`, dated today.
  virtual void NewTransaction(const std::string& document, const std::string& series) = 0;
  virtual StockTransaction& Transaction() = 0;
  // Checks the movement (raises when it cannot be written); `quiet` asks
  // for no question on the screen.
  virtual void Prepare(bool quiet) = 0;
  // Writes the movement under the next number of its document and series,
  // and adds its quantities to the stock of its items, all or nothing.
  virtual void Commit(bool quiet) = 0;
};

}  // namespace host

#endif  // LUMARO_CONNECTOR_HOST_STOCK_DOCUMENT_H_
