#include "app/recovery/UnchosenEnds.h"

#include <fcntl.h>
#include <unistd.h>

#include <QSocketNotifier>
#include <cstdlib>
#include <utility>

namespace klt {
namespace {

// What a signal and the end by `exit` can reach.
int signalPipe = -1;
std::function<void()>* keeper = nullptr;

extern "C" void noteSignal(int number) {
    const int error = errno;
    const auto byte = static_cast<unsigned char>(number);
    std::ignore = write(signalPipe, &byte, 1);
    errno = error;
}

/// The library that talks to the display calls `exit` when the display is lost. Nothing of the program is
/// gone by then.
extern "C" void keepAtExit() {
    if (keeper) std::exchange(*keeper, {})();
}

}  // namespace

UnchosenEnds::UnchosenEnds(std::function<void()> keepAll) : keepAll_(std::move(keepAll)) {
    keeper = &keepAll_;
    static const int isRegistered = std::atexit(keepAtExit);
    std::ignore = isRegistered;
    int ends[2];
    if (pipe2(ends, O_CLOEXEC | O_NONBLOCK) != 0) return;
    reader_ = Descriptor(ends[0]);
    writer_ = Descriptor(ends[1]);
    signalPipe = writer_.number();
    notifier_ = std::make_unique<QSocketNotifier>(reader_.number(), QSocketNotifier::Read);
    connect(notifier_.get(), &QSocketNotifier::activated, this, [this] { obey(); });
    install();
}

void UnchosenEnds::install() {
    struct sigaction action {};
    action.sa_handler = noteSignal;
    action.sa_flags = SA_RESTART;
    for (size_t i = 0; i < kSignals.size(); ++i) {
        sigaction(kSignals[i], nullptr, &before_[i]);
        // What was to be ignored from the start, as by nohup, stays ignored.
        if (before_[i].sa_handler != SIG_IGN) sigaction(kSignals[i], &action, nullptr);
    }
}

UnchosenEnds::~UnchosenEnds() {
    keeper = nullptr;
    if (!notifier_) return;
    for (size_t i = 0; i < kSignals.size(); ++i) sigaction(kSignals[i], &before_[i], nullptr);
    signalPipe = -1;
}

/// Keeps all, then ends the process by the signal that has come.
void UnchosenEnds::obey() {
    unsigned char number = 0;
    if (read(reader_.number(), &number, 1) != 1) return;
    std::exchange(keepAll_, {})();
    std::signal(number, SIG_DFL);
    std::raise(number);
}

}  // namespace klt
