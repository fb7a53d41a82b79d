#include "ui/MessageBox.h"
#include "ui/QtStrings.h"

#include <QPointer>
#include <memory>

namespace klt {
namespace {

QMessageBox::Icon iconOf(MessageIcon icon) {
    switch (icon) {
        case MessageIcon::Exclamation:
            return QMessageBox::Warning;
        case MessageIcon::Information:
            return QMessageBox::Information;
        case MessageIcon::Critical:
            return QMessageBox::Critical;
        case MessageIcon::None:
            break;
    }
    return QMessageBox::NoIcon;
}

}  // namespace

QMessageBox::StandardButton MessageBox(QWidget* owner, std::string_view text, MessageIcon icon,
                                       std::string_view title, QMessageBox::StandardButtons buttons) {
    // On the heap, since the owner may take it along.
    const QPointer<QMessageBox> box =
        new QMessageBox(iconOf(icon), toQString(title), QString(), buttons, owner);
    box->setObjectName("MessageBox");
    box->setTextFormat(Qt::PlainText);
    box->setText(toQString(text));
    for (const auto first : {QMessageBox::Ok, QMessageBox::Yes})
        if (buttons.testFlag(first)) box->setDefaultButton(first);
    const auto answer = static_cast<QMessageBox::StandardButton>(box->exec());
    if (!box) return QMessageBox::NoButton;
    delete box;
    return answer;
}

}  // namespace klt
