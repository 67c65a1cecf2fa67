#include "importlog/LumaroLog.h"

#include <sys/stat.h>

#include "connector/host/Error.h"

namespace lumaro {

void LumaroLog::FillFromFile(const std::string& path) {
  struct stat info;
  if (::stat(path.c_str(), &info) != 0) {
    host::RaiseWith(host::err::kFileNotFound, "File not found: " + path, "LumaroLog");
  }
  size_t slash = path.find_last_of('/');
  Filename = slash == std::string::npos ? path : path.substr(slash + 1);
  FileSize = static_cast<float>(info.st_size);
  FileDate = host::FromUnixTime(info.st_mtime);
}

}  // namespace lumaro
