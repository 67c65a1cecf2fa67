#include "forms/FormTools.h"

#include <QAbstractButton>
#include <QMessageBox>
#include <QPushButton>
#include <QWidget>

#include "connector/host/UIManager.h"

namespace lumaro {
namespace {

namespace msgbox = host::msgbox;

// The host's codes of the buttons beyond those UIManager.h names.
constexpr int kOkCancel = 1;
constexpr int kYesNoCancel = 3;
constexpr int kCancel = 2;

QMessageBox::Icon IconOf(int style) {
  switch (style & 0x70) {
    case msgbox::kCritical:
      return QMessageBox::Critical;
    case msgbox::kQuestion:
      return QMessageBox::Question;
    case msgbox::kExclamation:
      return QMessageBox::Warning;
    case msgbox::kInformation:
      return QMessageBox::Information;
    default:
      return QMessageBox::NoIcon;
  }
}

}  // namespace

int TwipsToPixels(const QWidget& widget, int twips) {
  return (twips * widget.logicalDpiX() + 720) / 1440;
}

int ShowBox(QWidget* parent, std::string_view text, int style, std::string_view title) {
  QMessageBox box(IconOf(style), QText(title), QText(text), QMessageBox::NoButton, parent);
  // Each standard button with the host's answer and its Portuguese caption.
  auto add = [&box](QMessageBox::StandardButton button, const char* caption) {
    box.addButton(button)->setText(QString::fromUtf8(caption));
  };
  switch (style & 0x7) {
    case kOkCancel:
      add(QMessageBox::Ok, "OK");
      add(QMessageBox::Cancel, "Cancelar");
      break;
    case kYesNoCancel:
      add(QMessageBox::Yes, "&Sim");
      add(QMessageBox::No, "&Não");
      add(QMessageBox::Cancel, "Cancelar");
      break;
    case msgbox::kYesNo:
      add(QMessageBox::Yes, "&Sim");
      add(QMessageBox::No, "&Não");
      break;
    default:
      add(QMessageBox::Ok, "OK");
      break;
  }
  switch (box.exec()) {
    case QMessageBox::Yes:
      return msgbox::kYes;
    case QMessageBox::No:
      return msgbox::kNo;
    case QMessageBox::Cancel:
      return kCancel;
    case QMessageBox::Ok:
      return msgbox::kOk;
    default:
      // Closed without a button: the box's escape answer.
      if (box.escapeButton() == box.button(QMessageBox::Cancel)) return kCancel;
      if (box.escapeButton() == box.button(QMessageBox::No)) return msgbox::kNo;
      return msgbox::kOk;
  }
}

}  // namespace lumaro
