#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "text/TextArea.h"

namespace klt {

/// Why a run is in `Syntax Error`.
enum class ErrorReason : unsigned char {
    UnknownSection,
    SubsectionNotClosed,
    ParenthesesDiffer,
    ClosedBeforeOpened,
    UnknownTag,
    TagOfOtherSection,
    BareField,
    NoSecondField,
    BadCost,
    BadModValue,
    BadSkillType,
    BadYesNo,
    BadStep,
    BadRounding,
    ArithmeticSeparator,
    ExpressionCharacter,
    DefaultCharacter,
    UnknownPrefix,
    NeedsNumber,
    NeedsBracket,
    NeedsNotClosed,
    GivesNoTarget,
    GivesDivision,
    GivesBar,
    GivesTargetCharacter,
    GivesUptoWithoutTo,
    GivesSecondUpto,
    UnknownFunction,
    FunctionTakesOne,
    FunctionTakesTwo,
    IfComma,
    IfWithoutThen,
    KeywordOfGives,
    KeywordOfNeeds,
    KeywordOfUpto,
    BonusAmount,
    BonusComma,
    GroupComma,
    NoEqualsSign,
    UnknownPackageWord,
    NoWith,
    RaceWithoutAt,
    RaceEmpty,
    AttributeWithoutAt,
    AttributeValue,
    AddPrefix,
    AddComma,
    BadLevel,
};

struct ErrorReasonRow {
    ErrorReason reason{};
    /// A short word for rules and lists, stable between versions.
    std::string_view id;
    /// A short text that a user understands.
    std::string_view text;
};

inline constexpr size_t kErrorReasonCount = static_cast<size_t>(ErrorReason::BadLevel) + 1;
/// In the order of `ErrorReason`.
extern const std::array<ErrorReasonRow, kErrorReasonCount> kErrorReasons;

inline const ErrorReasonRow& errorReason(ErrorReason reason) {
    return kErrorReasons[static_cast<size_t>(reason)];
}

/// The text of a reason, with the word that it speaks of behind it, on one line and not longer than a line of
/// a list. An empty word adds nothing.
std::string reasonText(ErrorReason reason, std::string_view word);

/// One run laid in `Syntax Error`, [start, end) in bytes. A later run may overlap an earlier one, and what is
/// laid over it later may hide it.
struct ErrorRun {
    Position start = 0;
    Position end = 0;
    ErrorReason reason{};
    /// The word or character that the reason speaks of, as it stands in the text; empty where there is none.
    TextRange word{};
    bool operator==(const ErrorRun&) const = default;
};
/// In the order in which they were laid.
using ErrorRuns = std::vector<ErrorRun>;

}  // namespace klt
