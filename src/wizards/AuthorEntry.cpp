#include "wizards/AuthorEntry.h"

#include <algorithm>
#include <numeric>
#include <utility>

#include "settings/Catalogue.h"
#include "text/Unicode.h"

namespace klt {

AuthorEntry::AuthorEntry(std::vector<AuthorProfile> profiles, int chosen)
    : profiles_(std::move(profiles)), profileOf_(profiles_.size()) {
    for (const auto& profile : profiles_) name.list.push_back(profile.name);
    std::iota(profileOf_.begin(), profileOf_.end(), 0);
    choose(chosen < static_cast<int>(profiles_.size()) ? chosen : -1);
}

void AuthorEntry::choose(int item) {
    name.state = item;
    name.text = item < 0 ? std::string() : name.list[static_cast<size_t>(item)];
    shown_ = last_ = kNoProfile;
    typedOver_ = {};
    follow();
}

void AuthorEntry::follow() {
    // An entered name is the chosen one at once.
    if (name.list.size() > profileOf_.size()) profileOf_.insert(profileOf_.begin() + name.state, kNoProfile);
    fill(name.state < 0 ? kNoProfile : profileOf_[static_cast<size_t>(name.state)]);
}

void AuthorEntry::fill(int profile) {
    if (profile == shown_ && profile != kNoProfile) return;
    shown_ = profile;
    addresses_ = profile == kNoProfile ? typed_ : profiles_[static_cast<size_t>(profile)].addresses;
    if (profile != kNoProfile && std::exchange(last_, profile) != profile) typedOver_ = {};
    layTyped();
}

void AuthorEntry::layTyped() {
    for (size_t i = 0; i < addresses_.size(); ++i)
        if (typedOver_[i]) addresses_[i] = *typedOver_[i];
}

void AuthorEntry::typeAddress(size_t index, std::string_view text) {
    addresses_[index] = text;
    if (shown_ == kNoProfile) typed_[index] = text;
    if (shown_ != kNoProfile || typedOver_[index]) typedOver_[index] = text;
}

bool AuthorEntry::store(Store& store) const {
    if (name.list.size() == profiles_.size() || name.text.empty()) return true;
    return store.together([&] {
        const auto stored = readAuthorProfiles(store);
        const bool isKnown = std::ranges::any_of(stored, [this](const AuthorProfile& profile) {
            return equalIgnoringCase(profile.name, name.text);
        });
        const auto count = static_cast<std::int32_t>(stored.size());
        const bool isRoom = count < settings::kAuthorCount.bounds.most;
        return isKnown || (isRoom && writeAuthorProfile(store, count, {name.text, addresses_}) &&
                           writeSetting(store, settings::kAuthorCount, count + 1));
    });
}

}  // namespace klt
