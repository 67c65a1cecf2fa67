#ifndef LUMARO_APP_ISO_DATES_H_
#define LUMARO_APP_ISO_DATES_H_

#include <chrono>
#include <string>

#include "connector/host/Date.h"

namespace app {

// A date of the POS database, in its own local time: "YYYY-MM-DD HH:MM:SS",
// whatever the regional settings say.
std::string LocalIso(host::Date date);

// A moment of the wall clock in UTC: "YYYY-MM-DDTHH:MM:SSZ".
std::string UtcIso(std::chrono::system_clock::time_point moment);

}  // namespace app

#endif  // LUMARO_APP_ISO_DATES_H_
