#pragma once

#include <QTreeWidget>
#include <string>

#include "platform/FolderEntries.h"

namespace klt {

class FolderReader;

/// The folders of the system as a tree from "/" on, read as they are opened, hidden ones too. It never waits
/// for a file system. A path is bytes, full and without "/" at its end.
class FolderTree : public QTreeWidget {
    Q_OBJECT

public:
    /// `reader` must outlive this.
    explicit FolderTree(FolderReader& reader, QWidget* parent = nullptr);

    /// Makes the folder the current one as soon as the folders above it are read, or the last one on the way
    /// to it that there is. Nobody is told. A choice of the user's ends it.
    void goTo(const std::string& path);
    /// The folder of the current row.
    std::string path() const;

signals:
    /// The user went to a folder, or clicked the current one.
    void chosen(const std::string& path);

private:
    void enter(const std::string& path);
    void take(const std::string& folder, const FolderEntries& entries);
    void step();
    void makeCurrent(QTreeWidgetItem& item);
    /// The row of a folder, or the last one on the way to it.
    QTreeWidgetItem& closestTo(const std::string& path) const;

    FolderReader& reader_;
    /// The folder that `goTo` is under way to; empty where it has come to an end.
    std::string target_;
};

}  // namespace klt
