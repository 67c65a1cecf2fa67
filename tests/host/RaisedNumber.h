#ifndef LUMARO_TESTS_HOST_RAISEDNUMBER_H_
#define LUMARO_TESTS_HOST_RAISEDNUMBER_H_

#include <cstdint>
#include <functional>

#include "connector/host/Error.h"

namespace host {

// The number of the host::Error that `action` raises; 0 when it raises none.
inline int32_t RaisedNumber(const std::function<void()>& action) {
  try {
    action();
  } catch (const Error& error) {
    return error.Number();
  }
  return 0;
}

}  // namespace host

#endif  // LUMARO_TESTS_HOST_RAISEDNUMBER_H_
