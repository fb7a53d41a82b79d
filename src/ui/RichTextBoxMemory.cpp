// What the box asks for before it edits, and where its steps are given up when memory has run out.

#include <QEvent>

#include "platform/MemoryRoom.h"
#include "ui/RichTextBox.h"

namespace klt {

/// Nobody else stands between Qt, which knows no exceptions, and what the keys and the mouse do here.
bool RichTextBox::event(QEvent* event) {
    bool isTaken = true;
    tryStep([&] { isTaken = QsciScintillaBase::event(event); });
    showFocus(event->type());
    if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut) markParentheses();
    return isTaken;
}

bool RichTextBox::viewportEvent(QEvent* event) {
    bool isTaken = true;
    tryStep([&] { isTaken = tellErrorAtMouse(*event) || QsciScintillaBase::viewportEvent(event); });
    return isTaken;
}

/// Must come before each edit of the library's.
void RichTextBox::makeRoom(const TextBuffers::Edit& edit) {
    requireRoom(buffers_.needFor(size(), edit) + reasons_.needForEdit() +
                (isStyled_ ? LostLooks::needFor(edit.removed) : 0));
    const Position capacity = buffers_.capacityFor(size(), edit);
    if (capacity == 0) return;
    send(SCI_ALLOCATE, capacity);
    buffers_.grow(capacity);
}

/// Gives the capacity for the text.
Position RichTextBox::makeRoomForNew(std::string_view text) {
    const auto size = static_cast<Position>(text.size());
    // Its lines are counted only where as many as there could be are too many.
    if (!roomFor(TextBuffers::needFor({.added = size, .lines = size / 2})))
        requireRoom(TextBuffers::needFor(TextBuffers::Edit::of(text)));
    return TextBuffers::capacityFor({.added = size});
}

void RichTextBox::makeRoomForHistory() {
    buffers_.textInserted(size(), 0);
    requireRoom(buffers_.needForHistory() + (isStyled_ ? LostLooks::needFor(Length()) : 0));
}

/// The clipboard's copy, and what another program may ask of it.
QMimeData* RichTextBox::toMimeData(const QByteArray& text, bool rectangular) const {
    constexpr size_t kCopies = 6;
    requireRoom(kCopies * static_cast<size_t>(text.size()));
    return QsciScintillaBase::toMimeData(text, rectangular);
}

}  // namespace klt
