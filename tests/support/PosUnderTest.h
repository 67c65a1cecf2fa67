#ifndef LUMARO_TESTS_SUPPORT_POS_UNDER_TEST_H_
#define LUMARO_TESTS_SUPPORT_POS_UNDER_TEST_H_

// The databases of an end-to-end test: a SQLite file in the test's folder
// or, when LUMARO_TEST_ODBC gives the ODBC connection string of a
// PostgreSQL database whose user may make databases, a database of its own
// on that server, made for the test and dropped at its end. The same test
// then runs on either, unchanged.

#include <unistd.h>

#include <atomic>
#include <cstdlib>
#include <memory>
#include <optional>
#include <regex>
#include <string>
#include <vector>

#include "standalone/PosEngine.h"
#include "standalone/odbc/OdbcDatabase.h"
#include "standalone/schema/PosSchemaModel.h"
#include "standalone/sqlite/SqliteDatabase.h"

namespace testsupport {

// The test server's connection string; empty when the tests run on files.
inline std::string TestServer() {
  const char* server = std::getenv("LUMARO_TEST_ODBC");
  return server == nullptr ? std::string() : std::string(server);
}

// A new, empty database on the test server, dropped at the end.
class ServerDatabase {
 public:
  ServerDatabase() {
    static std::atomic<int> made{0};
    name_ = "lumaro_test_" + std::to_string(::getpid()) + "_" + std::to_string(++made);
    connection_ = std::regex_replace(TestServer(), std::regex("Database=[^;]*", std::regex::icase),
                                     "Database=" + name_);
    standalone::OdbcDatabase::Connect(TestServer())->OpenRecordset("CREATE DATABASE " + name_);
  }
  ~ServerDatabase() {
    try {
      standalone::OdbcDatabase::Connect(TestServer())
          ->OpenRecordset("DROP DATABASE " + name_ + " WITH (FORCE)");
    } catch (...) {
      // A database left behind goes with the throw-away server.
    }
  }
  ServerDatabase(const ServerDatabase&) = delete;
  ServerDatabase& operator=(const ServerDatabase&) = delete;

  const std::string& Connection() const { return connection_; }
  // A new connection; BIT columns of the POS schema read as truth values.
  std::unique_ptr<standalone::OdbcDatabase> Open() const {
    auto server = standalone::OdbcDatabase::Connect(connection_);
    server->SetTruthColumns(standalone::PosSchemaModel());
    return server;
  }

 private:
  std::string name_;
  std::string connection_;
};

// The POS database of a test.
class PosUnderTest {
 public:
  // `file`: the SQLite file when no server is given.
  explicit PosUnderTest(std::string file) : file_(std::move(file)) {
    if (OnServer()) server_.emplace();
  }

  static bool OnServer() { return !TestServer().empty(); }
  // The options of lumaro that name the database.
  std::vector<std::string> Args() const {
    if (!server_) return {"--db", file_};
    return {"--odbc", server_->Connection()};
  }
  // A new connection to the database, which lumaro must have made.
  std::unique_ptr<standalone::PosEngine> Open() const {
    if (server_) return server_->Open();
    return standalone::SqliteDatabase::Open(file_, standalone::SqliteDatabase::OpenMode::kExisting);
  }

 private:
  std::string file_;
  std::optional<ServerDatabase> server_;
};

}  // namespace testsupport

#endif  // LUMARO_TESTS_SUPPORT_POS_UNDER_TEST_H_
