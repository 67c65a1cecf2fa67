#include "app/RunLock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstring>
#include <functional>
#include <stdexcept>
#include <thread>

namespace app {

namespace {

// Asks `attempt` every 50 ms until it takes the lock; raises once
// `wait_seconds` have passed.
void WaitFor(const std::function<bool()>& attempt, const std::string& database,
             double wait_seconds) {
  auto deadline = std::chrono::steady_clock::now() +
                  std::chrono::duration_cast<std::chrono::steady_clock::duration>(
                      std::chrono::duration<double>(wait_seconds));
  while (!attempt()) {
    if (std::chrono::steady_clock::now() >= deadline) {
      throw std::runtime_error("the POS database '" + database +
                               "' is in use by another lumaro run; gave up after waiting " +
                               std::to_string(static_cast<int>(wait_seconds)) +
                               " s (--wait sets how long)");
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
  }
}

}  // namespace

RunLock::RunLock(const std::string& database_path, double wait_seconds) {
  const std::string path = LockPathOf(database_path);
  // A lock file of its own: closing a second descriptor of the database
  // file itself would drop the locks SQLite holds on it.
  fd_ = ::open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0644);
  if (fd_ < 0) {
    throw std::runtime_error("cannot open the lock file '" + path + "': " + std::strerror(errno));
  }
  try {
    WaitFor(
        [&] {
          if (::flock(fd_, LOCK_EX | LOCK_NB) == 0) return true;
          if (errno != EWOULDBLOCK && errno != EINTR) {
            throw std::runtime_error("cannot lock '" + path + "': " + std::strerror(errno));
          }
          return false;
        },
        database_path, wait_seconds);
  } catch (...) {
    ::close(fd_);
    throw;
  }
}

RunLock::RunLock(const std::string& database_name, double wait_seconds,
                 const std::function<bool()>& try_lock) {
  WaitFor(try_lock, database_name, wait_seconds);
}

RunLock::~RunLock() {
  if (fd_ >= 0) ::close(fd_);  // closing releases the lock
}

}  // namespace app
