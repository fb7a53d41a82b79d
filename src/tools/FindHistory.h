#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "settings/Catalogue.h"

namespace klt {

/// What was looked for, or put in its place, lately: newest first.
class FindHistory {
public:
    using Rows = std::span<const TextSetting>;

    /// As many entries as there are rows, empty where nothing is stored.
    static FindHistory load(Store& store, Rows rows);
    void save(Store& store, Rows rows) const;

    /// Puts a text on top, also one that is there already; the oldest goes.
    void enter(std::string_view text);
    const std::vector<std::string>& entries() const { return entries_; }

private:
    std::vector<std::string> entries_;
};

}  // namespace klt
