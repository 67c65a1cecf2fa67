#ifndef LUMARO_APP_RUN_LOCK_H_
#define LUMARO_APP_RUN_LOCK_H_

#include <functional>
#include <string>

namespace app {

// Keeps two lumaro runs on one POS database from interleaving: an exchange
// run holds an exclusive lock on a file beside the database (its path with
// ".lumaro-lock" appended) for its whole length. A second run waits for the
// first to end, up to `wait_seconds`, and then gives up with a clear error.
// The lock goes with the process, also when it is killed.
class RunLock {
 public:
  // Raises std::runtime_error when the lock cannot be had in time.
  RunLock(const std::string& database_path, double wait_seconds);
  // A lock that the POS database's server keeps for the connection (a
  // database on a server has no file beside it): `try_lock` takes it or
  // says it is held, and is asked again until the wait ends. The server
  // releases it when the connection ends.
  RunLock(const std::string& database_name, double wait_seconds,
          const std::function<bool()>& try_lock);
  ~RunLock();
  RunLock(const RunLock&) = delete;
  RunLock& operator=(const RunLock&) = delete;

  static std::string LockPathOf(const std::string& database_path) {
    return database_path + ".lumaro-lock";
  }

 private:
  int fd_ = -1;
};

}  // namespace app

#endif  // LUMARO_APP_RUN_LOCK_H_
