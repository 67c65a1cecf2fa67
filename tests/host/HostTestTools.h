#ifndef LUMARO_TESTS_HOST_HOST_TEST_TOOLS_H_
#define LUMARO_TESTS_HOST_HOST_TEST_TOOLS_H_

// Small tools that every test folder shares: what an action raises, and a
// second set of regional settings so that nothing passes only because the
// Portuguese ones are the default.

#include <gtest/gtest.h>

#include <cstdint>
#include <functional>

#include "connector/host/Error.h"
#include "connector/host/Regional.h"

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

// The host::Error that `action` raises; fails the test when it raises none.
inline Error RaisedError(const std::function<void()>& action) {
  try {
    action();
  } catch (const Error& error) {
    return error;
  }
  ADD_FAILURE() << "no error was raised";
  return Error(0, "");
}

// "." for decimals, "," for groups, ISO dates, German truth words.
inline RegionalSettings IsoSettings() {
  RegionalSettings settings;
  settings.decimal_separator = ".";
  settings.group_separator = ",";
  settings.short_date = "yyyy-mm-dd";
  settings.long_time = "hh:nn:ss";
  settings.true_word = "Wahr";
  settings.false_word = "Falsch";
  return settings;
}

}  // namespace host

#endif  // LUMARO_TESTS_HOST_HOST_TEST_TOOLS_H_
