#include "app/RunLock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstring>
#include <stdexcept>
#include <thread>

namespace app {

RunLock::RunLock(const std::string& database_path, double wait_seconds) {
  const std::string path = LockPathOf(database_path);
  // A lock file of its own: closing a second descriptor of the database
  // file itself would drop the locks SQLite holds on it.
  fd_ = ::open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0644);
  if (fd_ < 0) {
    throw std::runtime_error("cannot open the lock file '" + path + "': " + std::strerror(errno));
  }
  auto deadline = std::chrono::steady_clock::now() +
                  std::chrono::duration_cast<std::chrono::steady_clock::duration>(
                      std::chrono::duration<double>(wait_seconds));
  while (::flock(fd_, LOCK_EX | LOCK_NB) != 0) {
    if (errno != EWOULDBLOCK && errno != EINTR) {
      int error = errno;
      ::close(fd_);
      throw std::runtime_error("cannot lock '" + path + "': " + std::strerror(error));
    }
    if (std::chrono::steady_clock::now() >= deadline) {
      ::close(fd_);
      throw std::runtime_error("the POS database '" + database_path +
                               "' is in use by another lumaro run; gave up after waiting " +
                               std::to_string(static_cast<int>(wait_seconds)) +
                               " s (--wait sets how long)");
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
  }
}

RunLock::~RunLock() {
  if (fd_ >= 0) ::close(fd_);  // closing releases the lock
}

}  // namespace app
