#ifndef LUMARO_STANDALONE_SQLITE_SQLITE_LIBRARY_H_
#define LUMARO_STANDALONE_SQLITE_SQLITE_LIBRARY_H_

namespace standalone {

// Sets SQLite's process-wide options, once: call it before opening any
// connection. SQLite takes them only before it starts; one it refuses
// later stays at SQLite's default, which changes speed, never results.
void ConfigureSqlite();

}  // namespace standalone

#endif  // LUMARO_STANDALONE_SQLITE_SQLITE_LIBRARY_H_
