#pragma once

#include <QObject>
#include <chrono>
#include <functional>
#include <map>
#include <optional>
#include <string>

#include "app/Mailbox.h"
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

    /// Reads a folder anew. `found` tells what comes of it; where it is being read already, what is known so
    /// far is told at once.
    void read(const std::string& folder);

signals:
    void found(const std::string& folder, const klt::FolderEntries& entries);

private:
    void take(const std::string& folder, const FolderEntries& entries);

    List list_;
    /// The folders that are being read, and what is known of them.
    std::map<std::string, FolderEntries> reading_;
    Mailbox mailbox_;
};

/// The path that `find` gives on another thread, empty where it leads to no folder; nothing where that can't
/// be found out within the time.
std::optional<std::string> folderWithin(std::function<std::string()> find, std::chrono::milliseconds time);

}  // namespace klt
