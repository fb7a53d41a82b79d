#include "checker/ErrorReason.h"

#include "text/ShownText.h"

namespace klt {

constexpr std::array<ErrorReasonRow, kErrorReasonCount> kErrorReasons = {{
    {ErrorReason::UnknownSection, "unknown-section",
     "no section has this name, or the header is not alone on its line"},
    {ErrorReason::SubsectionNotClosed, "subsection-not-closed", "the subsection header does not end in >"},
    {ErrorReason::ParenthesesDiffer, "parentheses-differ", "parentheses do not match"},
    {ErrorReason::ClosedBeforeOpened, "closed-before-opened", "a parenthesis is closed before it is opened"},
    {ErrorReason::UnknownTag, "unknown-tag", "no such tag"},
    {ErrorReason::TagOfOtherSection, "tag-of-other-section", "no such tag in this section"},
    {ErrorReason::BareField, "bare-field", "only tags may follow the name in this section"},
    {ErrorReason::NoSecondField, "no-second-field", "the field after the name is missing"},
    {ErrorReason::BadCost, "bad-cost", "not a cost"},
    {ErrorReason::BadModValue, "bad-mod-value", "not the value of a modifier"},
    {ErrorReason::BadSkillType, "bad-skill-type", "not a skill type"},
    {ErrorReason::BadYesNo, "bad-yes-no", "neither Yes nor No"},
    {ErrorReason::BadStep, "bad-step", "the step is not a number"},
    {ErrorReason::BadRounding, "bad-rounding", "not a rounding"},
    {ErrorReason::ArithmeticSeparator, "arithmetic-separator", "no comma or bar may stand in this value"},
    {ErrorReason::ExpressionCharacter, "expression-character", "a character that no expression may hold"},
    {ErrorReason::DefaultCharacter, "default-character", "a character that no default may hold"},
    {ErrorReason::UnknownPrefix, "unknown-prefix", "no such prefix tag here"},
    {ErrorReason::NeedsNumber, "needs-number", "the number of things needed is not a whole number"},
    {ErrorReason::NeedsBracket, "needs-bracket", "no bracket or brace may stand in a condition"},
    {ErrorReason::NeedsNotClosed, "needs-not-closed", "the needs tag is not closed"},
    {ErrorReason::GivesNoTarget, "gives-no-target", "the bonus has no target"},
    {ErrorReason::GivesDivision, "gives-division", "the bonus begins with a division sign"},
    {ErrorReason::GivesBar, "gives-bar", "no bar may stand in the value of a bonus"},
    {ErrorReason::GivesTargetCharacter, "gives-target-character",
     "a character that no target of a bonus may hold"},
    {ErrorReason::GivesUptoWithoutTo, "gives-upto-without-to", "Upto without To before it"},
    {ErrorReason::GivesSecondUpto, "gives-second-upto", "a second Upto in one bonus"},
    {ErrorReason::UnknownFunction, "unknown-function", "no such @function"},
    {ErrorReason::FunctionTakesOne, "function-takes-one", "the @function takes one argument"},
    {ErrorReason::FunctionTakesTwo, "function-takes-two", "the @function takes two arguments"},
    {ErrorReason::IfComma, "if-comma", "no comma may stand in @IF"},
    {ErrorReason::IfWithoutThen, "if-without-then", "@IF without THEN before this parenthesis"},
    {ErrorReason::KeywordOfGives, "keyword-of-gives", "this keyword is for gives only"},
    {ErrorReason::KeywordOfNeeds, "keyword-of-needs", "this keyword is for needs only"},
    {ErrorReason::KeywordOfUpto, "keyword-of-upto", "this keyword is for upto only"},
    {ErrorReason::BonusAmount, "bonus-amount", "the amount of a bonus line is not a number"},
    {ErrorReason::BonusComma, "bonus-comma", "no comma may stand in a bonus line"},
    {ErrorReason::GroupComma, "group-comma", "no comma may stand in a group line"},
    {ErrorReason::NoEqualsSign, "no-equals-sign", "a package line needs an equals sign"},
    {ErrorReason::UnknownPackageWord, "unknown-package-word", "no such package word"},
    {ErrorReason::NoWith, "no-with", "EMESSAGE= needs .WITH. after its caption"},
    {ErrorReason::RaceWithoutAt, "race-without-at", "the race needs .AT. before its name"},
    {ErrorReason::RaceEmpty, "race-empty", "the race has no name"},
    {ErrorReason::AttributeWithoutAt, "attribute-without-at", "the attribute needs .AT. before its value"},
    {ErrorReason::AttributeValue, "attribute-value", "the value of an attribute is not a number"},
    {ErrorReason::AddPrefix, "add-prefix", "ADD= takes no such item"},
    {ErrorReason::AddComma, "add-comma", "no comma may stand in the name of an added item"},
    {ErrorReason::BadLevel, "bad-level", "the level is not a number"},
}};

static_assert(
    [] {
        for (size_t i = 0; i < kErrorReasons.size(); ++i)
            if (static_cast<size_t>(kErrorReasons[i].reason) != i || kErrorReasons[i].text.empty())
                return false;
        return true;
    }(),
    "a row for each reason, in its order");

std::string reasonText(ErrorReason reason, std::string_view word) {
    constexpr size_t kLongestWord = 40;
    std::string text(errorReason(reason).text);
    if (!word.empty()) text.append(": ").append(shownOnOneLine(word, kLongestWord));
    return text;
}

}  // namespace klt
