#pragma once

#include <functional>
#include <future>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

#include "platform/RecoveryFolder.h"

namespace klt {

/// Writes one text after the other on a thread of its own, from memory that is kept from one to the next: to
/// fill it takes no longer than copying the bytes.
class CopyLane {
public:
    using Kept = RecoveryFolder::Kept;

    /// What is under way is waited for.
    ~CopyLane();
    CopyLane() = default;
    CopyLane(const CopyLane&) = delete;
    CopyLane& operator=(const CopyLane&) = delete;

    bool isBusy() const { return running_.valid(); }
    /// Whether what was begun is done, and `take` does not wait.
    bool isDone() const;
    /// What became of the text, if one was written.
    std::optional<Kept> take();

    bool hasRoomFor(size_t bytes) const { return buffer_->size() >= bytes; }
    /// Begins to make room; while it is not busy.
    void makeRoom(size_t bytes);
    /// Gives the memory back that more than `bytes` take.
    void trim(size_t bytes);
    /// Where the next text goes, with room for what `hasRoomFor` tells.
    char* buffer() { return buffer_->data(); }
    /// Begins to write the first `bytes` of the buffer.
    void write(size_t bytes, std::function<Kept(std::string_view)> keep);

private:
    void begin(std::function<std::optional<Kept>()> work);

    std::shared_ptr<std::vector<char>> buffer_ = std::make_shared<std::vector<char>>();
    std::future<std::optional<Kept>> running_;
};

}  // namespace klt
