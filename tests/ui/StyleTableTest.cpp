#include "ui/StyleTable.h"

#include "support/Scratch.h"

namespace klt {
namespace {

class StyleTableTest : public testing::Test {
protected:
    ScratchFolder folder_;
    Store store_{folder_ / "store.sqlite3"};
    CRegSettings settings_{store_};
};

TEST_F(StyleTableTest, HasDefaultsInAnEmptyStore) {
    const auto styles = LoadStyles(settings_);
    EXPECT_EQ(styles, StyleTable());
    EXPECT_EQ(styles[StyleCategory::VersionInformation], (Style{{0, 128, 255}, true, false}));
    EXPECT_EQ(styles[StyleCategory::SyntaxError], (Style{{255, 0, 0}, false, false}));
}

TEST_F(StyleTableTest, ReadsEachCategoryFromItsSection) {
    StyleTable wanted;
    for (size_t i = 0; i < kStyleCategoryNames.size(); ++i) {
        const bool bold = i % 2 == 1;
        settings_.SaveSetting(kStyleCategoryNames[i], "Color", std::to_string(i + 1));
        settings_.SaveSetting(kStyleCategoryNames[i], "Bold", bold ? "True" : "False");
        settings_.SaveSetting(kStyleCategoryNames[i], "Italic", bold ? "False" : "True");
        wanted.set(static_cast<StyleCategory>(i), {ColourIndexToRgb(static_cast<int>(i) + 1), bold, !bold});
    }
    EXPECT_EQ(LoadStyles(settings_), wanted);
}

TEST_F(StyleTableTest, TakesNoNonsense) {
    settings_.SaveSetting("Comments", "Color", "2147483647");
    settings_.SaveSetting("Keywords", "Color", "green");
    settings_.SaveSetting("Version Information", "Bold", "perhaps");
    const auto styles = LoadStyles(settings_);
    EXPECT_EQ(styles[StyleCategory::Comments].colour, Rgb());
    EXPECT_EQ(styles[StyleCategory::Keywords], StyleTable()[StyleCategory::Keywords]);
    EXPECT_TRUE(styles[StyleCategory::VersionInformation].bold);
}

TEST(ColourIndexToRgb, IsBlackBeyondItsTable) {
    EXPECT_EQ(ColourIndexToRgb(18), (Rgb{128, 0, 255}));
    for (const int index : {-1, 19, 0, 2147483647, -2147483647}) EXPECT_EQ(ColourIndexToRgb(index), Rgb());
}

}  // namespace
}  // namespace klt
