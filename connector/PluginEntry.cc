// The plug-in's one entry point.

#include <cstring>

#include "connector/LumaroConnector.h"

extern "C" __attribute__((visibility("default"))) host::IConnector* CreateConnector(
    const char* class_key, host::Host* host) {
  if (class_key == nullptr || host == nullptr ||
      std::strcmp(class_key, lumaro::LumaroConnector::kClassKey) != 0) {
    return nullptr;
  }
  return new lumaro::LumaroConnector(*host);
}
