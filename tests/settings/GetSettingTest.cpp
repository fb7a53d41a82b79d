#include "settings/GetSetting.h"

#include "platform/ProgramNames.h"
#include "support/StoreFixture.h"

using namespace klt;
using Pairs = std::vector<std::pair<std::string, std::string>>;
using GetSettingTest = StoreFixture;

TEST_F(GetSettingTest, ConvertsDefaultsToText) {
    const std::pair<SettingDefault, const char*> rows[] = {
        {{}, ""},       {7020, "7020"},   {-1, "-1"},       {2147483647L, "2147483647"},
        {true, "True"}, {false, "False"}, {"text", "text"}, {std::string("text"), "text"}};
    for (const auto& [fallback, text] : rows)
        EXPECT_EQ(GetSetting(store_, "KLTEdit", "Options", "Absent", fallback), text);
    EXPECT_FALSE(std::filesystem::exists(folder_ / "klt-editor")) << "a read makes nothing";
}

TEST_F(GetSettingTest, SavesAndReadsBack) {
    for (const auto& text : {std::string("a\0b", 3), std::string(), std::string(" 50% of %A% ")}) {
        EXPECT_TRUE(SaveSetting(store_, "KLTEdit", "KLTEditor", "Top", text));
        EXPECT_EQ(GetSetting(store_, "KLTEdit", "KLTEditor", "Top", "default"), text);
        Store other(path_);
        EXPECT_EQ(GetSetting(other, "kltEDIT", "KLTEDITOR", "TOP", "default"), text) << "whatever the case";
    }
}

TEST_F(GetSettingTest, KeepsTheSpellingOfFirstUse) {
    SaveSetting(store_, "KLTEdit", "MRU", "MaxCount", "4");
    SaveSetting(store_, "KLTEDit", "mru", "RecentFile1", "a.klt");
    SaveSetting(store_, "KLTEdit", "MRU", "MAXCOUNT", "9");
    EXPECT_EQ(GetAllSettings(store_, "KLTEdit", "MRU"), (Pairs{{"MaxCount", "9"}, {"RecentFile1", "a.klt"}}));
    EXPECT_EQ(store_.keyNames({HKEY_CURRENT_USER, kSettingsFolder}), std::vector<std::string>{"KLTEdit"});
    EXPECT_EQ(GetAllSettings(store_, "KLTEdit", "Absent"), Pairs{});
}

TEST_F(GetSettingTest, Deletes) {
    const std::array<const char*, 3> places[] = {{"KLTEdit", "Options", "One"},
                                                 {"KLTEdit", "Options", "Two"},
                                                 {"KLTEdit", "Options\\Below", "Three"},
                                                 {"KLTEdit", "KLTEditor", "Top"},
                                                 {"Authors", "0", "Name"}};
    const std::tuple<const char*, std::function<bool()>, bool, const char*> rows[] = {
        {"a key", [&] { return DeleteSetting(store_, "KLTEdit", "options", "one"); }, true, "2345"},
        {"a section", [&] { return DeleteSetting(store_, "KLTEdit", "Options"); }, true, "45"},
        {"an application", [&] { return DeleteSetting(store_, "KLTEdit"); }, true, "5"},
        {"an absent key", [&] { return DeleteSetting(store_, "KLTEdit", "Options", "0"); }, false, "12345"},
        {"an absent section", [&] { return DeleteSetting(store_, "KLTEdit", "None"); }, false, "12345"},
        {"no section", [&] { return DeleteSetting(store_, "KLTEdit", ""); }, false, "12345"},
        {"no application", [&] { return DeleteSetting(store_, ""); }, false, "12345"},
    };
    for (const auto& [what, remove, answer, rest] : rows) {
        char number = '1';
        for (const auto& [application, section, key] : places)
            SaveSetting(store_, application, section, key, std::string(1, number++));
        EXPECT_EQ(remove(), answer) << what;
        std::string left;
        for (const auto& [application, section, key] : places)
            left += GetSetting(store_, application, section, key);
        EXPECT_EQ(left, rest) << what;
    }
}
