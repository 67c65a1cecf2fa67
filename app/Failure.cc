#include "app/Failure.h"

#include "app/CommandLine.h"
#include "connector/host/Error.h"

namespace app {

Failure DescribeFailure(std::exception_ptr error) {
  try {
    std::rethrow_exception(error);
  } catch (const UsageError& usage) {
    return {kUsageError, std::string("lumaro: ") + usage.what()};
  } catch (const host::Error& raised) {
    return {kFailure, "error " + std::to_string(raised.Number()) + " in " + raised.Source() + ": " +
                          raised.Description()};
  } catch (const std::exception& other) {
    return {kFailure, std::string("lumaro: ") + other.what()};
  } catch (...) {
    return {kFailure, "lumaro: an unknown failure"};
  }
}

}  // namespace app
