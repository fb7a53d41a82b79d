#pragma once

#include <cstddef>
#include <deque>
#include <optional>
#include <string>
#include <vector>

#include "text/TextArea.h"
#include "ui/ReasonMarks.h"

namespace klt {

class RichTextBox;

/// The styles, and the reasons of errors, that edits take away, so that undo and redo bring them back with
/// the text; Scintilla forgets both.
///
/// Scintilla's history is a row of actions, each one insertion or one deletion, of which an undo takes back
/// one or several. What an action took away is kept by its number, on one stack for those that are done and
/// on another for those that are undone. Where there is no memory for it, text comes back in `Normal Text`.
class LostLooks {
public:
    enum class Road { Edit, Undo, Redo };

    /// `box` and `reasons` must outlive it.
    LostLooks(RichTextBox& box, ReasonMarks& reasons) : box_(box), reasons_(reasons) {}

    /// To be told before each action, before the reasons are told of it. `isStyled`: some byte of the text
    /// may have another style than `Normal Text`.
    void textDeleted(TextRange range, bool isStyled, Road road);
    void textInserted(TextRange range, Road road);
    /// Lays what the last action brought back. To be called when it is done, and before the next one.
    void bringBack();
    /// Nothing is left to undo or redo.
    void clear();

    /// The most bytes that keeping takes when text of so many goes.
    static size_t needFor(Position removed) { return static_cast<size_t>(removed); }

private:
    struct Looks {
        std::string styles;  // packed; empty for `Normal Text`
        ReasonMarks::Runs reasons;
        bool empty() const { return styles.empty() && reasons.empty(); }
    };
    struct Entry {
        size_t action = 0;
        Looks looks;
    };
    struct Return {
        TextRange text;  // that came in; empty where some went
        Looks looks;
    };
    using Stack = std::deque<Entry>;

    void take(Looks lost, TextRange incoming, Road road);
    void push(Stack& stack, size_t action, Looks looks);
    static Looks pop(Stack& stack, size_t action);

    RichTextBox& box_;
    ReasonMarks& reasons_;
    size_t actions_ = 0;  // that are done
    Stack done_;
    Stack undone_;
    std::optional<Return> due_;
};

}  // namespace klt
