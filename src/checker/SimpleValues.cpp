#include "checker/Scanners.h"
#include "language/Vocabulary.h"

namespace klt {

namespace {

enum class Plain : unsigned char { Other, Keep, Open, Close, Math, Separator };

constexpr CharTable<Plain> kFreeText(Plain::Keep, {{"(", Plain::Open}, {")", Plain::Close}});
constexpr CharTable<Plain> kCost(Plain::Other, {{"/.-+0123456789 ", Plain::Keep}});
constexpr CharTable<Plain> kModValue(Plain::Other, {{"/.-%*+0123456789 ", Plain::Keep}});
constexpr CharTable<Plain> kArithmetic(Plain::Keep, {
                                                        {"(", Plain::Open},
                                                        {")", Plain::Close},
                                                        {"/-+*", Plain::Math},
                                                        {",|", Plain::Separator},
                                                    });

// The first character at or behind `i` that `table` does not keep, or the end.
ScanPosition skipKept(const Scan& scan, const CharTable<Plain>& table, ScanPosition i) {
    return ScanPosition(table.skip(scan.text, std::min(i, scan.end()).offset(), Plain::Keep));
}

ScanPosition closeTag(Scan& scan, ScanPosition i) {
    scan.colourAt(i, StyleCategory::PackageItemsAndItemTags);
    return i;
}

constexpr WordList kRoundingParts(std::to_array<std::string_view>({
    "Up",
    "U",
    "P",
    "Down",
    "Dow",
    "Do",
    "D",
    "Own",
    "Ow",
    "O",
    "Wn",
    "W",
    "N",
}));

bool isPartOfRounding(std::string_view value) {
    for (const auto word : kRoundings)
        if (word.find(value) != std::string_view::npos) return true;
    return false;
}

// The value of which `position` is the first character that is examined; there may be one in front of it.
ScanRange valueFrom(const Scan& scan, ScanPosition position) {
    constexpr std::string_view kInFrontOfValues = " ,(";
    const bool isFirst =
        position == kFirst || kInFrontOfValues.find(scan.at(position - 1)) != std::string_view::npos;
    return {isFirst ? position : position - 1, scan.end()};
}

}  // namespace

ScanPosition CheckFreeText(Scan& scan, ScanPosition position) {
    int depth = 0;
    for (auto i = position;; ++i) {
        i = skipKept(scan, kFreeText, i);
        if (!scan.isInside(i)) return scan.end();
        if (scan.at(i) == '(') {
            ++depth;
        } else {
            if (depth == 0) return closeTag(scan, i);
            --depth;
        }
    }
}

ScanPosition CheckCost(Scan& scan, ScanPosition position, char terminator) {
    const auto i = skipKept(scan, kCost, position);
    if (!scan.isInside(i)) return scan.end();
    if (scan.at(i) == terminator) return terminator == ')' ? closeTag(scan, i) : i;
    const auto errorStart = terminator == ')' ? tagErrorStart(scan, position) : position - 1;
    return MarkErrorRun(scan, i, errorStart, terminator, ErrorReason::BadCost, valueFrom(scan, position));
}

ScanPosition CheckModValue(Scan& scan, ScanPosition position) {
    const auto i = skipKept(scan, kModValue, position);
    scan.CurrentTag = Tag::None;
    if (!scan.isInside(i)) return scan.end();
    if (scan.at(i) == ',') return i;
    return MarkErrorRun(scan, i, position, ',', ErrorReason::BadModValue, valueFrom(scan, position));
}

ScanPosition CheckArithmetic(Scan& scan, ScanPosition position) {
    int depth = 0;
    for (auto i = position;; ++i) {
        i = skipKept(scan, kArithmetic, i);
        if (!scan.isInside(i)) return scan.end();
        switch (kArithmetic[scan.at(i)]) {
            case Plain::Open:
                ++depth;
                break;
            case Plain::Close:
                if (depth == 0) return closeTag(scan, i);
                --depth;
                break;
            case Plain::Math:
                scan.colourAt(i, StyleCategory::MathCharacters);
                break;
            default:
                return MarkErrorRun(scan, i, tagErrorStart(scan, position), ')',
                                    ErrorReason::ArithmeticSeparator, {i, i + 1});
        }
    }
}

ScanPosition CheckYesNo(Scan& scan, ScanPosition position) {
    const auto close = scan.find(')', position);
    const auto value = scan.between(position, close);
    const int word = kYesNo.find(value);
    if (word < 0)
        return MarkErrorRun(scan, position, tagErrorStart(scan, position), ')', ErrorReason::BadYesNo,
                            {position, close});
    scan.recognise(close, value, kYesNo[word], StyleCategory::Keywords);
    return closeTag(scan, close);
}

ScanPosition CheckStep(Scan& scan, ScanPosition position) {
    const auto close = scan.find(')', position);
    if (!isNumber(scan.between(position, close)))
        return MarkErrorRun(scan, position, tagErrorStart(scan, position), ')', ErrorReason::BadStep,
                            {position, close});
    return closeTag(scan, close);
}

ScanPosition CheckRounding(Scan& scan, ScanPosition position) {
    const auto close = scan.find(')', position);
    const auto value = scan.between(position, close);
    const int part = kRoundingParts.find(value);
    const bool isNo = scan.state.section() == Section::Stats && equalIgnoringAsciiCase(value, "No");
    if (!isPartOfRounding(value) && part < 0 && !isNo)
        return MarkErrorRun(scan, position, tagErrorStart(scan, position), ')', ErrorReason::BadRounding,
                            {position, close});
    const bool isRewritten = part >= 0 && !isPartOfRounding(value);
    scan.recognise(close, value, isRewritten ? kRoundingParts[part] : value, StyleCategory::Keywords);
    return closeTag(scan, close);
}

ScanPosition CheckSkillType(Scan& scan, ScanPosition position, char terminator) {
    const auto end = scan.find(terminator, position);
    const auto value = scan.between(position, end);
    const int type = kSkillTypes.find(value);
    if (type < 0)
        return MarkErrorRun(scan, position, tagErrorStart(scan, position), terminator,
                            ErrorReason::BadSkillType, {position, end});
    scan.recognise(end, value, kSkillTypes[type], StyleCategory::Keywords);
    return terminator == ')' ? closeTag(scan, end) : end;
}

ScanPosition checkTagValue(Scan& scan, ScanPosition position) {
    switch (scan.CurrentTag) {
        case Tag::Needs:
            return CheckNeeds(scan, position);
        case Tag::Gives:
            return CheckGives(scan, position);
        case Tag::Default:
            return CheckDefault(scan, position);
        case Tag::BaseValue:
        case Tag::Upto:
            return CheckExpression(scan, position);
        case Tag::Up:
        case Tag::Down:
        case Tag::Cost:
            return CheckCost(scan, position, ')');
        case Tag::MinScore:
        case Tag::MaxScore:
            return CheckArithmetic(scan, position);
        case Tag::Value:
            return CheckModValue(scan, position);
        case Tag::Display:
        case Tag::DoubleInPlay:
            return CheckYesNo(scan, position);
        case Tag::Step:
            return CheckStep(scan, position);
        case Tag::Round:
            return CheckRounding(scan, position);
        case Tag::Type:
            return CheckSkillType(scan, position, ')');
        default:
            return CheckFreeText(scan, position);
    }
}

}  // namespace klt
