#ifndef LUMARO_CONNECTOR_HOST_UI_MANAGER_H_
#define LUMARO_CONNECTOR_HOST_UI_MANAGER_H_

#include <cstdint>
#include <string>
#include <string_view>

#include "connector/host/MessageCatalogue.h"

namespace host {

// Styles and answers of a message box, as the host knows them.
namespace msgbox {
inline constexpr int kOkOnly = 0;
inline constexpr int kYesNo = 4;
inline constexpr int kCritical = 16;
inline constexpr int kQuestion = 32;
inline constexpr int kExclamation = 48;
inline constexpr int kInformation = 64;

inline constexpr int kOk = 1;
inline constexpr int kYes = 6;
inline constexpr int kNo = 7;
}  // namespace msgbox

// The host's user interface: messages, message boxes and forms.
class UIManager {
 public:
  virtual ~UIManager() = default;
  virtual const MessageCatalogue& Messages() const = 0;
  // Shows a message box and returns the button the person chose.
  virtual int MsgBox(std::string_view text, int style, std::string_view title = "") = 0;
  // Places a form of the connector on the screen (centred on the host's
  // window); a host without windows has nothing to place.
  virtual void PlaceForm(std::string_view form_name) { (void)form_name; }
  // Shows the connector's form `form_name` modally. A host without forms
  // says so to the person and answers False.
  virtual bool ShowForm(std::string_view form_name) = 0;
  // The host's progress window of a long operation: shown with a text (or
  // its text changed), then closed. A host without one shows nothing.
  virtual void ShowProgress(std::string_view text) { (void)text; }
  virtual void CloseProgress() {}
  // Reads again what the host's windows show from the database, after the
  // connector changed it behind them.
  virtual void Refresh() {}
  // The host's display of an error that ends an operation: a critical
  // message box with the number and the description, titled by the source.
  virtual void ShowError(int32_t number, std::string_view description, std::string_view source) {
    MsgBox(std::to_string(number) + " - " + std::string(description), msgbox::kCritical, source);
  }
};

}  // namespace host

#endif  // LUMARO_CONNECTOR_HOST_UI_MANAGER_H_
