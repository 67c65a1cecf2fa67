// The commands that open the connector's forms. The forms library (and Qt)
// is loaded only here, and only when there is a display.

#include "app/Program.h"

namespace app {

std::string Program::FormsLibraryPath() const {
  std::string plugin = options_.plugin.value_or(DefaultPluginPath());
  size_t slash = plugin.find_last_of('/');
  std::string folder = slash == std::string::npos ? "." : plugin.substr(0, slash);
  return folder + "/" + standalone::kFormsLibraryName;
}

// Exit 0 when the log viewer was shown, 1 when it could not be (the host
// said why in one line).
int Program::TraceCommand() {
  RequireArguments(1, "trace");
  Connector().ShowTrace();
  return forms_->LastFormShown() ? kSuccess : kFailure;
}

// Exit 0 when the settings form was shown, whether the person saved or
// not; 1 when it could not be (the host said why in one line).
int Program::ConfigCommand() {
  RequireArguments(1, "config");
  Connector().Config();
  return forms_->LastFormShown() ? kSuccess : kFailure;
}

}  // namespace app
