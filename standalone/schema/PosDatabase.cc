#include "standalone/schema/PosDatabase.h"

#include <string>

#include "connector/host/Error.h"
#include "connector/host/FieldConverter.h"
#include "standalone/schema/PosSchema.h"

namespace standalone {
namespace {

constexpr int32_t kWrongDatabase = -2147467259;

}  // namespace

PreparedAs PreparePosDatabase(PosEngine& database) {
  int version = database.SchemaVersion();
  if (version == kPosSchemaVersion) return PreparedAs::kCurrent;
  if (version > kPosSchemaVersion) {
    host::RaiseWith(kWrongDatabase,
                    "The POS database '" + database.Name() + "' has schema version " +
                        std::to_string(version) + ", newer than this program's (" +
                        std::to_string(kPosSchemaVersion) + ")",
                    "PosDatabase");
  }
  if (version == 0 && database.TableCount() > 0) {
    host::RaiseWith(kWrongDatabase,
                    "'" + database.Name() + "' holds tables but is not a POS database",
                    "PosDatabase");
  }
  // Version 0 is an empty database, made whole; an older version is brought
  // up step by step. Either way all of it or none.
  database.BeginTrans();
  try {
    // Another program may have prepared the database while this one waited
    // for the write lock: what it finds then is read again.
    version = database.SchemaVersion();
    if (version == kPosSchemaVersion) {
      database.CommitTrans();
      return PreparedAs::kCurrent;
    }
    if (version == 0) {
      for (std::string_view statement : PosSchemaStatements()) database.ExecuteScript(statement);
      for (std::string_view statement : FactoryDataStatements()) database.ExecuteScript(statement);
      // The version goes last, so that a database whose creation stopped
      // half-way still reads as version 0.
      database.SetSchemaVersion(kPosSchemaVersion);
    } else {
      for (int from = version; from < kPosSchemaVersion; ++from) {
        for (std::string_view statement : PosSchemaUpgrade(from)) database.ExecuteScript(statement);
        database.SetSchemaVersion(from + 1);
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
