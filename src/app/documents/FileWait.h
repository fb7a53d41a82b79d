#pragma once

#include <chrono>
#include <functional>
#include <future>
#include <optional>
#include <string>
#include <utility>

#include "platform/DetachedThread.h"

namespace klt {

class CommandQueue;

/// What is told where a file system does not answer.
inline const std::string kNoAnswer = "Its folder does not answer";

/// Waits for what a file system may never answer, as long as it gives signs of life. Events run while that
/// takes long, with the user held back as during an opening.
class FileWait {
public:
    /// How long a file system may be silent. One that answers and yet does not come to an end gets
    /// `kLongest` times as much.
    static constexpr std::chrono::milliseconds kPatience{5000};
    static constexpr int kLongest = 120;

    explicit FileWait(CommandQueue& queue) : queue_(queue) {}

    /// What `find` gives on a thread of its own, or throws there. None where the file system behind `path`
    /// does not answer; the thread is then left to itself.
    template <typename Value>
    std::optional<Value> find(const std::string& path, std::function<Value()> find) {
        auto found = findDetached<Value>(std::move(find));
        const auto comes = [&found](std::chrono::milliseconds time) {
            return found.wait_for(time) == std::future_status::ready;
        };
        if (!waitFor(comes, path)) return std::nullopt;
        return found.get();
    }

    std::chrono::milliseconds patience = kPatience;

private:
    bool waitFor(const std::function<bool(std::chrono::milliseconds)>& comes, const std::string& path);

    CommandQueue& queue_;
};

}  // namespace klt
