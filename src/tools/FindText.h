#pragma once

#include <string>

#include "language/LogicalLine.h"
#include "text/TextArea.h"

namespace klt {

/// The three buttons of the find window that search.
enum class FindButton { FindNext, Replace, ReplaceAll };

/// `Up` means the first match from the top down to the caret, not the nearest one above it.
enum class FindDirection { Up, Down, All };

/// What the find window holds when a button is pressed.
struct FindRequest {
    std::string find;
    std::string with = {};
    FindOptions options = {};
    FindDirection direction = FindDirection::Down;
    bool startFromBeginning = false;
    /// Nothing was found, or something else was looked for, before: `All` and `startFromBeginning` act only
    /// then.
    bool beginsAfresh = true;
};

struct FindOutcome {
    /// The place found, 1 for a replacement, the number of replacements for `ReplaceAll`; else kNotFound.
    Position result = kNotFound;
    /// The text was searched for the next match, which uses `startFromBeginning` up.
    bool searchedOn = false;
    /// The text was set anew, and wants its base format.
    bool isNewText = false;
    /// Nothing was replaced, since the text would have become longer than a box can hold.
    bool isTooLong = false;
};

/// How many characters at the start of a text, the version line and its line end, no search touches.
inline constexpr int kUntouchedCharacters = kVersionLineLength + 2;

/// Carries out a press of a button on a text.
///
/// `FindNext` selects the next match, scrolls its line to the top and sideways to its end. `Replace` replaces
/// a selected match, and without one finds the next and replaces that. Where nothing is found the caret goes
/// to 0. `ReplaceAll` sets the text anew, in one step to undo; its styles and protection go, the caret goes
/// to 0. It knows no whole words, and leaves a text as it is of whose searched part nothing would remain.
FindOutcome runFind(TextArea& text, FindButton button, const FindRequest& request);

/// What the user is told of the outcome; empty where it speaks for itself. What is told of ends the search:
/// the next one begins afresh.
std::string findMessage(FindButton button, const FindOutcome& outcome);

}  // namespace klt
