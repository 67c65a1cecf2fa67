#ifndef LUMARO_STANDALONE_TERMINAL_UI_MANAGER_H_
#define LUMARO_STANDALONE_TERMINAL_UI_MANAGER_H_

#include <functional>
#include <ostream>

#include "connector/host/UIManager.h"
#include "standalone/ConnectorForms.h"
#include "standalone/PortugueseCatalogue.h"

namespace standalone {

// The user interface of a host without windows: a message box is written to
// the stream as its text and a line end; a question (Yes/No) takes the
// answer given at construction. Forms come from the connector's forms
// library when one is set and there is a display; otherwise there are none.
class TerminalUIManager : public host::UIManager {
 public:
  TerminalUIManager(std::ostream& out, bool answer_yes) : out_(out), answer_yes_(answer_yes) {}
  // Called before anything is written, so that a progress bar being drawn
  // on the same stream can end its line first.
  void SetBeforeWrite(std::function<void()> before_write) {
    before_write_ = std::move(before_write);
  }
  // Told of every message box, its text and style, after it is written.
  void SetBoxListener(std::function<void(std::string_view, int)> listener) {
    box_listener_ = std::move(listener);
  }

  // Where ShowForm finds the forms; nullptr (the default) for none. The
  // forms outlive every ShowForm.
  void SetForms(ConnectorForms* forms) { forms_ = forms; }

  const host::MessageCatalogue& Messages() const override { return catalogue_; }
  int MsgBox(std::string_view text, int style, std::string_view title = "") override;
  // Shows the form through the forms set; when it cannot be shown, says
  // why in one line and answers False.
  bool ShowForm(std::string_view form_name) override;
  // "error N in SOURCE: DESCRIPTION", as the program tells its own errors.
  void ShowError(int32_t number, std::string_view description, std::string_view source) override;

 private:
  std::ostream& out_;
  bool answer_yes_;
  std::function<void()> before_write_;
  std::function<void(std::string_view, int)> box_listener_;
  ConnectorForms* forms_ = nullptr;
  PortugueseCatalogue catalogue_;
};

}  // namespace standalone

#endif  // LUMARO_STANDALONE_TERMINAL_UI_MANAGER_H_
