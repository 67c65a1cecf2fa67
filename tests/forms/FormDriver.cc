#include "tests/forms/FormDriver.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QTest>
#include <QTimer>
#include <memory>

namespace formstest {

void WhenModalShown(std::function<void(QWidget*)> act) {
  auto started = std::make_shared<QElapsedTimer>();
  started->start();
  auto poll = std::make_shared<std::function<void()>>();
  *poll = [act, started, poll] {
    if (QWidget* modal = QApplication::activeModalWidget()) {
      act(modal);
      *poll = nullptr;  // let the closure go
      return;
    }
    if (started->elapsed() < 5000) {
      QTimer::singleShot(10, *poll);
    } else {
      *poll = nullptr;
    }
  };
  QTimer::singleShot(0, *poll);
}

BoxAnswerer::BoxAnswerer(QMessageBox::StandardButton answer) : answer_(answer), timer_(new QTimer) {
  QObject::connect(timer_, &QTimer::timeout, [this] { Poll(); });
  timer_->start(10);
}

BoxAnswerer::~BoxAnswerer() { delete timer_; }

void BoxAnswerer::Poll() {
  auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
  if (box == nullptr) return;
  ShownBox shown{box->text().toStdString(), box->windowTitle().toStdString(), box->icon(), {}};
  for (QAbstractButton* button : box->buttons())
    shown.buttons.push_back(button->text().toStdString());
  boxes_.push_back(shown);
  QAbstractButton* button = box->button(answer_);
  if (button != nullptr) {
    button->click();
  } else {
    box->reject();
  }
}

void ClickRow(QAbstractItemView& view, int row, Qt::KeyboardModifiers modifiers) {
  QRect cell = view.visualRect(view.model()->index(row, 0));
  QTest::mouseClick(view.viewport(), Qt::LeftButton, modifiers, cell.center());
}

void Click(QPushButton& button) { QTest::mouseClick(&button, Qt::LeftButton); }

}  // namespace formstest
