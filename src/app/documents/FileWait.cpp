#include "app/documents/FileWait.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QElapsedTimer>
#include <algorithm>

#include "app/commands/CommandQueue.h"
#include "platform/DocumentFile.h"
#include "ui/WaitCursor.h"

namespace klt {
namespace {

using std::chrono::milliseconds;

// What takes no longer holds up nobody; until then no event runs.
constexpr milliseconds kAtOnce{100};
constexpr milliseconds kBetweenEvents{10};
constexpr milliseconds kBetweenQuestions{500};

/// Asks a file system again and again whether it still answers.
class Pulse {
public:
    explicit Pulse(std::string path) : path_(std::move(path)) { ask(); }

    bool isSilentFor(milliseconds time) {
        const bool isAnswered = answer_.wait_for(milliseconds(0)) == std::future_status::ready;
        if (isAnswered && asked_.elapsed() >= kBetweenQuestions.count()) ask();
        return !isAnswered && asked_.elapsed() >= time.count();
    }

private:
    void ask() {
        asked_.start();
        answer_ = findDetached<bool>([path = path_] {
            askFileSystem(path);
            return true;
        });
    }

    std::string path_;
    QElapsedTimer asked_;
    std::future<bool> answer_;
};

}  // namespace

bool FileWait::waitFor(const std::function<bool(milliseconds)>& comes, const std::string& path) {
    if (comes(std::min(kAtOnce, patience))) return true;
    const CommandQueue::Opening opening(queue_);
    const WaitCursor cursor;
    Pulse pulse(path);
    const QDeadlineTimer longest(patience * kLongest);
    while (!comes(kBetweenEvents)) {
        if (pulse.isSilentFor(patience) || longest.hasExpired()) return false;
        QCoreApplication::processEvents();
    }
    return true;
}

}  // namespace klt
