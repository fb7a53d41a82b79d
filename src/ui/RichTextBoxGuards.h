#pragma once

#include "platform/MemoryRoom.h"
#include "ui/RichTextBox.h"

namespace klt {

/// One edit or move, from its beginning to its notification. An operation by code is settled where the
/// outermost one ends, also one that runs while the widget works on an event, such as a drag's own loop.
class RichTextBox::Operation {
public:
    Operation(RichTextBox& box, Running running)
        : box_(box),
          outer_(std::exchange(box.running_, running)),
          settles_(outer_ == Running::Nothing || (outer_ == Running::Event && running == Running::Code)) {}
    ~Operation() {
        box_.running_ = outer_;
        if (settles_) tryStep([this] { box_.settle(); });
    }
    Operation(const Operation&) = delete;
    Operation& operator=(const Operation&) = delete;

private:
    RichTextBox& box_;
    Running outer_;
    bool settles_;
};

/// A box with protected runs is read-only; one edit that was looked at goes through while this stands.
class RichTextBox::Gate {
public:
    explicit Gate(const RichTextBox& box) : box_(box), wasClosed_(box.send(SCI_GETREADONLY) != 0) {
        if (wasClosed_) box_.send(SCI_SETREADONLY, 0);
    }
    ~Gate() {
        // An edit may have removed the protection meanwhile.
        if (wasClosed_ && box_.isClosed()) box_.send(SCI_SETREADONLY, 1);
    }
    Gate(const Gate&) = delete;
    Gate& operator=(const Gate&) = delete;

private:
    const RichTextBox& box_;
    bool wasClosed_;
};

/// Edits made while this stands are neither noted nor undone.
class RichTextBox::Unrecorded {
public:
    explicit Unrecorded(const RichTextBox& box)
        : box_(box), gate_(box), mask_(box.send(SCI_GETMODEVENTMASK)) {
        box_.send(SCI_SETMODEVENTMASK, 0);
        box_.send(SCI_SETUNDOCOLLECTION, 0);
    }
    ~Unrecorded() {
        box_.send(SCI_SETUNDOCOLLECTION, 1);
        box_.send(SCI_SETMODEVENTMASK, mask_);
    }
    Unrecorded(const Unrecorded&) = delete;
    Unrecorded& operator=(const Unrecorded&) = delete;

private:
    const RichTextBox& box_;
    Gate gate_;
    Position mask_;
};

/// The edits made while this stands are one step of undo. An empty one ends the step before.
class RichTextBox::UndoStep {
public:
    explicit UndoStep(const RichTextBox& box) : box_(box) { box_.send(SCI_BEGINUNDOACTION); }
    ~UndoStep() { box_.send(SCI_ENDUNDOACTION); }
    UndoStep(const UndoStep&) = delete;
    UndoStep& operator=(const UndoStep&) = delete;

private:
    const RichTextBox& box_;
};

template <typename Action>
bool RichTextBox::edit(TextRange range, Position incoming, Position lines, Action action) {
    if (isLocked_) return false;
    isRefused_ = !protection_.permit(range, incoming > 0);
    if (isRefused_) return false;
    isRefusalTold_ = false;
    makeRoom({range.end - range.start, incoming, lines});
    const Gate gate(*this);
    if (std::exchange(stepEnds_, false)) const UndoStep end(*this);
    if (stepOfCharacter_ && !*stepOfCharacter_) stepOfCharacter_->emplace(*this);
    action();
    return true;
}

}  // namespace klt
