#include "standalone/services/SqliteSalesmanService.h"

#include "connector/host/FieldConverter.h"
#include "standalone/services/EntityColumns.h"

namespace standalone {
namespace {

using host::Salesman;

// The Salesman row but its id.
const EntityColumns<Salesman> kSalesmanColumns = {
    {"SalesmanKey", &Salesman::SalesmanKey},
    {"SalesmanName", &Salesman::SalesmanName},
    {"Comments", &Salesman::Comments},
    {"CountryID", &Salesman::CountryID},
    {"SalesmanLevel", &Salesman::SalesmanLevel},
    {"MaximumDiscount", &Salesman::MaximumDiscount},
    {"SalesGroupID", &Salesman::SalesGroupID},
    {"ComissionOnSale", &Salesman::ComissionOnSale},
    {"ComissionOnPay", &Salesman::ComissionOnPay},
    {"ComissionIncidenceType", &Salesman::ComissionIncidenceType},
    {"SpokenLanguageID", &Salesman::SpokenLanguageID},
};

}  // namespace

std::shared_ptr<host::Salesman> SqliteSalesmanService::Get(double salesman_id,
                                                           std::string_view salesman_key) {
  auto rs = salesman_id == 0 && !salesman_key.empty()
                ? db_.Query("SELECT * FROM Salesman WHERE SalesmanKey=?",
                            {host::SqlValue::Text(salesman_key)})
                : db_.Query("SELECT * FROM Salesman WHERE SalesmanID=?",
                            {host::SqlValue::Number(salesman_id)});
  if (rs->Eof()) return nullptr;
  auto salesman = std::make_shared<Salesman>();
  salesman->SalesmanID = host::FieldConverter::ToNumber(rs->Fields("SalesmanID"));
  kSalesmanColumns.Read(*rs, *salesman);
  return salesman;
}

double SqliteSalesmanService::GetIDFromKey(std::string_view salesman_key) {
  return IdFromKey(db_, "Salesman", "SalesmanID", "SalesmanKey", salesman_key);
}

double SqliteSalesmanService::GetFirstID() { return FirstId(db_, "Salesman", "SalesmanID"); }

double SqliteSalesmanService::NextID() { return NextId(db_, "Salesman", "SalesmanID"); }

void SqliteSalesmanService::Save(const Salesman& salesman, double salesman_id) {
  host::SqlStatement statement;
  statement.SetTable("Salesman");
  kSalesmanColumns.Write(salesman, statement);
  if (RowExists(db_, "Salesman", "SalesmanID", salesman_id)) {
    statement.KeyNumber("SalesmanID", salesman_id);
    writer_.Update(std::move(statement));
  } else {
    statement.Number("SalesmanID", salesman_id);
    writer_.Insert(std::move(statement));
  }
}

}  // namespace standalone
