#pragma once

#include <algorithm>
#include <stack>
#include <string_view>
#include <vector>

#include "checker/CheckerState.h"
#include "checker/ErrorReason.h"
#include "checker/WordBuffer.h"
#include "language/StyledText.h"
#include "language/Tags.h"

namespace klt {

/// A place in a scanned text. It counts from 1, and 0 says that a scanner ran off the end of the text.
using Place = Position;

/// An @function that is open while its body is scanned.
struct FunctionFrame {
    Place at = 0;
    Place start = 0;
    Place depth = 0;
    /// The word collected before a nested @function, as an index from 1 into `LineCheck::heldWords`.
    unsigned heldWord = 0;
    unsigned char commas = 0;
    unsigned char ifStage = 0;
};

/// One logical line (or field) under check: where its colours go, and what its scanners share.
class LineCheck {
public:
    LineCheck(StyledText& styled, CheckerState& checkerState, ErrorRuns* errors, bool field)
        : target(styled), state(checkerState), isField(field), errors_(errors) {}

    /// Makes ready for the next line.
    void begin();
    /// Carries out the rewrites: the scanners have read the text as it was.
    void end();

    void colour(Position start, Position end, StyleCategory style);
    /// Lays an error run. Ground that is known to be in error is not laid again, so that runs which all begin
    /// at the same place cost no more than their last.
    void error(Position start, Position end, ErrorReason reason);
    /// `spelling` must outlive the line.
    void rewrite(Position start, std::string_view spelling) { rewrites_.push_back({start, spelling}); }

    StyledText& target;
    CheckerState& state;
    const bool isField;

    /// A walk has come back to ground that it has been over: the check of the line ends here.
    bool hasEnded = false;
    /// Where the `@` stand whose bodies ran off the text.
    std::vector<Position> ranOff;
    std::stack<FunctionFrame> frames;
    std::vector<WordBuffer> heldWords;

private:
    struct Rewrite {
        Position start;
        std::string_view spelling;
    };

    ErrorRuns* errors_;
    std::vector<Rewrite> rewrites_;
    // Ground that is wholly in error.
    Position errorFrom_ = 0;
    Position errorTo_ = 0;
};

/// A text under scan: a logical line, a part of a package line, or a field.
class Scan {
public:
    Scan(LineCheck& check, std::string_view scanned, Position start)
        : text(scanned), lineStart(start), line(check), state(check.state) {}

    Place length() const { return static_cast<Place>(text.size()); }
    /// The character at a place; NUL where there is none.
    char at(Place i) const { return i >= 1 && i <= length() ? text[static_cast<size_t>(i - 1)] : '\0'; }
    /// The text from place `from` up to but not including `to`, cut to what there is.
    std::string_view span(Place from, Place to) const;
    /// The place at or behind `from` of a character, or one behind the end.
    Place find(char c, Place from) const;

    /// Lays a style on document offsets, nothing of it behind the end of this text.
    void colour(Position start, Position end, StyleCategory style) {
        line.colour(start, std::min(end, lineStart + length()), style);
    }
    void colourAt(Place i, StyleCategory style) { colour(lineStart + i - 1, lineStart + i, style); }
    void error(Position start, Position end, ErrorReason reason) {
        line.error(start, std::min(end, lineStart + length()), reason);
    }
    /// Puts all of the text in error.
    void wholeError(ErrorReason reason) { error(lineStart, lineStart + length(), reason); }

    /// Colours `word`, which ends just before document offset `end`; rewrites it to `spelling` if it differs.
    void recognise(Position end, std::string_view word, std::string_view spelling, StyleCategory style);

    const std::string_view text;
    const Position lineStart;
    LineCheck& line;
    CheckerState& state;
    Tag CurrentTag = Tag::None;
    /// Where the first "gives(" of the text stands, 0 if nowhere, -1 until it has been looked for.
    Place firstGives = -1;
};

/// Colours or rejects the word that ends just before place `i`, in the light of `CurrentTag` and the top of
/// the function stack.
void colourCollected(Scan& scan, Place i, const WordBuffer& word);
inline void ColourWord(Scan& scan, Place i, const WordBuffer& word) {
    if (!word.empty()) colourCollected(scan, i, word);
}
/// The same, and empties the buffer.
inline void endWord(Scan& scan, Place i, WordBuffer& word) {
    ColourWord(scan, i, word);
    word.clear();
}

/// Takes the `:` at place `i` into the word and colours it if it is a prefix tag; empties the buffer. False
/// if it is none.
bool prefixTest(Scan& scan, Place i, WordBuffer& word);

/// Colours an error run from document offset `errorStart` to the terminator, `)` or `,`, that closes what is
/// open at `position`; pops the function stack; returns the terminator's place, or one behind the end.
Place MarkErrorRun(Scan& scan, Place position, Position errorStart, char terminator, ErrorReason reason);

/// Where the error of a tag begins whose value begins at `valueStart`: at the first character of its word.
inline Position tagErrorStart(const Scan& scan, Place valueStart) {
    return scan.lineStart + valueStart - static_cast<Position>(tagWord(scan.CurrentTag).size()) - 1;
}
/// The same, with the @function on top of the stack in place of the tag.
inline Position functionErrorStart(const Scan& scan, Place valueStart) {
    const auto name = functionName(scan.state.functionStack.top());
    return scan.lineStart + valueStart - static_cast<Position>(name.size()) - 1;
}

}  // namespace klt
