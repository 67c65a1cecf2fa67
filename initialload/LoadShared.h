#ifndef LUMARO_INITIALLOAD_LOAD_SHARED_H_
#define LUMARO_INITIALLOAD_LOAD_SHARED_H_

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "connector/host/DatabaseService.h"
#include "connector/host/SqlStatement.h"

namespace lumaro {

// What the load tells of its progress: the table a step begins
// (ProgressGlobal), and the rows done of the rows it read (ProgressCurrent).
class LoadEvents {
 public:
  virtual ~LoadEvents() = default;
  virtual void ProgressGlobal(std::string_view task, std::string_view task_detail) = 0;
  virtual void ProgressCurrent(std::string_view task, double current, double max) = 0;
};

// The back office's database of a load object, connected by its caller
// and set on it; closed when the object goes.
class SourceDatabase {
 public:
  SourceDatabase() = default;
  ~SourceDatabase();
  SourceDatabase(const SourceDatabase&) = delete;
  SourceDatabase& operator=(const SourceDatabase&) = delete;

  void Set(std::shared_ptr<host::DatabaseService> source) { source_ = std::move(source); }
  // Raises 91 when none was set.
  host::DatabaseService& Get();

 private:
  std::shared_ptr<host::DatabaseService> source_;
};

// The host's POS database, which the load fills.
host::DatabaseService& LoadTarget();

// The first row's value of `column` of a query, or nothing when there is
// no row.
std::optional<host::Variant> FirstValue(host::DatabaseService& db, const std::string& sql,
                                        const char* column);
// Whether a query gives any row.
bool HasRows(host::DatabaseService& db, const std::string& sql);

// The next free id of `field` in `table` of the POS database: its greatest
// value plus 1; 1 for an empty table. A failure is logged under
// "GetNewIDFromTable" and gives 0.
double GetNewIDFromTable(const std::string& table, const std::string& field);

// The kind of a back-office zone code: 0 home (1 to 499, and any code out
// of range), 1 European Union (500 to 699), 2 outside (700 to 999).
int16_t GetZoneType(double code);

// The country of a zone code: the host's country for a home zone (1 to
// 499), empty text for any other. A failure is logged under
// "GetCountryID" and gives empty text.
std::string GetCountryID(double code);

// The audit columns of a row the load writes by statement: the host's
// workstation, session and user, today's date and the time of day.
void SetAuditColumns(host::SqlStatement& statement);

// Runs the INSERT or the UPDATE text of a statement on the POS database, as
// the statement runner writes it.
void RunInsertText(const host::SqlStatement& statement);
void RunUpdateText(const host::SqlStatement& statement);

}  // namespace lumaro

#endif  // LUMARO_INITIALLOAD_LOAD_SHARED_H_
