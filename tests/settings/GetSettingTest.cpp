#include "settings/GetSetting.h"

#include "platform/ProgramNames.h"
#include "support/Scratch.h"

namespace klt {
namespace {

using Pairs = std::vector<std::pair<std::string, std::string>>;

class GetSettingTest : public testing::Test {
protected:
    ScratchFolder folder_;
    Store store_{folder_ / "klt-editor/store.sqlite3"};
};

TEST_F(GetSettingTest, ConvertsDefaultsToText) {
    const auto get = [&](const SettingDefault& fallback) {
        return GetSetting(store_, "KLTEdit", "Options", "Absent", fallback);
    };
    EXPECT_EQ(GetSetting(store_, "KLTEdit", "Options", "Absent"), "");
    EXPECT_EQ(get(7020), "7020");
    EXPECT_EQ(get(-1), "-1");
    EXPECT_EQ(get(2147483647L), "2147483647");
    EXPECT_EQ(get(true), "True");
    EXPECT_EQ(get(false), "False");
    EXPECT_EQ(get("text"), "text");
    EXPECT_EQ(get(std::string("text")), "text");
    EXPECT_FALSE(std::filesystem::exists(folder_ / "klt-editor")) << "a read makes nothing";
}

TEST_F(GetSettingTest, SavesAndReadsBack) {
    const std::string texts[] = {"105", "", " blanks ", "caf\xC3\xA9", std::string("a\0b", 3), "50% of %A%"};
    for (const auto& text : texts) {
        EXPECT_TRUE(SaveSetting(store_, "KLTEdit", "KLTEditor", "Top", text));
        EXPECT_EQ(GetSetting(store_, "KLTEdit", "KLTEditor", "Top", "default"), text);
        Store other(folder_ / "klt-editor/store.sqlite3");
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

TEST_F(GetSettingTest, ReadsWhatOtherRoadsWrote) {
    const NodePath mru{HKEY_CURRENT_USER, "Software\\Shared Program Settings\\KLTEdit\\MRU"};
    ASSERT_TRUE(store_.write(mru, "MaxCount", {REG_DWORD, -7}));
    ASSERT_TRUE(store_.write(mru, "", {REG_BINARY, Bytes{std::byte{'x'}, std::byte{'y'}}}));
    EXPECT_EQ(GetAllSettings(store_, "KLTEdit", "MRU"), (Pairs{{"MaxCount", "-7"}, {"", "xy"}}));
}

TEST_F(GetSettingTest, Deletes) {
    const auto fill = [&] {
        SaveSetting(store_, "KLTEdit", "Options", "One", "1");
        SaveSetting(store_, "KLTEdit", "Options", "Two", "2");
        SaveSetting(store_, "KLTEdit", "Options\\Below", "Three", "3");
        SaveSetting(store_, "KLTEdit", "KLTEditor", "Top", "4");
        SaveSetting(store_, "Authors", "0", "Name", "5");
    };
    const auto left = [&] {
        return GetSetting(store_, "KLTEdit", "Options", "One") +
               GetSetting(store_, "KLTEdit", "Options", "Two") +
               GetSetting(store_, "KLTEdit", "Options\\Below", "Three") +
               GetSetting(store_, "KLTEdit", "KLTEditor", "Top") + GetSetting(store_, "Authors", "0", "Name");
    };
    struct Row {
        const char* what;
        std::function<bool()> remove;
        bool answer;
        const char* left;
    };
    const Row rows[] = {
        {"a key", [&] { return DeleteSetting(store_, "KLTEdit", "options", "one"); }, true, "2345"},
        {"a section", [&] { return DeleteSetting(store_, "KLTEdit", "Options"); }, true, "45"},
        {"an application", [&] { return DeleteSetting(store_, "KLTEdit"); }, true, "5"},
        {"an absent key", [&] { return DeleteSetting(store_, "KLTEdit", "Options", "None"); }, false,
         "12345"},
        {"an absent section", [&] { return DeleteSetting(store_, "KLTEdit", "None"); }, false, "12345"},
        {"no section", [&] { return DeleteSetting(store_, "KLTEdit", ""); }, false, "12345"},
        {"no application", [&] { return DeleteSetting(store_, ""); }, false, "12345"},
    };
    for (const auto& row : rows) {
        fill();
        EXPECT_EQ(row.remove(), row.answer) << row.what;
        EXPECT_EQ(left(), row.left) << row.what;
    }
}

}  // namespace
}  // namespace klt
