#include "standalone/SqliteSettingStore.h"

#include "connector/host/FieldConverter.h"
#include "standalone/ReplaceRow.h"

namespace standalone {

std::string SqliteSettingStore::Where(std::string_view key1, std::string_view key2) const {
  const host::SqlFormat& format = database_.SqlFormat();
  return " WHERE Key1='" + format.QuoteText(key1) + "' AND Key2='" + format.QuoteText(key2) + "'";
}

void SqliteSettingStore::Save(host::IGenericSetting& setting) {
  // The document first: a failure to build it stores nothing.
  std::string xml = setting.ToXML();
  ReplaceRow(database_, "ConnectorSettings",
             {{"Key1", host::SqlValue::Text(setting.Key1())},
              {"Key2", host::SqlValue::Text(setting.Key2())}},
             {{"XMLSettings", host::SqlValue::Text(xml)}});
}

std::optional<std::string> SqliteSettingStore::StoredText(std::string_view key1,
                                                          std::string_view key2) {
  auto rs =
      database_.OpenRecordset("SELECT XMLSettings FROM ConnectorSettings" + Where(key1, key2));
  if (rs->Eof()) return std::nullopt;
  return host::FieldConverter::ToText(rs->Fields(0));
}

bool SqliteSettingStore::Load(host::IGenericSetting& setting) {
  std::optional<std::string> xml = StoredText(setting.Key1(), setting.Key2());
  if (!xml) return false;
  setting.FromXML(*xml);
  return true;
}

void SqliteSettingStore::Delete(host::IGenericSetting& setting) {
  database_.OpenRecordset("DELETE FROM ConnectorSettings" + Where(setting.Key1(), setting.Key2()));
}

}  // namespace standalone
