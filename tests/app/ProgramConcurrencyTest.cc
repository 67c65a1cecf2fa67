// Two lumaro runs on one POS database at once: the second waits for the
// first to end (or gives up with a clear error), and never interleaves
// with it.

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <unistd.h>

#include <chrono>
#include <future>
#include <thread>

#include "tests/app/ImportShop.h"

namespace {

using namespace importshop;

// Whether another process holds the run lock of the database.
bool RunLockHeld(const std::string& database) {
  int fd = ::open((database + ".lumaro-lock").c_str(), O_RDWR | O_CLOEXEC);
  if (fd < 0) return false;
  bool held = ::flock(fd, LOCK_EX | LOCK_NB) != 0;
  ::close(fd);
  return held;
}

TEST(ConcurrentRuns, TheSecondWaitsForTheFirstOrGivesUpClearly) {
  ImportShop shop;
  std::vector<std::string> lines = {kHeader};
  for (int i = 1; i <= 3000; ++i) lines.push_back(Ar("A" + std::to_string(i)));
  std::string bytes;
  for (const auto& line : lines) bytes += line + "\r\n";
  shop.Write("ITpv0001.txt", bytes);

  auto first = std::async(std::launch::async, [&shop] { return shop.Import(); });
  auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(20);
  while (!RunLockHeld(shop.Database()) && std::chrono::steady_clock::now() < deadline) {
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
  }
  ASSERT_TRUE(RunLockHeld(shop.Database()));

  auto impatient = shop.Lumaro({"--wait", "0", "--now", kNow, "export"});
  EXPECT_EQ(impatient.exit_code, 1);
  EXPECT_NE(impatient.err.find("is in use by another lumaro run"), std::string::npos)
      << impatient.err;

  // This one waits; when it runs, the first has ended and logged the file.
  auto patient = shop.Lumaro({"--now", kNow, "import"});
  auto ended = first.get();
  EXPECT_EQ(ended.exit_code, 0) << ended.err;
  EXPECT_EQ(patient.exit_code, 0) << patient.err;
  EXPECT_EQ(patient.out,
            "ITpv0001.txt: passed over, already imported, and its date has not moved\n");
  EXPECT_EQ(shop.Query("SELECT COUNT(*) FROM Item"), "3000");
  EXPECT_EQ(shop.LoggedFiles(), "ITpv0001.txt");
}

}  // namespace
