#include "settings/AuthorProfiles.h"

#include <algorithm>
#include <future>
#include <thread>

#include "settings/Catalogue.h"
#include "settings/MakerProfile.h"
#include "support/StoreFixture.h"

using namespace klt;
using AuthorProfilesTest = StoreFixture;

TEST_F(AuthorProfilesTest, SeedsOnceAndAgainAfterAReset) {
    EXPECT_EQ(readAuthorProfiles(store_), std::vector<AuthorProfile>(8)) << "eight, whatever is stored";
    EXPECT_TRUE(seedAuthorProfilesOnce(store_));
    EXPECT_EQ(GetSetting(store_, "KLTEdit", "frmAuthorWizard", "First Time"), "False");
    EXPECT_FALSE(HasSetting(store_, "Authors", "Number", "Value"));
    const auto stock = readAuthorProfiles(store_);
    EXPECT_FALSE(std::ranges::any_of(stock, &std::string::empty, &AuthorProfile::name));

    const auto maker = std::ranges::find(stock, kMakerName, &AuthorProfile::name);
    ASSERT_NE(maker, stock.end());
    EXPECT_EQ(maker->addresses[1], kMakerAddress);

    const AuthorProfile mine{"Me", {"1", "", "3"}};
    for (const auto place : {0, 8}) EXPECT_TRUE(writeAuthorProfile(store_, place, mine));
    EXPECT_TRUE(writeSetting(store_, settings::kAuthorCount, 9));
    EXPECT_TRUE(seedAuthorProfilesOnce(store_));
    auto expected = stock;
    expected.front() = mine;
    expected.push_back(mine);
    EXPECT_EQ(readAuthorProfiles(store_), expected) << "a second seeding writes nothing";

    EXPECT_TRUE(resetAuthorProfiles(store_));
    EXPECT_EQ(readAuthorProfiles(store_), stock);
    EXPECT_EQ(readAuthorProfile(store_, 8), AuthorProfile{});
    writeAuthorProfile(store_, 0, mine);
    EXPECT_TRUE(resetAllSettings(store_));
    EXPECT_TRUE(seedAuthorProfilesOnce(store_));
    EXPECT_EQ(readAuthorProfiles(store_), stock);
}

TEST_F(AuthorProfilesTest, SeedsNothingOverWhatAnotherEditorHasSeeded) {
    const AuthorProfile mine{"Me", {}};
    Store other(path_);
    std::future<bool> late;
    EXPECT_TRUE(store_.together([&] {
        EXPECT_TRUE(seedAuthorProfilesOnce(store_));
        late = std::async(std::launch::async, [&] { return seedAuthorProfilesOnce(other); });
        // The other one asks meanwhile, and waits until it may write.
        std::this_thread::sleep_for(std::chrono::milliseconds(100));
        return writeAuthorProfile(store_, 0, mine);
    }));
    EXPECT_TRUE(late.get());
    EXPECT_EQ(readAuthorProfile(store_, 0), mine);
}

TEST(AuthorListTest, MergesWhatOthersHaveStored) {
    using Profiles = std::vector<AuthorProfile>;
    const AuthorProfile ann{"Ann", {"a@x", "", ""}}, bob{"Bob", {"b@x", "b@y", ""}}, dan{"Dan", {}};
    const AuthorProfile bobHere{"Bob", {"1", "b@y", ""}}, bobThere{"Bob", {"2", "3", ""}};
    const AuthorProfile bobOfBoth{"Bob", {"1", "3", ""}}, danHere{"Dan", {"d@x"}};
    const Profiles loaded = {ann, bob};
    const struct {
        const char* name;
        AuthorList shown, stored, merged;
    } rows[] = {
        {"nothing new", {{bob, ann}, 0}, {{ann, bob}, 0}, {{bob, ann}, 0}},
        {"a new one", {{ann, bob}, 0}, {{ann, bob, dan}, 2}, {{ann, bob, dan}, 0}},
        {"the same new one", {{dan}, -1}, {{ann, bob, dan}, -1}, {{dan}, -1}},
        {"a name new here too", {{ann, danHere}, 1}, {{ann, bob, dan}, -1}, {{ann, danHere, dan}, 1}},
        {"an address changed there", {{ann, bob}, -1}, {{ann, bobThere}, -1}, {{ann, bobThere}, -1}},
        {"changed here and there", {{ann, bobHere}, -1}, {{ann, bobThere}, -1}, {{ann, bobOfBoth}, -1}},
        {"deleted here, changed there", {{ann}, -1}, {{ann, bobThere}, -1}, {{ann, bobThere}, -1}},
        {"deleted there", {{ann, bob}, -1}, {{bob}, -1}, {{ann, bob}, -1}},
        {"a reset there", {{ann, bob}, 1}, {Profiles(8), -1}, {{ann, bob}, 1}},
        {"the default was deleted here", {{ann}, -1}, {{ann, bob}, 1}, {{ann}, -1}},
        {"a default from there", {{bob, ann}, -1}, {{ann, bob}, 1}, {{bob, ann}, 0}},
        {"a new default from there", {{ann}, -1}, {{ann, bob, dan}, 2}, {{ann, dan}, 1}},
    };
    for (const auto& row : rows)
        EXPECT_EQ(mergeAuthorLists(row.shown, loaded, row.stored), row.merged) << row.name;
}

TEST_F(AuthorProfilesTest, StoresAListAsAWholeOrNot) {
    const AuthorProfile ann{"Ann", {}}, bob{"Bob", {"b@x"}};
    EXPECT_TRUE(storeAuthorList(store_, {{ann, bob}, 1}, {}));
    EXPECT_EQ(GetSetting(store_, "Authors", "Number", "Value"), "2");
    EXPECT_EQ(GetSetting(store_, "Authors", "1", "E-Mail 1"), "b@x");
    EXPECT_EQ(GetSetting(store_, "KLTEdit", "frmAuthorWizard", "Last Author"), "1");
    EXPECT_TRUE(seedAuthorProfilesOnce(store_));
    const AuthorList before{{ann, bob}, 1};
    EXPECT_EQ(readAuthorList(store_), before) << "not seeded over";

    const AuthorProfile tooLong{std::string(kLongestEntry + 1, 'x'), {}};
    for (const auto& refused : {std::vector{bob, tooLong}, std::vector(1001, bob)}) {
        EXPECT_FALSE(storeAuthorList(store_, {refused, 0}, before.profiles));
        EXPECT_EQ(readAuthorList(store_), before);
    }
    EXPECT_EQ(storeAuthorList(store_, {{ann}, -1}, before.profiles), (AuthorList{{ann}, -1}));
    EXPECT_EQ(GetSetting(store_, "KLTEdit", "frmAuthorWizard", "Last Author"), "-1");
    writeSetting(store_, settings::kLastAuthor, 1);
    EXPECT_EQ(readAuthorList(store_).last, -1) << "there is no such profile any more";
}
