#include "settings/Upgrade.h"

#include "settings/MakerProfile.h"
#include "support/StoreFixture.h"
#include "text/TextOperations.h"

using namespace klt;

static const std::string kMaker(kMakerName), kNow(kMakerAddress);

// Settings as "application/section/key=text; ...".
static const struct {
    std::string name, before, after;
} kRows[] = {
    {"a fresh store", "",
     "KLTEdit/KLTEditor/Version=1.60.0053; KLTEdit/MRU/MaxCount=4; KLTEdit/MRU/Count=<none>; "
     "KLTEdit/Toolbar/DefaultTop=2; KLTEdit/Toolbar/WizardsTop=3; KLTEdit/Options/AutoComplete=<none>"},
    {"the version of now",
     "KLTEdit/KLTEditor/Version=1.60.0053; KLTEdit/Options/AutoComplete=0; Authors/0/Name=" + kMaker,
     "KLTEdit/KLTEditor/Version=1.60.0053; KLTEdit/MRU/MaxCount=<none>; KLTEdit/Toolbar/DefaultTop=<none>; "
     "KLTEdit/Options/AutoComplete=0; Authors/0/E-Mail 2=<none>"},
    {"one digit of minor is higher", "KLTEdit/KLTEditor/Version=1.9.0000",
     "KLTEdit/KLTEditor/Version=1.9.0000"},
    {"a text form of the recent files",
     "KLTEdit/KLTEditor/Version=1.52.0000; KLTEdit/Options/Max MRU Files=9; KLTEdit/MRU/MaxCount=9; "
     "KLTEdit/MRU/RecentFile1=/a; KLTEdit/MRU/RecentFile2=/b; KLTEdit/Options/AutoComplete=0",
     "KLTEdit/MRU/MaxCount=9; KLTEdit/MRU/Count=3; KLTEdit/Options/AutoComplete=False"},
    {"no capacity of earlier versions", "KLTEdit/MRU/MaxCount=9; KLTEdit/MRU/RecentFile1=/a",
     "KLTEdit/MRU/MaxCount=4; KLTEdit/MRU/Count=2"},
    {"an automatic completion that is no number", "KLTEdit/Options/AutoComplete=True",
     "KLTEdit/Options/AutoComplete=True"},
    {"behind the first two steps",
     "KLTEdit/KLTEditor/Version=1.53.0002; KLTEdit/Toolbar/DefaultTop=7; KLTEdit/Options/AutoComplete=0",
     "KLTEdit/Toolbar/DefaultTop=8; KLTEdit/Toolbar/WizardsTop=3; KLTEdit/MRU/MaxCount=<none>; "
     "KLTEdit/Options/AutoComplete=0"},
    {"the maker's profile, for the last step alone",
     "KLTEdit/KLTEditor/Version=1.60.0050; Authors/0/Name=Another; Authors/7/E-Mail 1=first; "
     "Authors/7/Name=" +
         kMaker,
     "KLTEdit/KLTEditor/Version=1.60.0053; Authors/7/E-Mail 1=first; Authors/0/E-Mail 2=<none>; "
     "KLTEdit/Toolbar/DefaultTop=<none>; Authors/7/E-Mail 2=" +
         kNow},
    {"behind the count, and in another case",
     "Authors/Number/Value=2; Authors/0/Name=grey harbor; Authors/2/Name=" + kMaker,
     "Authors/0/E-Mail 2=<none>; Authors/2/E-Mail 2=<none>"},
    {"the first match only", "Authors/1/Name=" + kMaker + "; Authors/2/Name=" + kMaker,
     "Authors/2/E-Mail 2=<none>; Authors/1/E-Mail 2=" + kNow},
    {"a version of more than nine characters counts as 1.52",
     "KLTEdit/KLTEditor/Version=9.99.00001; Authors/3/Name=" + kMaker,
     "KLTEdit/KLTEditor/Version=1.60.0053; KLTEdit/Toolbar/DefaultTop=2; Authors/3/E-Mail 2=" + kNow},
};

static void each(const std::string& settings,
                 const std::function<void(std::array<std::string, 3>, std::string)>& work) {
    for (const auto& setting : SplitText(settings, "; ")) {
        const auto text = setting.find('=');
        if (text == setting.npos) continue;
        const auto place = SplitText(setting.substr(0, text), "/");
        work({place.at(0), place.at(1), place.at(2)}, setting.substr(text + 1));
    }
}

TEST(Upgrade, TakesEveryStepThatIsDue) {
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.name);
        const ScratchFolder folder;
        Store store(folder / "store.sqlite3");
        each(row.before, [&](const auto& place, const auto& text) {
            SaveSetting(store, place[0], place[1], place[2], text);
        });
        for (int round = 0; round < 2; ++round) {
            EXPECT_TRUE(upgradeSettings(store)) << "a second start changes nothing";
            each(row.after, [&](const auto& place, const auto& text) {
                EXPECT_EQ(GetSetting(store, place[0], place[1], place[2], "<none>"), text)
                    << place[2] << round;
            });
        }
    }
}

using UpgradeTest = StoreFixture;

TEST_F(UpgradeTest, WritesTheNumbersOfTheListAsNumbers) {
    SaveSetting(store_, "KLTEdit", "MRU", "RecentFile1", "/a");
    EXPECT_TRUE(upgradeSettings(store_));
    const NodePath mru{HKEY_CURRENT_USER, "Software\\Shared Program Settings\\KLTEdit\\MRU"};
    EXPECT_EQ(store_.read(mru, "MaxCount"), (StoredValue{REG_DWORD, 4}));
    EXPECT_EQ(store_.read(mru, "Count"), (StoredValue{REG_DWORD, 2}));
}

TEST(Upgrade, LeavesAStoreAloneThatCannotBeWritten) {
    Store store("/dev/null/store.sqlite3");
    EXPECT_FALSE(upgradeSettings(store));
}
