// The commands that open the connector's forms, where no form can be shown;
// and the plug-in and the program, which never need Qt.

#include <gtest/gtest.h>

#include <filesystem>
#include <sstream>

#include "tests/app/ProgramRunner.h"
#include "tests/support/TestHost.h"

namespace {

using testsupport::ProgramResult;
using testsupport::RunProgram;
using testsupport::TempFolder;

const std::string kBin = LUMARO_BIN_DIR;

// Runs lumaro with the display variables of `display` only ("" for none):
// a developer's own display must not leak into the test.
ProgramResult RunWithDisplay(const std::string& folder, const std::string& display,
                             const std::vector<std::string>& args) {
  std::vector<std::string> argv = {"/usr/bin/env",    "-u", "DISPLAY",        "-u",
                                   "WAYLAND_DISPLAY", "-u", "QT_QPA_PLATFORM"};
  if (!display.empty()) argv.push_back(display);
  argv.push_back(kBin + "/lumaro");
  argv.insert(argv.end(), args.begin(), args.end());
  return RunProgram(folder, argv);
}

void ExpectOneLine(const ProgramResult& result, const std::string& line) {
  EXPECT_EQ(result.exit_code, 1) << result.err;
  EXPECT_EQ(result.err, line + "\n");
  EXPECT_EQ(result.out, "");
}

TEST(ProgramForms, WithoutDisplayTraceAndConfigSaySoInOneLine) {
  TempFolder folder;
  ExpectOneLine(RunWithDisplay(folder.Path(), "", {"trace"}),
                "Não há ecrã para mostrar o formulário frmLumaroLog (defina DISPLAY, "
                "WAYLAND_DISPLAY ou QT_QPA_PLATFORM).");
  ExpectOneLine(RunWithDisplay(folder.Path(), "", {"config"}),
                "Não há ecrã para mostrar o formulário frmSettings (defina DISPLAY, "
                "WAYLAND_DISPLAY ou QT_QPA_PLATFORM).");
}

// With a display the forms library is loaded from beside the plug-in: a
// plug-in elsewhere, without the forms beside it, says so in one line.
TEST(ProgramForms, WithDisplayFormsComeFromBesideThePlugin) {
  TempFolder folder;
  std::string plugin = folder.File("liblumaro_connector.so");
  std::filesystem::copy_file(kBin + "/liblumaro_connector.so", plugin);
  ProgramResult alone =
      RunWithDisplay(folder.Path(), "QT_QPA_PLATFORM=offscreen", {"--plugin", plugin, "trace"});
  EXPECT_EQ(alone.exit_code, 1);
  EXPECT_EQ(alone.err.rfind("Não foi possível carregar os formulários do integrador: " +
                                folder.File("liblumaro_connector_forms.so"),
                            0),
            0u)
      << alone.err;
  EXPECT_EQ(alone.err.find('\n'), alone.err.size() - 1) << alone.err;
}

// The libraries each binary needs by name, as the dynamic loader reads them.
std::string Needed(const std::string& path) {
  ProgramResult result = RunProgram(".", {"/usr/bin/readelf", "-d", path});
  EXPECT_EQ(result.exit_code, 0) << result.err;
  std::string needed;
  std::istringstream lines(result.out);
  for (std::string line; std::getline(lines, line);) {
    if (line.find("(NEEDED)") != std::string::npos) needed += line.substr(line.find('[')) + "\n";
  }
  return needed;
}

TEST(ProgramForms, OnlyTheFormsLibraryNeedsQt) {
  EXPECT_EQ(Needed(kBin + "/lumaro").find("Qt"), std::string::npos);
  EXPECT_EQ(Needed(kBin + "/liblumaro_connector.so").find("Qt"), std::string::npos);
  EXPECT_EQ(Needed(kBin + "/liblumaro_hostapi.so").find("Qt"), std::string::npos);
  EXPECT_NE(Needed(kBin + "/liblumaro_connector_forms.so").find("[libQt6Widgets.so"),
            std::string::npos);
}

}  // namespace
