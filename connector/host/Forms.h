#ifndef LUMARO_CONNECTOR_HOST_FORMS_H_
#define LUMARO_CONNECTOR_HOST_FORMS_H_

// The contract between a host and the connector's forms library
// (liblumaro_connector_forms.so). The forms need a window system, so they
// live in a library of their own that only a host with a display loads; the
// plug-in itself never needs it.

namespace host {

class Host;
class IConnectorEvents;

// What the entry point answers.
enum FormAnswer : int {
  kFormUnknown = -1,  // the library has no form of that name: nothing was shown
  kFormFalse = 0,     // the form was shown, and answers False
  kFormTrue = 1,      // the form was shown, and answers True
};

// Shows the connector's form `form_name` modally and returns its answer
// (frmLumaroLog: whether rows were deleted; frmSettings: whether the
// settings were saved). `host` must be alive for the whole call; `notifier`
// is the connector's EventNotifier, or nullptr when the caller has none. A
// failure inside a form is shown through the host's UIManager and answers
// kFormFalse; nothing is thrown across the call. Call it on the thread that
// runs the host's windows.
using ShowFormFunction = int (*)(const char* form_name, Host* host, IConnectorEvents* notifier);
inline constexpr char kShowFormSymbol[] = "LumaroShowForm";

}  // namespace host

#endif  // LUMARO_CONNECTOR_HOST_FORMS_H_
