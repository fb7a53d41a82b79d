#include "wizards/AuthorEntry.h"

#include "settings/Catalogue.h"
#include "support/StoreFixture.h"
#include "wizards/ComboEntry.h"

using namespace klt;

namespace {

class AuthorEntryTest : public StoreFixture {
protected:
    AuthorEntryTest() {
        writeAuthorProfile(store_, 0, {"Amber Quill", {"a1", "a2", ""}});
        writeAuthorProfile(store_, 1, {"Copper", {"", "c2", "c3"}});
        writeSetting(store_, settings::kAuthorCount, 2);
    }

    /// Does what stands there: "=text" types a name, "!" leaves the combo, "#item" chooses, "0text" types an
    /// address.
    static void work(AuthorEntry& entry, const std::vector<std::string>& steps) {
        for (const auto& step : steps) {
            const auto rest = step.substr(1);
            if (step[0] == '#') {
                entry.choose(std::stoi(rest));
            } else if (step[0] == '=' || step[0] == '!') {
                if (step[0] == '=') entry.name = {.text = rest, .state = -1, .list = entry.name.list};
                if (step[0] == '!') CommitComboEntry(entry.name);
                entry.follow();
            } else {
                entry.typeAddress(static_cast<size_t>(step[0] - '0'), rest);
            }
        }
    }
    AuthorEntry entry(int chosen = -1) { return {readAuthorProfiles(store_), chosen}; }
    static std::string shown(const AuthorEntry& entry) {
        std::string all = entry.name.text + ' ' + std::to_string(entry.name.state);
        for (const auto& address : entry.addresses()) all += ' ' + address;
        return all;
    }
};

TEST_F(AuthorEntryTest, AddressesGoWithTheProfileAndTypedOnesStay) {
    const std::tuple<int, std::vector<std::string>, const char*> rows[] = {
        {-1, {}, " -1   "},
        {1, {}, "Copper 1  c2 c3"},
        {2, {}, " -1   "},
        {0, {"#1"}, "Copper 1  c2 c3"},
        {0, {"=Amb"}, "Amb -1   "},
        {0, {"=Amb", "!"}, "Amber Quill 0 a1 a2 "},
        {0, {"=Bob", "!"}, "Bob 1   "},
        {0, {"1mine", "=Bob", "!"}, "Bob 1  mine "},
        {0, {"1mine", "#0"}, "Amber Quill 0 a1 a2 "},
        {0, {"1mine", "!"}, "Amber Quill 0 a1 mine "},
        {0, {"0mine", "=Amb", "!"}, "Amber Quill 0 mine a2 "},
        {0, {"0mine", "#1", "=Dora", "!"}, "Dora 2   "},
        {-1, {"0mine", "=Co", "!", "=Cold", "!"}, "Cold 1 mine  "},
        {-1, {"=Bob", "!", "0b", "#0", "#1"}, "Bob 1 b  "},
        {-1, {"=Bob", "!", "=Al", "!", "#3"}, "Copper 3  c2 c3"},
    };
    for (const auto& [chosen, steps, expected] : rows) {
        auto each = entry(chosen);
        work(each, steps);
        EXPECT_EQ(shown(each), expected);
    }
}

TEST_F(AuthorEntryTest, StoresANameThatWasEnteredAndThatNoProfileHas) {
    const std::pair<std::vector<std::string>, const char*> rows[] = {
        {{}, ""},
        {{"#1", "0x"}, ""},
        {{"=Bob"}, ""},
        {{"=Bob", "!", "#0"}, ""},
        {{"=Bob", "!", "="}, ""},
        {{"=Bob", "!", "=copper"}, ""},
        {{"=Bob", "!", "0b", "2d"}, "Bob b  d"},
        {{"=Bob", "!", "=Al", "!"}, "Al   "},
    };
    for (const auto& [steps, expected] : rows) {
        auto each = entry();
        work(each, steps);
        EXPECT_TRUE(each.store(store_));
        std::string added;
        for (std::int32_t i = 2; i < readSetting(store_, settings::kAuthorCount); ++i) {
            const auto profile = readAuthorProfile(store_, i);
            added += profile.name;
            for (const auto& address : profile.addresses) added += ' ' + address;
        }
        EXPECT_EQ(added, expected);
        writeSetting(store_, settings::kAuthorCount, 2);
    }
}

TEST_F(AuthorEntryTest, StoresBehindWhatOthersHaveStoredMeanwhile) {
    auto mine = entry(), same = entry();
    work(mine, {"=Bob", "!"});
    work(same, {"=BOB", "!"});
    writeAuthorProfile(store_, 2, {"Zoe", {}});
    writeSetting(store_, settings::kAuthorCount, 3);
    EXPECT_TRUE(mine.store(store_));
    EXPECT_TRUE(same.store(store_));
    EXPECT_EQ(readSetting(store_, settings::kAuthorCount), 4);
    EXPECT_EQ(readAuthorProfile(store_, 3).name, "Bob");

    byHand("CREATE UNIQUE INDEX once ON entries (data) WHERE data = 'twice'");
    auto other = entry();
    work(other, {"=Eve", "!", "0twice", "1twice"});
    EXPECT_FALSE(other.store(store_));
    EXPECT_EQ(readSetting(store_, settings::kAuthorCount), 4);
    EXPECT_EQ(readAuthorProfile(store_, 4), AuthorProfile{}) << "all of it or nothing";
}

}  // namespace
