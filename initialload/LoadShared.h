#ifndef LUMARO_INITIALLOAD_LOAD_SHARED_H_
#define LUMARO_INITIALLOAD_LOAD_SHARED_H_

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "connector/host/DatabaseService.h"
#include "connector/host/KeyDictionary.h"
#include "connector/host/SqlStatement.h"
#include "connector/host/SystemContext.h"

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

// The tax regime of a customer or supplier of a zone code: 5 in the
// European Union, 6 outside it, the POS's own at home.
int16_t TaxRegimeOfZone(double zone_code);

// The audit columns of a row the load writes by statement: the host's
// workstation, session and user, today's date and the time of day. The
// tables of the geography keep the user, the date and the time alone.
void SetAuditColumns(host::SqlStatement& statement);
void SetUserAuditColumns(host::SqlStatement& statement);

class LoadStep;

// The rows of a step's source table: `sql` opened on the back office (a
// failure is logged under the step and ends it), each row handed to `row`,
// then ProgressCurrent with `task`, the running count and the RecordCount,
// then MoveNext; the recordset closed at the end. A RecordCount not above 0
// reads no row. Returns the RecordCount (0 when the open failed).
double ForEachSourceRow(LoadStep& step, host::DatabaseService& source, const std::string& sql,
                        const std::string& task, LoadEvents* events,
                        const std::function<void(const host::Recordset&)>& row);

// A column of the back office's current row through FieldConverter: NULL
// reads as empty text, 0, date 0 or False.
std::string SourceText(const host::Recordset& row, const char* column);
std::string SourceTrimmed(const host::Recordset& row, const char* column);
double SourceNumber(const host::Recordset& row, const char* column);
bool SourceBoolean(const host::Recordset& row, const char* column);
host::Date SourceDate(const host::Recordset& row, const char* column);
// The text of a column's number: "7" for " 007".
std::string SourceNumberText(const host::Recordset& row, const char* column);
// Whether the back office's rows have that column.
bool SourceHasColumn(const host::Recordset& row, const char* column);

// The host's context, and a text of its message catalogue.
host::SystemContext& HostContext();
std::string CatalogueText(int32_t id);

// The run's dictionary, and its values as the load reads them: an unknown
// key gives empty text or 0.
host::KeyDictionary& Keys();
std::string KeyText(const std::string& key);
double KeyNumber(const std::string& key);

// Runs the INSERT or the UPDATE text of a statement on the POS database, as
// the statement runner writes it.
void RunInsertText(const host::SqlStatement& statement);
void RunUpdateText(const host::SqlStatement& statement);

}  // namespace lumaro

#endif  // LUMARO_INITIALLOAD_LOAD_SHARED_H_
