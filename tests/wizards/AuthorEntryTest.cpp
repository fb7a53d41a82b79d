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
    AuthorEntry entry() { return {readAuthorProfiles(store_), -1}; }
    static std::string joined(const auto& addresses) {
        return ' ' + addresses[0] + ' ' + addresses[1] + ' ' + addresses[2];
    }
};

TEST_F(AuthorEntryTest, AddressesGoWithTheProfileAndANewNameIsStored) {
    const std::tuple<int, std::vector<std::string>, const char*, const char*> rows[] = {
        {-1, {}, " -1   ", ""},
        {1, {}, "Copper 1  c2 c3", ""},
        {2, {}, " -1   ", ""},
        {0, {"#1", "0x"}, "Copper 1 x c2 c3", ""},
        {0, {"=Amb"}, "Amb -1   ", ""},
        {0, {"=Amb", "!"}, "Amber Quill 0 a1 a2 ", ""},
        {0, {"=Bob", "!"}, "Bob 1   ", "Bob   "},
        {0, {"1mine", "=Bob", "!"}, "Bob 1  mine ", "Bob  mine "},
        {0, {"1mine", "#0"}, "Amber Quill 0 a1 a2 ", ""},
        {0, {"1mine", "!"}, "Amber Quill 0 a1 mine ", ""},
        {0, {"0mine", "=Amb", "!"}, "Amber Quill 0 mine a2 ", ""},
        {0, {"0mine", "#1", "=Dora", "!"}, "Dora 2   ", "Dora   "},
        {-1, {"0mine", "=Co", "!", "=Cold", "!"}, "Cold 1 mine  ", "Cold mine  "},
        {-1, {"=Bob", "!", "0b", "#0", "#1", "2d"}, "Bob 1 b  d", "Bob b  d"},
        {-1, {"=Bob", "!", "=Al", "!"}, "Al 0   ", "Al   "},
        {-1, {"=Bob", "!", "=Al", "!", "#3"}, "Copper 3  c2 c3", ""},
        {-1, {"=Bob", "!", "="}, " -1   ", ""},
        {-1, {"=Bob", "!", "=copper"}, "copper -1   ", ""},
    };
    for (const auto& [chosen, steps, shown, added] : rows) {
        AuthorEntry each(readAuthorProfiles(store_), chosen);
        work(each, steps);
        EXPECT_EQ(each.name.text + ' ' + std::to_string(each.name.state) + joined(each.addresses()), shown);
        EXPECT_TRUE(each.store(store_));
        const auto profile = readAuthorProfile(store_, 2);
        const bool isAdded = readSetting(store_, settings::kAuthorCount) == 3;
        EXPECT_EQ(isAdded ? profile.name + joined(profile.addresses) : "", added) << shown;
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
