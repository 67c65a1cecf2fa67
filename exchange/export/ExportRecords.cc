#include "exchange/export/ExportRecords.h"

#include <cmath>
#include <vector>

#include "connector/host/Conversions.h"
#include "connector/host/FieldConverter.h"
#include "connector/host/Text.h"
#include "exchange/export/KeyCaches.h"
#include "exchange/export/RowFields.h"

namespace lumaro {
namespace {

using host::FieldConverter;

// A record of `size` positions, position 0 being its tag; unset positions
// stay empty.
class Record {
 public:
  Record(std::string_view tag, size_t size) : fields_(size) { fields_[0] = std::string(tag); }
  std::string& operator[](size_t position) { return fields_[position]; }
  std::string Text() const { return host::Join(fields_, "^"); }

 private:
  std::vector<std::string> fields_;
};

// The written forms of a field of the current row.
std::string Clean(const host::Recordset& row, std::string_view field) {
  return CleanExportText(FieldText(row, field));
}
std::string DateOf(const host::Recordset& row, std::string_view field) {
  return host::DateText(FieldConverter::ToDate(row.Fields(field)));
}
std::string TrueFalse(bool value) { return value ? "True" : "False"; }
std::string BooleanOf(const host::Recordset& row, std::string_view field) {
  return TrueFalse(FieldConverter::ToBoolean(row.Fields(field)));
}

}  // namespace

std::string CleanExportText(std::string_view text) { return host::Replace(text, "^", " "); }

std::string TenderCode(int32_t till_id, const host::Variant& tender_id) {
  double id = FieldConverter::ToNumber(tender_id);
  if (!(id > 0)) return "";
  // "00" pads and never cuts: tender 101 of till 12 is "12100".
  return std::to_string(till_id) + host::FormatNumber(id - 1, "00");
}

std::string BuildHeader(const std::string& company_id, int16_t company_year,
                        const std::string& company_number, int32_t pos_workstation_id,
                        const std::string& workstation_code, double file_number,
                        host::Date first_date) {
  Record r("HF", 9);
  r[1] = "1";
  r[2] = "2";
  r[3] = company_id;
  r[4] = std::to_string(company_year);
  r[5] = company_number + std::to_string(pos_workstation_id);
  r[6] = workstation_code;
  r[7] = host::NumberText(file_number);
  r[8] = host::DateText(first_date);
  return r.Text();
}

std::string BuildCustomerRecord(const std::string& workstation_code, const host::Recordset& row,
                                KeyCaches& keys) {
  Record r("CL", 24);
  r[1] = host::Left(workstation_code, 2);
  r[2] = FieldNumberText(row, "CustomerID");
  r[3] = FieldText(row, "OrganizationName");
  r[4] = FieldText(row, "AddressLine1");
  r[5] = FieldText(row, "AddressLine2");
  r[6] = FieldText(row, "PostalCode");
  r[7] = FieldText(row, "FederalTaxID");
  r[8] = FieldText(row, "EmailAddress");
  r[9] = FieldText(row, "Telephone1");
  r[10] = FieldText(row, "Fax");
  // The level is looked up before the salesman, on purpose: see
  // KeyCaches::GetCustomerLevelKey.
  r[15] = keys.GetCustomerLevelKey(FieldNumber(row, "CustomerLevel"));
  r[19] = keys.GetPriceLineKey(FieldNumber(row, "PriceLineID"));
  r[21] = keys.GetSalesmanKey(FieldNumber(row, "SalesmanID"));
  r[22] = keys.GetPaymentKey(FieldNumber(row, "PaymentID"));
  r[23] = BooleanOf(row, "AplyRetentionTax");
  return r.Text();
}

std::string BuildDocumentHead(const std::string& workstation_code, const host::Recordset& row,
                              KeyCaches& keys) {
  if (row.Eof()) return "";
  Record r("FC", 32);
  r[1] = FieldText(row, "TransDocument");
  r[2] = workstation_code;
  r[3] = FieldNumberText(row, "TransDocNumber");
  r[4] = BooleanOf(row, "TransactionTaxIncluded");
  r[5] = DateOf(row, "CreateDate");
  double party_id = FieldNumber(row, "PartyID");
  r[6] = party_id != 0 ? host::NumberText(party_id) : "";
  r[7] = "True";
  r[10] = keys.GetSalesmanKey(FieldNumber(row, "SalesmanID"));
  r[14] = keys.GetCarrierKey(FieldNumber(row, "CarrierID"));
  r[16] = Clean(row, "LoadPlaceDescription");
  r[17] = CleanExportText(DateOf(row, "LoadPlaceDateTime"));
  r[18] = Clean(row, "UnloadPlaceDescription");
  r[19] = CleanExportText(DateOf(row, "UnloadPlaceDateTime"));
  r[20] = Clean(row, "ContractReferenceNumber");
  r[24] = Clean(row, "Comments");
  r[25] = keys.GetAppUserKey(FieldNumber(row, "UserAlt"));
  r[26] = FieldNumberText(row, "GlobalDiscountPercent");
  std::string export_code = std::to_string(keys.CurrencyExportCode(FieldText(row, "CurrencyID")));
  r[27] = export_code;
  r[28] = export_code;
  r[29] = export_code;
  r[30] = FieldNumberText(row, "TotalTransactionAmount");
  r[31] = FieldNumber(row, "TransStatus") == 1 ? "1" : "0";
  return r.Text();
}

std::string BuildTenderRecord(const host::Recordset& tender, int32_t till_id) {
  if (tender.Eof()) return "";
  Record r("FP", 5);
  r[1] = "X";
  r[2] = TenderCode(till_id, tender.Fields("MinTenderID"));
  r[3] = FieldText(tender, "CheckSequenceNumber");
  r[4] = host::NumberText(std::fabs(FieldNumber(tender, "SumAmount")));
  return r.Text();
}

std::string BuildCreditRecord(const host::Recordset& sale, const std::string& party_document_text) {
  Record r("FP", 5);
  r[1] = "C";
  r[2] = FieldNumberText(sale, "PartyID");
  r[3] = party_document_text;
  r[4] = FieldNumberText(sale, "TotalTransactionAmount");
  return r.Text();
}

std::string BuildPartyRecord(const host::Recordset& sale) {
  Record r("FM", 6);
  static constexpr std::string_view kFields[] = {"PartyName", "PartyAddress1", "PartyAddress2",
                                                 "PartyPostalCode", "PartyFederalTaxID"};
  bool any = false;
  for (size_t i = 0; i < std::size(kFields); ++i) {
    r[i + 1] = Clean(sale, kFields[i]);
    any = any || !r[i + 1].empty();
  }
  return any ? r.Text() : "";
}

std::string BuildLineRecord(bool tax_included, const host::Recordset& line, KeyCaches& keys,
                            const std::string& tax_rate) {
  Record r("FL", 21);
  r[1] = FieldNumberText(line, "LineItemID");
  std::string item_id = FieldText(line, "ItemID");
  std::string item_key = keys.GetItemKey(item_id);
  r[2] = CleanExportText(item_key.empty() ? item_id : item_key);
  r[3] = Clean(line, "PropertyValue1");
  r[4] = Clean(line, "Description");
  r[5] = FieldNumberText(line, "Units");
  r[7] = FieldNumberText(line, "Quantity");
  r[8] = Clean(line, "UnitOfSaleID");
  r[12] = FieldNumberText(line, tax_included ? "TaxIncludedPrice" : "UnitPrice");
  r[13] = FieldNumber(line, "Units") != FieldNumber(line, "Quantity") ? "S" : "V";
  r[14] = FieldNumberText(line, "CumulativeDiscountPercent1");
  r[15] = FieldNumberText(line, "CumulativeDiscountPercent2");
  r[16] = FieldNumberText(line, "CumulativeDiscountPercent3");
  r[17] = FieldNumberText(line, "TotalNetPrintAmout");
  r[18] = tax_rate;
  r[19] = DateOf(line, "CreateDate");
  // Kept on purpose: this record alone ends with a "^".
  return r.Text() + "^";
}

std::string BuildReceiptHead(const std::string& workstation_code, const host::Recordset& receipt,
                             int32_t till_id, KeyCaches& keys) {
  Record r("TC", 8);
  r[1] = FieldText(receipt, "TransDocument");
  r[2] = workstation_code;
  r[3] = FieldNumberText(receipt, "TransDocNumber");
  r[4] = DateOf(receipt, "CreateDate");
  r[5] = keys.GetAppUserKey(FieldNumber(receipt, "UserAlt"));
  r[6] = "X";
  r[7] = TenderCode(till_id, receipt.Fields("TenderID"));
  return r.Text();
}

std::string BuildReceiptLine(const host::Recordset& line, int32_t till_id,
                             const std::string& check_number, const std::string& entry_sign) {
  Record r("TL", 7);
  r[1] = FieldNumberText(line, "TransOrder");
  r[2] = "X";
  r[3] = TenderCode(till_id, line.Fields("TenderID"));
  r[4] = check_number;
  // The sign of the movement travels in this letter only: the amount is
  // always written as an absolute value.
  r[5] = entry_sign == "+" ? "C" : "D";
  r[6] = host::NumberText(std::fabs(FieldNumber(line, "Amount")));
  return r.Text();
}

}  // namespace lumaro
