// What the mouse brings: clicks, the middle button's paste, drags and drops, the wheel.

#include <QDropEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QWheelEvent>

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
}

void RichTextBox::mouseMoveEvent(QMouseEvent* event) {
    const Operation operation(*this, Running::Event);
    QMouseEvent move = plain(*event);
    // A drag that takes the selection away begins and ends in here.
    if (SelLength() == 0 || !edit(selection(), false, [&] { QsciScintillaBase::mouseMoveEvent(&move); })) {
        QsciScintillaBase::mouseMoveEvent(&move);
    }
}

void RichTextBox::mouseReleaseEvent(QMouseEvent* event) {
    const Operation operation(*this, Running::Event);
    QMouseEvent release = plain(*event);
    QsciScintillaBase::mouseReleaseEvent(&release);
}

void RichTextBox::mouseDoubleClickEvent(QMouseEvent* event) {
    const Operation operation(*this, Running::Event);
    QMouseEvent click = plain(*event);
    QsciScintillaBase::mouseDoubleClickEvent(&click);
}

void RichTextBox::wheelEvent(QWheelEvent* event) {
    const bool zooms = (event->modifiers() & Qt::ControlModifier) != 0;
    if (kind_ == Kind::Field || (zooms && kind_ != Kind::Document)) {
        event->ignore();
    } else if (zooms) {
        if (event->angleDelta().y() != 0) send(event->angleDelta().y() > 0 ? SCI_ZOOMIN : SCI_ZOOMOUT);
        event->accept();
    } else {
        QsciScintillaBase::wheelEvent(event);
    }
}

// Files are for the main window: an ignored drag goes on to the parents.

void RichTextBox::dragEnterEvent(QDragEnterEvent* event) {
    if (event->mimeData()->hasUrls()) return event->ignore();
    const Gate gate(*this);
    QsciScintillaBase::dragEnterEvent(event);
}

void RichTextBox::dragMoveEvent(QDragMoveEvent* event) {
    if (event->mimeData()->hasUrls()) return event->ignore();
    const Gate gate(*this);
    QsciScintillaBase::dragMoveEvent(event);
}

void RichTextBox::dropEvent(QDropEvent* event) {
    if (event->mimeData()->hasUrls()) return event->ignore();
    const Operation operation(*this, Running::Event);
    const Position at = placeAt(event->position());
    const bool takesSelection = event->source() == this && event->dropAction() == Qt::MoveAction;
    if ((!takesSelection || protection_.permit(selection(), false)) &&
        edit({at, at}, true, [&] { QsciScintillaBase::dropEvent(event); })) {
        return;
    }
    event->setDropAction(Qt::IgnoreAction);
    event->ignore();
    QsciScintillaBase::dragLeaveEvent(nullptr);
}

QByteArray RichTextBox::fromMimeData(const QMimeData* source, bool& rectangular) const {
    QByteArray text = QsciScintillaBase::fromMimeData(source, rectangular);
    rectangular = false;
    if (kind_ != Kind::Field) return text;
    return text.replace("\r\n", " ").replace('\r', ' ').replace('\n', ' ');
}

}  // namespace klt
