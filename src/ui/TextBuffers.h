#pragma once

#include "text/TextArea.h"

namespace klt {

/// What Scintilla's buffers of one text can hold, and what an edit takes. It grows them in the middle of an
/// edit, after which a text whose memory ran out takes no other; so they are grown before, as far as they are
/// known to be short.
class TextBuffers {
public:
    struct Size {
        Position bytes = 0;
        Position lines = 0;
    };
    /// Bytes that go, then bytes and line ends that come in. None of them need be exact, but at least what
    /// comes.
    struct Edit {
        Position removed = 0;
        Position added = 0;
        Position lines = 0;
        static Edit of(std::string_view text, Position removed = 0);
    };

    /// The capacity in bytes to be given to text and styles before the edit; 0 where they have it.
    Position capacityFor(Size text, Edit edit) const;
    /// All bytes that the edit takes, also for undo. More than can be had where the text would be too long.
    size_t needFor(Size text, Edit edit) const;
    /// What undo and redo may take.
    size_t needForHistory() const;
    /// A capacity for a text that is set anew, and the bytes that setting it takes.
    static Position capacityFor(const Edit& whole);
    static size_t needFor(const Edit& whole);

    /// The buffers were given a capacity; 0 where none is known.
    void grow(Position capacity) { capacity_ = capacity; }
    /// Nothing is left to undo or redo.
    void forgetHistory(Size text);
    /// Bytes are about to go, or to come in; `text` is what was there before.
    void textDeleted(Size text, Position bytes);
    void textInserted(Size text, Position bytes);

private:
    Position capacity_ = 0;
    Size largest_;  // that undo or redo may come back to, so far as noted
    bool emptied_ = false;
};

}  // namespace klt
