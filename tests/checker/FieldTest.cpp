// One value at a time, as a wizard's field has it: what each scanner colours, rewrites and rejects.

#include <gtest/gtest.h>

#include "Marked.h"

namespace klt::test {
namespace {

std::string checkedField(const char* tag, const char* value, CheckerState& state) {
    return markedAfter(value, [&](StyledText& field) { CheckField(field, state, tag); });
}

CheckerState stateAfterPass(std::string_view section = "") {
    CheckerState state;
    state.functionStack.reset();
    state.SetCurrentSection(section);
    return state;
}

constexpr const char* kTag = nullptr;

// Each value and what it is marked as, below its tag. What is the same in a line the goldens show.
const std::pair<const char*, const char*> kRows[] = {
    {"gives(", kTag},
    {"+1 to sk:Knife upto 3", "«m +»1 «k To←to» «p SK:←sk:»Knife «k Upto←upto» 3"},
    {"+2 pts", "«m +»2 pts"},
    {" 3 to X", " 3 «k To←to» X"},
    {"+1 total", "«m +»1 «k To←to»tal"},
    {"+1\nto ST", "«m +»1\n«k To←to» ST"},
    {"+1 to A, /2 to B", "«m +»1 «k To←to» A, «m /»2 «k To←to» B"},
    {"+1 to SK_RL:x _\n\t y", "«m +»1 «k To←to» «p SK_RL:»x _\n\t y"},
    {"+1 to @MAX(1,2) upto @FOO(1)", "«m +»1 «k To←to» «f @M»«! AX(1,2) Upto @FOO(1)←AX(1,2) upto @FOO(1)»"},
    {"needs(", kTag},
    {"2 SK:Knife", "2 «p SK:»Knife"},
    {" 2", " 2"},
    {"2", "2"},
    {"SK:Knife=12, sk:Axe>=10 | AD:Fast", "«p SK:»Knife«m =»12, «p SK:←sk:»Axe«m >=»10 | «p AD:»Fast"},
    {"2 other colleges, 3 Spells", "2 «s Other←other» «s Colleges←colleges», 3 «s Spells»"},
    {"other", "«s Other←other»"},
    {"A=Other,Other|Spells", "A«m =»«s Other»,«s Other»|«s Spells»"},
    {"ST>=_\n\t 12", "ST«m >=»_\n\t 12"},
    {"ST>=12, \n\t2 SK:x", "ST«m >=»12, \n\t2 «p SK:»x"},
    {"\"A=B\"=1-2", "\"A«m =»B\"«m =»1«m -»2"},
    {"IQ>=@MAX(1,@INT(2))+1", "IQ«m >=»«f @MAX(»1,«f @INT(»2«f ))»«m +»1"},
    {"IQ>=@MAX(1)", "IQ«m >=»«! @MAX(1)»"},
    {"SK:Knife (", "«! SK:Knife (»"},
    {"SK:a,", "«p SK:»a,"},
    {"upto(", kTag},
    {"inplay", "«s InPlay←inplay»"},
    {"Spells", "«! Spells»"},
    // A word that is interrupted is coloured by its length, and not rewritten.
    {"pRE_req", "p«s RE_req»"},
    {"@INT(a) XX:y", "«f @»«! INT(a) XX:y»"},
    {"@IF(A=1 then B else @if(C THEN D))",
     "«f @IF(»A=1 «k THEN←then» B «k ELSE←else» «f @IF(←@if(»C «k THEN» D«f ))»"},
    {"@INT(@FOO(1))", "«! @INT(@FOO(1))»"},
    {"basevalue(", kTag},
    {"inplay", "«! inplay»"},
    {"default(", kTag},
    {"Spells, Other Skill", "«! Spells», Other Skill"},
    {"Spells", "Spells"},
    {"SK_RL:a", "«! SK_RL:a»"},
    {"cost(", kTag},
    {"-5 / +2.5", "-5 / +2.5"},
    {"value(", kTag},
    {"*1.5", "*1.5"},
    {"5x", "«! 5x»"},
    {"5, x", "5, x"},
    {"maxscore(", kTag},
    {"@INT(1)", "@INT(1)"},
    {"step(", kTag},
    {" -1.5 ", " -1.5 "},
    {"1e3", "1e3"},
    {"1 2", "«! 1 2»"},
    {"display(", kTag},
    {"y", "«! y»"},
    {"round(", kTag},
    {"Up", "«k Up»"},
    {"u", "«k U←u»"},
    {"wn", "«k wn»"},
    {"oWN", "«k Own←oWN»"},
    {"x", "«! x»"},
    {"notes(", kTag},
    {"Other (%level) @FOO", "Other (%level) @FOO"},
    {"name(", kTag},
    {"@FOO()", "@FOO()"},
    {"@FOO(", "«! @FOO(»"},
    {"type(", kTag},
    {"P/X", "P/X"},
    {"GIVES(", kTag},
    {"+1 to other", "+1 to other"},
};

TEST(Field, OfEachTag) {
    const char* tag = "";
    for (const auto& [value, wanted] : kRows) {
        if (wanted == kTag) tag = value;
        if (wanted == kTag) continue;
        auto state = stateAfterPass();
        EXPECT_EQ(checkedField(tag, value, state), wanted) << tag << value;
    }
}

TEST(Field, RoundsToNothingInStatsAlone) {
    auto stats = stateAfterPass("[stats]"), mods = stateAfterPass("[MODS]");
    EXPECT_EQ(checkedField("round(", "NO", stats), "«k NO»");
    EXPECT_EQ(checkedField("round(", "No", mods), "«! No»");
}

TEST(Field, BeforeTheFirstPass) {
    const std::tuple<const char*, const char*, const char*> rows[] = {
        {"gives(", "+1 to Other", "«m +»«k 1» «k to» «k Other»"},
        {"gives(", "+1 to Skills", "«m +»«k 1» «k to» «s Skills»"},
        {"upto(", "@MAX(1)+@IF(a)", "«f @MAX(»«k 1»«f )»«m +»«f @IF(»«k a»«f )»"},
        {"needs(", "2", "«k 2»"},
    };
    for (const auto& [tag, value, wanted] : rows) {
        CheckerState state;
        EXPECT_EQ(checkedField(tag, value, state), wanted) << tag << value;
        EXPECT_FALSE(state.functionStack.isAllocated());
    }
}

TEST(Field, LeavesTheStackToTheNext) {
    auto state = stateAfterPass();
    checkedField("upto(", "@IF(a THEN b)", state);
    EXPECT_EQ(state.functionStack.top(), AtFunction::If);
    EXPECT_EQ(checkedField("upto(", "1 then", state), "1 «k THEN←then»");
}

}  // namespace
}  // namespace klt::test
