// The forms' tests run on Qt's offscreen platform: no window reaches a
// screen, and no display is needed.

#include <gtest/gtest.h>

#include <QApplication>

namespace {

// The offscreen platform's notes that it cannot do what a window manager
// does are no news to these tests; everything else is passed on.
QtMessageHandler qt_handler = nullptr;

void QuietOffscreenNotes(QtMsgType type, const QMessageLogContext& context,
                         const QString& message) {
  if (message == QLatin1String("This plugin does not support propagateSizeHints()")) return;
  qt_handler(type, context, message);
}

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  qt_handler = qInstallMessageHandler(QuietOffscreenNotes);
  QApplication application(argc, argv);
  ::testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
