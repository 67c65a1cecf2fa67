#include "standalone/ConnectorForms.h"

#include <dlfcn.h>

#include <cstdlib>

namespace standalone {
namespace {

bool IsSet(const char* variable) {
  const char* value = std::getenv(variable);
  return value != nullptr && value[0] != '\0';
}

}  // namespace

ConnectorForms::ConnectorForms(host::Host& host, std::string library_path)
    : host_(host), library_path_(std::move(library_path)) {}

bool ConnectorForms::HasDisplay() {
  return IsSet("QT_QPA_PLATFORM") || IsSet("DISPLAY") || IsSet("WAYLAND_DISPLAY");
}

bool ConnectorForms::Load(std::string& why) {
  if (show_ != nullptr) return true;
  // Never closed: see the class comment.
  void* handle = ::dlopen(library_path_.c_str(), RTLD_NOW | RTLD_LOCAL);
  if (handle == nullptr) {
    const char* reason = ::dlerror();
    why = "Não foi possível carregar os formulários do integrador: " +
          std::string(reason != nullptr ? reason : library_path_);
    return false;
  }
  show_ = reinterpret_cast<host::ShowFormFunction>(::dlsym(handle, host::kShowFormSymbol));
  if (show_ == nullptr) {
    why = "'" + library_path_ + "' não é a biblioteca dos formulários do integrador (não tem " +
          host::kShowFormSymbol + ").";
    return false;
  }
  return true;
}

std::optional<bool> ConnectorForms::Show(std::string_view form_name, std::string& why) {
  last_form_shown_ = false;
  std::string name(form_name);
  if (!HasDisplay()) {
    why = "Não há ecrã para mostrar o formulário " + name +
          " (defina DISPLAY, WAYLAND_DISPLAY ou QT_QPA_PLATFORM).";
    return std::nullopt;
  }
  if (!Load(why)) return std::nullopt;
  int answer = show_(name.c_str(), &host_, notifier_);
  if (answer == host::kFormUnknown) {
    why = "O formulário " + name + " ainda não está disponível.";
    return std::nullopt;
  }
  last_form_shown_ = true;
  return answer == host::kFormTrue;
}

}  // namespace standalone
