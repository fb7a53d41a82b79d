#include "app/recovery/CopyLane.h"

#include <cerrno>
#include <chrono>
#include <utility>

#include "platform/DetachedThread.h"
#include "platform/MemoryRoom.h"

namespace klt {
namespace {

std::optional<CopyLane::Kept> noMemory() {
    return CopyLane::Kept{{}, systemFailure(ENOMEM)};
}

}  // namespace

CopyLane::~CopyLane() {
    if (isBusy()) running_.wait();
}

bool CopyLane::isDone() const {
    return isBusy() && running_.wait_for(std::chrono::seconds(0)) == std::future_status::ready;
}

std::optional<CopyLane::Kept> CopyLane::take() {
    try {
        return running_.get();
    } catch (const std::future_error&) {
        return noMemory();
    }
}

void CopyLane::begin(std::function<std::optional<Kept>()> work) {
    if (!fitsMemory([&] { running_ = findDetached<std::optional<Kept>>(std::move(work)); })) {
        std::promise<std::optional<Kept>> failed;
        failed.set_value(noMemory());
        running_ = failed.get_future();
    }
}

void CopyLane::makeRoom(size_t bytes) {
    begin([buffer = buffer_, bytes]() -> std::optional<Kept> {
        // Cleared by this thread, so that its pages are there when the other one fills them.
        const bool isMade = fitsMemory([&] {
            std::vector<char>().swap(*buffer);
            buffer->resize(bytes + bytes / 8);
        });
        return isMade ? std::nullopt : noMemory();
    });
}

void CopyLane::trim(size_t bytes) {
    if (!isBusy() && buffer_->size() > 2 * bytes) std::vector<char>().swap(*buffer_);
}

void CopyLane::write(size_t bytes, std::function<Kept(std::string_view)> keep) {
    begin([buffer = buffer_, bytes, keep = std::move(keep)]() -> std::optional<Kept> {
        return keep({buffer->data(), bytes});
    });
}

}  // namespace klt
