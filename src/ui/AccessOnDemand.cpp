#include "ui/AccessOnDemand.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QApplication>

#include "ui/RichTextBox.h"

namespace klt {
namespace {

bool isListenedTo = false;

QAccessibleInterface* plainWhileNobodyListens(const QString&, QObject* object) {
    auto* box = qobject_cast<RichTextBox*>(object);
    return box && !isListenedTo ? new QAccessibleWidget(box, QAccessible::EditableText) : nullptr;
}

/// Makes room for the library's objects as soon as somebody listens.
class Listeners : public QAccessible::ActivationObserver {
public:
    void accessibilityActiveChanged(bool active) override {
        isListenedTo = active;
        if (!active) return;
        for (auto* widget : QApplication::allWidgets()) {
            if (!qobject_cast<RichTextBox*>(widget)) continue;
            auto* const plain = QAccessible::queryAccessibleInterface(widget);
            if (plain) QAccessible::deleteAccessibleInterface(QAccessible::uniqueId(plain));
        }
    }
};

}  // namespace

void useAccessibleTextOnDemand() {
    static const bool installed = [] {
        // Of event filters the last one installed is asked first.
        QAccessible::installFactory(plainWhileNobodyListens);
        static Listeners listeners;
        QAccessible::installActivationObserver(&listeners);
        isListenedTo = QAccessible::isActive();
        return true;
    }();
    std::ignore = installed;
}

bool somebodyListens() {
    return isListenedTo;
}

}  // namespace klt
