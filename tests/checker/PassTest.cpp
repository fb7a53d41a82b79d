// The passes over whole texts: kinds of lines, what they report, and what outlives them.

#include <gtest/gtest.h>

#include "Marked.h"

namespace klt::test {
namespace {

TEST(Pass, LinesThatNoGoldenShows) {
    const std::pair<const char*, const char*> rows[] = {
        {"version=2", "«v Version=2←version=2»"},
        {" Version=2", " Version=2"},
        {"  * a // b", "«*   * a // b»"},
        {"*[ADS]", "«* *[ADS]»"},
        {" [ads] ", "«S  [ADS] ← [ads] »"},
        {"[ADS] x", "«! [ADS] x»"},
        {"[ADS] [DISADS]\na, page(x)", "«S [ADS] [DISADS]»\n«! a, page(x)»"},
        {"[s\na, 5", "«S [S←[s»\na, 5"},
        {" <a> ", "«g  <a> »"},
        {"<a", "«! <a»"},
        {"// a", "«* // a»"},
        {"{a}", "{a}"},
        {"[packages]\n{a _\n}", "«S [PACKAGES]←[packages]»\n«h {a _\n}»"},
        {"[ads]\na, _\n  5x", "«S [ADS]←[ads]»\na,«!  _\n  5x»"},
        {"[ads]\na,\n*b", "«S [ADS]←[ads]»\na«! ,\n*b»"},
        {"[ads]\na, 5x //,\n(", "«S [ADS]←[ads]»\na,«!  5x »«* //,»\n«! (»"},
        {"[ADS]\na, 5, (x)", "«S [ADS]»\n«! a, 5, (x)»"},
        {"[ADS]\na,\n\nb, 5x", "«S [ADS]»\na,\n\nb,«!  5x»"},
        // A byte that belongs to no character.
        {"[SKILLS]\na,\x80, page(a)", "«S [SKILLS]»\na«! ,\x80,» «t page(»a«t )»"},
        {"[STATS]\na, maxscore((1+2)*3), minscore(a,b), step()",
         "«S [STATS]»\na, «t maxscore(»(1«m +»2)«m *»3«t )», «! minscore(a,b)», «! step()»"},
        {"[STATS]\na, round(), display((x)y), symbol(z)",
         "«S [STATS]»\na, «t round()», «! display((x)y)», «t symbol(»z«t )»"},
        {"[AUTHOR]\na, b, c", "«S [AUTHOR]»\na, b, c"},
        {"[AUTHOR]\na, _b, c", "«S [AUTHOR]»\na, _b, c"},
        {"[AUTHOR]\na(x), b, c", "«S [AUTHOR]»\n«! a(x), b, c»"},
        {"[AUTHOR]\na, b(c)", "«S [AUTHOR]»\n«! a, b(c)»"},
        {"a, 5, page(x)", "a, 5, page(x)"},
        {"a, page(x)", "«! a, page(x)»"},
        {"[PACKAGES]\n{head", "«S [PACKAGES]»\n«h {head»"},
        {"[PACKAGES]\nADD=SK_RL:x", "«S [PACKAGES]»\n«! ADD=SK_RL:x»"},
        {"[PACKAGES]\nADD=AD:A .AT. 1éäü", "«S [PACKAGES]»\n«t ADD=»«p AD:»A «t .AT.» 1éäü"},
        // An .AT. in front of the last .AND. is part of a modifier.
        {"[PACKAGES]\nADD=AD:A .WITH. m, 5 .AT. 3 .AND. n .AT. 2",
         "«S [PACKAGES]»\n«t ADD=»«p AD:»A «t .WITH.» m, «! 5 .AT. 3» «t .AND.» n «t .AT.» 2"},
    };
    for (const auto& [lines, wanted] : rows) {
        CheckerState state;
        EXPECT_EQ(checkedDocument(lines, state), wanted) << lines;
    }
}

TEST(Pass, SectionOutlivesIt) {
    CheckerState state;
    checkedDocument("[skills]", state);
    EXPECT_EQ(state.CurrentSection(), "[skills]");
    EXPECT_EQ(checkedDocument("Knife, p/e", state), "Knife, «k P/E←p/e»");
}

// The first @function of a pass stays on the stack, and words behind it are tested against it.
TEST(Pass, FirstFunctionStaysOnTheStack) {
    CheckerState state;
    EXPECT_EQ(checkedDocument("[ads]\na, 5, upto(@IF(x THEN y))\nb, 5, upto(then)", state),
              "«S [ADS]←[ads]»\na, 5, «t upto(»«f @IF(»x «k THEN» y«f )»«t )»\n"
              "b, 5, «t upto(»«k THEN←then»«t )»");
    EXPECT_EQ(state.functionStack.top(), AtFunction::If);
    checkedDocument("", state);
    EXPECT_EQ(state.functionStack.top(), AtFunction::None);
}

TEST(Pass, ReportsHeadersAndSteps) {
    struct Heard : PassObserver {
        std::string all;
        void SetLblCaptions(std::string_view section, std::string_view subsection) override {
            all.append(section).append(" ").append(subsection).append("\n");
        }
        void StepIt(Position line) override { all += std::to_string(line) + "\n"; }
    } heard;
    CheckerState state;
    StyledText styled(withCrLf("\n[ADS]\n <b> \na,\n\nc, 5,\n 6\n* d\n<e\n[f]\ng"));
    CheckDocument(styled, state, &heard);
    EXPECT_EQ(heard.all, "[ADS] (none)\n[ADS] <b>\n4\n6\n10\n");
}

TEST(Pass, NamesItsErrors) {
    CheckerState state;
    ErrorRuns errors;
    checkedDocument("[ads]\na, 5, gives(+1), up(2)", state, &errors);
    const ErrorRuns wanted = {{13, 22, ErrorReason::GivesNoTarget},
                              {7, 29, ErrorReason::TagOfOtherSection, {24, 27}}};
    EXPECT_EQ(errors, wanted);
}

TEST(Pass, NamesTheWordsThatItsErrorsSpeakOf) {
    const std::tuple<std::string, const char*, const char*> rows[] = {
        {"[SKILS]", "", "no section has this name, or the header is not alone on its line: [SKILS]"},
        {"[ADS]", "a, 5, nots(x)", "no such tag: nots("},
        {"[ADS]", "a, 5, page(1), no ts(x)", "no such tag: no ts("},
        {"[ADS]", "a, 5, page(1) _\n\tn\u00f6ts(x)", "no such tag: n\u00f6ts("},
        {"[ADS]", "a, 5, (x)", "no such tag: ("},
        {"[ADS]", "a, 5, page(1), up(2)", "no such tag in this section: up("},
        {"[STATS]", "a, b c, d", "only tags may follow the name in this section: b c"},
        {"[ADS]", "a, five", "not a cost: five"},
        {"[ADS]", "a, five, page(1)", "not a cost: five"},
        {"[STATS]", "a, up(a b)", "not a cost: a b"},
        {"[MODS]", "a,x%", "not the value of a modifier: x%"},
        {"[SKILLS]", "a, P/X", "not a skill type: P/X"},
        {"[STATS]", "a, display(maybe)", "neither Yes nor No: maybe"},
        {"[STATS]", "a, step(x)", "the step is not a number: x"},
        {"[MODS]", "a, 1, round(q)", "not a rounding: q"},
        {"[STATS]", "a, minscore(1|2)", "no comma or bar may stand in this value: |"},
        {"[STATS]", "a, basevalue(1<2)", "a character that no expression may hold: <"},
        {"[STATS]", "a, basevalue(1 + XX:b)", "no such prefix tag here: XX:"},
        {"[SKILLS]", "a, P/A, default(a{b)", "a character that no default may hold: {"},
        {"[ADS]", "a, 5, needs(2.5 AD:b)", "the number of things needed is not a whole number: 2.5"},
        {"[ADS]", "a, 5, needs(a[b)", "no bracket or brace may stand in a condition: ["},
        {"[ADS]", "a, 5, gives(+1 To a=b)", "a character that no target of a bonus may hold: ="},
        {"[ADS]", "a, 5, gives(+@FOO(1) To ST)", "no such @function: @FOO("},
        {"[ADS]", "a, 5, gives(+@INT(@FOO) To ST)", "no such @function: @FOO"},
        {"[ADS]", "a, 5, gives(+@INT(1, 2) To ST)", "the @function takes one argument: @INT("},
        {"[ADS]", "a, 5, gives(+@MAX(@INT(1)) To ST)", "the @function takes two arguments: @MAX("},
        {"[ADS]", "a, 5, gives(+1 To Other)", "this keyword is for needs only: Other"},
        {"[BONUS]", "+x SK:a", "the amount of a bonus line is not a number: +x"},
        {"[GROUPS]", "XX:a", "no such prefix tag here: XX:"},
        {"[PACKAGES]", "ADDD=x", "no such package word: ADDD="},
        {"[PACKAGES]", "ADD=XX:b", "ADD= takes no such item: XX:"},
        {"[PACKAGES]", "ADD=b c", "ADD= takes no such item: b"},
        {"[PACKAGES]", "ADD=ST .AT. 5x", "the value of an attribute is not a number: 5x"},
        {"[PACKAGES]", "ADD=SK:a .AT. high", "the level is not a number: high"},
        {"[ADS]", "a, 5, page(1", "parentheses do not match"},
    };
    for (const auto& [section, line, wanted] : rows) {
        CheckerState state;
        ErrorRuns errors;
        const auto text = withCrLf(section + "\n" + line);
        StyledText styled(text);
        CheckDocument(styled, state, nullptr, &errors);
        std::string all;
        for (const auto& run : errors) {
            const auto word = text.substr(static_cast<size_t>(run.word.start),
                                          static_cast<size_t>(run.word.end - run.word.start));
            all.append(reasonText(run.reason, word)).append("\n");
        }
        EXPECT_EQ(all, std::string(wanted) + "\n") << line;
    }
}

TEST(Pass, CountsParenthesesOfAnyNumber) {
    for (const size_t count : {1, 7, 8, 120, 124, 125, 247, 248, 249, 255, 256, 257, 1000}) {
        const auto line = "[ads]\na, 5, notes(" + std::string(count, '(') + std::string(count, ')');
        CheckerState state;
        ErrorRuns errors;
        checkedDocument(line + ")", state, &errors);
        EXPECT_TRUE(errors.empty()) << count;
        checkedDocument(line, state, &errors);
        ASSERT_EQ(errors.size(), 1) << count;
        EXPECT_EQ(errors[0].reason, ErrorReason::ParenthesesDiffer);
    }
}

// Where an @function runs off the text its scanner starts over in front of the line, and may colour there.
TEST(Pass, TellsWhatIsSettled) {
    const std::tuple<const char*, std::string, const char*> rows[] = {
        {"the error of a tag", "[stats]\n", "a, symbol(a)), symbol(b)), basevalue(@INT(5"},
        {"a keyword", "[ads]\n", "+a, 5, page(a)), page(b)), upto(PhysicalSkillPoints@INT(1"},
    };
    for (const auto& [name, section, line] : rows) {
        // The keyword of 19 letters reaches back to the last byte of the ship.
        const auto text = withCrLf(section + "* A line above \xF0\x9F\x9A\xA2sixteen letters.\n" + line);
        StyledText whole(text), sliced(text);
        CheckerState state;
        CheckDocument(whole, state);
        const auto lastLine = text.rfind('\n') + 1;
        ASSERT_NE(whole.styles()[lastLine - 3], static_cast<char>(StyleCategory::Comments)) << name;

        DocumentPass pass(sliced, state);
        pass.advance(2);
        ASSERT_EQ(pass.position(), static_cast<Position>(lastLine)) << name;
        const auto settled = static_cast<size_t>(pass.settledEnd());
        EXPECT_GT(settled + 30, lastLine) << name;
        EXPECT_EQ(sliced.styles().substr(0, settled), whole.styles().substr(0, settled)) << name;
    }
}

TEST(Pass, PreviewKnowsNoHeadersAndStaysInItsRange) {
    const std::tuple<const char*, Position, Position, const char*> rows[] = {
        {"[ads]\n+1 SK:a", 0, 99, "«! [ads]»\n«m +»1 «p SK:»a"},
        {"* a\nversion=2", 0, 99, "«* * a»\n«v Version=2←version=2»"},
        // The line right after the first is not empty, and so an empty one is joined.
        {"+1 a_\nb_\n\n+2 c,", 0, 99, "«m +»1 a_\nb_\n\n«! +2 c,»"},
        {"+1 a_\n\n+2 c,", 0, 99, "«m +»1 a_\n\n«! +2 c,»"},
        {"+1 SK:a\n+1 SK:b\n+1 SK:c", 9, 16, "+1 SK:a\n«m +»1 «p SK:»b\n+1 SK:c"},
        // What begins in the middle of a line is laid from the line's start.
        {"+1 SK:a\n+1 SK:b\n+1 SK:c", 10, 25, "+1 SK:a\n+1«p  SK»:b\n«m +»1 «p SK:»c"},
        {"+1 SK:a", 5, 5, "+1 SK:a"},
        {"+1 SK:a", 30, 99, "+1 SK:a"},
    };
    for (const auto& [lines, from, to, wanted] : rows) {
        CheckerState state;
        state.functionStack.reset();
        state.SetCurrentSection("[BONUS]");
        const auto check = [&, from = from, to = to](StyledText& text) { CheckRange(text, state, from, to); };
        EXPECT_EQ(markedAfter(lines, check), wanted) << lines;
    }
}

}  // namespace
}  // namespace klt::test
