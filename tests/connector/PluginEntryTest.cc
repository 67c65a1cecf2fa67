#include <dlfcn.h>

#include <cstdio>
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
class PluginEntry : public ::testing::Test {
 protected:
  void SetUp() override {
    library_ = dlopen(kLibrary, RTLD_NOW | RTLD_LOCAL);
    ASSERT_NE(library_, nullptr) << dlerror();
    create_ = reinterpret_cast<CreateConnectorFunction>(dlsym(library_, "CreateConnector"));
    ASSERT_NE(create_, nullptr) << dlerror();
  }
  void TearDown() override {
    if (library_ != nullptr) dlclose(library_);
  }

  void* library_ = nullptr;
  CreateConnectorFunction create_ = nullptr;
};

TEST_F(PluginEntry, ClassKeyGivesTheConnectorAndAnythingElseNothing) {
  testsupport::TestHost test_host;
  std::unique_ptr<host::IConnector> connector(create_(kClassKey, &test_host.Host()));
  ASSERT_NE(connector, nullptr);
  EXPECT_EQ(connector->ConnectorID(), kClassKey);
  EXPECT_EQ(connector->Description(), "Integrador Orbiva Lumaro");
  connector.reset();

  for (const char* key :
       {"Orbiva.Vendara.Connector.Other", "orbiva.vendara.connector.lumaro",
        "Orbiva.Vendara.Connector.Lumaro ", "", static_cast<const char*>(nullptr)}) {
    SCOPED_TRACE(key == nullptr ? "null key" : key);
    EXPECT_EQ(create_(key, &test_host.Host()), nullptr);
  }
  EXPECT_EQ(create_(kClassKey, nullptr), nullptr);
}

// The defined dynamic symbols of the library, demangled, without those of
// the standard library, the compiler and the linker.
std::set<std::string> OwnExportedSymbols(const std::string& library) {
  std::set<std::string> names;
  std::string command = "nm -D --defined-only -C '" + library + "' 2>/dev/null";
  FILE* pipe = popen(command.c_str(), "r");
  if (pipe == nullptr) return names;
  char line[4096];
  while (std::fgets(line, sizeof(line), pipe) != nullptr) {
    std::string text(line);
    while (!text.empty() && (text.back() == '\n' || text.back() == '\r')) text.pop_back();
    // "<address> <type> <name>"
    size_t first = text.find(' ');
    size_t second = first == std::string::npos ? first : text.find(' ', first + 1);
    if (second == std::string::npos) continue;
    std::string name = text.substr(second + 1);
    bool standard = name.starts_with("_") || name.find("std::") != std::string::npos ||
                    name.find("__gnu_cxx::") != std::string::npos ||
                    name.find("__cxxabiv1::") != std::string::npos ||
                    name.starts_with("operator new") || name.starts_with("operator delete");
    if (!standard) names.insert(name);
  }
  pclose(pipe);
  return names;
}

TEST_F(PluginEntry, ExportsNoOtherSymbolOfOurs) {
  EXPECT_EQ(OwnExportedSymbols(kLibrary), std::set<std::string>{"CreateConnector"});
}

}  // namespace
