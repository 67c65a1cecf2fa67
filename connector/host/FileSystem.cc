#include "connector/host/FileSystem.h"

#include <dirent.h>
#include <sys/stat.h>

#include <algorithm>

#include "connector/host/Error.h"
#include "connector/host/Text.h"

namespace host {

bool FolderExists(const std::string& path) {
  struct stat info;
  return !path.empty() && ::stat(path.c_str(), &info) == 0 && S_ISDIR(info.st_mode);
}

bool FileExists(const std::string& path) {
  struct stat info;
  return ::stat(path.c_str(), &info) == 0;
}

std::string BuildPath(const std::string& folder, const std::string& name) {
  if (folder.empty()) return name;
  if (folder.back() == '/' || folder.back() == '\\') return folder + name;
  return folder + "/" + name;
}

std::string GetFileName(const std::string& path) {
  size_t slash = path.find_last_of("/\\");
  return slash == std::string::npos ? path : path.substr(slash + 1);
}

FileInfo GetFile(const std::string& path) {
  struct stat info;
  if (::stat(path.c_str(), &info) != 0 || !S_ISREG(info.st_mode)) {
    RaiseWith(err::kFileNotFound, "File not found: " + path);
  }
  FileInfo file;
  file.Name = GetFileName(path);
  file.Size = static_cast<double>(info.st_size);
  file.DateLastModified = FromUnixTime(static_cast<long long>(info.st_mtime));
  return file;
}

std::vector<std::string> ListFiles(const std::string& folder, const std::string& pattern) {
  DIR* dir = ::opendir(folder.c_str());
  if (dir == nullptr) RaiseWith(err::kPathNotFound, "Path not found: " + folder);
  std::string upper_pattern = UCase(pattern);
  std::vector<std::pair<std::string, std::string>> found;  // upper-cased name, name
  while (dirent* entry = ::readdir(dir)) {
    std::string name = entry->d_name;
    std::string path = BuildPath(folder, name);
    struct stat info;
    if (::stat(path.c_str(), &info) != 0 || !S_ISREG(info.st_mode)) continue;
    std::string upper = UCase(name);
    if (Like(upper, upper_pattern)) found.emplace_back(std::move(upper), std::move(name));
  }
  ::closedir(dir);
  std::sort(found.begin(), found.end());
  std::vector<std::string> names;
  names.reserve(found.size());
  for (auto& [upper, name] : found) names.push_back(std::move(name));
  return names;
}

}  // namespace host
