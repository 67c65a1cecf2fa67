#ifndef LUMARO_TESTS_APP_PROGRAM_RUNNER_H_
#define LUMARO_TESTS_APP_PROGRAM_RUNNER_H_

#include <string>
#include <vector>

namespace testsupport {

struct ProgramResult {
  int exit_code = -1;
  std::string out;
  std::string err;
};

// Runs the lumaro program built with the tests, in `folder`, with the given
// arguments, and collects its exit code and output. With `as_nobody` (only
// for root) the program runs as the user nobody, for whom permissions hold.
ProgramResult RunLumaro(const std::string& folder, const std::vector<std::string>& args,
                        bool as_nobody = false);

// Runs the program argv[0] (a path) with its arguments in `folder`, and
// collects its exit code (-1 when it did not exit) and output.
ProgramResult RunProgram(const std::string& folder, std::vector<std::string> argv);

}  // namespace testsupport

#endif  // LUMARO_TESTS_APP_PROGRAM_RUNNER_H_
