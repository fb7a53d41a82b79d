#include "text/TrackedRanges.h"

#include <algorithm>

namespace klt {

std::shared_ptr<const TrackedRange> TrackedRanges::track(TextRange range) {
    std::erase_if(ranges_, [](const auto& each) { return each.expired(); });
    auto tracked = std::make_shared<TrackedRange>(TrackedRange{range});
    ranges_.push_back(tracked);
    return tracked;
}

void TrackedRanges::textInserted(Position place, Position length) {
    for (const auto& each : ranges_) {
        const auto tracked = each.lock();
        if (tracked == nullptr) continue;
        const auto [start, end] = tracked->range;
        if (place <= start) {
            tracked->range = {start + length, end + length};
        } else if (place < end) {
            tracked->range.end += length;
            tracked->isTouched = true;
        }
    }
}

void TrackedRanges::textDeleted(Position place, Position length) {
    const auto after = [place, length](Position position) {
        return position <= place ? position : std::max(place, position - length);
    };
    for (const auto& each : ranges_) {
        const auto tracked = each.lock();
        if (tracked == nullptr) continue;
        const TextRange before = tracked->range;
        if (place < before.end && place + length > before.start) tracked->isTouched = true;
        tracked->range = {after(before.start), after(before.end)};
    }
}

}  // namespace klt
