#include <dlfcn.h>

#include <cstdio>
#include <cstring>
#include <memory>
#include <set>
#include <string>

#include "connector/host/Host.h"
#include "connector/host/IConnector.h"
#include "gtest/gtest.h"
#include "tests/support/TestHost.h"

namespace {

constexpr char kLibrary[] = LUMARO_BIN_DIR "/liblumaro_connector.so";
constexpr char kClassKey[] = "Orbiva.Vendara.Connector.Lumaro";

using CreateConnectorFunction = host::IConnector* (*)(const char*, host::Host*);

// The plug-in as a host loads it.
TEST(PluginEntry, ClassKeyGivesTheConnectorAndAnythingElseNothing) {
  void* library = dlopen(kLibrary, RTLD_NOW | RTLD_LOCAL);
  ASSERT_NE(library, nullptr) << dlerror();
  auto create = reinterpret_cast<CreateConnectorFunction>(dlsym(library, "CreateConnector"));
  ASSERT_NE(create, nullptr) << dlerror();
  testsupport::TestHost test_host;
  std::unique_ptr<host::IConnector> connector(create(kClassKey, &test_host.Host()));
  ASSERT_NE(connector, nullptr);
  EXPECT_EQ(connector->ConnectorID(), kClassKey);
  connector.reset();
  for (const char* key : {"orbiva.vendara.connector.lumaro", "Orbiva.Vendara.Connector.Lumaro ", "",
                          static_cast<const char*>(nullptr)}) {
    SCOPED_TRACE(key == nullptr ? "null key" : key);
    EXPECT_EQ(create(key, &test_host.Host()), nullptr);
  }
  EXPECT_EQ(create(kClassKey, nullptr), nullptr);
  dlclose(library);
}

// The defined dynamic symbols of the library, demangled, without those of
// the standard library, the compiler and the linker.
std::set<std::string> OwnExportedSymbols(const std::string& library) {
  std::set<std::string> names;
  std::string command = "nm -D --defined-only -C '" + library + "' | cut -d' ' -f3-";
  FILE* pipe = popen(command.c_str(), "r");
  char line[4096];
  while (pipe != nullptr && std::fgets(line, sizeof(line), pipe) != nullptr) {
    std::string name(line, std::strcspn(line, "\r\n"));
    bool standard = name.starts_with("_") || name.find("std::") != std::string::npos ||
                    name.find("__gnu_cxx::") != std::string::npos ||
                    name.find("__cxxabiv1::") != std::string::npos ||
                    name.starts_with("operator new") || name.starts_with("operator delete");
    if (!standard) names.insert(name);
  }
  if (pipe != nullptr) pclose(pipe);
  return names;
}

TEST(PluginEntry, ExportsNoOtherSymbolOfOurs) {
  EXPECT_EQ(OwnExportedSymbols(kLibrary), std::set<std::string>{"CreateConnector"});
}

}  // namespace
