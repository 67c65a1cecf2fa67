#include "exchange/import/ImportRecord.h"

#include "connector/host/Conversions.h"
#include "connector/host/Error.h"
#include "connector/host/Text.h"

namespace lumaro {

Record SplitRecord(std::string_view line) {
  Record record;
  SplitRecordInto(line, record);
  return record;
}

void SplitRecordInto(std::string_view line, Record& record) {
  size_t count = 0;
  auto put = [&](std::string_view field) {
    if (count < record.size()) {
      record[count].assign(field);
    } else {
      record.emplace_back(field);
    }
    ++count;
  };
  size_t start = 0;
  for (size_t found; (found = line.find('^', start)) != std::string_view::npos; start = found + 1) {
    put(line.substr(start, found - start));
  }
  put(line.substr(start));
  put({});  // the field after the appended "^"
  record.resize(count);
}

const std::string& FieldText(const Record& record, const RecordField& field) {
  return host::FieldAt(record, field.position);
}

double FieldNumber(const Record& record, const RecordField& field) {
  const std::string& text = FieldText(record, field);
  switch (field.rule) {
    case FieldRule::kCommaNumber:
      return host::ParseNumber(text, ",");
    case FieldRule::kInteger:
      return host::CInt(host::Variant(text));
    case FieldRule::kValidityDate: {
      // A date reads as the number of its YYYYMMDD form. An empty field is
      // 0, so that an item valid always (kind 0) may leave its dates empty;
      // any other text that is no date fails the record.
      if (text.empty()) return 0;
      return host::Val(host::FormatDate(host::CDate(host::Variant(text)), "YYYYMMDD"));
    }
    default:
      return host::CDbl(host::Variant(text));
  }
}

int16_t FieldInteger(const Record& record, const RecordField& field) {
  return host::CInt(host::Variant(FieldText(record, field)));
}

bool FieldTruth(const Record& record, const RecordField& field) {
  return host::CBool(host::Variant(FieldText(record, field)));
}

std::optional<host::Date> FieldDate(const Record& record, const RecordField& field) {
  const std::string& text = FieldText(record, field);
  host::Variant value(text);
  if (field.rule == FieldRule::kDateOrEmpty) {
    if (text.empty()) return std::nullopt;
    return host::CDate(value);
  }
  if (!host::IsDate(value)) return std::nullopt;
  return host::CDate(value);
}

void CheckField(const Record& record, const RecordField& field) {
  switch (field.rule) {
    case FieldRule::kText:
      FieldText(record, field);
      return;
    case FieldRule::kTruth:
      FieldTruth(record, field);
      return;
    case FieldRule::kDateIfValid:
    case FieldRule::kDateOrEmpty:
      FieldDate(record, field);
      return;
    default:
      FieldNumber(record, field);
      return;
  }
}

}  // namespace lumaro
