#include "settings/Catalogue.h"

#include <set>

#include "settings/AuthorProfiles.h"
#include "settings/Conversions.h"
#include "settings/EditorFormat.h"
#include "support/Scratch.h"

namespace klt {
namespace {

TEST(Conversions, ReadNumbers) {
    struct Row {
        const char* text;
        std::optional<std::int32_t> number;
    };
    const Row rows[] = {{"105", 105},
                        {" 105 ", 105},
                        {"-5", -5},
                        {"+5", 5},
                        {"2.5", 2},
                        {"3.5", 4},
                        {"1e3", 1000},
                        {"99999999999", 2147483647},
                        {"-1e300", INT32_MIN},
                        {"", std::nullopt},
                        {"x", std::nullopt},
                        {"12x", std::nullopt},
                        {"inf", std::nullopt},
                        {"nan", std::nullopt},
                        {"0x10", std::nullopt},
                        {"+-5", std::nullopt},
                        {"1e999", std::nullopt},
                        {"1 2", std::nullopt},
                        {"True", std::nullopt}};
    for (const auto& row : rows) EXPECT_EQ(numberFrom(row.text), row.number) << row.text;
}

TEST(Conversions, ReadTruth) {
    struct Row {
        const char* text;
        std::optional<bool> truth;
    };
    const Row rows[] = {{"True", true}, {"false", false}, {" TRUE ", true}, {"1", true}, {"-1", true},
                        {"0", false},   {"0.5", true},    {"1000", true},   {"", {}},    {"yes", {}}};
    for (const auto& row : rows) EXPECT_EQ(truthFrom(row.text), row.truth) << row.text;
}

class CatalogueTest : public testing::Test {
protected:
    ScratchFolder folder_;
    Store store_{folder_ / "store.sqlite3"};
};

TEST_F(CatalogueTest, ClampsNumbersAndKeepsDefaults) {
    EXPECT_EQ(readSetting(store_, settings::kHeight), 7020);
    struct Row {
        const char* stored;
        NumberSetting setting;
        std::int32_t read;
    };
    const Row rows[] = {{"7000", settings::kHeight, 7000},
                        {"-7000", settings::kHeight, settings::kSize.least},
                        {"abc", settings::kHeight, 7020},
                        {"2147483647", settings::kTop, settings::kPlace.most},
                        {"-300", settings::kTop, -300},
                        {"7", settings::kWindowState, 2},
                        {"2147483647", settings::kAuthorCount, 1000},
                        {"-2", settings::kLastAuthor, -1},
                        {"2147483647", settings::kMaximumNested, 100},
                        {"-1", settings::kLineBreakerMaximum, 0},
                        {"-1", settings::kMenubarWidth, 0},
                        {"2", settings::kShowKLTCheckerWindow, 2},
                        {"-2147483648", settings::windowPosition("frmModWizard")->left, -500'000}};
    for (const auto& row : rows) {
        SaveSetting(store_, row.setting.application, row.setting.section, row.setting.key, row.stored);
        EXPECT_EQ(readSetting(store_, row.setting), row.read) << row.setting.key << " " << row.stored;
    }
}

TEST_F(CatalogueTest, ReadsBackWhatItWrites) {
    EXPECT_TRUE(readSetting(store_, settings::kShowStatusBar));
    EXPECT_TRUE(writeSetting(store_, settings::kShowStatusBar, false));
    EXPECT_FALSE(readSetting(store_, settings::kShowStatusBar));
    EXPECT_EQ(GetSetting(store_, "KLTEdit", "Options", "ShowStatusBar"), "False");
    EXPECT_TRUE(writeSetting(store_, settings::kTop, -15));
    EXPECT_EQ(GetSetting(store_, "KLTEdit", "KLTEditor", "Top"), "-15");
    EXPECT_EQ(readSetting(store_, settings::kDataFilesPath, "/of the program"), "/of the program");
    EXPECT_FALSE(isStored(store_, settings::kDataFilesPath));
    EXPECT_TRUE(writeSetting(store_, settings::kDataFilesPath, "/files"));
    EXPECT_EQ(readSetting(store_, settings::kDataFilesPath, "/of the program"), "/files");
    EXPECT_TRUE(isStored(store_, settings::kDataFilesPath));
}

TEST_F(CatalogueTest, HasOneRowForEachWindowThatKeepsItsPlace) {
    std::set<std::string_view> windows;
    for (const auto& row : settings::kWindowPositions) {
        EXPECT_TRUE(windows.insert(row.top.section).second && row.top.section == row.left.section);
        EXPECT_NE(row.top.key, row.left.key);
    }
    EXPECT_EQ(readSetting(store_, settings::windowPosition("frmFind")->top), 2160);
    EXPECT_EQ(readSetting(store_, settings::windowPosition("frmFind")->left), 1725);
    EXPECT_EQ(settings::windowPosition("frmTip"), nullptr);
}

TEST_F(CatalogueTest, ResetsWhatItIsAskedTo) {
    auto styles = editorFormatSettings(store_);
    const auto fill = [&] {
        writeSetting(store_, settings::kTvmVersionChosen, "1");
        SaveSetting(store_, kAuthorsApplication, "9", "Name", "Somebody");
        styles.SaveSetting("Comments", "Color", "7");
    };
    fill();
    EXPECT_TRUE(resetEditorFormat(store_));
    EXPECT_EQ(styles.GetSetting("Comments", "Color", "none"), "none");
    EXPECT_TRUE(isStored(store_, settings::kTvmVersionChosen));
    fill();
    EXPECT_TRUE(resetAllSettings(store_));
    EXPECT_FALSE(isStored(store_, settings::kTvmVersionChosen));
    EXPECT_EQ(readAuthorProfile(store_, 9), AuthorProfile{});
    EXPECT_EQ(styles.GetSetting("Comments", "Color", "none"), "none");
}

}  // namespace
}  // namespace klt
