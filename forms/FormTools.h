#ifndef LUMARO_FORMS_FORM_TOOLS_H_
#define LUMARO_FORMS_FORM_TOOLS_H_

// What the connector's Qt forms share: text between the connector (UTF-8)
// and Qt, the old forms' measures in twips, and message boxes in the
// manner of the host's.

#include <QString>
#include <string>
#include <string_view>

class QWidget;

namespace lumaro {

inline QString QText(std::string_view utf8) {
  return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}
inline std::string HostText(const QString& text) { return text.toStdString(); }

// A length in twips (1440 an inch) as pixels of the screen `widget` is on.
int TwipsToPixels(const QWidget& widget, int twips);

// A modal message box over `parent`. `style` is the host's (host::msgbox:
// the buttons in its low three bits, the icon in 16 to 64); the answer is
// the host's too (msgbox::kOk, kYes, kNo, ...). The buttons speak
// Portuguese, as the connector's texts do. Closing the box without a button
// answers Cancel or No, whichever it has, else OK.
int ShowBox(QWidget* parent, std::string_view text, int style, std::string_view title);

}  // namespace lumaro

#endif  // LUMARO_FORMS_FORM_TOOLS_H_
