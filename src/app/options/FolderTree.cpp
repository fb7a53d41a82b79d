#include "app/options/FolderTree.h"

#include <QHeaderView>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QStyle>
#include <vector>

#include "app/options/FolderReader.h"
#include "ui/QtStrings.h"

namespace klt {
namespace {

// Nobody has a folder's name in bytes but its row.
constexpr int kName = Qt::UserRole;

std::string nameOf(const QTreeWidgetItem& item) {
    return item.data(0, kName).toByteArray().toStdString();
}

std::string below(const std::string& folder, const std::string& name) {
    return (folder == "/" ? folder : folder + "/") + name;
}

std::string pathOf(const QTreeWidgetItem& item) {
    return item.parent() ? below(pathOf(*item.parent()), nameOf(item)) : nameOf(item);
}

QTreeWidgetItem* makeItem(const std::string& name, const QIcon& icon) {
    auto* item = new QTreeWidgetItem({fromPath(name)});
    item->setData(0, kName, QByteArray::fromStdString(name));
    item->setIcon(0, icon);
    item->setChildIndicatorPolicy(QTreeWidgetItem::ShowIndicator);
    return item;
}

/// Brings the rows below `item` to `names`, both in the order of `precedes`; rows of other names go if the
/// names are all that there are.
void showNames(QTreeWidgetItem& item, const std::vector<std::string>& names, bool isWhole) {
    if (item.childCount() == 0) {
        // Far faster than one by one.
        QList<QTreeWidgetItem*> rows;
        for (const auto& name : names) rows << makeItem(name, item.icon(0));
        return item.addChildren(rows);
    }
    int row = 0;
    const auto passUpTo = [&](const auto& isReached) {
        while (row < item.childCount() && !isReached(nameOf(*item.child(row)))) {
            if (isWhole)
                delete item.takeChild(row);
            else
                ++row;
        }
    };
    for (const auto& name : names) {
        passUpTo([&](const std::string& shown) { return !precedes(shown, name); });
        if (row == item.childCount() || nameOf(*item.child(row)) != name)
            item.insertChild(row, makeItem(name, item.icon(0)));
        ++row;
    }
    passUpTo([](const std::string&) { return false; });
}

/// The name below `folder` on the way to `path`; empty where that does not lie below it.
std::string nextName(const std::string& folder, const std::string& path) {
    const auto above = below(folder, {});
    return path.starts_with(above) ? path.substr(above.size(), path.find('/', above.size()) - above.size())
                                   : std::string();
}

QTreeWidgetItem* childOf(const QTreeWidgetItem& item, const std::string& name) {
    for (int row = 0; row < item.childCount(); ++row)
        if (nameOf(*item.child(row)) == name) return item.child(row);
    return nullptr;
}

}  // namespace

FolderTree::FolderTree(FolderReader& reader, QWidget* parent) : QTreeWidget(parent), reader_(reader) {
    setHeaderHidden(true);
    setUniformRowHeights(true);
    // A long name scrolls instead of being cut off.
    header()->setStretchLastSection(false);
    header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    addTopLevelItem(makeItem("/", style()->standardIcon(QStyle::SP_DirIcon)));
    makeCurrent(*topLevelItem(0));
    connect(&reader_, &FolderReader::found, this, &FolderTree::take);
    connect(this, &QTreeWidget::itemExpanded, this,
            [this](QTreeWidgetItem* item) { reader_.read(pathOf(*item)); });
    connect(this, &QTreeWidget::currentItemChanged, this, [this](QTreeWidgetItem* item) {
        if (item) enter(pathOf(*item));
    });
    connect(this, &QTreeWidget::itemClicked, this, [this](QTreeWidgetItem* item) { enter(pathOf(*item)); });
}

std::string FolderTree::path() const {
    return pathOf(*currentItem());
}

void FolderTree::enter(const std::string& path) {
    target_.clear();
    emit chosen(path);
}

void FolderTree::goTo(const std::string& path) {
    target_ = path;
    step();
}

/// Goes as far as the rows lead, and has the next ones read.
void FolderTree::step() {
    auto& item = closestTo(target_);
    makeCurrent(item);
    if (pathOf(item) == target_)
        target_.clear();
    else
        reader_.read(pathOf(item));
}

QTreeWidgetItem& FolderTree::closestTo(const std::string& path) const {
    auto* item = topLevelItem(0);
    while (auto* next = childOf(*item, nextName(pathOf(*item), path))) item = next;
    return *item;
}

void FolderTree::take(const std::string& folder, const FolderEntries& entries) {
    auto& item = closestTo(folder);
    if (pathOf(item) != folder) return;
    const auto next = nextName(folder, target_);
    const auto current = path();
    {
        const QSignalBlocker silent(this);
        // A folder that can't be listed may let the user through all the same.
        if (!entries.error)
            showNames(item, entries.folders, entries.isWhole);
        else if (!next.empty())
            showNames(item, {next}, false);
        if (entries.isWhole) item.setChildIndicatorPolicy(QTreeWidgetItem::DontShowIndicatorWhenChildless);
    }
    if (path() != current) makeCurrent(item);
    if (next.empty()) return;
    if (childOf(item, next))
        step();
    else if (entries.isWhole)
        target_.clear();
}

void FolderTree::makeCurrent(QTreeWidgetItem& item) {
    const QSignalBlocker silent(this);
    for (auto* above = item.parent(); above; above = above->parent()) above->setExpanded(true);
    setCurrentItem(&item);
    scrollToItem(&item, PositionAtCenter);
    // Names begin in the left half.
    horizontalScrollBar()->setValue(0);
    horizontalScrollBar()->setValue(visualItemRect(&item).left() - viewport()->width() / 2);
}

}  // namespace klt
