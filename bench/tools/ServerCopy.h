#ifndef LUMARO_BENCH_TOOLS_SERVER_COPY_H_
#define LUMARO_BENCH_TOOLS_SERVER_COPY_H_

#include <string>

namespace bench {

// Puts the rows of the POS database file `sqlite_path` into the POS database
// on a server that `connection` reaches (made by lumaro --odbc init): each
// table of the POS schema is emptied there and given the file's rows, all in
// one transaction. So a shop prepared as a file is benchmarked on a server.
// Returns the number of rows copied; raises on any failure.
long CopyToServer(const std::string& sqlite_path, const std::string& connection);

}  // namespace bench

#endif  // LUMARO_BENCH_TOOLS_SERVER_COPY_H_
