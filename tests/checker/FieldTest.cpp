// One value at a time, as a wizard's field has it: what each scanner colours, rewrites and rejects.

#include <gtest/gtest.h>

#include "Marked.h"
#include "checker/DocumentPass.h"

namespace klt::test {
namespace {

struct Row {
    const char* value;
    const char* wanted;
};

void expectRows(const char* tag, std::initializer_list<Row> rows, std::string_view section = "",
                bool passHasRun = true) {
    for (const auto& row : rows) {
        CheckerState state;
        if (passHasRun) state.functionStack.reset();
        state.SetCurrentSection(section);
        const auto text = withLineEnds(row.value);
        StyledText field(text);
        CheckField(field, state, tag);
        EXPECT_EQ(marked(text, field), withLineEnds(row.wanted)) << tag << row.value;
    }
}

TEST(Field, Gives) {
    expectRows("gives(",
               {
                   {"+1 to SK:Knife", "«m +»1 «k To←to» «p SK:»Knife"},
                   {"+1 to sk:Knife upto 3", "«m +»1 «k To←to» «p SK:←sk:»Knife «k Upto←upto» 3"},
                   {"+%LEVEL to SKILLS", "«m +»«s %level←%LEVEL» «k To←to» «s Skills←SKILLS»"},
                   {"+2 pts to ST upto 5", "«m +»2 «k pts» «k To←to» ST «k Upto←upto» 5"},
                   {"+2PTS to ST", "«m +»2«k pts←PTS» «k To←to» ST"},
                   {"+2 pts", "«m +»2 pts"},
                   {"+1 to Other", "«m +»1 «k To←to» «! Other»"},
                   {"+1 to A, 3 to B", "«m +»1 «k To←to» A, 3 «k To←to» B"},
                   {" 3 to X", " 3 «k To←to» X"},
                   {"+1 total", "«m +»1 «k To←to»tal"},
                   {"+1\nto ST", "«m +»1\n«k To←to» ST"},
                   {"+1 ST upto 3", "«! +1 ST upto 3»"},
                   {"+1 to A upto 3 upto 4", "«! +1 To A Upto 3 upto 4←+1 to A upto 3 upto 4»"},
                   {"/2 to ST", "«! /2 to ST»"},
                   {"2/3 to ST", "2«m /»3 «k To←to» ST"},
                   {"+1 to A, /2 to B", "«m +»1 «k To←to» A, «m /»2 «k To←to» B"},
                   {"1|2 to ST", "«! 1|2 to ST»"},
                   {"\"+1\" to ST", "\"+1\" «k To←to» ST"},
                   {"+1 to ST>3", "«! +1 To ST>3←+1 to ST>3»"},
                   {"+1 to SK_RL:x _\n\t y", "«m +»1 «k To←to» «p SK_RL:»x _\n\t y"},
                   {"+@int(%Level/2) to DX", "«m +»«f @INT(←@int(»«s %level←%Level»«m /»2«f )» «k To←to» DX"},
                   {"+1 to @MAX(1,2) upto @FOO(1)",
                    "«m +»1 «k To←to» «f @M»«! AX(1,2) Upto @FOO(1)←AX(1,2) upto @FOO(1)»"},
               });
}

TEST(Field, Needs) {
    expectRows("needs(",
               {
                   {"2 SK:Knife", "2 «p SK:»Knife"},
                   {" 2", " 2"},
                   {"2", "2"},
                   {"2x SK:y", "2x «p SK:»y"},
                   {"2.5 SK:x", "«! 2.5 SK:x»"},
                   {"SK:Knife=12, sk:Axe>=10 | AD:Fast",
                    "«p SK:»Knife«m =»12, «p SK:←sk:»Axe«m >=»10 | «p AD:»Fast"},
                   {"2 other colleges, 3 Spells", "2 «s Other←other» «s Colleges←colleges», 3 «s Spells»"},
                   {"other", "«s Other←other»"},
                   {"A=Other,Other|Spells", "A«m =»«s Other»,«s Other»|«s Spells»"},
                   {"%level", "«! %level»"},
                   {"SK:a[1]", "«! SK:a[1]»"},
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
               });
}

TEST(Field, Expression) {
    expectRows("upto(", {
                            {"inplay", "«s InPlay←inplay»"},
                            {"Prereq+1", "«s Prereq»«m +»1"},
                            {"SK_RL:a+sk:b", "«p SK_RL:»a«m +»«p SK:←sk:»b"},
                            {"\"a-b c\"-1", "\"a-b c\"«m -»1"},
                            {"a,b", "«! a,b»"},
                            {"DX>5", "«! DX>5»"},
                            {"XX:y", "«! XX:y»"},
                            {"Spells", "«! Spells»"},
                            // A word that is interrupted is coloured by its length, and not rewritten.
                            {"Pre_req", "P«s re_req»"},
                            {"pRE_req", "p«s RE_req»"},
                            {"@INT(a) XX:y", "«f @»«! INT(a) XX:y»"},
                        });
    expectRows("basevalue(", {{"inplay", "«! inplay»"}});
}

TEST(Field, Default) {
    expectRows("default(", {
                               {"DX-5, SK:Knife-2", "DX«m -»5, «p SK:»Knife«m -»2"},
                               {"Spells, Other Skill", "«! Spells», Other Skill"},
                               {"Spells", "Spells"},
                               {"SK_RL:a", "«! SK_RL:a»"},
                               {"5 SK:a", "«! 5 SK:a»"},
                               {"\"a-b c\"-1", "\"a-b c\"«m -»1"},
                               {"DX>5", "«! DX>5»"},
                           });
}

TEST(Field, Functions) {
    expectRows("upto(", {
                            {"@MAX(A,(B))+@MAX((A),B)", "«f @MAX(»A,(B)«f )»«m +»«! @MAX((A),B)»"},
                            {"@IF(A=1 then B else @if(C THEN D))",
                             "«f @IF(»A=1 «k THEN←then» B «k ELSE←else» «f @IF(←@if(»C «k THEN» D«f ))»"},
                            {"@IF((A) THEN B)", "«! @IF((A)» «k THEN» B«t )»"},
                            {"@IF(A THEN)", "«! @IF(A THEN)»"},
                            {"@IF(A ELSE B)", "«! @IF(A ELSE B)»"},
                            {"@INT(1,2)", "«! @INT(1,2)»"},
                            {"@LOG(1,2,3)", "«! @LOG(1,2,3)»"},
                            {"@FOO(1)+2", "«! @FOO(1)+2»"},
                            {"@INT(@FOO(1))", "«! @INT(@FOO(1))»"},
                        });
}

TEST(Field, PlainValues) {
    expectRows("cost(", {{"10/20", "10/20"}, {"-5 / +2.5", "-5 / +2.5"}, {"abc", "«! abc»"}});
    expectRows("value(", {{"+10%", "+10%"}, {"*1.5", "*1.5"}, {"5x", "«! 5x»"}, {"5, x", "5, x"}});
    expectRows("maxscore(", {{"(1+2)*A", "(1«m +»2)«m *»A"}, {"1,2", "«! 1,2»"}, {"@INT(1)", "@INT(1)"}});
    expectRows("step(", {{" -1.5 ", " -1.5 "}, {"1e3", "1e3"}, {"x", "«! x»"}, {"1 2", "«! 1 2»"}});
    expectRows("display(", {{"yes", "«k Yes←yes»"}, {"NO", "«k No←NO»"}, {"y", "«! y»"}});
    expectRows("notes(", {{"Other (%level) @FOO", "Other (%level) @FOO"}});
    expectRows("name(", {{"@FOO()", "@FOO()"}, {"@FOO(", "«! @FOO(»"}});
    expectRows("type(", {{"P/X", "P/X"}});
}

TEST(Field, Rounding) {
    const std::initializer_list<Row> rows = {Row{"Up", "«k Up»"}, Row{"u", "«k U←u»"}, Row{"wn", "«k wn»"},
                                             Row{"oWN", "«k Own←oWN»"}, Row{"x", "«! x»"}};
    expectRows("round(", rows);
    expectRows("round(", {{"No", "«! No»"}}, "[MODS]");
    expectRows("round(", {{"NO", "«k NO»"}}, "[stats]");
}

TEST(Field, BeforeTheFirstPass) {
    const bool passHasRun = false;
    expectRows("gives(", {{"+1 to Other", "«m +»«k 1» «k to» «k Other»"}}, "", passHasRun);
    expectRows("gives(", {{"+1 to Skills", "«m +»«k 1» «k to» «s Skills»"}}, "", passHasRun);
    expectRows("upto(", {{"@MAX(1)+@IF(a)", "«f @MAX(»«k 1»«f )»«m +»«f @IF(»«k a»«f )»"}}, "", passHasRun);
}

TEST(Field, LeavesTheStackToTheNext) {
    CheckerState state;
    state.functionStack.reset();
    StyledText first("@IF(a THEN b)");
    CheckField(first, state, "upto(");
    EXPECT_EQ(state.functionStack.top(), AtFunction::If);
    StyledText second("1 then");
    CheckField(second, state, "upto(");
    EXPECT_EQ(marked("1 then", second), "1 «k THEN←then»");
}

TEST(Field, EmptyOrUncheckedStaysAsItIs) {
    CheckerState state;
    StyledText empty("");
    CheckField(empty, state, "gives(");
    EXPECT_EQ(empty.text(), "");
    StyledText upper("+1 to other");
    CheckField(upper, state, "GIVES(");
    EXPECT_EQ(marked("+1 to other", upper), "+1 to other");
}

}  // namespace
}  // namespace klt::test
