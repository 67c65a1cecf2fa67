#ifndef LUMARO_APP_IMPORT_ACCOUNT_H_
#define LUMARO_APP_IMPORT_ACCOUNT_H_

#include <cstdint>
#include <map>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "connector/host/ImportObserver.h"

namespace app {

// What an import did, file by file, told by the connector as it went:
// files passed over and why, and for each file read, by tag, the records
// added, updated and refused (with their lines). Printed at the end of a
// run for the person who started it.
class ImportAccount : public host::ImportObserver {
 public:
  struct TagCounts {
    int64_t added = 0;
    int64_t updated = 0;
    std::vector<std::pair<int64_t, std::string>> refused;  // line, reason
  };
  struct File {
    std::string name;
    std::string skipped;  // why it was not read; empty for a file read
    bool committed = false;
    std::map<std::string, TagCounts> tags;
  };

  void FolderMissing(std::string_view folder) override;
  void FileSkipped(std::string_view file_name, std::string_view reason) override;
  void FileStarted(std::string_view file_name) override;
  void Record(std::string_view tag, int64_t line, Outcome outcome,
              std::string_view description) override;
  void FileEnded(std::string_view file_name, bool committed) override;

  // One block per file. `dry_run`: the changes were undone, and are told as
  // what would happen.
  void Print(std::ostream& out, bool dry_run) const;
  // The file that was read but not imported, if one was: the run stops there.
  std::string FileNotImported() const;
  // One sentence for each thing a person must see to: the missing folder,
  // the file whose import was undone.
  std::vector<std::string> Stops() const;

  // The files in the order met, and the tags in the order the passes read
  // them.
  const std::vector<File>& Files() const { return files_; }
  static const std::vector<std::string>& TagOrder();

 private:
  std::vector<File> files_;
  bool folder_missing_ = false;
  std::string missing_folder_;  // absolute; empty when the settings name none
};

}  // namespace app

#endif  // LUMARO_APP_IMPORT_ACCOUNT_H_
