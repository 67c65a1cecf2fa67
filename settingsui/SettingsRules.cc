#include "settingsui/SettingsRules.h"

#include "connector/ModConnectorLumaro.h"
#include "connector/host/UIManager.h"

namespace lumaro {
namespace {

constexpr int32_t kSettingsTitle = 4140000;

class Refusals {
 public:
  explicit Refusals(bool show) : show_(show) {}
  bool Refuse(const std::string& text) {
    if (show_) {
      host::UIManager& ui = ModConnectorLumaro::Host().UIManager();
      ui.MsgBox(text, host::msgbox::kInformation, ui.Messages().Text(kSettingsTitle));
    }
    return false;
  }

 private:
  bool show_;
};

}  // namespace

bool ValidateSettings(LumaroConnectorSetting& setting, bool show_messages) {
  Refusals refusals(show_messages);
  if (setting.ImportExportPath.empty()) {
    return refusals.Refuse("Tem que indicar a pasta de importação dos dados.");
  }
  if (setting.LumaroWorkstationCount() == 0) {
    return refusals.Refuse("Tem que definir quais os postos a utilizar.");
  }
  if (setting.TillID == 0) {
    return refusals.Refuse("Não foi indicada qual a caixa a utilizar");
  }
  bool valid = true;
  int active = 0;
  for (int i = 1; i <= setting.LumaroWorkstationCount(); ++i) {
    Workstation entry = setting.Workstation(i);
    if (!entry.Active) continue;
    ++active;
    // Every such entry is named: the loop goes on after the first.
    if (entry.WorkstationList.empty()) {
      valid = refusals.Refuse("O posto com o código " + entry.LumaroWorkstationID +
                              " está activo, mas não tem definida a lista de postos a utilizar.");
    }
  }
  if (valid && active == 0) return refusals.Refuse("Não tem nenhum posto activo.");
  return valid;
}

}  // namespace lumaro
