#ifndef LUMARO_SETTINGSUI_INITIAL_LOAD_H_
#define LUMARO_SETTINGSUI_INITIAL_LOAD_H_

#include <string>

#include "connector/LumaroConnectorSetting.h"
#include "initialload/LoadShared.h"

namespace lumaro {

// A limit of the settings as the load takes it: codes separated by ";"
// become a quoted SQL list ('A','B'), empty staying empty; numbers and
// patterns separated by ";" become a plain list (1,2).
std::string QuotedList(const std::string& codes);
std::string PlainList(const std::string& codes);

// The settings form's initial load, without the form: refused while
// customers made at the till have sales not yet exported (a message box,
// nothing changed); then the settings are validated (each refusal in a box)
// and (with `store_settings`: the form's, edited) stored, the back office
// connected (message 4140033 when it cannot
// be), the configuration and the tables loaded with the settings' limits,
// the load logged as "Inicialização em <now>", message 4140037 shown, and
// the host's settings read anew. Returns whether the load ran.
bool RunInitialLoad(LumaroConnectorSetting& settings, LoadEvents* events, bool store_settings);

}  // namespace lumaro

#endif  // LUMARO_SETTINGSUI_INITIAL_LOAD_H_
