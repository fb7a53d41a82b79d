#pragma once

#include <QMessageBox>
#include <QString>
#include <string_view>

namespace klt {

enum class MessageIcon { None, Exclamation, Information, Critical };

/// Asks or tells the user in a modal box, in plain text, and waits for the answer. The first of `buttons` is
/// the default; Escape answers Cancel where that is among them. Where `owner` is destroyed meanwhile the
/// answer is `NoButton`.
QMessageBox::StandardButton MessageBox(QWidget* owner, std::string_view text, MessageIcon icon,
                                       std::string_view title,
                                       QMessageBox::StandardButtons buttons = QMessageBox::Ok);

}  // namespace klt
