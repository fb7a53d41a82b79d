#include "ui/StyleTable.h"

#include <gtest/gtest.h>

#include <string>

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
    EXPECT_EQ(styles[StyleCategory::Sections], (Style{{0, 128, 255}, false, false}));
    EXPECT_EQ(styles[StyleCategory::SyntaxError].colour, (Rgb{255, 0, 0}));
    EXPECT_EQ(styles[StyleCategory::NormalText], Style());
}

TEST_F(StyleTableTest, ReadsEachCategoryFromItsSection) {
    for (size_t i = 0; i < kStyleCategoryNames.size(); ++i) {
        settings_.SaveSetting(kStyleCategoryNames[i], "Color", std::to_string(i + 1));
        settings_.SaveSetting(kStyleCategoryNames[i], "Bold", i % 2 ? "True" : "False");
        settings_.SaveSetting(kStyleCategoryNames[i], "Italic", i % 2 ? "False" : "True");
    }
    const auto styles = LoadStyles(settings_);
    for (size_t i = 0; i < kStyleCategoryNames.size(); ++i)
        EXPECT_EQ(styles[static_cast<StyleCategory>(i)],
                  (Style{ColourIndexToRgb(static_cast<int>(i) + 1), i % 2 == 1, i % 2 == 0}));
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
