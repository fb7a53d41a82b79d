#include "tools/KnownUnits.h"

#include <algorithm>
#include <functional>
#include <utility>

#include "text/LargePages.h"

namespace klt {

namespace {

constexpr size_t kFirstSlots = 16;

}  // namespace

std::optional<std::string_view> KnownUnits::findOrAdd(const MergeUnit& unit) {
    if (entries_.size() * 4 >= slots_.size() * 3) grow();
    const auto hash = static_cast<uint32_t>(std::hash<std::string_view>()(unit.body()));
    auto& slot = slotOf(hash, unit.body());
    if (slot.entry != 0) return entries_[slot.entry - 1].above();
    entries_.push_back({unit.lines.data(), static_cast<uint32_t>(unit.aboveSize),
                        static_cast<uint32_t>(unit.body().size())});
    slot = {hash, static_cast<uint32_t>(entries_.size())};
    return std::nullopt;
}

// The slot that holds the unit, or the free slot where it belongs.
KnownUnits::Slot& KnownUnits::slotOf(uint32_t hash, std::string_view body) {
    const auto mask = slots_.size() - 1;
    auto place = hash & mask;
    for (; slots_[place].entry != 0; place = (place + 1) & mask)
        if (slots_[place].hash == hash && entries_[slots_[place].entry - 1].body() == body) break;
    return slots_[place];
}

void KnownUnits::grow() {
    std::vector<Slot> slots;
    slots.reserve(std::max(kFirstSlots, slots_.size() * 2));
    useLargePages(slots.data(), slots.capacity() * sizeof(Slot));
    slots.resize(slots.capacity());
    const auto mask = slots.size() - 1;
    for (const auto& slot : slots_) {
        if (slot.entry == 0) continue;
        auto place = slot.hash & mask;
        while (slots[place].entry != 0) place = (place + 1) & mask;
        slots[place] = slot;
    }
    slots_ = std::move(slots);
}

}  // namespace klt
