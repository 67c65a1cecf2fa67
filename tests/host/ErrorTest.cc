#include <gtest/gtest.h>

#include <string>
#include <thread>
#include <utility>

#include "connector/host/Error.h"
#include "connector/host/Regional.h"
#include "tests/host/HostTestTools.h"

namespace host {
namespace {

TEST(RuntimeError, CarriesNumberSourceAndDescription) {
  const Error error(err::kSqlRefused, "Incorrect syntax near 'FROM'.", "DatabaseService");
  EXPECT_STREQ(error.what(), "error -2147217900 in DatabaseService: Incorrect syntax near 'FROM'.");
  const Error moved = error.WithSource("LumaroExecutioner.ImportData");
  EXPECT_EQ(moved.Number(), error.Number());
  EXPECT_EQ(moved.Description(), error.Description());
  EXPECT_STREQ(moved.what(),
               "error -2147217900 in LumaroExecutioner.ImportData: Incorrect syntax near 'FROM'.");
  EXPECT_STREQ(error.WithSource("").what(), "error -2147217900: Incorrect syntax near 'FROM'.");
}

TEST(RuntimeError, RaiseUsesTheStandardDescriptions) {
  const std::pair<int32_t, std::string> cases[] = {
      {err::kOverflow, "Overflow"},
      {err::kNoCurrentRecord,
       "Either BOF or EOF is True, or the current record has been deleted. Requested operation "
       "requires a current record."},
      {err::kItemNotFound,
       "Item cannot be found in the collection corresponding to the requested name or ordinal."},
      {12345, "Application-defined or object-defined error"},
  };
  for (const auto& [number, description] : cases) {
    const Error error = RaisedError([&] { Raise(number, "Source"); });
    EXPECT_EQ(error.Number(), number);
    EXPECT_EQ(error.Description(), description);
    EXPECT_EQ(error.Source(), "Source");
  }
  EXPECT_EQ(StandardDescription(12345), "");
}

TEST(RegionalSettingsScope, BelongToTheThread) {
  RegionalSettings other;
  other.decimal_separator = ".";
  {
    ScopedRegional scoped(other);
    EXPECT_EQ(CurrentRegional().decimal_separator, ".");
    std::string seen_on_other_thread;
    std::thread([&] { seen_on_other_thread = CurrentRegional().decimal_separator; }).join();
    EXPECT_EQ(seen_on_other_thread, ",");
  }
  EXPECT_EQ(CurrentRegional(), RegionalSettings::Portuguese());
}

}  // namespace
}  // namespace host
