#pragma once

#include <memory>
#include <vector>

#include "text/TextArea.h"

namespace klt {

/// The tracked stretches of one text (`TextArea::Track`). They live as long as somebody holds them.
class TrackedRanges {
public:
    std::shared_ptr<const TrackedRange> track(TextRange range);
    void textInserted(Position place, Position length);
    void textDeleted(Position place, Position length);

private:
    std::vector<std::weak_ptr<TrackedRange>> ranges_;
};

}  // namespace klt
