#include "standalone/schema/PosDatabase.h"

#include <string>

#include "connector/host/Error.h"
#include "connector/host/FieldConverter.h"
#include "standalone/schema/PosSchema.h"

namespace standalone {
namespace {

constexpr int32_t kWrongDatabase = -2147467259;

int TableCount(SqliteDatabase& database) {
  auto rs = database.OpenRecordset("SELECT COUNT(*) AS N FROM sqlite_master WHERE type='table'");
  return static_cast<int>(host::FieldConverter::ToNumber(rs->Fields(0)));
}

}  // namespace

int PosSchemaVersionOf(SqliteDatabase& database) {
  auto rs = database.OpenRecordset("PRAGMA user_version");
  return static_cast<int>(host::FieldConverter::ToNumber(rs->Fields(0)));
}

PreparedAs PreparePosDatabase(SqliteDatabase& database) {
  int version = PosSchemaVersionOf(database);
  if (version == kPosSchemaVersion) return PreparedAs::kCurrent;
  if (version > kPosSchemaVersion) {
    host::RaiseWith(kWrongDatabase,
                    "The POS database '" + database.Path() + "' has schema version " +
                        std::to_string(version) + ", newer than this program's (" +
                        std::to_string(kPosSchemaVersion) + ")",
                    "PosDatabase");
  }
  if (version == 0 && TableCount(database) > 0) {
    host::RaiseWith(kWrongDatabase,
                    "'" + database.Path() + "' is a SQLite database but not a POS database",
                    "PosDatabase");
  }
  // Version 0 is an empty database, made whole; an older version is brought
  // up step by step. Either way all of it or none.
  database.BeginTrans();
  try {
    // Another program may have prepared the database while this one waited
    // for the write lock: what it finds then is read again.
    version = PosSchemaVersionOf(database);
    if (version == kPosSchemaVersion) {
      database.CommitTrans();
      return PreparedAs::kCurrent;
    }
    if (version == 0) {
      for (std::string_view statement : PosSchemaStatements()) database.ExecuteScript(statement);
      for (std::string_view statement : FactoryDataStatements()) database.ExecuteScript(statement);
    } else {
      for (int from = version; from < kPosSchemaVersion; ++from) {
        for (std::string_view statement : PosSchemaUpgrade(from)) database.ExecuteScript(statement);
      }
    }
    database.CommitTrans();
  } catch (...) {
    // The first failure is the one to report; a commit that failed may have
    // ended the transaction already.
    if (database.InTransaction()) {
      try {
        database.RollbackTrans();
      } catch (const host::Error&) {
      }
    }
    throw;
  }
  return version == 0 ? PreparedAs::kCreated : PreparedAs::kUpgraded;
}

}  // namespace standalone
