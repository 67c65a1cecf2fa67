#ifndef LUMARO_EXCHANGE_IMPORT_IMPORT_RECORD_H_
#define LUMARO_EXCHANGE_IMPORT_IMPORT_RECORD_H_

// One line of an import file, split into its fields, and the reading of a
// field by the rule of its position. The passes read every converted field
// through these, and the file check applies the same rules, so that both
// fail on the same lines.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "connector/host/Date.h"

namespace lumaro {

// The fields of one line: position 0 is the tag. The line is split with one
// "^" appended, so that a line of n fields has positions 0 to n, the last one
// empty.
using Record = std::vector<std::string>;

Record SplitRecord(std::string_view line);
// The same into `record`, whose strings are reused: for a reader that
// splits line after line.
void SplitRecordInto(std::string_view line, Record& record);

// How the text at a position is read.
enum class FieldRule {
  kText,          // as it stands; only the position must exist
  kLocaleNumber,  // the regional number conversion (CDbl)
  kCommaNumber,   // a number with "," as the decimal separator
  kInteger,       // a 16-bit integer (CInt)
  kTruth,         // a truth value: a number, or True/False in any case
  kDateIfValid,   // a date when the text is one; anything else is no date
  kDateOrEmpty,   // empty, or a date
  kValidityDate,  // empty, or a date, compared as its YYYYMMDD number
};

// One position of a record kind and its rule.
struct RecordField {
  size_t position;
  FieldRule rule;
  const char* meaning;
};

// The text at the field's position; raises 9 past the end of the record.
const std::string& FieldText(const Record& record, const RecordField& field);
// The field read as a number by its rule (kLocaleNumber, kCommaNumber,
// kInteger, kValidityDate); raises 13 on text that is no number.
double FieldNumber(const Record& record, const RecordField& field);
int16_t FieldInteger(const Record& record, const RecordField& field);
bool FieldTruth(const Record& record, const RecordField& field);
// kDateIfValid and kDateOrEmpty: the date, or nothing. kDateOrEmpty raises 13
// on text that is neither empty nor a date.
std::optional<host::Date> FieldDate(const Record& record, const RecordField& field);

// Reads the field by its rule and throws away the value: what the file check
// does with every field.
void CheckField(const Record& record, const RecordField& field);

}  // namespace lumaro

#endif  // LUMARO_EXCHANGE_IMPORT_IMPORT_RECORD_H_
