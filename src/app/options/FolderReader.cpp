#include "app/options/FolderReader.h"

#include <future>
#include <mutex>
#include <new>
#include <system_error>
#include <thread>
#include <utility>

#include "platform/Paths.h"

namespace klt {
namespace {

/// Why the work could not be begun. What memory does not suffice for is given up.
Failure startDetached(std::function<void()> work) {
    const auto guarded = [work = std::move(work)] {
        try {
            work();
        } catch (const std::bad_alloc&) {
        }
    };
    try {
        std::thread(guarded).detach();
    } catch (const std::system_error& error) {
        return systemFailure(error.code().value());
    }
    return std::nullopt;
}

}  // namespace

struct FolderReader::Post {
    std::mutex mutex;
    /// Null from its end on.
    FolderReader* reader;
};

FolderReader::FolderReader(List list, QObject* parent)
    : QObject(parent), list_(std::move(list)), post_(std::make_shared<Post>()) {
    post_->reader = this;
}

FolderReader::~FolderReader() {
    const std::lock_guard guard(post_->mutex);
    post_->reader = nullptr;
}

void FolderReader::read(const std::string& folder) {
    if (const auto known = reading_.find(folder); known != reading_.end()) {
        const auto entries = known->second;
        if (!entries.folders.empty() || !entries.files.empty()) emit found(folder, entries);
        return;
    }
    reading_[folder];
    const auto deliver = [post = post_, folder](const FolderEntries& entries) {
        const std::lock_guard guard(post->mutex);
        if (auto* reader = post->reader)
            QMetaObject::invokeMethod(
                reader, [reader, folder, entries] { reader->take(folder, entries); }, Qt::QueuedConnection);
    };
    const auto failure = startDetached([list = list_, folder, deliver] { list(folder, deliver); });
    if (failure) take(folder, {{}, {}, true, failure});
}

void FolderReader::take(const std::string& folder, const FolderEntries& entries) {
    if (entries.isWhole) {
        reading_.erase(folder);
    } else {
        reading_[folder] = entries;
    }
    emit found(folder, entries);
}

std::optional<std::string> folderWithin(std::function<std::string()> find, std::chrono::milliseconds time) {
    const auto answer = std::make_shared<std::promise<std::string>>();
    auto known = answer->get_future();
    const auto work = [find = std::move(find)] {
        auto path = find();
        return isFolder(path) ? path : std::string();
    };
    if (startDetached([answer, work] { answer->set_value(work()); })) return work();
    if (known.wait_for(time) != std::future_status::ready) return std::nullopt;
    return known.get();
}

}  // namespace klt
