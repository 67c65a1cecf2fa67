#ifndef LUMARO_TESTS_APP_REPORT_SCHEMA_H_
#define LUMARO_TESTS_APP_REPORT_SCHEMA_H_

// The run report of `lumaro import|export|reexport --report FILE`: a run of
// the program that writes one, its check against docs/run-report.schema.json
// (by Debian's python3-jsonschema), and the fields every report shares.

#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "tests/app/ProgramRunner.h"

namespace testsupport {

// What the validator says of the report at `path`; empty when it is valid.
std::string ValidateReport(const std::string& path);

struct ReportedRun {
  ProgramResult result;
  nlohmann::json report;  // null when no report was written
  // UTC wall clock just before and just after the run, as the report writes it.
  std::string before, after;
};

// Runs lumaro in `folder` with `args`, which hold "--report DIR/NAME" with a
// relative DIR/NAME (resolved against `folder`, the program's current
// folder). DIR is made new for the run. Checks that the report is there and
// valid, and that DIR holds nothing else afterwards (no temporary file).
ReportedRun RunReported(const std::string& folder, const std::vector<std::string>& args);

// The fields of the report's head: format, version, the command words, the
// dry run, the database (`database` given as the test knows it), workstation
// 1, the times within the run, exit code and outcome (the program's own exit
// code too), no stops when completed, no error unless failed, and each box
// also written to stderr.
void ExpectReportHead(ReportedRun& run, const std::vector<std::string>& command, int exit_code,
                      const std::string& outcome, const std::string& database,
                      bool dry_run = false);

// The lines of a text, without their line ends ("\n").
std::vector<std::string> TextLines(const std::string& text);
std::string FirstLine(const std::string& text);
std::string LastLine(const std::string& text);

}  // namespace testsupport

#endif  // LUMARO_TESTS_APP_REPORT_SCHEMA_H_
