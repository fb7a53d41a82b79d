#include "checker/Scanners.h"
#include "checker/ValueWalk.h"

namespace klt {

namespace {

using Act = ValueAct;

constexpr CharTable<Act> kNumberName(Act::Append, {
                                                      {"(", Act::Open},
                                                      {")", Act::Close},
                                                      {":", Act::Prefix},
                                                      {",|", Act::Clause},
                                                      {" ", Act::Blank},
                                                      {"_\t\r\n", Act::Break},
                                                  });
constexpr CharTable<Act> kLeft(Act::Append, {
                                                {"(", Act::Open},
                                                {")", Act::Close},
                                                {":", Act::Prefix},
                                                {"<>=", Act::Compare},
                                                {"{}[]", Act::Bracket},
                                                {"|,", Act::Clause},
                                                {" ", Act::Blank},
                                                {"_\t\r\n", Act::Break},
                                                {"\"", Act::Quote},
                                            });
constexpr CharTable<Act> kRight(Act::Append, {
                                                 {"(", Act::Open},
                                                 {")", Act::Close},
                                                 {"\"", Act::Quote},
                                                 {" _\t\r\n", Act::Separator},
                                                 {":", Act::Prefix},
                                                 {"@", Act::Function},
                                                 {"=+-*/", Act::Math},
                                                 {"|,", Act::Clause},
                                             });

constexpr bool isBreak(char c) {
    return c == '_' || c == '\t' || c == '\r' || c == '\n';
}
constexpr bool isCompare(char c) {
    return c == '<' || c == '>' || c == '=';
}

class NeedsWalk : public ValueWalk {
public:
    using ValueWalk::ValueWalk;

    ScanPosition run();

private:
    // Each part leaves `i` at the end of the clause, or of the text, and says whether the scanner ends there.
    bool clause();
    bool numberClause();
    bool leftSide();
    bool rightSide();
    void operatorSign();
    template <const Table& table>
    bool nameStep(Act act);
    bool leftStep(Act act);
    bool rightStep(Act act);
    void prefix();
    bool textEnds();
    bool isNumberClause() const;
    void stepOverBreaks();

    bool prefixSeen_ = false;
    bool clauseEnds_ = false;
};

// A run of blanks and breaks at the start of a clause is stepped over whole if it holds a break.
void NeedsWalk::stepOverBreaks() {
    auto end = i;
    bool holdsBreak = false;
    for (; scan.at(end) == ' ' || isBreak(scan.at(end)); ++end)
        holdsBreak = holdsBreak || isBreak(scan.at(end));
    if (holdsBreak) i = end;
}

// Whether the text from here up to the next blank is a number. There must be a blank here or further on.
bool NeedsWalk::isNumberClause() const {
    auto end = i + 1;
    const auto isNumeric = [](char c) {
        return isDigit(c) || c == '+' || c == '-' || c == '.' || toLower(c) == 'e';
    };
    if (scan.at(i) != ' ' && !isNumeric(scan.at(i))) return false;
    while (isNumeric(scan.at(end))) ++end;
    const bool reachesEnd = !scan.isInside(end);
    if (!reachesEnd && scan.at(end) != ' ') return false;
    if (reachesEnd && scan.at(i) != ' ') return false;
    return isNumber(scan.between(i, end));
}

// What the number clause and the left side do alike.
template <const ValueWalk::Table& table>
bool NeedsWalk::nameStep(Act act) {
    switch (act) {
        case Act::Clause:
            endWord(scan, i, word);
            clauseEnds_ = true;
            return false;
        case Act::Blank:
            endWord(scan, i, word);
            return false;
        case Act::Bracket:
            return failAtCharacter(ErrorReason::NeedsBracket);
        default:
            return step<table>(act);
    }
}

// In a field the end of the text closes the tag; elsewhere the walk over the clauses finds that nothing did.
bool NeedsWalk::textEnds() {
    if (!scan.line.isField) return false;
    ColourWord(scan, i, word);
    return ends(scan.end());
}

bool NeedsWalk::numberClause() {
    skipBlank();
    const auto number = i;
    while (isDigit(scan.at(i))) ++i;
    if (!scan.isInside(i)) return textEnds();
    if (scan.at(i) != ' ') {
        const auto numberEnd = ScanPosition(scan.text.find_first_of(" ,|)", i.offset()));
        return fail(ErrorReason::NeedsNumber, {number, numberEnd});
    }
    for (++i; scan.isInside(i); ++i) {
        if (nameStep<kNumberName>(kNumberName[scan.at(i)])) return true;
        if (clauseEnds_) return false;
    }
    return textEnds();
}

// Behind the first prefix tag a colon is a character of the name.
void NeedsWalk::prefix() {
    if (prefixSeen_)
        word.append(scan.stretch(i, 1));
    else
        prefixTest(scan, i, word);
    prefixSeen_ = true;
}

bool NeedsWalk::leftStep(Act act) {
    switch (act) {
        case Act::Prefix:
            prefix();
            return false;
        case Act::Quote:
            inQuote = !inQuote;
            return false;
        case Act::Compare: {
            endWord(scan, i, word);
            operatorSign();
            const bool scannerEnds = rightSide();
            clauseEnds_ = true;
            return scannerEnds;
        }
        default:
            return nameStep<kLeft>(act);
    }
}

bool NeedsWalk::leftSide() {
    skipBlank();
    for (; scan.isInside(i); ++i) {
        if (leftStep(kLeft[scan.at(i)])) return true;
        if (clauseEnds_) return false;
    }
    return textEnds();
}

void NeedsWalk::operatorSign() {
    const auto end = i + (isCompare(scan.at(i + 1)) ? 2 : 1);
    scan.colour(i, end, StyleCategory::MathCharacters);
    i = end;
}

bool NeedsWalk::rightStep(Act act) {
    switch (act) {
        case Act::Separator:
            clauseEnds_ = !separatorGoesOn();
            return false;
        case Act::Clause:
            ColourWord(scan, i, word);
            clauseEnds_ = true;
            return false;
        default:
            return step<kRight>(act);
    }
}

bool NeedsWalk::rightSide() {
    for (; scan.isInside(i); ++i) {
        if (rightStep(kRight[scan.at(i)])) return true;
        if (clauseEnds_) return false;
    }
    return textEnds();
}

bool NeedsWalk::clause() {
    word.clear();
    prefixSeen_ = inQuote = clauseEnds_ = false;
    stepOverBreaks();
    if (!scan.isInside(i)) return false;
    return isNumberClause() ? numberClause() : leftSide();
}

ScanPosition NeedsWalk::run() {
    if (scan.at(i) == '(') ++i;
    for (; scan.isInside(i); ++i)
        if (clause()) return result;
    i = scan.end();
    if (scan.line.isField) return i;
    fail(ErrorReason::NeedsNotClosed);
    return result;
}

}  // namespace

ScanPosition CheckNeeds(Scan& scan, ScanPosition position) {
    return NeedsWalk(scan, position).run();
}

}  // namespace klt
