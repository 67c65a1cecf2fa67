#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>
#include <optional>
#include <string>

#include "connector/host/Date.h"
#include "tests/host/RaisedNumber.h"

namespace host {
namespace {

TEST(OleDate, SerialsOfKnownDays) {
  struct Case {
    DateParts parts;
    double serial;
  };
  const Case cases[] = {
      {{1899, 12, 30, 0, 0, 0}, 0},
      {{1899, 12, 31, 0, 0, 0}, 1},
      {{1900, 1, 1, 0, 0, 0}, 2},
      {{1900, 3, 1, 0, 0, 0}, 61},
      {{1970, 1, 1, 0, 0, 0}, 25569},
      {{2024, 2, 29, 0, 0, 0}, 45351},
      {{2026, 11, 23, 0, 0, 0}, 46349},
      {{2026, 11, 23, 12, 0, 0}, 46349.5},
      {{2026, 11, 23, 18, 0, 0}, 46349.75},
      {{1899, 12, 30, 6, 0, 0}, 0.25},
      // Before the epoch the whole part counts back and the time stays positive.
      {{1899, 12, 29, 0, 0, 0}, -1},
      {{1899, 12, 29, 6, 0, 0}, -1.25},
      {{1899, 12, 28, 18, 0, 0}, -2.75},
      {{100, 1, 1, 0, 0, 0}, -657434},
      {{9999, 12, 31, 0, 0, 0}, 2958465},
  };
  for (const Case& c : cases) {
    const DateParts& p = c.parts;
    SCOPED_TRACE(std::to_string(c.serial));
    const Date date = MakeDate(p.year, p.month, p.day, p.hour, p.minute, p.second);
    EXPECT_DOUBLE_EQ(date.serial, c.serial);
    const DateParts back = SplitDate(date);
    EXPECT_EQ(back.year, p.year);
    EXPECT_EQ(back.month, p.month);
    EXPECT_EQ(back.day, p.day);
    EXPECT_EQ(back.hour, p.hour);
    EXPECT_EQ(back.minute, p.minute);
    EXPECT_EQ(back.second, p.second);
  }
}

TEST(OleDate, SplitRoundsToTheNearestSecond) {
  const double day = 46349;  // 2026-11-23
  const double second = 1.0 / 86400;
  struct Case {
    double serial;
    int day, hour, minute, second;
  };
  const Case cases[] = {
      {day + (14 * 3600 + 5 * 60 + 6.6) * second, 23, 14, 5, 7},
      {day + (14 * 3600 + 5 * 60 + 6.4) * second, 23, 14, 5, 6},
      {day + 86399.7 * second, 24, 0, 0, 0},  // rounds into the next day
      {-1 - 86399.7 * second, 30, 0, 0, 0},   // 1899-12-29 23:59:59.7
  };
  for (const Case& c : cases) {
    const DateParts parts = SplitDate(Date{c.serial});
    EXPECT_EQ(parts.day, c.day) << c.serial;
    EXPECT_EQ(parts.hour, c.hour) << c.serial;
    EXPECT_EQ(parts.minute, c.minute) << c.serial;
    EXPECT_EQ(parts.second, c.second) << c.serial;
  }
}

TEST(OleDate, PartsOutOfRangeRaiseInvalidProcedureCall) {
  const DateParts cases[] = {
      {2026, 13, 1, 0, 0, 0}, {2026, 0, 1, 0, 0, 0},  {2026, 11, 31, 0, 0, 0},
      {2026, 2, 29, 0, 0, 0}, {1900, 2, 29, 0, 0, 0}, {2026, 1, 0, 0, 0, 0},
      {2026, 1, 1, 24, 0, 0}, {2026, 1, 1, 0, 60, 0}, {2026, 1, 1, 0, 0, 60},
      {2026, 1, 1, -1, 0, 0}, {99, 12, 31, 0, 0, 0},  {10000, 1, 1, 0, 0, 0},
  };
  for (const DateParts& p : cases) {
    EXPECT_EQ(RaisedNumber([&] { MakeDate(p.year, p.month, p.day, p.hour, p.minute, p.second); }),
              err::kInvalidProcedureCall)
        << p.year << "-" << p.month << "-" << p.day << " " << p.hour << ":" << p.minute << ":"
        << p.second;
  }
  EXPECT_EQ(MakeDate(2000, 2, 29).serial, 36585);  // a leap century
}

TEST(OleDate, DateAndTimeParts) {
  struct Case {
    double serial, date, time;
    bool has_time;
  };
  const Case cases[] = {
      {46349.75, 46349, 0.75, true},
      {46349, 46349, 0, false},
      {0.5, 0, 0.5, true},
      {-1.25, -1, 0.25, true},
      {-2, -2, 0, false},
      {46349 + 0.2 / 86400, 46349, 0, false},  // less than half a second is midnight
  };
  for (const Case& c : cases) {
    EXPECT_EQ(DatePart(Date{c.serial}).serial, c.date) << c.serial;
    EXPECT_DOUBLE_EQ(TimePart(Date{c.serial}).serial, c.time) << c.serial;
    EXPECT_EQ(HasTimePart(Date{c.serial}), c.has_time) << c.serial;
  }
}

TEST(Clock, OverrideTakesThePlaceOfTheSystemClock) {
  const Date set = MakeDate(2026, 11, 23, 14, 5, 7);
  SetClockOverride(set);
  EXPECT_EQ(Now(), set);
  EXPECT_EQ(Today(), MakeDate(2026, 11, 23));
  SetClockOverride(std::nullopt);

  const Date before = FromUnixTime(std::time(nullptr));
  const Date now = Now();
  const Date after = FromUnixTime(std::time(nullptr));
  EXPECT_FALSE(now < before);
  EXPECT_FALSE(after < now);
  EXPECT_EQ(Today(), DatePart(Now()));
}

// Sets the TZ variable for the life of the object.
class ScopedTimeZone {
 public:
  explicit ScopedTimeZone(const char* zone) {
    if (const char* old = std::getenv("TZ")) previous_ = old;
    setenv("TZ", zone, 1);
    tzset();
  }
  ~ScopedTimeZone() {
    if (previous_) {
      setenv("TZ", previous_->c_str(), 1);
    } else {
      unsetenv("TZ");
    }
    tzset();
  }

 private:
  std::optional<std::string> previous_;
};

TEST(Clock, UnixTimeReadsInTheMachinesLocalTime) {
  struct Case {
    const char* zone;
    long long seconds;
    Date expected;
  };
  const Case cases[] = {
      {"UTC0", 0, MakeDate(1970, 1, 1)},
      {"UTC0", 1795442707, MakeDate(2026, 11, 23, 14, 5, 7)},
      {"<-03>3", 0, MakeDate(1969, 12, 31, 21, 0, 0)},
      // Lisbon in summer is an hour ahead of UTC.
      {"WET0WEST,M3.5.0/1,M10.5.0", 1782828000, MakeDate(2026, 6, 30, 15, 0, 0)},
  };
  for (const Case& c : cases) {
    ScopedTimeZone zone(c.zone);
    EXPECT_EQ(FromUnixTime(c.seconds), c.expected) << c.zone << " " << c.seconds;
  }
}

}  // namespace
}  // namespace host
