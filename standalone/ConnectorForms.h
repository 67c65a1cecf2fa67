#ifndef LUMARO_STANDALONE_CONNECTOR_FORMS_H_
#define LUMARO_STANDALONE_CONNECTOR_FORMS_H_

#include <optional>
#include <string>
#include <string_view>

#include "connector/host/Forms.h"
#include "connector/host/Host.h"

namespace standalone {

// The connector's forms, from their own library (connector/host/Forms.h).
// The library, and Qt with it, is loaded at the first form asked for, and
// only when there is a display: a run that shows no form never loads Qt.
// Once loaded it stays for the life of the process, since Qt cannot be
// unloaded and loaded again.
class ConnectorForms {
 public:
  // `host` must outlive this object; `library_path` is the forms library.
  ConnectorForms(host::Host& host, std::string library_path);
  ConnectorForms(const ConnectorForms&) = delete;
  ConnectorForms& operator=(const ConnectorForms&) = delete;

  // The connector's EventNotifier, handed to the forms that need it (the
  // settings form); none by default.
  void SetNotifier(host::IConnectorEvents* notifier) { notifier_ = notifier; }

  // Shows the form modally and gives its answer. Nothing when it could not
  // be shown, with `why` set to one line for the person: there is no
  // display, the library cannot be loaded, or it has no such form yet.
  std::optional<bool> Show(std::string_view form_name, std::string& why);
  // Whether the last Show showed its form.
  bool LastFormShown() const { return last_form_shown_; }

  // A display to show windows on: QT_QPA_PLATFORM (offscreen included),
  // DISPLAY or WAYLAND_DISPLAY set and not empty.
  static bool HasDisplay();

 private:
  // Loads the library once; false, with `why` set, when it cannot.
  bool Load(std::string& why);

  host::Host& host_;
  std::string library_path_;
  host::IConnectorEvents* notifier_ = nullptr;
  host::ShowFormFunction show_ = nullptr;
  bool last_form_shown_ = false;
};

// The forms library's file name, beside the plug-in's.
inline constexpr char kFormsLibraryName[] = "liblumaro_connector_forms.so";

}  // namespace standalone

#endif  // LUMARO_STANDALONE_CONNECTOR_FORMS_H_
