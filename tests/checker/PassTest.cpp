// The passes over whole texts: kinds of lines, what they report, and what outlives them.

#include <gtest/gtest.h>

#include <memory>

#include "Marked.h"
#include "checker/DocumentPass.h"

namespace klt::test {
namespace {

std::string checkedDocument(std::string_view lines, CheckerState& state, ErrorRuns* errors = nullptr) {
    const auto text = withLineEnds(lines);
    StyledText styled(text);
    CheckDocument(styled, state, nullptr, errors);
    auto result = marked(text, styled);
    std::erase(result, '\r');
    return result;
}

TEST(Pass, KindsOfLines) {
    struct Row {
        const char* lines;
        const char* wanted;
    };
    for (const auto& row : {
             Row{"version=2", "«v Version=2←version=2»"},
             Row{" Version=2", " Version=2"},
             Row{"  * a // b", "«*   * a // b»"},
             Row{"*[ADS]", "«* *[ADS]»"},
             Row{" [ads] ", "«S  [ADS] ← [ads] »"},
             Row{"[ADS] x", "«! [ADS] x»"},
             Row{"[ADS] [DISADS]\na, page(x)", "«S [ADS] [DISADS]»\n«! a, page(x)»"},
             Row{"[s\na, 5", "«S [S←[s»\na, 5"},
             Row{" <a> ", "«g  <a> »"},
             Row{"<a", "«! <a»"},
             Row{"// a", "«* // a»"},
             Row{"{a}", "{a}"},
             Row{"[packages]\n{a _\n}", "«S [PACKAGES]←[packages]»\n«h {a _\n}»"},
             Row{"[ads]\na, _\n  5x", "«S [ADS]←[ads]»\na,«!  _\n  5x»"},
             Row{"[ads]\na,\n*b", "«S [ADS]←[ads]»\na«! ,\n*b»"},
             Row{"[ads]\na, 5x //,\n(", "«S [ADS]←[ads]»\na,«!  5x »«* //,»\n«! (»"},
         }) {
        CheckerState state;
        EXPECT_EQ(checkedDocument(row.lines, state), row.wanted) << row.lines;
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
    StyledText styled(withLineEnds("\n[ADS]\n <b> \na,\n\nc, 5,\n 6\n* d\n<e\n[f]\ng"));
    CheckDocument(styled, state, &heard);
    EXPECT_EQ(heard.all, "[ADS] (none)\n[ADS] <b>\n4\n6\n10\n");
}

TEST(Pass, NamesItsErrors) {
    CheckerState state;
    ErrorRuns errors;
    checkedDocument("[ads]\na, 5, gives(+1), up(2)", state, &errors);
    const ErrorRuns wanted = {{13, 22, ErrorReason::GivesNoTarget}, {7, 29, ErrorReason::TagOfOtherSection}};
    EXPECT_EQ(errors, wanted);
    EXPECT_EQ(errorReason(ErrorReason::ParenthesesDiffer).text, "parentheses do not match");
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
    // The keyword of 19 letters reaches back to the last byte of the ship.
    constexpr const char* kBefore = "* A line above \xF0\x9F\x9A\xA2sixteen letters.\n";
    struct Row {
        const char* name;
        const char* lines;
        const char* start;
    };
    for (const auto& row : {
             Row{"the error of a tag", "[stats]\n", "a, symbol(a)), symbol(b)), basevalue(@INT(5"},
             Row{"a keyword", "[ads]\n", "+a, 5, page(a)), page(b)), upto(PhysicalSkillPoints@INT(1"},
         }) {
        const auto text = withLineEnds(std::string(row.lines) + kBefore + row.start);
        StyledText whole(text);
        CheckerState state;
        CheckDocument(whole, state);
        const auto lastLine = text.rfind('\n') + 1;
        ASSERT_NE(whole.styles()[lastLine - 3], static_cast<char>(StyleCategory::Comments)) << row.name;

        StyledText sliced(text);
        DocumentPass pass(sliced, state);
        pass.advance(2);
        ASSERT_EQ(pass.position(), static_cast<Position>(lastLine)) << row.name;
        const auto settled = static_cast<size_t>(pass.settledEnd());
        EXPECT_GT(settled + 30, lastLine) << row.name;
        EXPECT_EQ(sliced.styles().substr(0, settled), whole.styles().substr(0, settled)) << row.name;
    }
}

TEST(Pass, PreviewKnowsNoHeaders) {
    struct Row {
        const char* lines;
        const char* wanted;
    };
    for (const auto& row : {
             Row{"[ads]\n+1 SK:a", "«! [ads]»\n«m +»1 «p SK:»a"},
             Row{"* a\nversion=2", "«* * a»\n«v Version=2←version=2»"},
             // The line right after the first is not empty, and so an empty one is joined.
             Row{"+1 a_\nb_\n\n+2 c,", "«m +»1 a_\nb_\n\n«! +2 c,»"},
             Row{"+1 a_\n\n+2 c,", "«m +»1 a_\n\n«! +2 c,»"},
         }) {
        CheckerState state;
        state.functionStack.reset();
        state.SetCurrentSection("[BONUS]");
        const auto text = withLineEnds(row.lines);
        StyledText styled(text);
        CheckRange(styled, state, 0, styled.size());
        auto result = marked(text, styled);
        std::erase(result, '\r');
        EXPECT_EQ(result, row.wanted) << row.lines;
    }
}

TEST(Pass, PreviewStaysInItsRange) {
    CheckerState state;
    state.SetCurrentSection("[BONUS]");
    const auto text = withLineEnds("+1 SK:a\n+1 SK:b\n+1 SK:c");
    StyledText styled(text);
    CheckRange(styled, state, 9, 16);
    EXPECT_EQ(marked(text, styled), withLineEnds("+1 SK:a\n«m +»1 «p SK:»b\n+1 SK:c"));
    CheckRange(styled, state, 5, 5);
    CheckRange(styled, state, 30, 99);
}

}  // namespace
}  // namespace klt::test
