#ifndef LUMARO_APP_TERMINAL_NOTIFIER_H_
#define LUMARO_APP_TERMINAL_NOTIFIER_H_

#include <chrono>
#include <functional>
#include <memory>
#include <ostream>

#include "connector/host/IConnectorEvents.h"

namespace app {

// The notifier the program hands to the connector. On a terminal it draws a
// progress bar and shows the running step; elsewhere (a pipe, a file, or
// --quiet) it draws nothing. A message box goes to the stream as its text
// and a line end.
class TerminalNotifier : public host::IConnectorEvents {
 public:
  using SettingsSource = std::function<std::shared_ptr<host::SystemSettings>()>;

  TerminalNotifier(std::ostream& out, bool draw, bool answer_yes, SettingsSource settings)
      : out_(out), draw_(draw), answer_yes_(answer_yes), settings_(std::move(settings)) {}
  ~TerminalNotifier() override { Finish(); }

  void Progress(int32_t current, int32_t total, std::string_view text) override;
  void Detail(std::string_view text) override;
  void ShowMessage(std::string_view text, int style, int& result) override;
  std::shared_ptr<host::SystemSettings> SystemSettings() override { return settings_(); }

  // Ends a bar that is being drawn with a line end.
  void Finish();

 private:
  std::ostream& out_;
  bool draw_;
  bool answer_yes_;
  SettingsSource settings_;
  bool bar_open_ = false;
  int last_filled_ = -1;
  std::chrono::steady_clock::time_point last_drawn_;
};

}  // namespace app

#endif  // LUMARO_APP_TERMINAL_NOTIFIER_H_
