#pragma once

#include <functional>
#include <memory>

namespace klt {

/// Where threads that nobody waits for leave what they found, for the thread that made it. What comes after
/// its end is dropped.
class Mailbox {
public:
    /// Calls what it is given from the event loop, or never. For any thread, and at any time.
    using Post = std::function<void(std::function<void()>)>;

    Mailbox();
    ~Mailbox();
    Mailbox(const Mailbox&) = delete;
    Mailbox& operator=(const Mailbox&) = delete;

    Post post() const;

private:
    struct Box;
    std::shared_ptr<Box> box_;
};

}  // namespace klt
