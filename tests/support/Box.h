#pragma once

#include <QApplication>
#include <QClipboard>
#include <QDropEvent>
#include <QInputMethodEvent>
#include <QMimeData>
#include <QTest>

#include "support/MarkedText.h"
#include "ui/RichTextBox.h"

namespace klt {

inline constexpr auto kCtrl = Qt::ControlModifier;
inline constexpr auto kShift = Qt::ShiftModifier;

/// A box on the screen that counts its notifications.
class Box : public RichTextBox {
public:
    explicit Box(Kind kind = Kind::Document, std::string_view text = {}) : RichTextBox(kind) {
        resize(400, 200);
        SetText(text);
        show();
        QCoreApplication::processEvents();
        connect(this, &RichTextBox::Change, this, [this] { ++changes; });
        connect(this, &RichTextBox::SelChange, this, [this] { ++selChanges; });
    }

    void key(int code, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(this, static_cast<Qt::Key>(code), modifiers);
    }
    QPoint pointOf(Position place) const {
        const auto at = [&](unsigned message) {
            return static_cast<int>(SendScintilla(message, 0UL, static_cast<long>(place)));
        };
        return {at(SCI_POINTXFROMPOSITION), at(SCI_POINTYFROMPOSITION) + 2};
    }
    bool dropText(const QString& text, Position place) {
        QMimeData dragged;
        dragged.setText(text);
        return drop(dragged, place);
    }
    /// Whether the drop was taken.
    bool drop(const QMimeData& dragged, Position place) {
        constexpr auto kActions = Qt::CopyAction | Qt::MoveAction;
        QDragEnterEvent enter(pointOf(place), kActions, &dragged, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(viewport(), &enter);
        QDropEvent event(pointOf(place), kActions, &dragged, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(viewport(), &event);
        return event.isAccepted();
    }
    void commit(const QString& text, const QString& preedit = {}) {
        QInputMethodEvent event(preedit, {});
        event.setCommitString(text);
        QApplication::sendEvent(this, &event);
    }

    static void setClipboard(const QString& text) { QGuiApplication::clipboard()->setText(text); }
    static QString clipboard() { return QGuiApplication::clipboard()->text(); }
    std::string shown() const { return std::string(Text()); }

    int changes = 0;
    int selChanges = 0;
};

}  // namespace klt
