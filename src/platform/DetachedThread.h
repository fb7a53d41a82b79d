#pragma once

#include <functional>
#include <future>
#include <memory>
#include <utility>

#include "platform/Failure.h"

// Threads that nobody waits for, for what a file system may never answer.
namespace klt {

/// Begins work on a thread of its own, as long as it may take. What memory does not suffice for is given up.
/// Tells why the work could not be begun.
Failure startDetached(std::function<void()> work);

/// What `find` gives, or throws, on such a thread; where there is none it is found out at once. The future
/// may be given up at any time.
template <typename Value>
std::future<Value> findDetached(std::function<Value()> find) {
    const auto task = std::make_shared<std::packaged_task<Value()>>(std::move(find));
    auto found = task->get_future();
    if (startDetached([task] { (*task)(); })) (*task)();
    return found;
}

}  // namespace klt
