#ifndef LUMARO_CONNECTOR_HOST_SETTING_STORE_H_
#define LUMARO_CONNECTOR_HOST_SETTING_STORE_H_

#include <string>
#include <string_view>

namespace host {

// A setting that the host's SettingStore keeps as one XML document under two
// keys.
class IGenericSetting {
 public:
  virtual ~IGenericSetting() = default;
  virtual std::string Key1() const = 0;
  virtual std::string Key2() const = 0;
  virtual bool ExportToBranch() const = 0;
  virtual std::string ToXML() = 0;
  virtual void FromXML(std::string_view xml_settings) = 0;
};

// Keeps settings by (Key1, Key2), as the text of their ToXML.
class SettingStore {
 public:
  virtual ~SettingStore() = default;
  // Stores the setting's document, replacing what was stored.
  virtual void Save(IGenericSetting& setting) = 0;
  // Fills the setting through FromXML; False when nothing is stored.
  virtual bool Load(IGenericSetting& setting) = 0;
  virtual void Delete(IGenericSetting& setting) = 0;
};

}  // namespace host

#endif  // LUMARO_CONNECTOR_HOST_SETTING_STORE_H_
