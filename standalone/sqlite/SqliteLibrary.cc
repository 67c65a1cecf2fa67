#include "standalone/sqlite/SqliteLibrary.h"

#include <sqlite3.h>

namespace standalone {
namespace {

// An entity's writes run in a savepoint, which copies every page it is the
// first to touch into a statement journal. SQLite keeps that journal in
// memory up to this size, in pieces of this size; beyond it, in a temporary
// file for the rest of the transaction. At SQLite's 64 KiB an import had
// outgrown it once and then spent a tenth of its time writing to the file.
// A savepoint of an entity touches some tens of pages.
constexpr int kStatementJournalInMemory = 1 << 20;

}  // namespace

void ConfigureSqlite() {
  static const bool configured = [] {
    // SQLite's count of its memory takes a global lock at every allocation;
    // nothing here reads it.
    sqlite3_config(SQLITE_CONFIG_MEMSTATUS, 0);
    sqlite3_config(SQLITE_CONFIG_STMTJRNL_SPILL, kStatementJournalInMemory);
    return true;
  }();
  (void)configured;
}

}  // namespace standalone
