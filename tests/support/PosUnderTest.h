#ifndef LUMARO_TESTS_SUPPORT_POS_UNDER_TEST_H_
#define LUMARO_TESTS_SUPPORT_POS_UNDER_TEST_H_

// The POS database of an end-to-end test: a SQLite file in the test's
// folder or, when LUMARO_TEST_ODBC gives the ODBC connection string of a
// PostgreSQL database whose user may make databases, a database of its own
// on that server, made for the test and dropped at its end. The same test
// then runs on either, unchanged.

#include <unistd.h>

#include <atomic>
#include <memory>
#include <regex>
#include <string>
#include <vector>

#include "standalone/PosEngine.h"
#include "standalone/odbc/OdbcDatabase.h"
#include "standalone/schema/PosSchemaModel.h"
#include "standalone/sqlite/SqliteDatabase.h"

namespace testsupport {

class PosUnderTest {
 public:
  // `file`: the SQLite file when no server is given.
  explicit PosUnderTest(std::string file) : file_(std::move(file)) {
    const char* server = std::getenv("LUMARO_TEST_ODBC");
    if (server == nullptr || *server == '\0') return;
    static std::atomic<int> made{0};
    name_ = "lumaro_test_" + std::to_string(::getpid()) + "_" + std::to_string(++made);
    connection_ = std::regex_replace(server, std::regex("Database=[^;]*", std::regex::icase),
                                     "Database=" + name_);
    standalone::OdbcDatabase::Connect(server)->OpenRecordset("CREATE DATABASE " + name_);
    admin_ = server;
  }
  ~PosUnderTest() {
    if (admin_.empty()) return;
    try {
      standalone::OdbcDatabase::Connect(admin_)->OpenRecordset("DROP DATABASE " + name_ +
                                                               " WITH (FORCE)");
    } catch (...) {
      // A database left behind goes with the throw-away server.
    }
  }
  PosUnderTest(const PosUnderTest&) = delete;
  PosUnderTest& operator=(const PosUnderTest&) = delete;

  static bool OnServer() {
    const char* server = std::getenv("LUMARO_TEST_ODBC");
    return server != nullptr && *server != '\0';
  }
  // The options of lumaro that name the database.
  std::vector<std::string> Args() const {
    if (admin_.empty()) return {"--db", file_};
    return {"--odbc", connection_};
  }
  // A new connection to the database, which lumaro must have made.
  std::unique_ptr<standalone::PosEngine> Open() const {
    if (admin_.empty()) {
      return standalone::SqliteDatabase::Open(file_,
                                              standalone::SqliteDatabase::OpenMode::kExisting);
    }
    auto server = standalone::OdbcDatabase::Connect(connection_);
    server->SetTruthColumns(standalone::PosSchemaModel());
    return server;
  }

 private:
  std::string file_;
  std::string name_;
  std::string connection_;
  std::string admin_;
};

}  // namespace testsupport

#endif  // LUMARO_TESTS_SUPPORT_POS_UNDER_TEST_H_
