#pragma once

#include <QObject>
#include <chrono>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>

#include "platform/FolderEntries.h"

namespace klt {

/// Reads folders beside the user's work, each on a thread of its own that nobody waits for: a file system
/// that doesn't answer holds up nothing else, not even the end of this.
class FolderReader : public QObject {
    Q_OBJECT

public:
    using List = std::function<void(const std::string&, const std::function<void(const FolderEntries&)>&)>;

    /// `list` reads one folder; it is called on other threads.
    explicit FolderReader(List list = listFolder, QObject* parent = nullptr);
    ~FolderReader() override;

    /// Reads a folder anew. `found` tells what comes of it; where it is being read already, what is known so
    /// far is told at once.
    void read(const std::string& folder);

signals:
    void found(const std::string& folder, const klt::FolderEntries& entries);

private:
    struct Post;
    void take(const std::string& folder, const FolderEntries& entries);

    List list_;
    /// Where the threads leave what they found; it outlives this as long as one of them works.
    std::shared_ptr<Post> post_;
    /// The folders that are being read, and what is known of them.
    std::map<std::string, FolderEntries> reading_;
};

/// The path that `find` gives on another thread, empty where it leads to no folder; nothing where that can't
/// be found out within the time.
std::optional<std::string> folderWithin(std::function<std::string()> find, std::chrono::milliseconds time);

}  // namespace klt
