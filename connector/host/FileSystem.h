#ifndef LUMARO_CONNECTOR_HOST_FILE_SYSTEM_H_
#define LUMARO_CONNECTOR_HOST_FILE_SYSTEM_H_

// The file system as the exchange engine sees it: folders, files, their
// names, sizes and dates.

#include <string>
#include <vector>

#include "connector/host/Date.h"

namespace host {

bool FolderExists(const std::string& path);
bool FileExists(const std::string& path);

// The folder and the name joined by one separator.
std::string BuildPath(const std::string& folder, const std::string& name);
// The name of a path without its folder.
std::string GetFileName(const std::string& path);

struct FileInfo {
  std::string Name;
  double Size = 0;
  // Local time, to the whole second: a date read back from a table that
  // keeps seconds compares equal to it.
  Date DateLastModified;
};

// The file's name, size and date. Raises 53 when the file does not exist.
FileInfo GetFile(const std::string& path);

// The names of the files (not folders) of `folder` whose names match the
// pattern ("*.txt") without regard to case, not descending into sub-folders,
// in the order a Windows file system lists a folder: names compared without
// regard to case. Raises 76 when the folder does not exist.
std::vector<std::string> ListFiles(const std::string& folder, const std::string& pattern);

}  // namespace host

#endif  // LUMARO_CONNECTOR_HOST_FILE_SYSTEM_H_
