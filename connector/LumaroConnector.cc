#include "connector/LumaroConnector.h"

#include "connector/LumaroConnectorSetting.h"
#include "connector/ModConnectorLumaro.h"
#include "connector/Version.h"
#include "connector/host/Conversions.h"
#include "connector/host/Error.h"
#include "connector/host/Text.h"
#include "exchange/LumaroExecutioner.h"
#include "settingsui/SettingsRules.h"

namespace lumaro {

LumaroConnector::LumaroConnector(host::Host& host) : host_(host) {
  ModConnectorLumaro::AttachHost(&host_);
}

LumaroConnector::~LumaroConnector() { ModConnectorLumaro::DetachHost(&host_); }

host::Host& LumaroConnector::Attach() {
  ModConnectorLumaro::AttachHost(&host_);
  return host_;
}

std::string LumaroConnector::Signature(std::string_view sign_text) {
  return Attach().NewTextSigner()->Sign(sign_text);
}

std::string LumaroConnector::Version() {
  // Major plain, minor and revision as "00": 2.0.1 reads "2.00.01".
  return std::to_string(kVersionMajor) + "." + host::FormatNumber(kVersionMinor, "00") + "." +
         host::FormatNumber(kVersionRevision, "00");
}

bool LumaroConnector::Config() { return Attach().UIManager().ShowForm("frmSettings"); }

void LumaroConnector::ShowTrace() { Attach().UIManager().ShowForm("frmLumaroLog"); }

bool LumaroConnector::ValidateSettings() {
  host::Host& host = Attach();
  LumaroConnectorSetting setting;
  if (!host.ModuleManager().ConnectorRegistry().SettingStore().Load(setting)) return false;
  return lumaro::ValidateSettings(setting, false);
}

bool LumaroConnector::LoadDefaults(std::string_view xml_settings) {
  try {
    host::Host& host = Attach();
    std::unique_ptr<host::SettingStore> store = host.NewSettingStore();
    LumaroConnectorSetting setting;
    // Text that is not XML leaves the new object as it is, and that is what
    // is stored.
    setting.FromXML(host::Trim(xml_settings));
    store->Save(setting);
    return true;
  } catch (const std::exception&) {
    return false;
  }
}

bool LumaroConnector::Delete() {
  try {
    host::Host& host = Attach();
    LumaroConnectorSetting setting;  // only its keys matter
    host.NewSettingStore()->Delete(setting);
    return true;
  } catch (const std::exception&) {
    return false;
  }
}

void LumaroConnector::ImportData() {
  Attach();
  LumaroExecutioner executioner;
  executioner.SetEventNotifier(notifier_);
  executioner.ExecuteImport();
}

void LumaroConnector::ExportData() {
  Attach();
  LumaroExecutioner executioner;
  executioner.SetEventNotifier(notifier_);
  executioner.ExecuteExport();
}

void LumaroConnector::ReExport(host::Date initial_date, host::Date final_date) {
  Attach();
  LumaroExecutioner executioner;
  executioner.SetEventNotifier(notifier_);
  executioner.ExecuteReExport(initial_date, final_date);
}

}  // namespace lumaro
