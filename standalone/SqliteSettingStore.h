#ifndef LUMARO_STANDALONE_SQLITE_SETTING_STORE_H_
#define LUMARO_STANDALONE_SQLITE_SETTING_STORE_H_

#include <optional>
#include <string>

#include "connector/host/DatabaseService.h"
#include "connector/host/SettingStore.h"

namespace standalone {

// The host's SettingStore over the POS database: one row of
// ConnectorSettings for each (Key1, Key2), holding the setting's ToXML.
class SqliteSettingStore : public host::SettingStore {
 public:
  explicit SqliteSettingStore(host::DatabaseService& database) : database_(database) {}

  void Save(host::IGenericSetting& setting) override;
  bool Load(host::IGenericSetting& setting) override;
  void Delete(host::IGenericSetting& setting) override;

  // The stored document of the keys, if any.
  std::optional<std::string> StoredText(std::string_view key1, std::string_view key2);

 private:
  std::string Where(std::string_view key1, std::string_view key2) const;

  host::DatabaseService& database_;
};

}  // namespace standalone

#endif  // LUMARO_STANDALONE_SQLITE_SETTING_STORE_H_
