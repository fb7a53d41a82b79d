#pragma once

#include <QTreeWidget>
#include <string>
#include <vector>

namespace klt {

/// The files to be merged, one row each. It takes files that are dropped on it.
class MergeFileList : public QTreeWidget {
    Q_OBJECT

public:
    explicit MergeFileList(QWidget* parent = nullptr);

    void insertFile(size_t row, const std::string& path);
    void removeFile(size_t row);
    bool isSelected(size_t row) const;

signals:
    void filesDropped(const std::vector<std::string>& paths);

protected:
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
};

}  // namespace klt
