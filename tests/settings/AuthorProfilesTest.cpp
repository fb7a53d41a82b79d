#include "settings/AuthorProfiles.h"

#include <algorithm>

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
