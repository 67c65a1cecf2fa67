#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <ctime>
#include <optional>
#include <string>
#include <tuple>

#include "connector/host/Date.h"
#include "tests/host/HostTestTools.h"

namespace host {
namespace {

TEST(OleDate, SerialsOfKnownDaysSplitBack) {
  struct Case {
    DateParts parts;
    double serial;
  };
  const Case cases[] = {
      {{1899, 12, 30, 0, 0, 0}, 0},
      {{1900, 3, 1, 0, 0, 0}, 61},  // no 29 February 1900
      {{2024, 2, 29, 0, 0, 0}, 45351},
      {{2026, 11, 23, 18, 0, 0}, 46349.75},
      // Before the epoch the whole part counts back and the time stays positive.
      {{1899, 12, 29, 6, 0, 0}, -1.25},
      {{100, 1, 1, 0, 0, 0}, -657434},
      {{9999, 12, 31, 0, 0, 0}, 2958465},
  };
  for (const Case& c : cases) {
    const DateParts& p = c.parts;
    SCOPED_TRACE(std::to_string(c.serial));
    const Date date = MakeDate(p.year, p.month, p.day, p.hour, p.minute, p.second);
    EXPECT_DOUBLE_EQ(date.serial, c.serial);
    const DateParts back = SplitDate(date);
    EXPECT_EQ(std::make_tuple(back.year, back.month, back.day, back.hour, back.minute, back.second),
              std::make_tuple(p.year, p.month, p.day, p.hour, p.minute, p.second));
  }
  EXPECT_EQ(MakeDate(2000, 2, 29).serial, 36585);  // a leap century
}

TEST(OleDate, PartsRoundToTheNearestSecond) {
  const double second = 1.0 / 86400;
  const DateParts up = SplitDate(Date{46349 + (14 * 3600 + 5 * 60 + 6.6) * second});
  EXPECT_EQ(std::make_tuple(up.day, up.hour, up.minute, up.second), std::make_tuple(23, 14, 5, 7));
  const DateParts next_day = SplitDate(Date{-1 - 86399.7 * second});  // 1899-12-29 23:59:59.7
  EXPECT_EQ(next_day.day, 30);
  EXPECT_EQ(next_day.hour, 0);
  EXPECT_FALSE(HasTimePart(Date{46349 + 0.2 * second}));  // under half a second is midnight
  // Before the epoch the time part still counts forward from midnight.
  EXPECT_EQ(DatePart(Date{-1.25}).serial, -1);
  EXPECT_DOUBLE_EQ(TimePart(Date{-1.25}).serial, 0.25);
}

TEST(OleDate, PartsOutOfRangeRaiseInvalidProcedureCall) {
  const DateParts cases[] = {
      {2026, 13, 1, 0, 0, 0}, {2026, 2, 29, 0, 0, 0}, {1900, 2, 29, 0, 0, 0},
      {2026, 1, 1, 24, 0, 0}, {2026, 1, 1, 0, 0, 60}, {99, 12, 31, 0, 0, 0},
      {2026, 0, 1, 0, 0, 0},  {2026, 1, 0, 0, 0, 0},
  };
  for (const DateParts& p : cases) {
    EXPECT_EQ(RaisedNumber([&] { MakeDate(p.year, p.month, p.day, p.hour, p.minute, p.second); }),
              err::kInvalidProcedureCall)
        << p.year << "-" << p.month << "-" << p.day << " " << p.hour << ":" << p.second;
  }
}

TEST(OleDate, SerialsOutsideTheYears100To9999Overflow) {
  for (double serial : {1e300, -1e300, 2958466.0, -657435.0, std::nan("")}) {
    EXPECT_EQ(RaisedNumber([&] { SplitDate(Date{serial}); }), err::kOverflow) << serial;
    EXPECT_EQ(RaisedNumber([&] { DatePart(Date{serial}); }), err::kOverflow) << serial;
  }
  EXPECT_EQ(SplitDate(Date{2958465.5}).year, 9999);
  EXPECT_EQ(SplitDate(Date{-657434.0}).year, 100);
}

TEST(Clock, NowReadsTheSystemClockUnlessOverridden) {
  SetClockOverride(MakeDate(2026, 11, 23, 14, 5, 7));
  EXPECT_EQ(Today(), MakeDate(2026, 11, 23));
  SetClockOverride(std::nullopt);
  const Date before = FromUnixTime(std::time(nullptr));
  const Date now = Now();
  EXPECT_FALSE(now < before);
  EXPECT_FALSE(FromUnixTime(std::time(nullptr)) < now);
}

// Lisbon in summer is an hour ahead of UTC.
TEST(Clock, UnixTimeReadsInTheMachinesLocalTime) {
  const char* old_zone = std::getenv("TZ");
  const std::optional<std::string> saved =
      old_zone ? std::optional<std::string>(old_zone) : std::nullopt;
  setenv("TZ", "WET0WEST,M3.5.0/1,M10.5.0", 1);
  tzset();
  EXPECT_EQ(FromUnixTime(1782828000), MakeDate(2026, 6, 30, 15, 0, 0));
  if (saved) {
    setenv("TZ", saved->c_str(), 1);
  } else {
    unsetenv("TZ");
  }
  tzset();
}

}  // namespace
}  // namespace host
