#include "standalone/services/SqliteSalesmanService.h"

#include "connector/host/FieldConverter.h"

namespace standalone {

using host::FieldConverter;

std::shared_ptr<host::Salesman> SqliteSalesmanService::Get(double salesman_id,
                                                           std::string_view salesman_key) {
  const host::SqlFormat& format = db_.SqlFormat();
  std::string where = salesman_id == 0 && !salesman_key.empty()
                          ? "SalesmanKey='" + format.QuoteText(salesman_key) + "'"
                          : "SalesmanID=" + format.Number(salesman_id);
  auto rs = db_.OpenRecordset("SELECT * FROM Salesman WHERE " + where);
  if (rs->Eof()) return nullptr;
  auto salesman = std::make_shared<host::Salesman>();
  salesman->SalesmanID = FieldConverter::ToNumber(rs->Fields("SalesmanID"));
  salesman->SalesmanKey = FieldConverter::ToText(rs->Fields("SalesmanKey"));
  salesman->SalesmanName = FieldConverter::ToText(rs->Fields("SalesmanName"));
  salesman->Comments = FieldConverter::ToText(rs->Fields("Comments"));
  salesman->CountryID = FieldConverter::ToText(rs->Fields("CountryID"));
  salesman->SalesmanLevel =
      static_cast<int16_t>(FieldConverter::ToNumber(rs->Fields("SalesmanLevel")));
  salesman->MaximumDiscount = FieldConverter::ToNumber(rs->Fields("MaximumDiscount"));
  salesman->SalesGroupID = FieldConverter::ToNumber(rs->Fields("SalesGroupID"));
  salesman->ComissionOnSale = FieldConverter::ToNumber(rs->Fields("ComissionOnSale"));
  salesman->ComissionOnPay = FieldConverter::ToNumber(rs->Fields("ComissionOnPay"));
  salesman->ComissionIncidenceType =
      static_cast<int16_t>(FieldConverter::ToNumber(rs->Fields("ComissionIncidenceType")));
  salesman->SpokenLanguageID = FieldConverter::ToText(rs->Fields("SpokenLanguageID"));
  return salesman;
}

double SqliteSalesmanService::GetIDFromKey(std::string_view salesman_key) {
  return IdFromKey(db_, "Salesman", "SalesmanID", "SalesmanKey", salesman_key);
}

double SqliteSalesmanService::GetFirstID() { return FirstId(db_, "Salesman", "SalesmanID"); }

double SqliteSalesmanService::NextID() { return NextId(db_, "Salesman", "SalesmanID"); }

void SqliteSalesmanService::Save(const host::Salesman& salesman, double salesman_id) {
  host::SqlStatement statement;
  statement.SetTable("Salesman");
  statement.Text("SalesmanKey", salesman.SalesmanKey);
  statement.Text("SalesmanName", salesman.SalesmanName);
  statement.Text("Comments", salesman.Comments);
  statement.Text("CountryID", salesman.CountryID);
  statement.Number("SalesmanLevel", salesman.SalesmanLevel);
  statement.Number("MaximumDiscount", salesman.MaximumDiscount);
  statement.Number("SalesGroupID", salesman.SalesGroupID);
  statement.Number("ComissionOnSale", salesman.ComissionOnSale);
  statement.Number("ComissionOnPay", salesman.ComissionOnPay);
  statement.Number("ComissionIncidenceType", salesman.ComissionIncidenceType);
  statement.Text("SpokenLanguageID", salesman.SpokenLanguageID);
  if (RowExists(db_, "Salesman", "SalesmanID", salesman_id)) {
    statement.KeyNumber("SalesmanID", salesman_id);
    writer_.Update(statement);
  } else {
    statement.Number("SalesmanID", salesman_id);
    writer_.Insert(statement);
  }
}

}  // namespace standalone
