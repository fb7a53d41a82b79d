#include "settings/Upgrade.h"

#include <map>

#include "platform/ProgramNames.h"
#include "settings/GetSetting.h"
#include "settings/MakerProfile.h"
#include "support/Scratch.h"

namespace klt {
namespace {

/// "application/section/key" to the text under it.
using Settings = std::map<std::string, std::string>;

struct Place {
    explicit Place(const std::string& name)
        : application(name.substr(0, name.find('/'))),
          section(name.substr(name.find('/') + 1, name.rfind('/') - name.find('/') - 1)),
          key(name.substr(name.rfind('/') + 1)) {}
    std::string application, section, key;
};

const std::string kMaker(kMakerName), kNow(kMakerAddress);
constexpr const char* kVersionKey = "KLTEdit/KLTEditor/Version";

struct Row {
    const char* name;
    Settings before;
    Settings after;
};

const Row kRows[] = {
    {"a fresh store",
     {},
     {{kVersionKey, "1.60.0053"},
      {"KLTEdit/MRU/MaxCount", "4"},
      {"KLTEdit/MRU/Count", "<none>"},
      {"KLTEdit/Toolbar/DefaultTop", "2"},
      {"KLTEdit/Toolbar/WizardsTop", "3"},
      {"KLTEdit/Options/AutoComplete", "<none>"}}},
    {"the version of now",
     {{kVersionKey, "1.60.0053"}, {"KLTEdit/Options/AutoComplete", "0"}, {"Authors/0/Name", kMaker}},
     {{kVersionKey, "1.60.0053"},
      {"KLTEdit/MRU/MaxCount", "<none>"},
      {"KLTEdit/Toolbar/DefaultTop", "<none>"},
      {"KLTEdit/Options/AutoComplete", "0"},
      {"Authors/0/E-Mail 2", "<none>"}}},
    {"one digit of minor is higher", {{kVersionKey, "1.9.0000"}}, {{kVersionKey, "1.9.0000"}}},
    {"a text form of the recent files",
     {{kVersionKey, "1.52.0000"},
      {"KLTEdit/Options/Max MRU Files", "9"},
      {"KLTEdit/MRU/MaxCount", "9"},
      {"KLTEdit/MRU/RecentFile1", "/a"},
      {"KLTEdit/MRU/RecentFile2", "/b"},
      {"KLTEdit/Options/AutoComplete", "0"}},
     {{"KLTEdit/MRU/MaxCount", "9"}, {"KLTEdit/MRU/Count", "3"}, {"KLTEdit/Options/AutoComplete", "False"}}},
    {"no capacity of earlier versions",
     {{"KLTEdit/MRU/MaxCount", "9"}, {"KLTEdit/MRU/RecentFile1", "/a"}},
     {{"KLTEdit/MRU/MaxCount", "4"}, {"KLTEdit/MRU/Count", "2"}}},
    {"an automatic completion that is no number",
     {{"KLTEdit/Options/AutoComplete", "True"}},
     {{"KLTEdit/Options/AutoComplete", "True"}}},
    {"behind the first two steps",
     {{kVersionKey, "1.53.0002"}, {"KLTEdit/Toolbar/DefaultTop", "7"}, {"KLTEdit/Options/AutoComplete", "0"}},
     {{"KLTEdit/Toolbar/DefaultTop", "8"},
      {"KLTEdit/Toolbar/WizardsTop", "3"},
      {"KLTEdit/MRU/MaxCount", "<none>"},
      {"KLTEdit/Options/AutoComplete", "0"}}},
    {"the maker's profile, for the last step alone",
     {{kVersionKey, "1.60.0050"},
      {"Authors/0/Name", "Another"},
      {"Authors/7/Name", kMaker},
      {"Authors/7/E-Mail 1", "first"}},
     {{kVersionKey, "1.60.0053"},
      {"Authors/7/E-Mail 2", kNow},
      {"Authors/7/E-Mail 1", "first"},
      {"Authors/0/E-Mail 2", "<none>"},
      {"KLTEdit/Toolbar/DefaultTop", "<none>"}}},
    {"behind the count, and in another case",
     {{"Authors/Number/Value", "2"}, {"Authors/0/Name", "grey harbor"}, {"Authors/2/Name", kMaker}},
     {{"Authors/0/E-Mail 2", "<none>"}, {"Authors/2/E-Mail 2", "<none>"}}},
    {"the first match only",
     {{"Authors/1/Name", kMaker}, {"Authors/2/Name", kMaker}},
     {{"Authors/1/E-Mail 2", kNow}, {"Authors/2/E-Mail 2", "<none>"}}},
    {"a version of more than nine characters counts as 1.52",
     {{kVersionKey, "9.99.00001"}, {"Authors/3/Name", kMaker}},
     {{kVersionKey, "1.60.0053"}, {"KLTEdit/Toolbar/DefaultTop", "2"}, {"Authors/3/E-Mail 2", kNow}}},
};

TEST(Upgrade, TakesEveryStepThatIsDue) {
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.name);
        const ScratchFolder folder;
        Store store(folder / "store.sqlite3");
        for (const auto& [name, text] : row.before) {
            const Place place(name);
            SaveSetting(store, place.application, place.section, place.key, text);
        }
        EXPECT_TRUE(upgradeSettings(store));
        for (int round = 0; round < 2; ++round) {
            for (const auto& [name, text] : row.after) {
                const Place place(name);
                EXPECT_EQ(GetSetting(store, place.application, place.section, place.key, "<none>"), text)
                    << name << ", round " << round;
            }
            EXPECT_TRUE(upgradeSettings(store)) << "a second start changes nothing";
        }
    }
}

TEST(Upgrade, WritesTheNumbersOfTheListAsNumbers) {
    const ScratchFolder folder;
    Store store(folder / "store.sqlite3");
    SaveSetting(store, "KLTEdit", "MRU", "RecentFile1", "/a");
    EXPECT_TRUE(upgradeSettings(store));
    const NodePath mru{HKEY_CURRENT_USER, "Software\\Shared Program Settings\\KLTEdit\\MRU"};
    EXPECT_EQ(store.read(mru, "MaxCount"), (StoredValue{REG_DWORD, 4}));
    EXPECT_EQ(store.read(mru, "Count"), (StoredValue{REG_DWORD, 2}));
}

TEST(Upgrade, LeavesAStoreAloneThatCannotBeWritten) {
    Store store("/dev/null/store.sqlite3");
    EXPECT_FALSE(upgradeSettings(store));
}

}  // namespace
}  // namespace klt
