#include "settings/AuthorProfiles.h"

#include <algorithm>
#include <filesystem>
#include <random>
#include <thread>

#include "settings/Catalogue.h"
#include "settings/MakerProfile.h"
#include "support/ChildProcess.h"
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

TEST_F(AuthorProfilesTest, SeedsNothingOverWhatAnotherProcessHasSeeded) {
    const auto waitALittle = [] { std::this_thread::sleep_for(std::chrono::milliseconds(20)); };
    const auto begun = folder_ / "begun";
    const ChildProcess late([&](const ChildProcess::Report& report) {
        while (!std::filesystem::exists(begun)) waitALittle();
        Store store(path_);
        report(seedAuthorProfilesOnce(store) ? "seeded" : "refused");
    });
    const AuthorProfile mine{"Me", {}};
    EXPECT_TRUE(store_.together([&] {
        writeBytes(begun, "");
        EXPECT_TRUE(seedAuthorProfilesOnce(store_));
        // The other one asks meanwhile, and waits until it may write.
        for (int i = 0; i < 5; ++i) waitALittle();
        return writeAuthorProfile(store_, 0, mine);
    }));
    EXPECT_EQ(late.nextReport(), "seeded");
    EXPECT_EQ(readAuthorProfile(store_, 0), mine);
}

TEST(AuthorListTest, MergesWhatOthersHaveStored) {
    using Profiles = std::vector<AuthorProfile>;
    const AuthorProfile ann{"Ann", {"a@x", "", ""}}, bob{"Bob", {"b@x", "b@y", ""}}, dan{"Dan", {}};
    const AuthorProfile bobHere{"Bob", {"1", "b@y", ""}}, bobThere{"Bob", {"2", "3", ""}};
    const Profiles loaded = {ann, bob};
    const struct {
        const char* name;
        AuthorList shown, stored, merged;
    } rows[] = {
        {"nothing new", {{bob, ann}, 0}, {{ann, bob}, 0}, {{bob, ann}, 0}},
        {"a new one", {{ann, bob}, 0}, {{ann, bob, dan}, 2}, {{ann, bob, dan}, 0}},
        {"the same new one", {{dan}, -1}, {{ann, bob, dan}, -1}, {{dan}, -1}},
        {"a new one of a name that is new here too",
         {{ann, {"Dan", {"d@x"}}}, 1},
         {{ann, bob, dan}, -1},
         {{ann, {"Dan", {"d@x"}}, dan}, 1}},
        {"an address changed there", {{ann, bob}, -1}, {{ann, bobThere}, -1}, {{ann, bobThere}, -1}},
        {"addresses changed here and there",
         {{ann, bobHere}, -1},
         {{ann, bobThere}, -1},
         {{ann, {"Bob", {"1", "3", ""}}}, -1}},
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

TEST_F(AuthorProfilesTest, AKillLeavesTheOldListOrTheNewOne) {
    std::mt19937 random(1);
    const auto listOf = [](std::int32_t size) {
        return AuthorList{{static_cast<size_t>(size), {"Author", {std::to_string(size)}}}, size - 1};
    };
    for (int round = 0; round < 40; ++round) {
        ChildProcess child([&](const ChildProcess::Report& report) {
            Store store(path_);
            for (std::int32_t size = 1;; size = size % 20 + 1) {
                storeAuthorList(store, listOf(size), readAuthorProfiles(store));
                report("stored");
            }
        });
        EXPECT_EQ(child.nextReport(), "stored");
        std::this_thread::sleep_for(std::chrono::microseconds(random() % 8'000));
        child.kill();
        Store store(path_);
        const auto left = readAuthorList(store);
        EXPECT_EQ(left, listOf(static_cast<std::int32_t>(left.profiles.size()))) << round;
    }
}
