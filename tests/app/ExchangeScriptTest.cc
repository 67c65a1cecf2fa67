// The scheduler's script of examples/systemd: both runs happen, whatever
// the first one did, and its exit code is what a scheduler must see of the
// two. lumaro is stood in for by a script that exits as told.

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <fstream>
#include <string>

#include "tests/app/ProgramRunner.h"
#include "tests/support/TestHost.h"

namespace {

const std::string kScript = std::string(LUMARO_SOURCE_DIR) + "/examples/systemd/lumaro-exchange";

// Exits with $IMPORT or $EXPORT (by the command it is given), or dies of
// SIGSEGV for "segv"; writes its arguments to runs.txt.
const char kStandIn[] =
    "#!/bin/sh\n"
    "echo \"$*\" >> runs.txt\n"
    "case \"$*\" in *' import') code=$IMPORT ;; *) code=$EXPORT ;; esac\n"
    "[ \"$code\" = segv ] && kill -SEGV $$\n"
    "exit \"$code\"\n";

TEST(ExchangeScript, BothRunsHappenAndTheGraverOutcomeIsTheExitCode) {
  struct Case {
    const char* import;
    const char* export_;
    int expected;
  } cases[] = {
      {"0", "0", 0}, {"3", "0", 3},    {"0", "3", 3},   {"3", "1", 1},
      {"2", "3", 1}, {"segv", "0", 1}, {"0", "127", 1},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(std::string("import ") + c.import + ", export " + c.export_);
    testsupport::TempFolder folder;
    std::string stand_in = folder.File("lumaro");
    std::ofstream(stand_in) << kStandIn;
    ASSERT_EQ(::chmod(stand_in.c_str(), 0755), 0);
    auto result = testsupport::RunProgram(
        folder.Path(), {"/usr/bin/env", "LUMARO=" + stand_in, std::string("IMPORT=") + c.import,
                        std::string("EXPORT=") + c.export_, "/bin/sh", kScript, "reports"});
    EXPECT_EQ(result.exit_code, c.expected) << result.err;
    EXPECT_EQ(testsupport::ReadBytes(folder.File("runs.txt")),
              "--quiet --wait 300 --report reports/import.json import\n"
              "--quiet --wait 300 --report reports/export.json export\n");
  }
  // A lumaro that is not there is a failure, not a quiet success.
  testsupport::TempFolder folder;
  auto missing = testsupport::RunProgram(
      folder.Path(), {"/usr/bin/env", "LUMARO=" + folder.File("none"), "/bin/sh", kScript});
  EXPECT_EQ(missing.exit_code, 1);
}

}  // namespace
