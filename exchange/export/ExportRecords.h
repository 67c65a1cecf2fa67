#ifndef LUMARO_EXCHANGE_EXPORT_EXPORT_RECORDS_H_
#define LUMARO_EXCHANGE_EXPORT_EXPORT_RECORDS_H_

// The records of the export file, field by field. The back office reads them
// by position: every position, literal and separator is part of the format,
// the many empty positions included. Values are written in the run time's
// plain text forms under the host's regional settings (a number is "12,5" or
// "3" on a Portuguese system, a date its short date and, with a time part,
// its long time).

#include <cstdint>
#include <string>
#include <string_view>

#include "connector/Workstation.h"
#include "connector/host/Date.h"
#include "connector/host/Recordset.h"

namespace lumaro {

class KeyCaches;

// The text with every "^" replaced by one blank.
std::string CleanExportText(std::string_view text);

// The tender code: the till's number followed by the tender id minus 1 as
// "00" (till 3, tender 5: "304"); empty when the tender id is not above 0.
std::string TenderCode(int32_t till_id, const host::Variant& tender_id);

// HF: the header, the file's first line.
std::string BuildHeader(const std::string& company_id, int16_t company_year,
                        const std::string& company_number, int32_t pos_workstation_id,
                        const std::string& workstation_code, double file_number,
                        host::Date first_date);

// CL: a customer not yet known to the back office (current row of the
// customer query). Its texts are raw: a "^" in a name moves the later
// fields, as the back office has always taken it.
std::string BuildCustomerRecord(const std::string& workstation_code, const host::Recordset& row,
                                KeyCaches& keys);

// FC: the head of the current sale; empty when the recordset is at its end.
std::string BuildDocumentHead(const std::string& workstation_code, const host::Recordset& row,
                              KeyCaches& keys);

// FP^X: one tender of a document (current row of the tender query); empty
// when that recordset is at its end.
std::string BuildTenderRecord(const host::Recordset& tender, int32_t till_id);

// FP^C: a document on credit.
std::string BuildCreditRecord(const host::Recordset& sale, const std::string& party_document_text);

// FM: the walk-in customer's details on a sale; empty when all are empty.
std::string BuildPartyRecord(const host::Recordset& sale);

// FL: a line of a sale (current row of the line query), ending with "^".
std::string BuildLineRecord(bool tax_included, const host::Recordset& line, KeyCaches& keys,
                            const std::string& tax_rate);

// TC: the head of a receipt (current row of the receipt query).
std::string BuildReceiptHead(const std::string& workstation_code, const host::Recordset& receipt,
                             int32_t till_id, KeyCaches& keys);

// TL: a tender line of a receipt.
std::string BuildReceiptLine(const host::Recordset& line, int32_t till_id,
                             const std::string& check_number, const std::string& entry_sign);

}  // namespace lumaro

#endif  // LUMARO_EXCHANGE_EXPORT_EXPORT_RECORDS_H_
