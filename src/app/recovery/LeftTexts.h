#pragma once

#include <QObject>
#include <functional>
#include <string>
#include <vector>

#include "app/commands/CommandQueue.h"
#include "platform/RecoveryFolder.h"

namespace klt {

class NoticeBar;

/// Offers the texts that editors before this one have left.
class LeftTexts : public QObject {
public:
    /// `open` opens one of them.
    LeftTexts(RecoveryFolder& folder, CommandQueue& queue, std::function<void(const LeftText&)> open)
        : folder_(folder), queue_(queue), open_(std::move(open)) {}

    /// Tells of them in the bar, which must live as long, and lets the user open or dismiss them all.
    void offer(NoticeBar& bar);

private:
    void dismissAll(NoticeBar& bar, const std::vector<LeftText>& texts);

    RecoveryFolder& folder_;
    CommandQueue& queue_;
    std::function<void(const LeftText&)> open_;
};

/// What the bar says of texts, which are in the order of their times.
std::string describe(const std::vector<LeftText>& texts);

}  // namespace klt
