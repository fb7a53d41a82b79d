#include "ui/Protection.h"

#include <algorithm>

namespace klt {

bool Protection::permit(TextRange range, bool inserts) const {
    return std::none_of(runs_.begin(), runs_.end(), [&](const TextRange& run) {
        const bool overlaps = range.start < run.end && range.end > run.start;
        return overlaps || (inserts && range.start == run.start);
    });
}

bool Protection::endAt(Position place) const {
    return std::any_of(runs_.begin(), runs_.end(), [&](const TextRange& run) { return run.end == place; });
}

void Protection::protect(TextRange range) {
    const auto first = std::lower_bound(runs_.begin(), runs_.end(), range.start,
                                        [](const TextRange& run, Position place) { return run.end < place; });
    auto last = first;
    for (; last != runs_.end() && last->start <= range.end; ++last) {
        range = {std::min(range.start, last->start), std::max(range.end, last->end)};
    }
    runs_.insert(runs_.erase(first, last), range);
}

void Protection::unprotect(TextRange range) {
    std::vector<TextRange> left;
    for (const TextRange& run : runs_) {
        const TextRange before = {run.start, std::min(run.end, range.start)};
        const TextRange behind = {std::max(run.start, range.end), run.end};
        if (before.start < before.end) left.push_back(before);
        if (behind.start < behind.end) left.push_back(behind);
    }
    runs_ = std::move(left);
}

void Protection::textInserted(Position place, Position length) {
    for (TextRange& run : runs_) {
        if (place <= run.start) run = {run.start + length, run.end + length};
    }
}

void Protection::textDeleted(Position place, Position length) {
    for (TextRange& run : runs_) {
        if (place + length <= run.start) run = {run.start - length, run.end - length};
    }
}

}  // namespace klt
