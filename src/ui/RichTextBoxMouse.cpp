// What the mouse brings: clicks, the middle button's paste, drags and drops, the wheel.

#include <QContextMenuEvent>
#include <QDropEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QWheelEvent>

#include "ui/DroppedFiles.h"
#include "ui/RichTextBox.h"
#include "ui/RichTextBoxGuards.h"

namespace klt {
namespace {

/// The event with no modifier but Shift: with others the base selects rectangles and several stretches.
QMouseEvent plain(const QMouseEvent& event) {
    return {event.type(),
            event.position(),
            event.scenePosition(),
            event.globalPosition(),
            event.button(),
            event.buttons(),
            event.modifiers() & Qt::ShiftModifier,
            event.pointingDevice()};
}

/// What comes in as UTF-8, or more.
TextBuffers::Edit mostOf(const QString& text) {
    constexpr Position kBytesOfUnit = 3;
    return {.added = kBytesOfUnit * text.size(), .lines = text.count('\n') + text.count('\r')};
}

}  // namespace

Position RichTextBox::placeAt(const QPointF& point) const {
    const QPoint pixel = point.toPoint();
    return send(SCI_POSITIONFROMPOINT, pixel.x(), pixel.y());
}

void RichTextBox::mousePressEvent(QMouseEvent* event) {
    const Operation operation(*this, Running::Event);
    if (event->button() == Qt::MiddleButton) {
        const Position at = placeAt(event->position());
        if (!protection_.permit({at, at}, true)) return;
        setFocus(Qt::MouseFocusReason);
        SetSelStart(at);
        pasteFrom(QClipboard::Selection);
        return;
    }
    QMouseEvent press = plain(*event);
    QsciScintillaBase::mousePressEvent(&press);
    // A selection stays, so that the popup works on it.
    const bool movesCaret = event->button() == Qt::RightButton && kind_ == Kind::Document && SelLength() == 0;
    if (movesCaret) SetSelStart(placeAt(event->position()));
}

void RichTextBox::mouseMoveEvent(QMouseEvent* event) {
    const Operation operation(*this, Running::Event);
    QMouseEvent move = plain(*event);
    // A drag that takes the selection away begins and ends in here.
    const bool mayDrag = event->buttons() != Qt::NoButton && SelLength() > 0;
    if (!mayDrag || !edit(selection(), 0, 0, [&] { QsciScintillaBase::mouseMoveEvent(&move); })) {
        QsciScintillaBase::mouseMoveEvent(&move);
    }
}

void RichTextBox::mouseReleaseEvent(QMouseEvent* event) {
    {
        const Operation operation(*this, Running::Event);
        QMouseEvent release = plain(*event);
        QsciScintillaBase::mouseReleaseEvent(&release);
    }
    if (event->button() == Qt::RightButton) emit popupWanted(event->globalPosition().toPoint());
}

void RichTextBox::contextMenuEvent(QContextMenuEvent* event) {
    // The right button's popup comes with its release.
    if (event->reason() != QContextMenuEvent::Mouse) wantPopupAtCaret();
    event->accept();
}

void RichTextBox::wantPopupAtCaret() {
    ScrollCaret();
    const Position caret = send(SCI_GETCURRENTPOS);
    const auto x = static_cast<int>(send(SCI_POINTXFROMPOSITION, 0, caret));
    const Position y = send(SCI_POINTYFROMPOSITION, 0, caret) + send(SCI_TEXTHEIGHT, 0);
    emit popupWanted(viewport()->mapToGlobal(QPoint(x, static_cast<int>(y))));
}

void RichTextBox::mouseDoubleClickEvent(QMouseEvent* event) {
    const Operation operation(*this, Running::Event);
    QMouseEvent click = plain(*event);
    QsciScintillaBase::mouseDoubleClickEvent(&click);
}

void RichTextBox::wheelEvent(QWheelEvent* event) {
    const bool zooms = (event->modifiers() & Qt::ControlModifier) != 0;
    if (zooms) {
        if (event->angleDelta().y() != 0) send(event->angleDelta().y() > 0 ? SCI_ZOOMIN : SCI_ZOOMOUT);
        event->accept();
    } else if (kind_ == Kind::Field) {
        event->ignore();
    } else {
        QsciScintillaBase::wheelEvent(event);
    }
}

// Files are for the main window: an ignored drag goes on to the parents. A web link is text, which the base
// would not take.

void RichTextBox::dragEnterEvent(QDragEnterEvent* event) {
    if (!localFiles(*event->mimeData()).empty()) return event->ignore();
    const Gate gate(*this);
    QsciScintillaBase::dragEnterEvent(event);
}

void RichTextBox::dragMoveEvent(QDragMoveEvent* event) {
    if (!localFiles(*event->mimeData()).empty()) return event->ignore();
    const Gate gate(*this);
    QsciScintillaBase::dragMoveEvent(event);
}

void RichTextBox::dropEvent(QDropEvent* event) {
    if (!localFiles(*event->mimeData()).empty()) return event->ignore();
    const Operation operation(*this, Running::Event);
    const Position at = placeAt(event->position());
    const bool takesSelection = event->source() == this && event->dropAction() == Qt::MoveAction;
    const auto take = [&] {
        if (event->mimeData()->hasUrls())
            dropLink(*event, at);
        else
            QsciScintillaBase::dropEvent(event);
    };
    const auto in = mostOf(event->mimeData()->text());
    const Position taken = takesSelection ? SelLength() : 0;
    if ((!takesSelection || protection_.permit(selection(), false)) &&
        edit({at, at}, taken + in.added, in.lines, take))
        return;
    event->setDropAction(Qt::IgnoreAction);
    event->ignore();
    QsciScintillaBase::dragLeaveEvent(nullptr);
}

void RichTextBox::dropLink(QDropEvent& event, Position at) {
    bool isRectangular = false;
    const QByteArray text = fromMimeData(event.mimeData(), isRectangular);
    SetSelStart(at);
    setSelTextBytes(text);
    event.acceptProposedAction();
    QsciScintillaBase::dragLeaveEvent(nullptr);
}

QByteArray RichTextBox::fromMimeData(const QMimeData* source, bool& rectangular) const {
    const QString wide = source->text();
    requireRoom(static_cast<size_t>(mostOf(wide).added));
    QByteArray text = wide.toUtf8();
    rectangular = false;
    if (kind_ != Kind::Field) return text;
    return text.replace("\r\n", " ").replace('\r', ' ').replace('\n', ' ');
}

}  // namespace klt
