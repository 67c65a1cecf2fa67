#ifndef LUMARO_CONNECTOR_HOST_REGIONAL_H_
#define LUMARO_CONNECTOR_HOST_REGIONAL_H_

#include <string>

namespace host {

// The machine's regional settings that the run time's conversions follow.
// Patterns use d, m, y for the date and h, n (or m after h), s for the time.
struct RegionalSettings {
  std::string decimal_separator = ",";
  std::string group_separator = ".";
  std::string short_date = "dd-mm-yyyy";
  std::string long_time = "hh:mm:ss";
  std::string true_word = "Verdadeiro";  // accepted by text to Boolean
  std::string false_word = "Falso";

  static RegionalSettings Portuguese() { return RegionalSettings{}; }
  friend bool operator==(const RegionalSettings&, const RegionalSettings&) = default;
};

// The settings in force on this thread; Portuguese until the host sets others.
const RegionalSettings& CurrentRegional();
void SetCurrentRegional(const RegionalSettings& settings);

// Sets the thread's settings for the life of the object and restores the
// previous ones after.
class ScopedRegional {
 public:
  explicit ScopedRegional(const RegionalSettings& settings);
  ~ScopedRegional();
  ScopedRegional(const ScopedRegional&) = delete;
  ScopedRegional& operator=(const ScopedRegional&) = delete;

 private:
  RegionalSettings previous_;
};

}  // namespace host

#endif  // LUMARO_CONNECTOR_HOST_REGIONAL_H_
