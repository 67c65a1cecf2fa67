#include "app/IsoDates.h"

#include <cstdio>
#include <ctime>

#include "standalone/sqlite/SqliteSqlFormat.h"

namespace app {

// The form the POS database stores its dates in.
std::string LocalIso(host::Date date) { return standalone::StoredDateText(date); }

std::string UtcIso(std::chrono::system_clock::time_point moment) {
  std::time_t seconds = std::chrono::system_clock::to_time_t(moment);
  std::tm utc{};
  ::gmtime_r(&seconds, &utc);
  char text[32];
  std::strftime(text, sizeof text, "%Y-%m-%dT%H:%M:%SZ", &utc);
  return text;
}

}  // namespace app
