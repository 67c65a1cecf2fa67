#include "app/TerminalNotifier.h"

#include <algorithm>
#include <chrono>
#include <string>

#include "connector/host/UIManager.h"

namespace app {

void TerminalNotifier::Progress(int32_t current, int32_t total, std::string_view text) {
  if (!draw_) return;
  constexpr int kWidth = 30;
  // The count may run past the total (the sales go on from the customers'
  // count): the bar then stays full.
  int filled = total > 0
                   ? static_cast<int>(std::min<int64_t>(kWidth, int64_t{current} * kWidth / total))
                   : kWidth;
  // A long run reports every record: the bar is drawn again when it moves,
  // at its end, and at most ten times a second otherwise.
  auto now = std::chrono::steady_clock::now();
  if (bar_open_ && filled == last_filled_ && current < total &&
      now - last_drawn_ < std::chrono::milliseconds(100)) {
    return;
  }
  last_filled_ = filled;
  last_drawn_ = now;
  out_ << "\r[" << std::string(filled, '#') << std::string(kWidth - filled, ' ') << "] " << text
       << "\x1b[K";
  out_.flush();
  bar_open_ = true;
}

void TerminalNotifier::Detail(std::string_view text) {
  if (!draw_) return;
  Finish();
  out_ << text << '\n';
  out_.flush();
}

void TerminalNotifier::ShowMessage(std::string_view text, int style, int& result) {
  Finish();
  out_ << text << '\n';
  out_.flush();
  bool question = (style & 0x7) == host::msgbox::kYesNo;
  result = question ? (answer_yes_ ? host::msgbox::kYes : host::msgbox::kNo) : host::msgbox::kOk;
}

void TerminalNotifier::Finish() {
  if (!bar_open_) return;
  out_ << '\n';
  out_.flush();
  bar_open_ = false;
}

}  // namespace app
