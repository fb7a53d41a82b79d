#pragma once

#include <functional>

class QComboBox;
class QLineEdit;
class QString;

namespace klt {

class RichTextBox;

/// From now on the right mouse button, or the keyboard's menu key, opens the popup "SingleItemRTFPopup" over
/// the field: what the Edit menu does to a text, for one line. Its help, which F1 shows too, is the field's
/// own text for "What's This?", or that of what it stands in.
void addFieldPopup(RichTextBox& field);
/// The same for a box of collected lines, with "MultiItemRTFPopup", whose "Edit Line" calls `editLine`.
void addBoxPopup(RichTextBox& box, std::function<void()> editLine);
/// The same for the text of a combo.
void addFieldPopup(QComboBox& combo);

/// Writes a mail to an address.
using MailTo = std::function<void(const QString& address)>;
/// The same for a line of text. Where it can mail, and while the text holds "@", the popup is
/// "MailToRTFPopup", whose last item mails to the text.
void addFieldPopup(QLineEdit& line, MailTo mailTo = {});

}  // namespace klt
