#include "settings/CRegSettings.h"

#include "settings/GetSetting.h"
#include "support/Scratch.h"

namespace klt {
namespace {

class CRegSettingsTest : public testing::Test {
protected:
    ScratchFolder folder_;
    Store store_{folder_ / "store.sqlite3"};
    CRegSettings settings_{store_};
};

TEST_F(CRegSettingsTest, TrimsAndRestoresItsFields) {
    struct Row {
        const char* given;
        const char* company;
        const char* appName;
    };
    const Row rows[] = {{"  Editor Format ", "Editor Format", "Editor Format"},
                        {"", "Shared Program Settings", "KLTEdit"},
                        {"   ", "", ""}};
    for (const auto& row : rows) {
        settings_.Company(row.given);
        settings_.AppName(row.given);
        EXPECT_EQ(settings_.Company(), row.company) << row.given;
        EXPECT_EQ(settings_.AppName(), row.appName) << row.given;
    }
}

TEST_F(CRegSettingsTest, MeetsThePlainRoad) {
    settings_.Company("Shared Program Settings\\KLTEdit");
    settings_.AppName("Editor Format");
    EXPECT_TRUE(settings_.SaveSetting("Comments", "Color", "32768"));
    EXPECT_EQ(GetSetting(store_, "KLTEdit", "Editor Format\\Comments", "Color"), "32768");
    EXPECT_TRUE(DeleteSetting(store_, "KLTEdit", "Editor Format"));
    EXPECT_EQ(settings_.GetSetting("Comments", "Color", "0"), "0");
}

TEST_F(CRegSettingsTest, GivesTheDefaultForLengthZero) {
    EXPECT_EQ(settings_.GetSetting("Options", "Absent", "d"), "d");
    EXPECT_TRUE(settings_.SaveSetting("Options", "Empty", ""));
    EXPECT_EQ(settings_.GetSetting("Options", "Empty", "d"), "d");
    EXPECT_TRUE(settings_.SaveSetting("Options", "Full", "x"));
    EXPECT_EQ(settings_.GetSetting("options", "FULL", "d"), "x");
}

TEST_F(CRegSettingsTest, TakesAStarForTheDefaultValue) {
    EXPECT_TRUE(settings_.SaveSetting("Options", "*", "of the key"));
    EXPECT_EQ(settings_.GetSetting("Options", "", "d"), "of the key");
    EXPECT_EQ(GetSetting(store_, "KLTEdit", "Options", ""), "of the key");
    EXPECT_TRUE(settings_.DeleteSetting("Options", "*"));
    EXPECT_EQ(settings_.GetSetting("Options", "*", "d"), "d");
}

TEST_F(CRegSettingsTest, DeletesAValueOrASection) {
    EXPECT_FALSE(settings_.DeleteSetting("Options", "Top")) << "no section";
    settings_.SaveSetting("Options", "Left", "1");
    EXPECT_FALSE(settings_.DeleteSetting("Options", "Top")) << "no value";
    EXPECT_FALSE(settings_.DeleteSetting("Other", ""));
    EXPECT_FALSE(settings_.DeleteSetting("", "")) << "nor everything";
    EXPECT_EQ(settings_.GetSetting("Options", "Left", "d"), "1");
    EXPECT_TRUE(settings_.DeleteSetting("Options", ""));
    EXPECT_EQ(settings_.GetSetting("Options", "Left", "d"), "d");
}

}  // namespace
}  // namespace klt
