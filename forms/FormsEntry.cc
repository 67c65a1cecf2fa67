// The forms library's one entry point (connector/host/Forms.h).

#include <QApplication>
#include <cstring>
#include <memory>

#include "connector/ModConnectorLumaro.h"
#include "connector/host/Error.h"
#include "connector/host/Forms.h"
#include "connector/host/Host.h"
#include "importlog/frmLumaroLog.h"
#include "settingsui/frmSettings.h"

namespace {

// A form that a host can ask for by name. frmWorkstationList is not one:
// only the settings form opens it, with the arguments of a grid row.
struct NamedForm {
  const char* name;
  bool (*show)(host::IConnectorEvents* notifier);
};

const NamedForm kForms[] = {
    {"frmLumaroLog", [](host::IConnectorEvents*) { return lumaro::ShowLumaroLog(); }},
    {"frmSettings",
     [](host::IConnectorEvents* notifier) { return lumaro::ShowSettings(notifier); }},
};

const NamedForm* FindForm(const char* name) {
  for (const NamedForm& form : kForms) {
    if (std::strcmp(form.name, name) == 0) return &form;
  }
  return nullptr;
}

// The QApplication of one call, when the host has none of its own: made
// before the form and gone when the call ends.
class ApplicationScope {
 public:
  ApplicationScope() {
    if (QApplication::instance() == nullptr) own_ = std::make_unique<QApplication>(argc_, argv_);
  }

 private:
  // QApplication keeps references to these for its whole life.
  static inline char name_[] = "lumaro";
  static inline char* argv_[] = {name_, nullptr};
  static inline int argc_ = 1;
  std::unique_ptr<QApplication> own_;
};

}  // namespace

extern "C" __attribute__((visibility("default"))) int LumaroShowForm(
    const char* form_name, host::Host* host, host::IConnectorEvents* notifier) {
  if (form_name == nullptr || host == nullptr) return host::kFormUnknown;
  const NamedForm* form = FindForm(form_name);
  if (form == nullptr) return host::kFormUnknown;
  // This library holds its own copy of the connector's code, whose thread
  // state must know the host.
  lumaro::ModConnectorLumaro::AttachHost(host);
  int answer = host::kFormFalse;
  try {
    ApplicationScope application;
    answer = form->show(notifier) ? host::kFormTrue : host::kFormFalse;
  } catch (const host::Error& error) {
    host->UIManager().ShowError(error.Number(), error.Description(), error.Source());
  } catch (const std::exception& error) {
    host->UIManager().MsgBox(error.what(), host::msgbox::kCritical, form_name);
  }
  lumaro::ModConnectorLumaro::DetachHost(host);
  return answer;
}
