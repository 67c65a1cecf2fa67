#ifndef LUMARO_INITIALLOAD_LOAD_STEP_H_
#define LUMARO_INITIALLOAD_LOAD_STEP_H_

#include <functional>
#include <string>

namespace lumaro {

// How every step of the load meets a failure: the failed statement is
// written to "Migration.log" in the host's work folder, as
// "<step> Line=N : number - description" under the time "dd-mm-yyyy hh:mm",
// and the step goes on with its next statement. Nothing is rolled back.
class LoadStep {
 public:
  explicit LoadStep(std::string name) : name_(std::move(name)) {}

  // Runs one statement of the step, numbered `line` within it. Returns
  // false when it failed (and was logged).
  bool Run(int line, const std::function<void()>& statement);

 private:
  std::string name_;
};

}  // namespace lumaro

#endif  // LUMARO_INITIALLOAD_LOAD_STEP_H_
