#ifndef LUMARO_EXCHANGE_EXPORT_ROW_FIELDS_H_
#define LUMARO_EXCHANGE_EXPORT_ROW_FIELDS_H_

// How the export reads a field of the current row: through FieldConverter,
// so that NULL reads as empty text, 0 or date 0.

#include <string>
#include <string_view>

#include "connector/host/Conversions.h"
#include "connector/host/FieldConverter.h"
#include "connector/host/Recordset.h"

namespace lumaro {

inline std::string FieldText(const host::Recordset& row, std::string_view field) {
  return host::FieldConverter::ToText(row.Fields(field));
}

inline double FieldNumber(const host::Recordset& row, std::string_view field) {
  return host::FieldConverter::ToNumber(row.Fields(field));
}

// The number as the run time writes it ("12,5" on a Portuguese system).
inline std::string FieldNumberText(const host::Recordset& row, std::string_view field) {
  return host::NumberText(FieldNumber(row, field));
}

// " WHERE TransSerial='s' AND TransDocument='d' AND TransDocNumber=n" for the
// document of the current row. The values of a row go in as they stand.
inline std::string DocumentKeyOf(const host::Recordset& row) {
  return " WHERE TransSerial='" + FieldText(row, "TransSerial") + "' AND TransDocument='" +
         FieldText(row, "TransDocument") + "' AND TransDocNumber=" +
         FieldNumberText(row, "TransDocNumber");
}

}  // namespace lumaro

#endif  // LUMARO_EXCHANGE_EXPORT_ROW_FIELDS_H_
