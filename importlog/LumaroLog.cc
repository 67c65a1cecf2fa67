#include "importlog/LumaroLog.h"

#include "connector/host/Error.h"
#include "connector/host/FileSystem.h"

namespace lumaro {

void LumaroLog::FillFromFile(const std::string& path) {
  try {
    host::FileInfo file = host::GetFile(path);
    Filename = file.Name;
    FileSize = static_cast<float>(file.Size);
    FileDate = file.DateLastModified;
  } catch (const host::Error& error) {
    throw error.WithSource("LumaroLog");
  }
}

}  // namespace lumaro
