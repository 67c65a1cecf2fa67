#include "app/PluginLoader.h"

#include <dlfcn.h>
#include <unistd.h>

#include <stdexcept>

namespace app {

Plugin::Plugin(const std::string& path) : path_(path) {
  handle_ = ::dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
  if (handle_ == nullptr) {
    const char* reason = ::dlerror();
    throw std::runtime_error("cannot load the plug-in '" + path +
                             "': " + (reason != nullptr ? reason : "unknown reason"));
  }
  create_ = reinterpret_cast<host::CreateConnectorFunction>(
      ::dlsym(handle_, host::kCreateConnectorSymbol));
  if (create_ == nullptr) {
    ::dlclose(handle_);
    throw std::runtime_error("'" + path + "' is not a connector plug-in (it has no " +
                             host::kCreateConnectorSymbol + ")");
  }
}

Plugin::~Plugin() { ::dlclose(handle_); }

std::unique_ptr<host::IConnector> Plugin::Create(const std::string& class_key, host::Host& host) {
  host::IConnector* connector = create_(class_key.c_str(), &host);
  if (connector == nullptr) {
    throw std::runtime_error("the plug-in '" + path_ + "' has no connector for the class key '" +
                             class_key + "'");
  }
  return std::unique_ptr<host::IConnector>(connector);
}

std::string DefaultPluginPath() {
  char self[4096];
  ssize_t size = ::readlink("/proc/self/exe", self, sizeof self - 1);
  std::string folder = ".";
  if (size > 0) {
    self[size] = '\0';
    std::string path(self);
    size_t slash = path.find_last_of('/');
    if (slash != std::string::npos) folder = path.substr(0, slash);
  }
  return folder + "/liblumaro_connector.so";
}

}  // namespace app
