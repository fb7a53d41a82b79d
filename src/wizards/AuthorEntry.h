#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "settings/AuthorProfiles.h"
#include "wizards/WizardState.h"

namespace klt {

/// An author as it is entered: a name, chosen or typed, and the addresses. Those of a profile come and go
/// with its name; typed ones stay, over those of a profile too until another one is chosen, and come back
/// where a profile has covered them.
class AuthorEntry {
public:
    using Addresses = std::array<std::string, 3>;

    /// Begins with the profile of that index; with none where there is no such.
    AuthorEntry(std::vector<AuthorProfile> profiles, int chosen);

    /// The combo of the names. Whoever has changed it calls `follow`.
    ControlState name;
    const Addresses& addresses() const { return addresses_; }

    /// Chooses an item of the list, whose addresses come even if others were typed over them.
    void choose(int item);
    /// Brings the addresses up to date with the name.
    void follow();
    void typeAddress(size_t index, std::string_view text);

    /// Makes the name's text a profile if it was entered into the list and no profile has it. False if that
    /// could not be stored.
    bool store(Store& store) const;

private:
    static constexpr int kNoProfile = -1;
    void fill(int profile);
    void layTyped();

    std::vector<AuthorProfile> profiles_;
    /// Of each item of the list the index of its profile.
    std::vector<int> profileOf_;
    /// The one that has the name, and the last that had it.
    int shown_ = kNoProfile, last_ = kNoProfile;
    /// What was typed while no profile had the name, and over the addresses of the last one.
    Addresses addresses_, typed_;
    std::array<std::optional<std::string>, 3> typedOver_;
};

}  // namespace klt
