#ifndef LUMARO_CONNECTOR_HOST_EXPORT_OBSERVER_H_
#define LUMARO_CONNECTOR_HOST_EXPORT_OBSERVER_H_

#include <string_view>

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

  virtual ~ExportObserver() = default;
  // An active point (its back-office workstation code) whose export begins.
  virtual void PointStarted(std::string_view code) = 0;
  // Its file was written whole, logged and its number saved: the file's
  // full path and the first date its header gives.
  virtual void FileMade(std::string_view path, Date first_date) = 0;
  // Nothing was there to export.
  virtual void NothingPending() = 0;
  // The point stopped where a person must act; `path` is the missing
  // folder or the file that is there.
  virtual void Stopped(Stop why, std::string_view path) = 0;
};

}  // namespace host

#endif  // LUMARO_CONNECTOR_HOST_EXPORT_OBSERVER_H_
