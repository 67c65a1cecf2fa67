#ifndef LUMARO_TESTS_SUPPORT_FAULTS_H_
#define LUMARO_TESTS_SUPPORT_FAULTS_H_

// Faults injected into a run, for tests only: a statement of the POS
// database that fails, and a write to a file that fails.

#include <cstdint>
#include <string>
#include <vector>

#include "standalone/sqlite/SqliteDatabase.h"

namespace testsupport {

// Fails the statement number `fail_at` (from 1; 0 fails none) that the
// database runs from now on, as the database would refuse it
// (-2147217900), and counts every statement, BEGIN and COMMIT included.
class StatementFault {
 public:
  StatementFault(standalone::SqliteDatabase& db, int64_t fail_at);
  ~StatementFault();
  StatementFault(const StatementFault&) = delete;
  StatementFault& operator=(const StatementFault&) = delete;

  int64_t count() const { return count_; }
  bool fired() const { return fail_at_ > 0 && count_ >= fail_at_; }
  // The texts of the statements counted so far.
  const std::vector<std::string>& texts() const { return texts_; }

 private:
  standalone::SqliteDatabase& db_;
  int64_t fail_at_;
  int64_t count_ = 0;
  std::vector<std::string> texts_;
};

// Fails the write number `fail_at` (from 1; 0 fails none) to any file of
// this process but the standard streams, as a full disk does: the write
// takes nothing and reports ENOSPC. Counts every such write while it lives.
// One at a time.
class WriteFault {
 public:
  explicit WriteFault(int64_t fail_at);
  ~WriteFault();
  WriteFault(const WriteFault&) = delete;
  WriteFault& operator=(const WriteFault&) = delete;

  int64_t count() const;
  bool fired() const;
};

}  // namespace testsupport

#endif  // LUMARO_TESTS_SUPPORT_FAULTS_H_
