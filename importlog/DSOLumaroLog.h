#ifndef LUMARO_IMPORTLOG_DSO_LUMARO_LOG_H_
#define LUMARO_IMPORTLOG_DSO_LUMARO_LOG_H_

#include <memory>
#include <string>

#include "connector/host/Recordset.h"
#include "importlog/LumaroLog.h"

namespace lumaro {

// The data service of the table LumaroLog, whose key is (WorkstationID,
// Filename). Every operation ends quietly on any failure, with False or an
// empty reference, and shows nothing: a failed Save does not stop an
// import, and the next run sees the file as new.
class DSOLumaroLog {
 public:
  // Every row, ordered by WorkstationID, ImportDate, FileDate descending.
  host::RecordsetPtr GetLumaroLogRS();
  bool Delete(int16_t workstation_id, const std::string& filename);
  // Inserts the row when the log IsNew, else updates the row of its key.
  // ImportDate takes the moment of the save, not the value in the object.
  bool Save(const LumaroLog& log);
  // The row of the key; an empty reference when there is none.
  std::unique_ptr<LumaroLog> GetLogInfo(int16_t workstation_id, const std::string& filename);
  // Makes the table and its index LumaroLog_IDX when the database lacks
  // them. Called at the start of every import and export.
  bool CheckOrCreateLumaroLogTable();
};

}  // namespace lumaro

#endif  // LUMARO_IMPORTLOG_DSO_LUMARO_LOG_H_
