#ifndef LUMARO_IMPORTLOG_LUMARO_LOG_H_
#define LUMARO_IMPORTLOG_LUMARO_LOG_H_

#include <cstdint>
#include <memory>
#include <string>

#include "connector/host/Date.h"

namespace lumaro {

// One row of the table LumaroLog: a file that a workstation has taken (an
// import file) or made (an export file), with the size and date the file
// had then.
class LumaroLog {
 public:
  int16_t WorkstationID = 0;
  std::string Filename;  // the bare file name, with its extension
  host::Date ImportDate;
  // Kept on purpose as a single-precision number, as the table's readers
  // have always had it: a size above 16,777,216 bytes may lose its last
  // digits.
  float FileSize = 0;
  host::Date FileDate;
  // True for a row not yet in the table: Save inserts it.
  bool IsNew = false;

  // Takes the file's name, size and last-modified time; the other fields
  // stay. Raises 53 when the file does not exist.
  void FillFromFile(const std::string& path);
  std::unique_ptr<LumaroLog> Clone() const { return std::make_unique<LumaroLog>(*this); }
};

}  // namespace lumaro

#endif  // LUMARO_IMPORTLOG_LUMARO_LOG_H_
