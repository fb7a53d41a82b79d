#include "tools/KnownUnits.h"

namespace klt {

const MergeUnit* KnownUnits::findOrAdd(const void* place, const MergeUnit& unit) {
    const auto [entry, isNew] = entries_->insert({place, unit});
    return isNew ? nullptr : &entry->unit;
}

void KnownUnits::clear() {
    entries_.reset();
    memory_.release();
    entries_.emplace(&memory_);
}

}  // namespace klt
