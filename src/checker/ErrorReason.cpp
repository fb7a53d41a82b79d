#include "checker/ErrorReason.h"

namespace klt {

constexpr std::array<ErrorReasonRow, kErrorReasonCount> kErrorReasons = {{
    {"unknown-section", "no section has this name, or the header is not alone on its line"},
    {"subsection-not-closed", "the subsection header does not end in >"},
    {"parentheses-differ", "parentheses do not match"},
    {"closed-before-opened", "a parenthesis is closed before it is opened"},
    {"unknown-tag", "no such tag"},
    {"tag-of-other-section", "no such tag in this section"},
    {"bare-field", "only tags may follow the name in this section"},
    {"no-second-field", "the field after the name is missing"},
    {"bad-cost", "not a cost"},
    {"bad-mod-value", "not the value of a modifier"},
    {"bad-skill-type", "not a skill type"},
    {"bad-yes-no", "neither Yes nor No"},
    {"bad-step", "the step is not a number"},
    {"bad-rounding", "not a rounding"},
    {"arithmetic-separator", "no comma or bar may stand in this value"},
    {"expression-character", "a character that no expression may hold"},
    {"default-character", "a character that no default may hold"},
    {"unknown-prefix", "no such prefix tag here"},
    {"needs-number", "the number of things needed is not a whole number"},
    {"needs-bracket", "no bracket or brace may stand in a condition"},
    {"needs-not-closed", "the needs tag is not closed"},
    {"gives-no-target", "the bonus has no target"},
    {"gives-division", "the bonus begins with a division sign"},
    {"gives-bar", "no bar may stand in the value of a bonus"},
    {"gives-target-character", "a character that no target of a bonus may hold"},
    {"gives-upto-without-to", "Upto without To before it"},
    {"gives-second-upto", "a second Upto in one bonus"},
    {"unknown-function", "no such @function"},
    {"function-takes-one", "the @function takes one argument"},
    {"function-takes-two", "the @function takes two arguments"},
    {"if-comma", "no comma may stand in @IF"},
    {"if-without-then", "@IF without THEN before this parenthesis"},
    {"keyword-of-gives", "this keyword is for gives only"},
    {"keyword-of-needs", "this keyword is for needs only"},
    {"keyword-of-upto", "this keyword is for upto only"},
    {"bonus-amount", "the amount of a bonus line is not a number"},
    {"bonus-comma", "no comma may stand in a bonus line"},
    {"group-comma", "no comma may stand in a group line"},
    {"no-equals-sign", "a package line needs an equals sign"},
    {"unknown-package-word", "no such package word"},
    {"no-with", "EMESSAGE= needs .WITH. after its caption"},
    {"race-without-at", "the race needs .AT. before its name"},
    {"race-empty", "the race has no name"},
    {"attribute-without-at", "the attribute needs .AT. before its value"},
    {"attribute-value", "the value of an attribute is not a number"},
    {"add-prefix", "ADD= takes no such item"},
    {"add-comma", "no comma may stand in the name of an added item"},
    {"bad-level", "the level is not a number"},
}};

static_assert(
    [] {
        for (const auto& row : kErrorReasons)
            if (row.id.empty() || row.text.empty()) return false;
        return true;
    }(),
    "a row for each reason");

}  // namespace klt
