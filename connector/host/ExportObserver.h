#ifndef LUMARO_CONNECTOR_HOST_EXPORT_OBSERVER_H_
#define LUMARO_CONNECTOR_HOST_EXPORT_OBSERVER_H_

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "connector/host/Date.h"

namespace host {

// What a host that wants to account for an export is told as it goes: each
// active exchange point whose export begins, and how it ended. A host offers
// one through Host::ExportObserver; most hosts offer none. The calls change
// nothing in the run.
//
// Every call after PointStarted concerns that point. A point that started
// and got no ending call was ended by the error the run raised.
class ExportObserver {
 public:
  enum class Stop {
    kFolderMissing,  // the exchange folder does not exist
    kFileExists,     // the file of the point's next number is already there
  };

  // The records of a file by their tag, in the order the tags first came.
  using RecordCounts = std::vector<std::pair<std::string, long long>>;

  virtual ~ExportObserver() = default;
  // An active point (its back-office workstation code) whose export begins.
  virtual void PointStarted(std::string_view code) = 0;
  // Its file is created at `path` (the folder and name as the settings
  // give them); what follows is written into it.
  virtual void FileBegun(std::string_view path) = 0;
  // The file was written whole, logged and its number saved: the first date
  // its header gives, and the records written.
  virtual void FileMade(Date first_date, const RecordCounts& records) = 0;
  // Nothing was there to export.
  virtual void NothingPending() = 0;
  // The point stopped where a person must act; `path` is the missing
  // folder or the file that is there.
  virtual void Stopped(Stop why, std::string_view path) = 0;
};

}  // namespace host

#endif  // LUMARO_CONNECTOR_HOST_EXPORT_OBSERVER_H_
