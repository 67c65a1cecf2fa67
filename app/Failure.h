#ifndef LUMARO_APP_FAILURE_H_
#define LUMARO_APP_FAILURE_H_

#include <exception>
#include <string>

namespace app {

// Exit codes.
inline constexpr int kSuccess = 0;
inline constexpr int kFailure = 1;  // the connector or the host raised an error
inline constexpr int kUsageError = 2;
// The run ended normally, but an exchange point or an import file stopped
// where a person must act (a file already there, a missing folder, an
// import undone): a scheduler must not take it for a run that went through.
inline constexpr int kStopped = 3;

// A failure that ends the program, as it is told: its exit code and its one
// line for stderr ("error N in SOURCE: DESCRIPTION" or "lumaro: ...").
struct Failure {
  int exit_code = kFailure;
  std::string line;
};

// Describes the exception `error` (host::Error, UsageError or any other).
Failure DescribeFailure(std::exception_ptr error);

}  // namespace app

#endif  // LUMARO_APP_FAILURE_H_
