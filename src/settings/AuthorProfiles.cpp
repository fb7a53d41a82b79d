#include "settings/AuthorProfiles.h"

#include <algorithm>
#include <utility>

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
    {kMakerName, kMakerFirstAddress, kMakerAddress},
    {"Hollow Birch", "hollow.birch@example.org", "birch@example.net"},
    {"Juniper Vale", "juniper@example.org", {}},
    {"Merry Anvil", "merry.anvil@example.net", "anvil@example.org"},
    {"Quiet Meadow", {}, {}},
    {"Winter Finch", "finch@example.org", {}},
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

template <typename Profiles>
auto findName(Profiles& profiles, const std::string& name) {
    return std::ranges::find(profiles, name, &AuthorProfile::name);
}

bool contains(const std::vector<AuthorProfile>& profiles, const AuthorProfile& profile) {
    return std::ranges::find(profiles, profile) != profiles.end();
}

void takeAddresses(AuthorProfile& profile, const AuthorProfile& loaded, const AuthorProfile& stored) {
    for (size_t i = 0; i < profile.addresses.size(); ++i)
        if (profile.addresses[i] == loaded.addresses[i]) profile.addresses[i] = stored.addresses[i];
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

AuthorList readAuthorList(Store& store) {
    AuthorList list{.profiles = readAuthorProfiles(store), .last = readSetting(store, settings::kLastAuthor)};
    if (std::cmp_greater_equal(list.last, list.profiles.size())) list.last = -1;
    return list;
}

AuthorList mergeAuthorLists(AuthorList shown, const std::vector<AuthorProfile>& loaded,
                            const AuthorList& stored) {
    for (const auto& profile : stored.profiles) {
        // An empty one is counted only: what everybody has until the stock profiles are written.
        if (profile == AuthorProfile{} || contains(loaded, profile) || contains(shown.profiles, profile))
            continue;
        const auto before = findName(loaded, profile.name);
        const auto mine = findName(shown.profiles, profile.name);
        if (before != loaded.end() && mine != shown.profiles.end()) {
            takeAddresses(*mine, *before, profile);
        } else {
            shown.profiles.push_back(profile);
        }
    }
    if (shown.last >= 0 || stored.last < 0) return shown;
    const auto last = findName(shown.profiles, stored.profiles.at(static_cast<size_t>(stored.last)).name);
    if (last != shown.profiles.end()) shown.last = static_cast<std::int32_t>(last - shown.profiles.begin());
    return shown;
}

std::optional<AuthorList> storeAuthorList(Store& store, const AuthorList& shown,
                                          const std::vector<AuthorProfile>& loaded) {
    AuthorList merged;
    const bool isStored = store.together([&] {
        merged = mergeAuthorLists(shown, loaded, readAuthorList(store));
        if (std::cmp_greater(merged.profiles.size(), settings::kAuthorCount.bounds.most)) return false;
        const auto count = static_cast<std::int32_t>(merged.profiles.size());
        bool stored = writeSetting(store, settings::kAuthorCount, count) &&
                      writeSetting(store, settings::kLastAuthor, merged.last) &&
                      // Else, after a reset elsewhere, the stock profiles would be written over these.
                      writeSetting(store, settings::kFirstTime, false);
        for (std::int32_t index = 0; index < count; ++index)
            stored &= writeAuthorProfile(store, index, merged.profiles[static_cast<size_t>(index)]);
        return stored;
    });
    if (!isStored) return {};
    return merged;
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
    const auto isDone = [&] { return !readSetting(store, settings::kFirstTime); };
    // Asked again when nobody else can write: another process may have done it, and profiles been changed.
    return isDone() || store.together([&] { return isDone() || seedAuthorProfiles(store); });
}

bool resetAuthorProfiles(Store& store) {
    return store.together([&] {
        DeleteSetting(store, kAuthorsApplication);
        return seedAuthorProfiles(store);
    });
}

}  // namespace klt
