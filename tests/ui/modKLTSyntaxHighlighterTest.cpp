#include "ui/modKLTSyntaxHighlighter.h"

#include <gmock/gmock.h>

#include "settings/Store.h"
#include "support/Scratch.h"

using namespace klt;

namespace {

class HighlighterTest : public testing::Test {
protected:
    ScratchHome home;
    Store store;
    CRegSettings settings{store};
    modKLTSyntaxHighlighter highlighter{settings};
};

TEST_F(HighlighterTest, APreviewIsColouredInItsRangeAlone) {
    RichTextBox box(RichTextBox::Kind::Preview);
    box.SetText("* left\r\nversion=2\r\n{Guide}\r\n[ADS]");
    highlighter.state.SetCurrentSection("[PACKAGES]");
    highlighter.ColourRange(box, 8, 8);
    EXPECT_EQ(box.StyleRuns(), "") << "nothing without a length";
    highlighter.ColourRange(box, 8, box.Length());
    EXPECT_EQ(box.Text(), "* left\r\nVersion=2\r\n{Guide}\r\n[ADS]");
    EXPECT_EQ(box.StyleRuns(), "8 17 Version Information\n19 26 Package Headers\n28 33 Syntax Error")
        << "a section header is an item like any other";
    EXPECT_THAT(box.ProtectedRuns(), testing::ElementsAre(TextRange{8, 17}));
    highlighter.SetPreviewFormat(box);
    EXPECT_EQ(box.StyleRuns(), "");
    EXPECT_TRUE(box.ProtectedRuns().empty());
}

TEST_F(HighlighterTest, AFieldInErrorStaysSoForWhatIsTypedIntoIt) {
    RichTextBox box(RichTextBox::Kind::Field);
    highlighter.SetErrorFieldFormat(box);
    box.SetSelText("x(");
    EXPECT_EQ(box.StyleRuns(), "0 2 Syntax Error");
    highlighter.SetFieldFormat(box);
    EXPECT_EQ(box.StyleRuns(), "");
}

}  // namespace
