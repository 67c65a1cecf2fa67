#ifndef LUMARO_APP_RUN_REPORT_H_
#define LUMARO_APP_RUN_REPORT_H_

#include <chrono>
#include <optional>
#include <string>
#include <vector>

#include "app/RunAccount.h"
#include "connector/LumaroConnectorSetting.h"

namespace app {

// The facts of one run that its report states besides the run's account.
struct ReportedRun {
  std::vector<std::string> command;  // as given, without --report FILE
  bool dry_run = false;
  std::string database;  // absolute
  int workstation = 1;
  std::chrono::system_clock::time_point started;
  std::chrono::system_clock::time_point ended;
  int exit_code = 0;
  std::string error;  // the error line; empty when none
};

// Raises std::runtime_error, saying why, when the report cannot be written
// at `path` (its folder missing or not writable, or `path` a folder): asked
// before the run, so that a run is not taken for failed, nor its report
// missed, for want of a place to write it.
void CheckReportCanBeWritten(const std::string& path);

// Writes the run report (docs/run-report.schema.json) to `path`: into a
// temporary file of the same folder, flushed to the disk, then renamed over
// `path`, so that a monitor reads the old report or the new one, never half
// of one. `settings` are those stored after the run, if any: the exchange
// points' list and numbers. Raises std::runtime_error when it cannot write.
void WriteRunReport(const std::string& path, const ReportedRun& run, const RunAccount& account,
                    std::optional<lumaro::LumaroConnectorSetting> settings);

}  // namespace app

#endif  // LUMARO_APP_RUN_REPORT_H_
