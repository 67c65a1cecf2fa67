#include "connector/host/Date.h"

#include <cmath>
#include <ctime>
#include <mutex>

#include "connector/host/Error.h"

namespace host {

namespace {

constexpr int kSecondsPerDay = 86400;

// Days from 1970-01-01 to the given day of the proleptic Gregorian calendar
// (H. Hinnant's days_from_civil).
long long DaysFromCivil(long long year, int month, int day) {
  year -= month <= 2 ? 1 : 0;
  const long long era = (year >= 0 ? year : year - 399) / 400;
  const long long year_of_era = year - era * 400;
  const long long day_of_year = (153 * (month > 2 ? month - 3 : month + 9) + 2) / 5 + day - 1;
  const long long day_of_era =
      year_of_era * 365 + year_of_era / 4 - year_of_era / 100 + day_of_year;
  return era * 146097 + day_of_era - 719468;
}

// The inverse of DaysFromCivil.
void CivilFromDays(long long days, int& year, int& month, int& day) {
  days += 719468;
  const long long era = (days >= 0 ? days : days - 146096) / 146097;
  const long long day_of_era = days - era * 146097;
  const long long year_of_era =
      (day_of_era - day_of_era / 1460 + day_of_era / 36524 - day_of_era / 146096) / 365;
  const long long day_of_year =
      day_of_era - (365 * year_of_era + year_of_era / 4 - year_of_era / 100);
  const long long shifted_month = (5 * day_of_year + 2) / 153;
  day = static_cast<int>(day_of_year - (153 * shifted_month + 2) / 5 + 1);
  month = static_cast<int>(shifted_month < 10 ? shifted_month + 3 : shifted_month - 9);
  year = static_cast<int>(year_of_era + era * 400 + (month <= 2 ? 1 : 0));
}

// Day 0 of the OLE calendar, 1899-12-30, counted from 1970-01-01.
const long long kOleEpochDays = DaysFromCivil(1899, 12, 30);

bool IsLeapYear(int year) { return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0; }

int DaysInMonth(int year, int month) {
  static constexpr int kDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  return month == 2 && IsLeapYear(year) ? 29 : kDays[month - 1];
}

// A date as whole days from the OLE epoch and seconds into that day, the time
// rounded to the nearest second.
struct DaySeconds {
  long long days;
  int seconds;
};

// The whole part counts days (backwards before the epoch); the fraction's
// size is the time of day whatever the sign, as OLE dates have it.
DaySeconds ToDaySeconds(Date date) {
  // The run time's dates run from 1 January 100 to 31 December 9999; any
  // other serial (NaN included) is no date and overflows.
  if (!(date.serial > -657435.0 && date.serial < 2958466.0)) Raise(err::kOverflow);
  const double whole = std::trunc(date.serial);
  const double fraction = std::fabs(date.serial - whole);
  DaySeconds result{static_cast<long long>(whole),
                    static_cast<int>(std::llround(fraction * kSecondsPerDay))};
  if (result.seconds >= kSecondsPerDay) {  // 23:59:59.6 rounds into the next day
    result.seconds -= kSecondsPerDay;
    result.days += 1;
  }
  return result;
}

Date FromDaySeconds(long long days, int seconds) {
  const double time = static_cast<double>(seconds) / kSecondsPerDay;
  return Date{days < 0 ? static_cast<double>(days) - time : static_cast<double>(days) + time};
}

std::mutex clock_mutex;
std::optional<Date> clock_override;

}  // namespace

Date MakeDate(int year, int month, int day, int hour, int minute, int second) {
  if (year < 100 || year > 9999 || month < 1 || month > 12 || day < 1 ||
      day > DaysInMonth(year, month) || hour < 0 || hour > 23 || minute < 0 || minute > 59 ||
      second < 0 || second > 59) {
    Raise(err::kInvalidProcedureCall);
  }
  return FromDaySeconds(DaysFromCivil(year, month, day) - kOleEpochDays,
                        hour * 3600 + minute * 60 + second);
}

DateParts SplitDate(Date date) {
  const DaySeconds split = ToDaySeconds(date);
  DateParts parts;
  CivilFromDays(split.days + kOleEpochDays, parts.year, parts.month, parts.day);
  parts.hour = split.seconds / 3600;
  parts.minute = split.seconds / 60 % 60;
  parts.second = split.seconds % 60;
  return parts;
}

bool HasTimePart(Date date) { return ToDaySeconds(date).seconds != 0; }

Date DatePart(Date date) { return FromDaySeconds(ToDaySeconds(date).days, 0); }

Date TimePart(Date date) { return FromDaySeconds(0, ToDaySeconds(date).seconds); }

Date Now() {
  {
    std::lock_guard<std::mutex> lock(clock_mutex);
    if (clock_override) return *clock_override;
  }
  return FromUnixTime(static_cast<long long>(std::time(nullptr)));
}

Date Today() { return DatePart(Now()); }

void SetClockOverride(std::optional<Date> now) {
  std::lock_guard<std::mutex> lock(clock_mutex);
  clock_override = now;
}

Date FromUnixTime(long long seconds) {
  const std::time_t time = static_cast<std::time_t>(seconds);
  std::tm local{};
  localtime_r(&time, &local);
  // A leap second reads as the last second of its minute.
  return MakeDate(local.tm_year + 1900, local.tm_mon + 1, local.tm_mday, local.tm_hour,
                  local.tm_min, local.tm_sec > 59 ? 59 : local.tm_sec);
}

}  // namespace host
