#ifndef LUMARO_STANDALONE_POS_ENGINE_H_
#define LUMARO_STANDALONE_POS_ENGINE_H_

#include <string>
#include <string_view>

#include "connector/host/DatabaseService.h"

namespace standalone {

// A database that can hold the POS data: the DatabaseService the connector
// sees, and what the host itself needs to make and keep its schema there.
// SQLite (a file) and server databases reached through ODBC are both one.
class PosEngine : public host::DatabaseService {
 public:
  // Runs the host's own statements (its schema, factory data and seeds, as
  // written for SQLite) one after the other, translated for this database.
  virtual void ExecuteScript(std::string_view script) = 0;
  // The POS schema version the database holds: 0 for none.
  virtual int SchemaVersion() = 0;
  // Records the version; run it inside the transaction that made the schema.
  virtual void SetSchemaVersion(int version) = 0;
  // How many tables the database holds, of any schema.
  virtual int TableCount() = 0;
  // The database as messages name it: a file's path, or the server's
  // connection string without its password.
  virtual std::string Name() const = 0;
  // The folder a new host context takes as its work folder: the file's
  // folder, or the current folder for a server.
  virtual std::string HomeFolder() const = 0;
  virtual bool InTransaction() const = 0;
};

}  // namespace standalone

#endif  // LUMARO_STANDALONE_POS_ENGINE_H_
