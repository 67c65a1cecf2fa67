#ifndef LUMARO_CONNECTOR_HOST_DATE_H_
#define LUMARO_CONNECTOR_HOST_DATE_H_

#include <optional>

namespace host {

// An OLE Automation date: whole days since 1899-12-30 plus the fraction of
// the day. Date 0 is 1899-12-30 00:00:00. Days before the epoch count
// backwards with a positive time fraction, as the classic run time does.
struct Date {
  double serial = 0;

  friend bool operator==(Date a, Date b) { return a.serial == b.serial; }
  friend bool operator<(Date a, Date b) { return a.serial < b.serial; }
};

struct DateParts {
  int year = 1899;
  int month = 12;
  int day = 30;
  int hour = 0;
  int minute = 0;
  int second = 0;
};

// Builds the date of the given parts. Raises 5 when a part is out of range
// (month 13, day 32, ...).
Date MakeDate(int year, int month, int day, int hour = 0, int minute = 0, int second = 0);

// Splits a date into its parts, rounded to the nearest second. This and the
// functions below raise 6 for a serial outside the years 100 to 9999.
DateParts SplitDate(Date date);

// True when the date has a time part other than midnight.
bool HasTimePart(Date date);

// The date alone (time part dropped) and the time alone (whole days dropped).
Date DatePart(Date date);
Date TimePart(Date date);

// The clock of the run: `Now` with its time part, `Today` at 00:00:00.
// A set override (the host's --now) takes the place of the system clock.
Date Now();
Date Today();
void SetClockOverride(std::optional<Date> now);

// Date of a Unix time in seconds (local time of the machine) and back.
Date FromUnixTime(long long seconds);

}  // namespace host

#endif  // LUMARO_CONNECTOR_HOST_DATE_H_
