#include "settings/Catalogue.h"

#include <set>

#include "settings/AuthorProfiles.h"
#include "settings/Conversions.h"
#include "settings/EditorFormat.h"
#include "support/StoreFixture.h"

using namespace klt;
using CatalogueTest = StoreFixture;

TEST(Conversions, ReadNumbers) {
    const std::pair<const char*, std::int32_t> rows[] = {
        {"105", 105},         {" 105 ", 105}, {"-5", -5},    {"+5", 5},
        {"2.5", 2},           {"3.5", 4},     {"1e3", 1000}, {"99999999999", 2147483647},
        {"-1e300", INT32_MIN}};
    for (const auto& [text, number] : rows) EXPECT_EQ(numberFrom(text), number) << text;
    for (const auto* text : {"", "x", "12x", "inf", "nan", "0x10", "+-5", "1e999", "1 2", "True"})
        EXPECT_EQ(numberFrom(text), std::nullopt) << text;
}

TEST(Conversions, ReadTruth) {
    for (const auto* text : {"True", " TRUE ", "1", "-1", "0.5", "1000"})
        EXPECT_EQ(truthFrom(text), true) << text;
    for (const auto* text : {"false", "0"}) EXPECT_EQ(truthFrom(text), false) << text;
    for (const auto* text : {"", "yes"}) EXPECT_EQ(truthFrom(text), std::nullopt) << text;
}

TEST_F(CatalogueTest, ClampsNumbersAndKeepsDefaults) {
    EXPECT_EQ(readSetting(store_, settings::kHeight), 7020);
    const std::tuple<const char*, NumberSetting, std::int32_t> rows[] = {
        {"7000", settings::kHeight, 7000},
        {"-7000", settings::kHeight, settings::kSize.least},
        {"abc", settings::kHeight, 7020},
        {"2147483647", settings::kTop, settings::kPlace.most},
        {"-300", settings::kTop, -300},
        {"2147483647", settings::kAuthorCount, 1000},
        {"-1", settings::kMenubarWidth, 0},
        {"-2147483648", settings::windowPosition("frmModWizard")->left, -500'000}};
    for (const auto& [stored, setting, read] : rows) {
        SaveSetting(store_, setting.application, setting.section, setting.key, stored);
        EXPECT_EQ(readSetting(store_, setting), read) << setting.key << " " << stored;
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
    for (const auto& [top, left] : settings::kWindowPositions)
        EXPECT_TRUE(windows.insert(top.section).second && top.section == left.section && top.key != left.key);
    EXPECT_EQ(readSetting(store_, settings::windowPosition("frmFind")->left), 1725);
    EXPECT_EQ(settings::windowPosition("frmTip"), nullptr);
}

TEST_F(CatalogueTest, ResetsWhatItIsAskedTo) {
    auto styles = editorFormatSettings(store_);
    writeSetting(store_, settings::kTvmVersionChosen, "1");
    SaveSetting(store_, kAuthorsApplication, "9", "Name", "Somebody");
    styles.SaveSetting("Comments", "Color", "7");
    EXPECT_TRUE(resetEditorFormat(store_));
    EXPECT_EQ(styles.GetSetting("Comments", "Color", "none"), "none");
    EXPECT_TRUE(isStored(store_, settings::kTvmVersionChosen));
    styles.SaveSetting("Comments", "Color", "7");
    EXPECT_TRUE(resetAllSettings(store_));
    EXPECT_FALSE(isStored(store_, settings::kTvmVersionChosen));
    EXPECT_EQ(readAuthorProfile(store_, 9), AuthorProfile{});
    EXPECT_EQ(styles.GetSetting("Comments", "Color", "none"), "none");
}
