#pragma once

#include <QObject>
#include <array>
#include <csignal>
#include <functional>
#include <memory>

#include "platform/Descriptor.h"

class QSocketNotifier;

namespace klt {

/// Ends of the process that nobody has chosen in its windows: a signal that asks it to end, and the loss of
/// the display. `keepAll` is called once, then the process ends as it would have ended. One for the process.
class UnchosenEnds : public QObject {
public:
    explicit UnchosenEnds(std::function<void()> keepAll);
    /// Signals end the process at once again.
    ~UnchosenEnds() override;

private:
    static constexpr std::array kSignals{SIGTERM, SIGHUP, SIGINT, SIGQUIT};

    void install();
    void obey();

    std::function<void()> keepAll_;
    Descriptor reader_;
    Descriptor writer_;
    std::unique_ptr<QSocketNotifier> notifier_;
    std::array<struct sigaction, kSignals.size()> before_{};
};

}  // namespace klt
