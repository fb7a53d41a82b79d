#pragma once

#include <algorithm>
#include <optional>
#include <stack>
#include <string_view>
#include <vector>

#include "checker/CheckerState.h"
#include "checker/ErrorReason.h"
#include "checker/ScanPosition.h"
#include "checker/WordBuffer.h"
#include "language/CharTable.h"
#include "language/StyledText.h"
#include "language/Tags.h"

namespace klt {

/// An @function that is open while its body is scanned.
struct FunctionFrame {
    ScanPosition at;
    ScanPosition start;
    int depth = 0;
    /// How many words were held when the one in front of a nested @function had been added; 0 if there was
    /// none.
    unsigned heldWord = 0;
    unsigned char commas = 0;
    unsigned char ifStage = 0;
};

/// A stretch of the scanned text.
struct ScanRange {
    ScanPosition start, end;
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
    /// at the same position cost no more than their last.
    void error(Position start, Position end, ErrorReason reason, TextRange word = {});
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

/// A text under scan: a logical line, a part of a package line, or a field. Positions are in this text; one
/// in front of it is in front of it in the document too.
class Scan {
public:
    Scan(LineCheck& check, std::string_view scanned, Position start)
        : text(scanned), line(check), state(check.state), lineStart_(start) {}

    bool isInside(ScanPosition i) const { return i.offset() < text.size(); }
    /// The position behind the last character.
    ScanPosition end() const { return ScanPosition(text.size()); }
    /// The character at a position; NUL where there is none.
    char at(ScanPosition i) const { return isInside(i) ? text[i.offset()] : '\0'; }
    /// The text in [from, to), cut to what there is.
    std::string_view between(ScanPosition from, ScanPosition to) const;
    std::string_view stretch(ScanPosition from, size_t length) const { return between(from, from + length); }
    /// The position at or behind `from` of a character; the end if there is none.
    ScanPosition find(char c, ScanPosition from = kFirst) const;
    /// Takes the character at `i` and those behind it that `table` names no more than it into `word`; `i` is
    /// then at the last of them.
    template <class Action>
    void collect(const CharTable<Action>& table, ScanPosition& i, WordBuffer& word) const {
        const auto from = i.offset();
        const auto behind = table.skip(text, from, table.other());
        word.append(text.substr(from, behind - from));
        i = ScanPosition(behind) - 1;
    }

    Position inDocument(ScanPosition i) const { return lineStart_ + (i - kFirst); }
    /// Lays a style on [from, to), nothing of it behind the end of this text.
    void colour(ScanPosition from, ScanPosition to, StyleCategory style) {
        line.colour(inDocument(from), inDocument(std::min(to, end())), style);
    }
    void colourAt(ScanPosition i, StyleCategory style) { colour(i, i + 1, style); }
    /// Lays an error run on [from, to), nothing of it behind the end of this text. `word` is what the reason
    /// speaks of, blanks around it left out.
    void error(ScanPosition from, ScanPosition to, ErrorReason reason, ScanRange word = {}) {
        line.error(inDocument(from), inDocument(std::min(to, end())), reason, trimmed(word));
    }
    /// Puts all of the text in error.
    void wholeError(ErrorReason reason, ScanRange word = {}) { error(kFirst, end(), reason, word); }
    /// What stands in front of `end` up to the comma or parenthesis before it.
    ScanRange wordBefore(ScanPosition end) const;
    /// `spelling` must outlive the line.
    void rewrite(ScanPosition from, std::string_view spelling) { line.rewrite(inDocument(from), spelling); }

    /// Colours `word`, which ends in front of `end`; rewrites it to `spelling` if it differs.
    void recognise(ScanPosition end, std::string_view word, std::string_view spelling, StyleCategory style);

    /// The first "gives(" of the text; in front of the text where there is none. Looked for once.
    ScanPosition firstGives();

    const std::string_view text;
    LineCheck& line;
    CheckerState& state;
    Tag CurrentTag = Tag::None;

private:
    /// In the document; empty where there is nothing but blanks.
    TextRange trimmed(ScanRange word) const;

    const Position lineStart_;
    std::optional<ScanPosition> firstGives_;
};

/// Colours or rejects the word that ends in front of `i`, in the light of `CurrentTag` and the top of the
/// function stack.
void colourCollected(Scan& scan, ScanPosition i, const WordBuffer& word);
inline void ColourWord(Scan& scan, ScanPosition i, const WordBuffer& word) {
    if (!word.empty()) colourCollected(scan, i, word);
}
/// The same, and empties the buffer.
inline void endWord(Scan& scan, ScanPosition i, WordBuffer& word) {
    ColourWord(scan, i, word);
    word.clear();
}

/// Takes the `:` at `i` into the word and colours it if it is a prefix tag; empties the buffer. False if it
/// is none.
bool prefixTest(Scan& scan, ScanPosition i, WordBuffer& word);

/// Colours an error run from `errorStart` to the terminator, `)` or `,`, that closes what is open at
/// `position`; pops the function stack; returns where the terminator stands, or the end. A `word` ends there
/// at the latest.
ScanPosition MarkErrorRun(Scan& scan, ScanPosition position, ScanPosition errorStart, char terminator,
                          ErrorReason reason, ScanRange word = {});

/// Where the error of a tag begins whose value begins at `valueStart`: at the first character of its word.
inline ScanPosition tagErrorStart(const Scan& scan, ScanPosition valueStart) {
    return valueStart - tagWord(scan.CurrentTag).size();
}
/// The same, with the @function on top of the stack in place of the tag.
inline ScanPosition functionErrorStart(const Scan& scan, ScanPosition valueStart) {
    return valueStart - functionName(scan.state.functionStack.top()).size();
}

}  // namespace klt
