#pragma once

#include "checker/CheckFunction.h"

namespace klt {

/// What the scanners of a tag's value have in common: where they are, and the steps that are the same in all.
struct ValueWalk {
    ValueWalk(Scan& in, Place position) : scan(in), i(position), start(position) {}

    Scan& scan;
    Place i;
    /// The start of the value, from which an error is reckoned; a nested @function moves it to its end.
    Place start;
    Place depth = 0;
    WordBuffer word;
    bool inQuote = false;
    /// What the scanner returns, once a step has said that it ends.
    Place result = 0;

    /// Ends the scanner in an error from the tag word to the closing parenthesis.
    bool fail(ErrorReason reason) { return failFrom(tagErrorStart(scan, start), reason); }
    bool failFrom(Position errorStart, ErrorReason reason) {
        return ends(MarkErrorRun(scan, i, errorStart, ')', reason));
    }
    bool ends(Place place) {
        result = place;
        return true;
    }
    /// The text is at its end: the scanner returns the place behind it.
    bool endsWithText() { return ends(scan.length() + 1); }

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
    bool function(Position errorStart) {
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

    /// At an ordinary character: takes it and those behind it that `table` treats alike.
    template <class Table, class Action>
    void append(const Table& table, Action ordinary) {
        const auto from = static_cast<size_t>(i - 1);
        const auto end = table.skip(scan.text, from, ordinary);
        word.append(scan.text.substr(from, end - from));
        i = static_cast<Place>(end);
    }

    /// At a blank or break: false if it separates two plain words.
    bool separatorGoesOn();
};

}  // namespace klt
