#include "tests/support/Faults.h"

#include <dlfcn.h>

#include <atomic>
#include <cerrno>
#include <cstdio>

#include "connector/host/Error.h"

namespace testsupport {

StatementFault::StatementFault(standalone::SqliteDatabase& db, int64_t fail_at)
    : db_(db), fail_at_(fail_at) {
  db_.SetStatementObserver([this](std::string_view sql) {
    ++count_;
    texts_.emplace_back(sql);
    if (count_ == fail_at_) {
      host::RaiseWith(host::err::kSqlRefused,
                      "injected fault at statement " + std::to_string(count_), "SQLite");
    }
  });
}

StatementFault::~StatementFault() { db_.SetStatementObserver(nullptr); }

namespace {

std::atomic<int64_t> write_fail_at{0};
std::atomic<int64_t> write_count{0};
std::atomic<bool> write_armed{false};

}  // namespace

WriteFault::WriteFault(int64_t fail_at) {
  write_count = 0;
  write_fail_at = fail_at;
  write_armed = true;
}

WriteFault::~WriteFault() { write_armed = false; }

int64_t WriteFault::count() const { return write_count; }

bool WriteFault::fired() const { return write_fail_at > 0 && write_count >= write_fail_at; }

}  // namespace testsupport

// The test program's own fwrite: the host's libraries resolve theirs to it,
// so that a WriteFault reaches every file the connector writes.
extern "C" size_t fwrite(const void* data, size_t size, size_t count, FILE* stream) {
  using Fwrite = size_t (*)(const void*, size_t, size_t, FILE*);
  static Fwrite real = reinterpret_cast<Fwrite>(dlsym(RTLD_NEXT, "fwrite"));
  if (testsupport::write_armed && stream != stdout && stream != stderr) {
    if (++testsupport::write_count == testsupport::write_fail_at) {
      errno = ENOSPC;
      return 0;
    }
  }
  return real(data, size, count, stream);
}
