// The lines of [BONUS] and [GROUPS].

#include "checker/Structures.h"
#include "language/CharTable.h"
#include "language/Vocabulary.h"

namespace klt {

namespace {

enum class Act : unsigned char { Append, Open, Close, Comma, Colon, Math, Digit, Blank };

constexpr CharTable<Act> kAmount(Act::Append, {
                                                  {"+-*/", Act::Math},
                                                  {"0123456789", Act::Digit},
                                                  {" ", Act::Blank},
                                              });
constexpr CharTable<Act> kName(Act::Append, {
                                                {"(", Act::Open},
                                                {")", Act::Close},
                                                {",", Act::Comma},
                                                {":", Act::Colon},
                                            });

/// The name part of both, which differ in what they say to a comma and to a word before a colon.
struct NameRules {
    ErrorReason comma;
    /// After the first prefix tag a colon may follow any word.
    bool laterColons;
};

void checkName(Scan& scan, Place i, const NameRules& rules) {
    WordBuffer word;
    Place depth = 0;
    bool prefixSeen = false;
    for (; i <= scan.length(); ++i) {
        switch (kName[scan.at(i)]) {
            case Act::Open:
                ++depth;
                break;
            case Act::Close:
                if (depth == 0) return scan.wholeError(ErrorReason::ClosedBeforeOpened);
                --depth;
                break;
            case Act::Comma:
                return scan.wholeError(rules.comma);
            case Act::Colon: {
                const auto length = static_cast<Position>(word.size()) + 1;
                const bool isPrefix = prefixTest(scan, i, word);
                if (!isPrefix && !(rules.laterColons && prefixSeen)) {
                    const auto end = scan.lineStart + i;
                    return scan.error(end - length, end, ErrorReason::UnknownPrefix);
                }
                prefixSeen = true;
                break;
            }
            default: {
                const auto from = static_cast<size_t>(i - 1);
                const auto end = kName.skip(scan.text, from, Act::Append);
                word.append(scan.text.substr(from, end - from));
                i = static_cast<Place>(end);
                break;
            }
        }
    }
}

// The place of the blank that ends the amount, or one behind the end. A wrong character puts the whole line
// in error, over which the math signs behind it are coloured.
Place checkAmount(Scan& scan) {
    Place end = 1;
    Place lastWrong = 0;
    for (; end <= scan.length() && scan.at(end) != ' '; ++end)
        if (kAmount[scan.at(end)] == Act::Append) lastWrong = end;
    if (lastWrong > 0) scan.wholeError(ErrorReason::BonusAmount);
    for (Place i = lastWrong + 1; i < end; ++i)
        if (kAmount[scan.at(i)] == Act::Math) scan.colourAt(i, StyleCategory::MathCharacters);
    return end;
}

}  // namespace

void checkBonusLine(Scan& scan) {
    const auto blank = checkAmount(scan);
    checkName(scan, blank + 1, {.comma = ErrorReason::BonusComma, .laterColons = false});
}

void checkGroupLine(Scan& scan) {
    checkName(scan, 1, {.comma = ErrorReason::GroupComma, .laterColons = true});
}

}  // namespace klt
