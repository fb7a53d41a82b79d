// How code puts text in: all of it anew, all of it as an edit, or for the selection.

#include <functional>

#include "ui/RichTextBox.h"
#include "ui/RichTextBoxGuards.h"

namespace klt {

/// Text that lies in the box's own buffer would go while it is being put in.
std::string_view RichTextBox::detached(std::string_view text, std::string& store) const {
    const std::string_view own = Text();
    if (text.empty()) return "";
    const std::less<> isBefore;
    if (isBefore(text.data(), own.data()) || isBefore(own.data() + own.size(), text.data())) return text;
    return store = text;
}

void RichTextBox::replaceAll(std::string_view text) {
    const Operation operation(*this, Running::Code);
    std::string store;
    text = detached(text, store);
    const Position capacity = makeRoomForNew(text);
    {
        const Unrecorded unrecorded(*this);
        protection_.clear();
        tracked_.textDeleted(0, Length());
        send(SCI_CLEARALL);
        send(SCI_ALLOCATE, capacity);
        sendText(SCI_APPENDTEXT, text);
    }
    buffers_.grow(capacity);
    tally_.forget();
    isStyled_ = false;
    EmptyUndoBuffer();
    place({0, 0}, false);
    send(SCI_SETXOFFSET, 0);
    send(SCI_SETFIRSTVISIBLELINE, 0);
    send(SCI_SETSCROLLWIDTH, 1);
    inserted_.reset();
    pendingStyle_.reset();
    edited_ = true;
    changed_ = changed_ || masks_ == 0;
}

bool RichTextBox::replaceWhole(std::string_view text) {
    if (isLocked_) return false;
    const Operation operation(*this, Running::Code);
    std::string store;
    text = detached(text, store);
    const auto in = TextBuffers::Edit::of(text, Length());
    makeRoom(in);
    protection_.clear();
    protectionChanged(false);
    const bool isReplaced = edit({0, Length()}, in.added, in.lines, [&] {
        const UndoStep step(*this);
        send(SCI_SETTARGETRANGE, 0, Length());
        sendText(SCI_REPLACETARGET, text);
        // All of it is new, and comes in `Normal Text`.
        inserted_.reset();
    });
    baseStyle_ = 0;
    isStyled_ = false;
    reasons_.forget({0, Length()});
    place({0, 0}, false);
    return isReplaced;
}

bool RichTextBox::replaceSelection(std::string_view text, std::optional<std::string_view> styles) {
    const Operation operation(*this, Running::Code);
    const TextRange range = selection();
    if (range.start == range.end && text.empty()) return true;
    std::string store;
    text = detached(text, store);
    const auto in = TextBuffers::Edit::of(text);
    return edit(range, in.added, in.lines, [&] {
        const UndoStep step(*this);
        send(SCI_SETTARGETRANGE, range.start, range.end);
        sendText(SCI_REPLACETARGET, text);
        styleInserted();
        if (styles) {
            LayStyles(range.start, *styles);
        }
        const Position end = range.start + static_cast<Position>(text.size());
        place(snapped(end, 0), false);
    });
}

}  // namespace klt
