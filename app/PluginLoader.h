#ifndef LUMARO_APP_PLUGIN_LOADER_H_
#define LUMARO_APP_PLUGIN_LOADER_H_

#include <memory>
#include <string>

#include "connector/host/Host.h"
#include "connector/host/IConnector.h"

namespace app {

// A connector plug-in loaded from its shared library. The library stays
// loaded while the object lives; connectors it made must go first.
class Plugin {
 public:
  // Loads the library; raises std::runtime_error with the loader's reason.
  explicit Plugin(const std::string& path);
  ~Plugin();
  Plugin(const Plugin&) = delete;
  Plugin& operator=(const Plugin&) = delete;

  // The connector of the class key; raises std::runtime_error when the
  // plug-in has none.
  std::unique_ptr<host::IConnector> Create(const std::string& class_key, host::Host& host);

 private:
  std::string path_;
  void* handle_;
  host::CreateConnectorFunction create_;
};

// The plug-in next to the running program.
std::string DefaultPluginPath();

}  // namespace app

#endif  // LUMARO_APP_PLUGIN_LOADER_H_
