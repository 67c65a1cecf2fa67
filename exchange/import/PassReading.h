#ifndef LUMARO_EXCHANGE_IMPORT_PASS_READING_H_
#define LUMARO_EXCHANGE_IMPORT_PASS_READING_H_

#include <cstdint>
#include <string>
#include <string_view>

#include "connector/host/Ansi.h"
#include "exchange/import/ImportRecord.h"

namespace lumaro {

class ImportRun;

// One reading of an import file by a pass, the shape that every pass
// shares: the pass's title goes to the notifier, the file is read line by
// line to its end, the lines of the pass's tag (compared case-sensitively)
// come out split into records, and each processed unit is counted and
// reported against the pass's total. Every other line is passed over
// without a word.
class PassReading {
 public:
  PassReading(ImportRun& run, const std::string& path, std::string_view tag, std::string_view title,
              int32_t total);

  // Reads on to the next record of the tag; false at the end of the file.
  bool Next();
  const Record& record() const { return record_; }
  // The line read last, whatever its tag: what a refused save names.
  const std::string& line() const { return line_; }
  // The number of the current record's line, from 1.
  int64_t line_number() const { return record_line_number_; }
  // Whether the stream is at its end: what a pass returns.
  bool AtEnd() { return reader_.AtEndOfStream(); }

  // One more unit processed: progress "<count> of <total>".
  void CountAndReport();

 private:
  ImportRun& run_;
  host::AnsiLineReader reader_;
  std::string tag_;
  int32_t total_;
  int32_t count_ = 0;
  std::string line_;
  // The last line read, when of another tag: as it stands in the file,
  // held by the reader until the read after next.
  std::string_view last_other_line_;
  bool last_line_is_other_ = false;
  int64_t line_number_ = 0;
  int64_t record_line_number_ = 0;
  Record record_;
};

}  // namespace lumaro

#endif  // LUMARO_EXCHANGE_IMPORT_PASS_READING_H_
