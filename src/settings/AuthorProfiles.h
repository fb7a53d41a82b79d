#pragma once

#include <array>
#include <cstdint>
#include <optional>
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

/// Profiles in the order of their indexes, and which of them is the default one.
struct AuthorList {
    std::vector<AuthorProfile> profiles;
    /// The index of the one that was used last, or made the default; -1 for none.
    std::int32_t last = -1;

    bool operator==(const AuthorList&) const = default;
};

/// The keys of a profile's addresses.
inline constexpr std::array<std::string_view, 3> kAddressKeys = {"E-Mail 1", "E-Mail 2", "E-Mail 3"};

/// The profile of an index, from 0; what isn't stored of it is empty.
AuthorProfile readAuthorProfile(Store& store, std::int32_t index);
/// All profiles that count, in the order of their indexes.
std::vector<AuthorProfile> readAuthorProfiles(Store& store);
/// Writes all of a profile. The number of profiles is the caller's to write. True if it is stored.
bool writeAuthorProfile(Store& store, std::int32_t index, const AuthorProfile& profile);

/// All profiles, and the default one; none where its index is no profile's.
AuthorList readAuthorList(Store& store);
/// What of three lists is to be stored: `shown` is the list that was edited, `loaded` what it was read from,
/// `stored` what the store holds by now. Profiles that are new in `stored` come in behind; an address that
/// was changed there alone is taken. Where `shown` has no default, that of `stored` holds as long as its name
/// is still there.
AuthorList mergeAuthorLists(AuthorList shown, const std::vector<AuthorProfile>& loaded,
                            const AuthorList& stored);
/// Stores a list that was edited, merged with what others have stored meanwhile, all of it or nothing, and
/// returns what is stored now; nothing if it could not be stored, or has more profiles than readers read.
std::optional<AuthorList> storeAuthorList(Store& store, const AuthorList& shown,
                                          const std::vector<AuthorProfile>& loaded);

/// Gives the first profile of exactly this name another second address; nothing where there is none.
void correctSecondAddress(Store& store, std::string_view name, std::string_view address);

/// Writes the stock profiles if that was never done, or undone by a reset. True unless writing failed.
bool seedAuthorProfilesOnce(Store& store);
/// Deletes every profile and their number, and writes the stock profiles at once. True if it is stored.
bool resetAuthorProfiles(Store& store);

}  // namespace klt
