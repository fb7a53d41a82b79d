#include "settings/AuthorProfiles.h"

#include "settings/Catalogue.h"
#include "settings/MakerProfile.h"

namespace klt {

namespace {

struct StockProfile {
    std::string_view name;
    std::string_view first;
    std::string_view second;
};

// As many as the number of profiles says where nobody has stored one.
constexpr std::array<StockProfile, 8> kStockProfiles = {{
    {"Amber Quill", "amber.quill@example.org", "quill@example.net"},
    {"Copper Lantern", "lantern@example.net", {}},
    {kMakerName, "grey.harbor@example.org", kMakerAddress},
    {"Hollow Birch", "hollow.birch@example.org", "birch@example.net"},
    {"Juniper Vale", "juniper@example.org", {}},
    {"Merry Anvil", "merry.anvil@example.net", "anvil@example.org"},
    {"Quiet Meadow", {}, {}},
    {"Winter Finch", "finch@example.org", "winter.finch@example.net"},
}};
static_assert(kStockProfiles.size() == settings::kAuthorCount.fallback);

constexpr std::string_view kNameKey = "Name";

std::string readPart(Store& store, const std::string& profile, std::string_view key) {
    return GetSetting(store, kAuthorsApplication, profile, key);
}

bool writePart(Store& store, const std::string& profile, std::string_view key, std::string_view text) {
    return SaveSetting(store, kAuthorsApplication, profile, key, text);
}

bool seedAuthorProfiles(Store& store) {
    return store.together([&] {
        bool stored = true;
        for (size_t index = 0; index < kStockProfiles.size(); ++index) {
            const auto profile = std::to_string(index);
            const auto& stock = kStockProfiles[index];
            stored &= writePart(store, profile, kNameKey, stock.name);
            stored &= writePart(store, profile, kAddressKeys[0], stock.first);
            stored &= writePart(store, profile, kAddressKeys[1], stock.second);
        }
        return writeSetting(store, settings::kFirstTime, false) && stored;
    });
}

}  // namespace

AuthorProfile readAuthorProfile(Store& store, std::int32_t index) {
    const auto profile = std::to_string(index);
    AuthorProfile read{.name = readPart(store, profile, kNameKey), .addresses = {}};
    for (size_t i = 0; i < kAddressKeys.size(); ++i)
        read.addresses[i] = readPart(store, profile, kAddressKeys[i]);
    return read;
}

std::vector<AuthorProfile> readAuthorProfiles(Store& store) {
    std::vector<AuthorProfile> profiles;
    const auto count = readSetting(store, settings::kAuthorCount);
    profiles.reserve(static_cast<size_t>(count));
    for (std::int32_t index = 0; index < count; ++index) profiles.push_back(readAuthorProfile(store, index));
    return profiles;
}

bool writeAuthorProfile(Store& store, std::int32_t index, const AuthorProfile& profile) {
    return store.together([&] {
        const auto section = std::to_string(index);
        bool stored = writePart(store, section, kNameKey, profile.name);
        for (size_t i = 0; i < kAddressKeys.size(); ++i)
            stored &= writePart(store, section, kAddressKeys[i], profile.addresses[i]);
        return stored;
    });
}

void correctSecondAddress(Store& store, std::string_view name, std::string_view address) {
    const auto count = readSetting(store, settings::kAuthorCount);
    for (std::int32_t index = 0; index < count; ++index) {
        const auto profile = std::to_string(index);
        if (readPart(store, profile, kNameKey) != name) continue;
        writePart(store, profile, kAddressKeys[1], address);
        return;
    }
}

bool seedAuthorProfilesOnce(Store& store) {
    return !readSetting(store, settings::kFirstTime) || seedAuthorProfiles(store);
}

bool resetAuthorProfiles(Store& store) {
    return store.together([&] {
        DeleteSetting(store, kAuthorsApplication);
        return seedAuthorProfiles(store);
    });
}

}  // namespace klt
