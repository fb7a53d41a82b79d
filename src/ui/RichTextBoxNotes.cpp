// What the widget tells of changes, and when: noted inside Scintilla's callbacks, acted on when it is done.

#include "ui/RichTextBox.h"
#include "ui/RichTextBoxGuards.h"

namespace klt {
namespace {

LostLooks::Road roadOf(int kind) {
    using Base = QsciScintillaBase;
    if ((kind & Base::SC_PERFORMED_UNDO) != 0) return LostLooks::Road::Undo;
    return (kind & Base::SC_PERFORMED_REDO) != 0 ? LostLooks::Road::Redo : LostLooks::Road::Edit;
}

}  // namespace

void RichTextBox::noteModification(int place, int kind, int length) {
    const auto road = roadOf(kind);
    const TextRange range{place, place + length};
    finishEdit();
    if ((kind & SC_MOD_BEFOREDELETE) != 0) {
        lost_.textDeleted(range, isStyled_, road);
        if (place == 0 && !firstStyle_) firstStyle_ = StyleAt(0);
        tally_.textDeleted(*this, place, length);
        buffers_.textDeleted(size(), length);
        protection_.textDeleted(place, length);
        tracked_.textDeleted(place, length);
        reasons_.textDeleted(place, length);
    } else {
        lost_.textInserted(range, road);
        // What undo and redo bring back has styles of its own.
        if (road == LostLooks::Road::Edit) inserted_ = {range, styleForInsertion(place)};
        tally_.textInserted(*this, place, length);
        buffers_.textInserted(size(), length);
        protection_.textInserted(place, length);
        tracked_.textInserted(place, length);
        reasons_.textInserted(place);
    }
    edited_ = true;
    changed_ = changed_ || masks_ == 0;
    if (running_ == Running::Nothing) settlesLater_.start();
}

StyleByte RichTextBox::styleForInsertion(Position place) const {
    if (pendingStyle_ && place == pendingStyle_->selection.start) return pendingStyle_->style;
    if (protection_.endAt(place)) return 0;
    if (place > 0) return StyleAt(place - 1);
    return firstStyle_.value_or(Length() > 0 ? StyleAt(0) : baseStyle_);
}

void RichTextBox::styleInserted() {
    if (const auto piece = std::exchange(inserted_, std::nullopt)) layStyle(piece->range, piece->style);
}

/// Lays what the last insertion or deletion is to be followed by; Scintilla tells before each, not behind.
void RichTextBox::finishEdit() {
    styleInserted();
    lost_.bringBack();
}

void RichTextBox::noteInterfaceUpdate(int what) {
    if ((what & SC_UPDATE_SELECTION) != 0 && running_ == Running::Nothing && selection() != lastSelection_) {
        settlesLater_.start();
    }
}

void RichTextBox::settle() {
    finishEdit();
    firstStyle_.reset();
    const TextRange now = selection();
    const TextRange whole = snapped(now.start, now.end - now.start);
    if (now != whole) place(whole, send(SCI_GETCURRENTPOS) == now.start);
    if (pendingStyle_ && pendingStyle_->selection != whole) pendingStyle_.reset();
    if (!std::exchange(edited_, false) && whole != lastSelection_) stepEnds_ = true;

    if (masks_ > 0) {
        lastSelection_ = whole;
        return;
    }
    if (composing_) return;
    markParentheses();
    if (std::exchange(changed_, false)) emit Change();
    describeError();
    if (const TextRange moved = selection(); moved != lastSelection_) {
        lastSelection_ = moved;
        emit SelChange();
    }
}

void RichTextBox::MaskNotifications(bool on) {
    masks_ += on ? 1 : -1;
    if (masks_ > 0) return;
    lastSelection_ = selection();
    markParentheses();
    describeError();
}

void RichTextBox::Freeze(bool on) {
    freezes_ += on ? 1 : -1;
    setUpdatesEnabled(freezes_ == 0);
}

void RichTextBox::GroupUndo(bool on) {
    send(on ? SCI_BEGINUNDOACTION : SCI_ENDUNDOACTION);
}

bool RichTextBox::CanUndo() const {
    const Gate gate(*this);  // a read-only text answers no
    return send(SCI_CANUNDO) != 0;
}

bool RichTextBox::CanRedo() const {
    const Gate gate(*this);
    return send(SCI_CANREDO) != 0;
}

void RichTextBox::Undo() {
    if (isLocked_) return;
    const Operation operation(*this, Running::Code);
    makeRoomForHistory();
    const Gate gate(*this);
    send(SCI_UNDO);
    finishEdit();
}

void RichTextBox::Redo() {
    if (isLocked_) return;
    const Operation operation(*this, Running::Code);
    makeRoomForHistory();
    const Gate gate(*this);
    send(SCI_REDO);
    finishEdit();
}

void RichTextBox::EmptyUndoBuffer() {
    send(SCI_EMPTYUNDOBUFFER);
    lost_.clear();
    buffers_.forgetHistory(size());
}

}  // namespace klt
