#ifndef LUMARO_EXCHANGE_IMPORT_IMPORT_FILE_CHECK_H_
#define LUMARO_EXCHANGE_IMPORT_IMPORT_FILE_CHECK_H_

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "connector/LumaroConnectorSetting.h"
#include "connector/host/Date.h"

namespace lumaro {

// Reads one import file against its name, its header and the rules of its
// fields, as the import reads it, and writes nothing: a person's way to see
// what stops a file before the import meets it. A line is listed when the
// import would fail on it (a position it reads that the line lacks, a number
// or truth value it cannot read) or, for the name and the header, when the
// import would pass the whole file over. The settings' filters apply as in
// the import: a record they let not through is not read further. Where the
// import reads a field only when the POS already holds something (an item,
// a kit's component), the field is checked all the same.
class ImportFileCheck {
 public:
  struct Problem {
    int64_t line;  // 0: the file's name
    std::string tag;
    std::string reason;
  };
  // Whether the POS knows a customer by this back-office number; a known
  // number need not be numeric.
  using CustomerKnown = std::function<bool(const std::string& customer_key)>;

  ImportFileCheck(const LumaroConnectorSetting& settings, CustomerKnown customer_known)
      : settings_(settings), customer_known_(std::move(customer_known)) {}

  // The problems of the file, in line order. Raises 53 when the file cannot
  // be read.
  std::vector<Problem> Check(const std::string& path, host::Date today) const;

 private:
  const LumaroConnectorSetting& settings_;
  CustomerKnown customer_known_;
};

}  // namespace lumaro

#endif  // LUMARO_EXCHANGE_IMPORT_IMPORT_FILE_CHECK_H_
