#include "standalone/TerminalUIManager.h"

namespace standalone {

int TerminalUIManager::MsgBox(std::string_view text, int style, std::string_view) {
  if (before_write_) before_write_();
  out_ << text << '\n';
  out_.flush();
  if (box_listener_) box_listener_(text, style);
  if ((style & 0x7) == host::msgbox::kYesNo) {
    return answer_yes_ ? host::msgbox::kYes : host::msgbox::kNo;
  }
  return host::msgbox::kOk;
}

bool TerminalUIManager::ShowForm(std::string_view form_name) {
  if (before_write_) before_write_();
  std::string why =
      "Este anfitrião não tem formulários: não é possível mostrar " + std::string(form_name) + ".";
  if (forms_ != nullptr) {
    if (std::optional<bool> answer = forms_->Show(form_name, why)) return *answer;
  }
  out_ << why << '\n';
  out_.flush();
  return false;
}

void TerminalUIManager::ShowError(int32_t number, std::string_view description,
                                  std::string_view source) {
  if (before_write_) before_write_();
  out_ << "error " << number << " in " << source << ": " << description << '\n';
  out_.flush();
}

}  // namespace standalone
