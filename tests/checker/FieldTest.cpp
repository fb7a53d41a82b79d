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

// Each value and what it is marked as, below its tag. One of each plain fault is in the golden of errors.
const std::pair<const char*, const char*> kRows[] = {
    {"gives(", kTag},
    {"+1 to SK:Knife", "«m +»1 «k To←to» «p SK:»Knife"},
    {"+1 to sk:Knife upto 3", "«m +»1 «k To←to» «p SK:←sk:»Knife «k Upto←upto» 3"},
    {"+%LEVEL to SKILLS", "«m +»«s %level←%LEVEL» «k To←to» «s Skills←SKILLS»"},
    {"+2 pts to ST upto 5", "«m +»2 «k pts» «k To←to» ST «k Upto←upto» 5"},
    {"+2PTS to ST", "«m +»2«k pts←PTS» «k To←to» ST"},
    {"+2 pts", "«m +»2 pts"},
    {"+1 to A, 3 to B", "«m +»1 «k To←to» A, 3 «k To←to» B"},
    {" 3 to X", " 3 «k To←to» X"},
    {"+1 total", "«m +»1 «k To←to»tal"},
    {"+1\nto ST", "«m +»1\n«k To←to» ST"},
    {"+1 to A upto 3 upto 4", "«! +1 To A Upto 3 upto 4←+1 to A upto 3 upto 4»"},
    {"2/3 to ST", "2«m /»3 «k To←to» ST"},
    {"+1 to A, /2 to B", "«m +»1 «k To←to» A, «m /»2 «k To←to» B"},
    {"\"+1\" to ST", "\"+1\" «k To←to» ST"},
    {"+1 to SK_RL:x _\n\t y", "«m +»1 «k To←to» «p SK_RL:»x _\n\t y"},
    {"+@int(%Level/2) to DX", "«m +»«f @INT(←@int(»«s %level←%Level»«m /»2«f )» «k To←to» DX"},
    {"+1 to @MAX(1,2) upto @FOO(1)", "«m +»1 «k To←to» «f @M»«! AX(1,2) Upto @FOO(1)←AX(1,2) upto @FOO(1)»"},
    {"needs(", kTag},
    {"2 SK:Knife", "2 «p SK:»Knife"},
    {" 2", " 2"},
    {"2", "2"},
    {"2x SK:y", "2x «p SK:»y"},
    {"SK:Knife=12, sk:Axe>=10 | AD:Fast", "«p SK:»Knife«m =»12, «p SK:←sk:»Axe«m >=»10 | «p AD:»Fast"},
    {"2 other colleges, 3 Spells", "2 «s Other←other» «s Colleges←colleges», 3 «s Spells»"},
    {"other", "«s Other←other»"},
    {"A=Other,Other|Spells", "A«m =»«s Other»,«s Other»|«s Spells»"},
    {"SK:A=1 SK:B=2", "«p SK:»A«m =»1 «p SK:»B«m =»2"},
    {"ST>=_\n\t 12", "ST«m >=»_\n\t 12"},
    {"ST>=12, \n\t2 SK:x", "ST«m >=»12, \n\t2 «p SK:»x"},
    {"(SK:a), sk:b", "(«p SK:»a«t )», sk:b"},
    {"SK:a:b=sk:c:d", "«p SK:»a:b«m =»«p SK:←sk:»c:d"},
    {"\"A=B\"=1-2", "\"A«m =»B\"«m =»1«m -»2"},
    {"a=\"1-2\"-3", "a«m =»\"1-2\"«m -»3"},
    {"IQ>=@MAX(1,@INT(2))+1", "IQ«m >=»«f @MAX(»1,«f @INT(»2«f ))»«m +»1"},
    {"IQ>=@MAX(1)", "IQ«m >=»«! @MAX(1)»"},
    {"SK:Knife (", "«! SK:Knife (»"},
    {"SK:a,", "«p SK:»a,"},
    {"upto(", kTag},
    {"inplay", "«s InPlay←inplay»"},
    {"Prereq+1", "«s Prereq»«m +»1"},
    {"SK_RL:a+sk:b", "«p SK_RL:»a«m +»«p SK:←sk:»b"},
    {"\"a-b c\"-1", "\"a-b c\"«m -»1"},
    {"Spells", "«! Spells»"},
    // A word that is interrupted is coloured by its length, and not rewritten.
    {"Pre_req", "P«s re_req»"},
    {"pRE_req", "p«s RE_req»"},
    {"@INT(a) XX:y", "«f @»«! INT(a) XX:y»"},
    {"@MAX(A,(B))+@MAX((A),B)", "«f @MAX(»A,(B)«f )»«m +»«! @MAX((A),B)»"},
    {"@IF(A=1 then B else @if(C THEN D))",
     "«f @IF(»A=1 «k THEN←then» B «k ELSE←else» «f @IF(←@if(»C «k THEN» D«f ))»"},
    {"@IF((A) THEN B)", "«! @IF((A)» «k THEN» B«t )»"},
    {"@IF(A THEN)", "«! @IF(A THEN)»"},
    {"@LOG(1,2,3)", "«! @LOG(1,2,3)»"},
    {"@INT(@FOO(1))", "«! @INT(@FOO(1))»"},
    {"basevalue(", kTag},
    {"inplay", "«! inplay»"},
    {"default(", kTag},
    {"DX-5, SK:Knife-2", "DX«m -»5, «p SK:»Knife«m -»2"},
    {"Spells, Other Skill", "«! Spells», Other Skill"},
    {"Spells", "Spells"},
    {"SK_RL:a", "«! SK_RL:a»"},
    {"5 SK:a", "«! 5 SK:a»"},
    {"\"a-b c\"-1", "\"a-b c\"«m -»1"},
    {"cost(", kTag},
    {"10/20", "10/20"},
    {"-5 / +2.5", "-5 / +2.5"},
    {"value(", kTag},
    {"+10%", "+10%"},
    {"*1.5", "*1.5"},
    {"5x", "«! 5x»"},
    {"5, x", "5, x"},
    {"maxscore(", kTag},
    {"(1+2)*A", "(1«m +»2)«m *»A"},
    {"@INT(1)", "@INT(1)"},
    {"step(", kTag},
    {" -1.5 ", " -1.5 "},
    {"1e3", "1e3"},
    {"1 2", "«! 1 2»"},
    {"display(", kTag},
    {"yes", "«k Yes←yes»"},
    {"NO", "«k No←NO»"},
    {"y", "«! y»"},
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

TEST(Field, Rounding) {
    const std::tuple<const char*, const char*, const char*> rows[] = {
        {"", "Up", "«k Up»"},        {"", "u", "«k U←u»"}, {"", "wn", "«k wn»"},
        {"", "oWN", "«k Own←oWN»"},  {"", "x", "«! x»"},   {"[MODS]", "No", "«! No»"},
        {"[stats]", "NO", "«k NO»"},
    };
    for (const auto& [section, value, wanted] : rows) {
        auto state = stateAfterPass(section);
        EXPECT_EQ(checkedField("round(", value, state), wanted) << section << value;
    }
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
