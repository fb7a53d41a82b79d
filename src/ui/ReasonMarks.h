#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "checker/ErrorReason.h"

namespace klt {

class RichTextBox;

/// Why which text of a box is in error: kept from the check and moved with the edits, in a hidden indicator
/// whose value is the reason; in another the words that the reasons speak of have the same value. Each call
/// but `lay` costs the same at any size of the text.
class ReasonMarks {
public:
    /// What is said of a run that was edited, or put in, since.
    static constexpr std::string_view kChanged = "Changed since the last check (Ctrl+K)";

    /// `box` must outlive it.
    explicit ReasonMarks(const RichTextBox& box);

    /// A stretch with one reason, or the word in it, whole.
    struct Run {
        Position mark = 0;
        TextRange range;
        Position value = 0;
    };
    using Runs = std::vector<Run>;

    void forget(TextRange range);
    /// Later runs lie over earlier ones. Where there is no room for them they are not kept.
    void lay(const ErrorRuns& runs);
    /// The bytes that an edit may take to split runs and to move those behind.
    size_t needForEdit() const { return kBytesOfRun * runs_; }
    /// The runs that lose bytes or their reason where `range` goes or, empty, where something comes in at its
    /// start; to be asked before. Throws `std::bad_alloc`.
    Runs lostBy(TextRange range) const;
    /// That edit was taken back: lays the runs on `text`, which came in, and beside it where they were told
    /// to be changed and no check has come since.
    void bringBack(const Runs& runs, TextRange text);
    /// To be told before each edit.
    void textInserted(Position place);
    void textDeleted(Position place, Position length);

    /// Why the text at `place` is in `Syntax Error`; empty where it is not.
    std::string at(Position place) const;
    /// The reasons of a run of that style in their order, each once; `kChanged` alone where any of it was
    /// edited. Of a run with very many the first ones.
    std::vector<std::string> of(TextRange run) const;

private:
    Position ask(Position mark, unsigned message, Position place) const;
    std::string textOf(Position value, TextRange run) const;
    Position valueAt(Position place) const;
    TextRange runAt(Position place) const;
    void addRuns(Position mark, TextRange range, Runs& runs) const;
    bool isInError(Position place) const;
    bool lacksReason(Position place) const { return isInError(place) && valueAt(place) == 0; }
    void fill(Position mark, TextRange range, Position value);
    void change(TextRange run);
    /// Whether what comes in at `place` changes the run in front of it.
    bool splitsRun(Position place) const;
    void fillChanged(TextRange range, Position value);

    // Two ends, and two of a word, in lists that grow by parts and are copied as they do, and what is kept of
    // both for undo.
    static constexpr size_t kBytesOfRun = 288;

    const RichTextBox& box_;
    size_t runs_ = 0;  // laid since all were forgotten, or more
};

}  // namespace klt
