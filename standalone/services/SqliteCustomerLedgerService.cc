#include "standalone/services/SqliteCustomerLedgerService.h"

#include "connector/host/FieldConverter.h"
#include "standalone/services/EntityColumns.h"

namespace standalone {
namespace {

using host::LedgerLine;
using host::SqlValue;

// The CustomerLedgerAccount row.
const EntityColumns<LedgerLine> kLedgerColumns = {
    {"TransSerial", &LedgerLine::TransSerial},
    {"TransDocument", &LedgerLine::TransDocument},
    {"TransDocNumber", &LedgerLine::TransDocNumber},
    {"PartyID", &LedgerLine::PartyID},
    {"TotalAmount", &LedgerLine::TotalAmount},
    {"TotalPendingAmount", &LedgerLine::TotalPendingAmount},
    {"TotalPaidAmount", &LedgerLine::TotalPaidAmount},
    {"CurrencyID", &LedgerLine::CurrencyID},
    {"CurrencyExchange", &LedgerLine::CurrencyExchange},
    {"CurrencyFactor", &LedgerLine::CurrencyFactor},
    {"CreateDate", &LedgerLine::CreateDate},
    {"DueDate", &LedgerLine::DueDate},
    {"PaymentID", &LedgerLine::PaymentID},
    {"TransactionKind", &LedgerLine::TransactionKind},
};

}  // namespace

void SqliteCustomerLedgerService::Save(LedgerLine& line) {
  bool numbered_here = line.TransDocNumber == 0;
  if (numbered_here) {
    auto rs = db_.Query(
        "SELECT MAX(TransDocNumber) FROM CustomerLedgerAccount WHERE TransSerial=? AND "
        "TransDocument=?",
        {SqlValue::Text(line.TransSerial), SqlValue::Text(line.TransDocument)});
    // No line yet: a MAX of NULL, which reads as 0.
    line.TransDocNumber = static_cast<int32_t>(host::FieldConverter::ToNumber(rs->Fields(0))) + 1;
  }
  host::SqlStatement row;
  row.SetTable("CustomerLedgerAccount");
  kLedgerColumns.Write(line, row);
  try {
    writer_.Insert(std::move(row));
  } catch (...) {
    if (numbered_here) line.TransDocNumber = 0;
    throw;
  }
}

}  // namespace standalone
