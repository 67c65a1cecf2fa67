#ifndef LUMARO_SETTINGSUI_SETTINGS_RULES_H_
#define LUMARO_SETTINGSUI_SETTINGS_RULES_H_

#include "connector/LumaroConnectorSetting.h"

namespace lumaro {

// The rules a configuration must meet before it is saved or used, as the
// settings form applies them (and, silently, IConnector.ValidateSettings):
//   1. an exchange folder;  2. at least one exchange point;  3. a till;
//   4. every active point has its list of POS workstations (each one
//      without is named, and the check goes on through all of them);
//   5. at least one active point.
// With `show_messages` each refusal is shown in a box with style 64 and the
// settings form's title; without, nothing is shown. Returns whether the
// settings are valid.
bool ValidateSettings(LumaroConnectorSetting& setting, bool show_messages);

}  // namespace lumaro

#endif  // LUMARO_SETTINGSUI_SETTINGS_RULES_H_
