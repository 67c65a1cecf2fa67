#ifndef LUMARO_APP_PATHS_H_
#define LUMARO_APP_PATHS_H_

#include <filesystem>
#include <string>
#include <string_view>

namespace app {

// A path the connector built from the settings' folder, which may be
// relative to where the run started, made absolute so that it still says
// where the file is when read from elsewhere (a report, a scheduler's log).
inline std::string AbsolutePath(std::string_view path) {
  if (path.empty()) return "";
  return std::filesystem::absolute(std::filesystem::path(path)).lexically_normal().string();
}

}  // namespace app

#endif  // LUMARO_APP_PATHS_H_
