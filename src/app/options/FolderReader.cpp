#include "app/options/FolderReader.h"

#include <utility>

#include "platform/DetachedThread.h"
#include "platform/Paths.h"

namespace klt {

FolderReader::FolderReader(List list, QObject* parent) : QObject(parent), list_(std::move(list)) {}

void FolderReader::read(const std::string& folder) {
    if (const auto known = reading_.find(folder); known != reading_.end()) {
        const auto entries = known->second;
        if (!entries.folders.empty() || !entries.files.empty()) emit found(folder, entries);
        return;
    }
    reading_[folder];
    const auto deliver = [this, post = mailbox_.post(), folder](const FolderEntries& entries) {
        post([this, folder, entries] { take(folder, entries); });
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
    auto known = findDetached<std::string>([find = std::move(find)] {
        auto path = find();
        return isFolder(path) ? path : std::string();
    });
    if (known.wait_for(time) != std::future_status::ready) return std::nullopt;
    return known.get();
}

}  // namespace klt
