#include "exchange/import/ImportFileCheck.h"

#include <span>

#include "connector/host/Ansi.h"
#include "connector/host/Conversions.h"
#include "connector/host/Error.h"
#include "connector/host/FileSystem.h"
#include "connector/host/Text.h"
#include "exchange/import/ImportFilters.h"
#include "exchange/import/RecordLayouts.h"

namespace lumaro {
namespace {

// What a person reads for a field that breaks its rule.
std::string Reason(const Record& record, const RecordField& field, const host::Error& error) {
  std::string where = "position " + std::to_string(field.position) + " (" + field.meaning + ")";
  if (error.Number() == host::err::kSubscriptOutOfRange) {
    return "too few fields: " + where + " is read, the line has " +
           std::to_string(record.size() - 2) + " after its tag";
  }
  std::string value = "\"" + host::Left(record[field.position], 40) + "\"";
  switch (field.rule) {
    case FieldRule::kTruth:
      return where + " is no truth value: " + value;
    case FieldRule::kDateOrEmpty:
    case FieldRule::kValidityDate:
      return where + " is neither empty nor a date: " + value;
    case FieldRule::kInteger:
      return where + " is no whole number of 16 bits: " + value;
    default:
      return where + " is no number: " + value;
  }
}

// The first field of `fields` that breaks its rule; empty when none does.
std::string FirstBrokenField(const Record& record, std::span<const RecordField> fields) {
  for (const RecordField& field : fields) {
    try {
      CheckField(record, field);
    } catch (const host::Error& error) {
      return Reason(record, field, error);
    }
  }
  return "";
}

// What stops the header, or empty when it is this company's and year's.
std::string HeaderProblem(const Record& header, const LumaroConnectorSetting& settings) {
  using namespace layout::hf;
  if (header.size() != 6) {
    return "the header has " + std::to_string(header.size() - 1) +
           " fields, not 5 (HF^4^1^company^year): the import passes the file over";
  }
  if (host::UCase(header[kTag.position]) != "HF" || host::UCase(header[kVersion.position]) != "4" ||
      host::UCase(header[kKind.position]) != "1") {
    return "the first line is no header HF^4^1: the import passes the file over";
  }
  if (host::UCase(header[kCompany.position]) != host::UCase(settings.SQLCompanyID)) {
    return "the header is of company \"" + header[kCompany.position] + "\", not of \"" +
           settings.SQLCompanyID + "\": the import passes the file over";
  }
  double year;
  try {
    year = FieldNumber(header, kYear);
  } catch (const host::Error&) {
    return "the header's year is no number: the import stops at this file";
  }
  if (year != settings.SQLCompanyYear) {
    return "the header is of year " + header[kYear.position] + ", not of " +
           std::to_string(settings.SQLCompanyYear) + ": the import passes the file over";
  }
  return "";
}

}  // namespace

std::vector<ImportFileCheck::Problem> ImportFileCheck::Check(const std::string& path,
                                                             host::Date today) const {
  std::vector<Problem> problems;
  if (host::Left(host::GetFileName(path), 4) != "ITpv") {
    problems.push_back(
        {0, "", "the name does not begin with ITpv: the import passes the file over"});
  }
  ImportFilters filters(settings_);
  host::AnsiLineReader reader(path);
  int64_t number = 0;
  for (std::string line; reader.ReadLine(line);) {
    ++number;
    Record record = SplitRecord(line);
    const std::string& tag = record[0];
    if (number == 1) {
      std::string problem = HeaderProblem(record, settings_);
      if (!problem.empty()) problems.push_back({number, tag, problem});
      continue;
    }
    std::string reason;
    try {
      // The filters read their positions first, as the count does.
      if (tag == "VN") {
        if (filters.PassSalesmanFilter(record))
          reason = FirstBrokenField(record, layout::vn::kRead);
      } else if (tag == "CL") {
        if (filters.PassCustomerFilter(record)) {
          reason = FirstBrokenField(record, layout::cl::kRead);
          if (reason.empty() && !customer_known_(record[layout::cl::kNumber.position])) {
            reason = FirstBrokenField(record, std::span(&layout::cl::kNumberAsId, 1));
          }
        }
      } else if (tag == "FA") {
        if (filters.PassFamilyFilter(record)) reason = FirstBrokenField(record, layout::fa::kRead);
      } else if (tag == "AR") {
        // The validity dates and kind first (the list begins with them); an
        // item the filters or its validity keep out is not read further.
        reason = FirstBrokenField(record, std::span(layout::ar::kRead).first(3));
        if (reason.empty()) {
          bool family = filters.PassItemFamilyFilter(record);
          if (family && ImportFilters::PassValidity(record, today)) {
            reason = FirstBrokenField(record, std::span(layout::ar::kRead).subspan(3));
          }
        }
      } else if (tag == "AP") {
        reason = FirstBrokenField(record, layout::ap::kRead);
      } else if (tag == "AB") {
        // The mark is read only for a line that holds a barcode.
        bool barcode = record.size() > layout::ab::kBarcode.position &&
                       !record[layout::ab::kBarcode.position].empty();
        reason = FirstBrokenField(
            record, barcode ? std::span(layout::ab::kRead) : std::span(layout::ab::kRead).first(2));
      } else if (tag == "AL") {
        if (filters.PassItemFamilyFilter(record))
          reason = FirstBrokenField(record, layout::al::kRead);
      } else if (tag == "AG") {
        reason = FirstBrokenField(record, layout::ag::kRead);
      }
    } catch (const host::Error& error) {
      reason = "too few fields for the settings' filter: " + error.Description();
    }
    if (!reason.empty()) problems.push_back({number, tag, reason});
  }
  return problems;
}

}  // namespace lumaro
