#ifndef LUMARO_CONNECTOR_HOST_IMPORT_OBSERVER_H_
#define LUMARO_CONNECTOR_HOST_IMPORT_OBSERVER_H_

#include <cstdint>
#include <string_view>

namespace host {

// What a host that wants to account for an import is told as the import
// goes: which files it passed over and why, and what became of each record
// it wrote. A host offers one through Host::ImportObserver; most hosts offer
// none. The calls change nothing in the run.
class ImportObserver {
 public:
  enum class Outcome {
    kAdded,    // a new row (a new salesman, customer, family, item, lot)
    kUpdated,  // an existing row, or an item's prices, barcodes or components
    kRefused,  // the save was refused (the error file has the line) or not made
  };

  virtual ~ImportObserver() = default;
  // The exchange folder does not exist: the run reads nothing.
  virtual void FolderMissing(std::string_view folder) = 0;
  // A file of the exchange folder that is not read, with the reason.
  virtual void FileSkipped(std::string_view file_name, std::string_view reason) = 0;
  // A file whose passes begin, inside its transaction.
  virtual void FileStarted(std::string_view file_name) = 0;
  // One record of the file, by its tag and its line (1 is the header).
  virtual void Record(std::string_view tag, int64_t line, Outcome outcome,
                      std::string_view description) = 0;
  // The file's transaction was committed, or rolled back.
  virtual void FileEnded(std::string_view file_name, bool committed) = 0;
};

}  // namespace host

#endif  // LUMARO_CONNECTOR_HOST_IMPORT_OBSERVER_H_
