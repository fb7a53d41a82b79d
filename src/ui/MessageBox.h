#pragma once

#include <QMessageBox>
#include <QString>
#include <string_view>

namespace klt {

/// A button with the caption "&Skip the Rest", for one box of a row of them.
inline constexpr auto kSkipTheRest = QMessageBox::NoToAll;

enum class MessageIcon { None, Exclamation, Information, Critical };

/// Asks or tells the user in a modal box, in plain text, and waits for the answer. The box stays inside the
/// screen: a text that needs more is broken anywhere and scrolls. The first of `buttons` is the default
/// where none is `preferred`; Escape answers Cancel where that is among them, No beside Yes, and OK beside
/// `kSkipTheRest`. Where `owner` is destroyed meanwhile the answer is `NoButton`.
QMessageBox::StandardButton MessageBox(QWidget* owner, std::string_view text, MessageIcon icon,
                                       std::string_view title,
                                       QMessageBox::StandardButtons buttons = QMessageBox::Ok,
                                       QMessageBox::StandardButton preferred = QMessageBox::NoButton);

}  // namespace klt
