#include "ui/modKLTSyntaxHighlighter.h"

#include <gmock/gmock.h>

#include "settings/Store.h"
#include "support/Scratch.h"
#include "ui/StyleTable.h"

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
    EXPECT_NE(box.errorAt(29), "");
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

TEST_F(HighlighterTest, StylesHaveDefaultsInAnEmptyStore) {
    const auto styles = LoadStyles(settings);
    EXPECT_EQ(styles, StyleTable());
    EXPECT_EQ(styles[StyleCategory::VersionInformation], (Style{{0, 128, 255}, true, false}));
    EXPECT_EQ(styles[StyleCategory::SyntaxError], (Style{{255, 0, 0}, false, false}));
}

TEST_F(HighlighterTest, ReadsEachStyleFromItsSection) {
    StyleTable wanted;
    for (size_t i = 0; i < kStyleCategoryNames.size(); ++i) {
        const bool bold = i % 2 == 1;
        settings.SaveSetting(kStyleCategoryNames[i], "Color", std::to_string(i + 1));
        settings.SaveSetting(kStyleCategoryNames[i], "Bold", bold ? "True" : "False");
        settings.SaveSetting(kStyleCategoryNames[i], "Italic", bold ? "False" : "True");
        wanted.set(static_cast<StyleCategory>(i), {ColourIndexToRgb(static_cast<int>(i) + 1), bold, !bold});
    }
    EXPECT_EQ(LoadStyles(settings), wanted);
}

TEST_F(HighlighterTest, TakesNoNonsenseForAStyle) {
    settings.SaveSetting("Comments", "Color", "2147483647");
    settings.SaveSetting("Keywords", "Color", "green");
    settings.SaveSetting("Version Information", "Bold", "perhaps");
    const auto styles = LoadStyles(settings);
    EXPECT_EQ(styles[StyleCategory::Comments].colour, Rgb());
    EXPECT_EQ(styles[StyleCategory::Keywords], StyleTable()[StyleCategory::Keywords]);
    EXPECT_TRUE(styles[StyleCategory::VersionInformation].bold);
    EXPECT_EQ(ColourIndexToRgb(18), (Rgb{128, 0, 255}));
    for (const int index : {-1, 19, 0, 2147483647, -2147483647}) EXPECT_EQ(ColourIndexToRgb(index), Rgb());
}

}  // namespace
