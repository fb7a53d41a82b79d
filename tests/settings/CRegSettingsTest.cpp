#include "settings/CRegSettings.h"

#include "support/StoreFixture.h"

using namespace klt;

class CRegSettingsTest : public StoreFixture {
protected:
    CRegSettings settings_{store_};
};

TEST_F(CRegSettingsTest, TrimsAndRestoresItsFields) {
    for (const auto& [given, company, appName] :
         {std::tuple("  Editor Format ", "Editor Format", "Editor Format"),
          {"", "Shared Program Settings", "KLTEdit"},
          {"   ", "", ""}}) {
        settings_.Company(given);
        settings_.AppName(given);
        EXPECT_EQ(settings_.Company(), company) << given;
        EXPECT_EQ(settings_.AppName(), appName) << given;
    }
}

TEST_F(CRegSettingsTest, GivesTheDefaultForLengthZero) {
    EXPECT_EQ(settings_.GetSetting("Options", "Text", "d"), "d");
    for (const std::string text : {"", "x"}) {
        EXPECT_TRUE(settings_.SaveSetting("Options", "Text", text));
        EXPECT_EQ(settings_.GetSetting("options", "TEXT", "d"), text.empty() ? "d" : "x");
    }
}

TEST_F(CRegSettingsTest, TakesAStarForTheDefaultValue) {
    EXPECT_TRUE(settings_.SaveSetting("Options", "*", "of the key"));
    EXPECT_EQ(settings_.GetSetting("Options", "", "d"), "of the key");
    EXPECT_EQ(GetSetting(store_, "KLTEdit", "Options", ""), "of the key");
    EXPECT_TRUE(settings_.DeleteSetting("Options", "*"));
    EXPECT_EQ(settings_.GetSetting("Options", "*", "d"), "d");
}

TEST_F(CRegSettingsTest, DeletesAValueOrASection) {
    settings_.SaveSetting("Options", "Left", "1");
    for (const auto& [section, key] :
         {std::pair("Options", "Top"), {"Other", "Left"}, {"Other", ""}, {"", ""}})
        EXPECT_FALSE(settings_.DeleteSetting(section, key)) << section << " " << key;
    EXPECT_EQ(settings_.GetSetting("Options", "Left", "d"), "1");
    EXPECT_TRUE(settings_.DeleteSetting("Options", ""));
    EXPECT_EQ(settings_.GetSetting("Options", "Left", "d"), "d");
}
