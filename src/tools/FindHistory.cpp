#include "tools/FindHistory.h"

#include <algorithm>

namespace klt {

FindHistory FindHistory::load(Store& store, Rows rows) {
    FindHistory history;
    history.entries_.reserve(rows.size() + 1);
    for (const auto& row : rows) history.entries_.push_back(readSetting(store, row));
    return history;
}

void FindHistory::save(Store& store, Rows rows) const {
    store.together([&] {
        for (size_t n = 0; n < std::min(rows.size(), entries_.size()); ++n)
            writeSetting(store, rows[n], entries_[n]);
        return true;
    });
}

void FindHistory::enter(std::string_view text) {
    entries_.emplace(entries_.begin(), text);
    entries_.pop_back();
}

}  // namespace klt
