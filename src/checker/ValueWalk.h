#pragma once

#include "checker/CheckFunction.h"

namespace klt {

/// What a scanner of a value does at a character.
enum class ValueAct : unsigned char {
    // The same in every scanner, by `ValueWalk::step`.
    Append,
    Open,
    Close,
    Quote,
    Prefix,
    Function,
    Math,
    // What a scanner that names them does itself.
    Blank,
    Break,
    Separator,
    Comma,
    Forbidden,
    Division,
    Bar,
    Underscore,
    Compare,
    Bracket,
    Clause,
};

/// What the scanners of a tag's value have in common: where they are, and the steps that are the same in all.
struct ValueWalk {
    using Act = ValueAct;
    using Table = CharTable<Act>;

    ValueWalk(Scan& in, ScanPosition position) : scan(in), i(position), start(position) {}

    Scan& scan;
    ScanPosition i;
    /// The start of the value, from which an error is reckoned; a nested @function moves it to its end.
    ScanPosition start;
    int depth = 0;
    WordBuffer word;
    bool inQuote = false;
    /// What the scanner returns, once a step has said that it ends.
    ScanPosition result;

    /// One step at an act that is the same in every scanner; true if the scanner ends. At any other act
    /// nothing happens.
    template <const Table& table>
    bool step(Act act) {
        switch (act) {
            case Act::Append:
                scan.collect(table, i, word);
                return false;
            case Act::Open:
                ++depth;
                return false;
            case Act::Close:
                return close();
            case Act::Quote:
                quote();
                return false;
            case Act::Prefix:
                prefixTest(scan, i, word);
                return false;
            case Act::Function:
                return function(tagErrorStart(scan, start));
            case Act::Math:
                math();
                return false;
            default:
                return false;
        }
    }

    /// Ends the scanner in an error from the tag word to the closing parenthesis.
    bool fail(ErrorReason reason, ScanRange named = {}) {
        return failFrom(tagErrorStart(scan, start), reason, named);
    }
    bool failFrom(ScanPosition errorStart, ErrorReason reason, ScanRange named = {}) {
        return ends(MarkErrorRun(scan, i, errorStart, ')', reason, named));
    }
    /// The same for the character here.
    bool failAtCharacter(ErrorReason reason) { return fail(reason, {i, i + 1}); }
    bool ends(ScanPosition at) {
        result = at;
        return true;
    }

    /// At `)`: true if it closes the tag.
    bool close() {
        endWord(scan, i, word);
        if (depth > 0) {
            --depth;
            return false;
        }
        scan.colourAt(i, StyleCategory::PackageItemsAndItemTags);
        return ends(i);
    }

    /// At `@`: true if the scanner returns at once.
    bool function(ScanPosition errorStart) {
        const auto end = EnterFunction(scan, i, errorStart);
        if (end.leaves) return ends(end.position);
        i = start = end.position;
        return false;
    }

    /// At a math sign, which a quote protects.
    void math() {
        if (inQuote) return;
        endWord(scan, i, word);
        scan.colourAt(i, StyleCategory::MathCharacters);
    }

    void quote() {
        inQuote = !inQuote;
        word.clear();
    }

    void skipBlank() {
        if (scan.at(i) == ' ') ++i;
    }

    /// At a blank or break: false if it separates two plain words.
    bool separatorGoesOn();
};

}  // namespace klt
