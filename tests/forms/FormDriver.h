#ifndef LUMARO_TESTS_FORMS_FORM_DRIVER_H_
#define LUMARO_TESTS_FORMS_FORM_DRIVER_H_

// Stands in for the person in front of a form: answers the modal windows
// that the forms open, and clicks and selects as a person would.

#include <QAbstractItemView>
#include <QMessageBox>
#include <QPushButton>
#include <QString>
#include <QWidget>
#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

namespace formstest {

// What a message box showed.
struct ShownBox {
  std::string text;
  std::string title;
  QMessageBox::Icon icon;
  std::vector<std::string> buttons;  // their captions, in order
};

// Acts on the next modal window as soon as it is shown (polling the event
// loop, for at most a few seconds): `act` gets the window.
void WhenModalShown(std::function<void(QWidget*)> act);

// Answers every message box shown while it lives by pressing the button
// `answer`, and keeps what each box showed.
class BoxAnswerer {
 public:
  explicit BoxAnswerer(QMessageBox::StandardButton answer);
  ~BoxAnswerer();
  const std::vector<ShownBox>& Boxes() const { return boxes_; }

 private:
  void Poll();
  QMessageBox::StandardButton answer_;
  std::vector<ShownBox> boxes_;
  class QTimer* timer_;
};

// The form's child of that object name; throws (and so fails the test)
// when missing.
template <typename T>
T* Child(QWidget& form, const char* name) {
  T* child = form.findChild<T*>(QString::fromUtf8(name));
  if (child == nullptr) throw std::runtime_error(std::string("no child ") + name);
  return child;
}

// A click on row `row` of a list or grid, with `modifiers` held (Ctrl to
// add a row to the selection).
void ClickRow(QAbstractItemView& view, int row, Qt::KeyboardModifiers modifiers = Qt::NoModifier);

void Click(QPushButton& button);

}  // namespace formstest

#endif  // LUMARO_TESTS_FORMS_FORM_DRIVER_H_
