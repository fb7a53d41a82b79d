// The lines of [BONUS] and [GROUPS].

#include "checker/Structures.h"
#include "language/Vocabulary.h"

namespace klt {

namespace {

enum class Act : unsigned char { Append, Open, Close, Comma, Colon, Math, Digit };

constexpr CharTable<Act> kAmount(Act::Append, {
                                                  {"+-*/", Act::Math},
                                                  {"0123456789", Act::Digit},
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

void checkName(Scan& scan, ScanPosition i, const NameRules& rules) {
    WordBuffer word;
    int depth = 0;
    bool prefixSeen = false;
    for (; scan.isInside(i); ++i) {
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
                const auto start = i - word.size();
                const bool isPrefix = prefixTest(scan, i, word);
                if (!isPrefix && !(rules.laterColons && prefixSeen))
                    return scan.error(start, i + 1, ErrorReason::UnknownPrefix, {start, i + 1});
                prefixSeen = true;
                break;
            }
            default:
                scan.collect(kName, i, word);
                break;
        }
    }
}

// The blank that ends the amount, or the end. A wrong character puts the whole line in error, over which the
// math signs behind it are coloured.
ScanPosition checkAmount(Scan& scan) {
    const auto end = scan.find(' ');
    auto behindWrong = kFirst;
    for (auto i = kFirst; i < end; ++i)
        if (kAmount[scan.at(i)] == Act::Append) behindWrong = i + 1;
    if (behindWrong != kFirst) scan.wholeError(ErrorReason::BonusAmount, {kFirst, end});
    for (auto i = behindWrong; i < end; ++i)
        if (kAmount[scan.at(i)] == Act::Math) scan.colourAt(i, StyleCategory::MathCharacters);
    return end;
}

}  // namespace

void checkBonusLine(Scan& scan) {
    const auto blank = checkAmount(scan);
    checkName(scan, blank + 1, {.comma = ErrorReason::BonusComma, .laterColons = false});
}

void checkGroupLine(Scan& scan) {
    checkName(scan, kFirst, {.comma = ErrorReason::GroupComma, .laterColons = true});
}

}  // namespace klt
