#include "app/dialogs/MergeFileList.h"

#include <QDropEvent>
#include <QFile>

#include "app/window/ProgramIcon.h"
#include "ui/DroppedFiles.h"
#include "ui/QtStrings.h"

namespace klt {

MergeFileList::MergeFileList(QWidget* parent) : QTreeWidget(parent) {
    setHeaderLabel("Files");
    setRootIsDecorated(false);
    setUniformRowHeights(true);
    setSelectionMode(ExtendedSelection);
    // The end of a path tells more than its start.
    setTextElideMode(Qt::ElideLeft);
    setAcceptDrops(true);
}

void MergeFileList::insertFile(size_t row, const std::string& path) {
    auto* item = new QTreeWidgetItem({fromPath(path)});
    item->setIcon(0, programIcon());
    item->setToolTip(0, item->text(0));
    insertTopLevelItem(static_cast<int>(row), item);
}

void MergeFileList::removeFile(size_t row) {
    delete topLevelItem(static_cast<int>(row));
}

bool MergeFileList::isSelected(size_t row) const {
    return topLevelItem(static_cast<int>(row))->isSelected();
}

void MergeFileList::dragEnterEvent(QDragEnterEvent* event) {
    if (!localFiles(*event->mimeData()).empty()) event->acceptProposedAction();
}

void MergeFileList::dragMoveEvent(QDragMoveEvent* event) {
    event->acceptProposedAction();
}

void MergeFileList::dropEvent(QDropEvent* event) {
    event->acceptProposedAction();
    emit filesDropped(localFiles(*event->mimeData()));
}

}  // namespace klt
