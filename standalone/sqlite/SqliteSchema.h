#ifndef LUMARO_STANDALONE_SQLITE_SQLITE_SCHEMA_H_
#define LUMARO_STANDALONE_SQLITE_SQLITE_SCHEMA_H_

#include <string>

#include "connector/host/DatabaseService.h"

namespace standalone {

class SqliteDatabase;

// The schema object model of a SQLite database. A text column with a length
// refuses longer text, as a VARCHAR(n) of SQL Server does.
class SqliteSchema : public host::SchemaService {
 public:
  explicit SqliteSchema(SqliteDatabase& database) : database_(database) {}

  bool TableExists(std::string_view table) override;
  void AppendTable(const host::TableDefinition& table) override;
  void Refresh() override {}  // SQLite reads its schema anew by itself

  // The CREATE TABLE and CREATE INDEX statements of a definition.
  static std::string CreateStatements(const host::TableDefinition& table);

 private:
  SqliteDatabase& database_;
};

}  // namespace standalone

#endif  // LUMARO_STANDALONE_SQLITE_SQLITE_SCHEMA_H_
