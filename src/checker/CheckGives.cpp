#include "checker/Scanners.h"
#include "checker/ValueWalk.h"
#include "language/Vocabulary.h"

namespace klt {

namespace {

using Act = ValueAct;

constexpr CharTable<Act> kValue(Act::Append, {
                                                 {"(", Act::Open},
                                                 {")", Act::Close},
                                                 {"\"", Act::Quote},
                                                 {" _\t\r\n", Act::Separator},
                                                 {":", Act::Prefix},
                                                 {"@", Act::Function},
                                                 {"=+-*", Act::Math},
                                                 {"/", Act::Division},
                                                 {"|", Act::Bar},
                                             });
constexpr CharTable<Act> kTarget(Act::Append, {
                                                  {"(", Act::Open},
                                                  {")", Act::Close},
                                                  {":", Act::Prefix},
                                                  {",", Act::Comma},
                                                  {"<>={}[]|", Act::Forbidden},
                                                  {" ", Act::Blank},
                                                  {"\t\r\n", Act::Break},
                                                  {"_", Act::Underscore},
                                                  {"@", Act::Function},
                                              });

class GivesWalk : public ValueWalk {
public:
    using ValueWalk::ValueWalk;

    ScanPosition run();

private:
    // The parts of a bonus. True if the scanner ends in them.
    bool value();
    bool valueStep(Act act);
    void to();
    bool target();
    bool targetStep(Act act);
    bool upto();

    void separator();
    void points();
    bool closedInValue();

    ScanPosition bonusStart_;
    bool toSeen_ = false;
    bool uptoSeen_ = false;
    bool partEnds_ = false;
};

// A value may go on behind a blank or break; where it does not, its part ends here.
void GivesWalk::separator() {
    if (separatorGoesOn()) return;
    const bool isPoints = scan.at(i) == ' ' && equalIgnoringAsciiCase(scan.stretch(i + 1, 3), kPointsWord) &&
                          scan.at(i + 4) == ' ';
    if (isPoints || scan.at(i - 1) == ',')
        word.clear();
    else
        partEnds_ = true;
}

// The unit behind a number, when the characters just taken end in it.
void GivesWalk::points() {
    if (toLower(scan.at(i)) != 's' || scan.at(i + 1) != ' ') return;
    if (equalIgnoringAsciiCase(word.tail(), kPointsWord))
        scan.recognise(i + 1, word.tail(), kPointsWord, StyleCategory::Keywords);
}

// At `)`: a bonus must not end before its target. The error begins at the first "gives(" of the text.
bool GivesWalk::closedInValue() {
    if (depth > 0) return close();
    return failFrom(scan.firstGives(), ErrorReason::GivesNoTarget);
}

bool GivesWalk::valueStep(Act act) {
    switch (act) {
        case Act::Append:
            step<kValue>(act);
            points();
            return false;
        case Act::Close:
            return closedInValue();
        case Act::Separator:
            separator();
            return false;
        case Act::Division:
            if (i == bonusStart_) return fail(ErrorReason::GivesDivision);
            math();
            return false;
        case Act::Bar:
            return fail(ErrorReason::GivesBar);
        default:
            return step<kValue>(act);
    }
}

bool GivesWalk::value() {
    partEnds_ = false;
    for (; scan.isInside(i); ++i) {
        if (valueStep(kValue[scan.at(i)])) return true;
        if (partEnds_) break;
    }
    word.clear();
    skipBlank();
    return false;
}

void GivesWalk::to() {
    const auto look = scan.stretch(i, 2);
    if (!equalIgnoringAsciiCase(look, "to")) return;
    word.append(look);
    i += 2;
    endWord(scan, i, word);
    toSeen_ = true;
}

// At a blank of the target.
bool GivesWalk::upto() {
    endWord(scan, i, word);
    const auto next = scan.stretch(i + 1, 4);
    if (!equalIgnoringAsciiCase(next, "upto")) return false;
    if (!toSeen_) return fail(ErrorReason::GivesUptoWithoutTo);
    if (uptoSeen_) return fail(ErrorReason::GivesSecondUpto);
    word.append(next);
    i += 4;
    endWord(scan, i + 1, word);
    uptoSeen_ = true;
    return false;
}

bool GivesWalk::targetStep(Act act) {
    switch (act) {
        case Act::Comma:
            partEnds_ = true;
            return false;
        case Act::Forbidden:
            return failAtCharacter(ErrorReason::GivesTargetCharacter);
        case Act::Blank:
            return upto();
        case Act::Break:
            word.clear();
            return false;
        case Act::Underscore:
            if (!word.empty()) word.append(scan.stretch(i, 1));
            return false;
        default:
            return step<kTarget>(act);
    }
}

bool GivesWalk::target() {
    partEnds_ = false;
    for (; scan.isInside(i); ++i) {
        if (targetStep(kTarget[scan.at(i)])) return true;
        if (partEnds_) break;
    }
    endWord(scan, i, word);
    return false;
}

ScanPosition GivesWalk::run() {
    for (; scan.isInside(i); ++i) {
        bonusStart_ = i;
        word.clear();
        inQuote = toSeen_ = uptoSeen_ = false;
        if (value()) return result;
        to();
        if (target()) return result;
    }
    return scan.end();
}

}  // namespace

ScanPosition CheckGives(Scan& scan, ScanPosition position) {
    return GivesWalk(scan, position).run();
}

}  // namespace klt
