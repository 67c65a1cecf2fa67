#include "app/IsoDates.h"

#include <cstdio>
#include <ctime>

namespace app {

std::string LocalIso(host::Date date) {
  host::DateParts p = host::SplitDate(date);
  char text[32];
  std::snprintf(text, sizeof text, "%04d-%02d-%02d %02d:%02d:%02d", p.year, p.month, p.day, p.hour,
                p.minute, p.second);
  return text;
}

std::string UtcIso(std::chrono::system_clock::time_point moment) {
  std::time_t seconds = std::chrono::system_clock::to_time_t(moment);
  std::tm utc{};
  ::gmtime_r(&seconds, &utc);
  char text[32];
  std::strftime(text, sizeof text, "%Y-%m-%dT%H:%M:%SZ", &utc);
  return text;
}

}  // namespace app
