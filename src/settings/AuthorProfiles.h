#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "settings/Store.h"

namespace klt {

/// A person who writes data files, and how to reach them.
struct AuthorProfile {
    std::string name;
    std::array<std::string, 3> addresses;

    bool operator==(const AuthorProfile&) const = default;
};

/// The keys of a profile's addresses.
inline constexpr std::array<std::string_view, 3> kAddressKeys = {"E-Mail 1", "E-Mail 2", "E-Mail 3"};

/// The profile of an index, from 0; what isn't stored of it is empty.
AuthorProfile readAuthorProfile(Store& store, std::int32_t index);
/// All profiles that count, in the order of their indexes.
std::vector<AuthorProfile> readAuthorProfiles(Store& store);
/// Writes all of a profile. The number of profiles is the caller's to write. True if it is stored.
bool writeAuthorProfile(Store& store, std::int32_t index, const AuthorProfile& profile);
/// Gives the first profile of exactly this name another second address; nothing where there is none.
void correctSecondAddress(Store& store, std::string_view name, std::string_view address);

/// Writes the stock profiles if that was never done, or undone by a reset. True unless writing failed.
bool seedAuthorProfilesOnce(Store& store);
/// Deletes every profile and their number, and writes the stock profiles at once. True if it is stored.
bool resetAuthorProfiles(Store& store);

}  // namespace klt
