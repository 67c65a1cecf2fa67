#ifndef LUMARO_STANDALONE_HOST_CONTEXT_STORE_H_
#define LUMARO_STANDALONE_HOST_CONTEXT_STORE_H_

#include <string>
#include <string_view>
#include <vector>

#include "connector/host/DatabaseService.h"
#include "connector/host/Regional.h"

namespace standalone {

// The host context that the stand-alone host keeps in the POS database
// (table HostContext): CompanyNumber, WorkFolder, ItemImageFolder,
// TerminalCount, ExternalSeries and the regional settings. A key never set
// reads as its default.
class HostContextStore {
 public:
  struct Entry {
    std::string key;
    std::string value;
  };

  // `default_work_folder` is the work folder of a database that has none
  // set: the folder of the database file.
  HostContextStore(host::DatabaseService& database, std::string default_work_folder);

  // Every key with its value, in a fixed order.
  std::vector<Entry> All() const;
  // The value of a key; raises 5 for a key the host does not know.
  std::string Get(std::string_view key) const;
  // Checks and stores a value; raises 5, storing nothing, for an unknown key
  // or a value the key cannot take.
  void Set(std::string_view key, std::string_view value);

  host::RegionalSettings Regional() const;
  int32_t TerminalCount() const;
  bool ExternalSeries() const;

 private:
  std::string DefaultOf(std::string_view key) const;

  host::DatabaseService& database_;
  std::string default_work_folder_;
};

}  // namespace standalone

#endif  // LUMARO_STANDALONE_HOST_CONTEXT_STORE_H_
