#include "checker/Scanners.h"
#include "checker/ValueWalk.h"
#include "language/CharTable.h"

namespace klt {

namespace {

enum class Act : unsigned char {
    Append,
    Open,
    Close,
    Colon,
    Compare,
    Equals,
    Math,
    Bracket,
    Clause,
    Blank,
    Break,
    Quote,
    Function,
};

constexpr CharTable<Act> kNumberName(Act::Append, {
                                                      {"(", Act::Open},
                                                      {")", Act::Close},
                                                      {":", Act::Colon},
                                                      {",|", Act::Clause},
                                                      {" ", Act::Blank},
                                                      {"_\t\r\n", Act::Break},
                                                  });
constexpr CharTable<Act> kLeft(Act::Append, {
                                                {"(", Act::Open},
                                                {")", Act::Close},
                                                {":", Act::Colon},
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
                                                 {" _\t\r\n", Act::Blank},
                                                 {":", Act::Colon},
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

    Place run();

private:
    // Each part leaves `i` at the end of the clause, or one behind the end of the text, and says whether the
    // scanner ends there.
    bool clause();
    bool numberClause();
    bool leftSide();
    bool rightSide();
    void operatorSign();
    bool nameStep(Act act);
    bool textEnds();
    bool isNumberClause() const;
    void stepOverBreaks();

    bool prefixSeen_ = false;
    bool clauseEnds_ = false;
};

// A run of blanks and breaks at the start of a clause is stepped over whole if it holds a break.
void NeedsWalk::stepOverBreaks() {
    Place end = i;
    bool holdsBreak = false;
    for (; scan.at(end) == ' ' || isBreak(scan.at(end)); ++end)
        holdsBreak = holdsBreak || isBreak(scan.at(end));
    if (holdsBreak) i = end;
}

// Whether the text from here up to the next blank is a number. There must be a blank here or further on.
bool NeedsWalk::isNumberClause() const {
    Place end = i + 1;
    const auto isNumeric = [](char c) {
        return isDigit(c) || c == '+' || c == '-' || c == '.' || toLower(c) == 'e';
    };
    if (scan.at(i) != ' ' && !isNumeric(scan.at(i))) return false;
    while (isNumeric(scan.at(end))) ++end;
    const bool endsInText = end > scan.length();
    if (!endsInText && scan.at(end) != ' ') return false;
    if (endsInText && scan.at(i) != ' ') return false;
    return isNumber(scan.span(i, end));
}

// What the number clause and the left side do alike.
bool NeedsWalk::nameStep(Act act) {
    switch (act) {
        case Act::Open:
            ++depth;
            return false;
        case Act::Close:
            return close();
        case Act::Clause:
            endWord(scan, i, word);
            clauseEnds_ = true;
            return false;
        case Act::Blank:
            endWord(scan, i, word);
            return false;
        case Act::Bracket:
            return fail(ErrorReason::NeedsBracket);
        default:
            return false;
    }
}

// In a field the end of the text closes the tag; elsewhere the walk over the clauses finds that nothing did.
bool NeedsWalk::textEnds() {
    if (!scan.line.isField) return false;
    ColourWord(scan, i, word);
    return endsWithText();
}

bool NeedsWalk::numberClause() {
    skipBlank();
    while (isDigit(scan.at(i))) ++i;
    if (i > scan.length()) return textEnds();
    if (scan.at(i) != ' ') return fail(ErrorReason::NeedsNumber);
    for (++i; i <= scan.length(); ++i) {
        const auto act = kNumberName[scan.at(i)];
        if (act == Act::Append)
            append(kNumberName, Act::Append);
        else if (act == Act::Colon)
            prefixTest(scan, i, word);
        else if (nameStep(act))
            return true;
        if (clauseEnds_) return false;
    }
    return textEnds();
}

bool NeedsWalk::leftSide() {
    skipBlank();
    for (; i <= scan.length(); ++i) {
        const auto act = kLeft[scan.at(i)];
        if (act == Act::Append) {
            append(kLeft, Act::Append);
        } else if (act == Act::Colon) {
            if (prefixSeen_)
                word.append(scan.span(i, i + 1));
            else
                prefixTest(scan, i, word);
            prefixSeen_ = true;
        } else if (act == Act::Quote) {
            inQuote = !inQuote;
        } else if (act == Act::Compare) {
            endWord(scan, i, word);
            operatorSign();
            return rightSide();
        } else if (nameStep(act)) {
            return true;
        }
        if (clauseEnds_) return false;
    }
    return textEnds();
}

void NeedsWalk::operatorSign() {
    const Place length = isCompare(scan.at(i + 1)) ? 2 : 1;
    scan.colour(scan.lineStart + i - 1, scan.lineStart + i - 1 + length, StyleCategory::MathCharacters);
    i += length;
}

bool NeedsWalk::rightSide() {
    for (; i <= scan.length(); ++i) {
        switch (kRight[scan.at(i)]) {
            case Act::Append:
                append(kRight, Act::Append);
                break;
            case Act::Open:
                ++depth;
                break;
            case Act::Close:
                if (close()) return true;
                break;
            case Act::Quote:
                quote();
                break;
            case Act::Blank:
                if (!separatorGoesOn()) return false;
                break;
            case Act::Colon:
                prefixTest(scan, i, word);
                break;
            case Act::Function:
                if (function(tagErrorStart(scan, start))) return true;
                break;
            case Act::Math:
                math();
                break;
            default:
                ColourWord(scan, i, word);
                return false;
        }
    }
    return textEnds();
}

bool NeedsWalk::clause() {
    word.clear();
    prefixSeen_ = inQuote = clauseEnds_ = false;
    stepOverBreaks();
    if (i > scan.length()) return false;
    return isNumberClause() ? numberClause() : leftSide();
}

Place NeedsWalk::run() {
    if (scan.at(i) == '(') ++i;
    for (; i <= scan.length(); ++i)
        if (clause()) return result;
    i = scan.length() + 1;
    if (scan.line.isField) return i;
    fail(ErrorReason::NeedsNotClosed);
    return result;
}

}  // namespace

Place CheckNeeds(Scan& scan, Place position) {
    return NeedsWalk(scan, position).run();
}

}  // namespace klt
