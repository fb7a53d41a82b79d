#include "app/dialogs/OutlineRows.h"

#include <QApplication>
#include <QPainter>
#include <QStyle>

#include "text/Unicode.h"
#include "ui/QtStrings.h"

namespace klt {
namespace {

/// How deep a line stands below its section's header.
int depthOf(LineKind kind) {
    switch (kind) {
        case LineKind::SectionHeader:
            return 0;
        case LineKind::SubsectionHeader:
        case LineKind::PackageHeader:
            return 1;
        default:
            return 2;
    }
}

QString shownOf(const OutlineEntry& entry) {
    return toQString(firstCharacters(entry.shown, OutlineRows::kMostShown));
}

QString sectionShown(const OutlineEntry& entry) {
    return entry.kind == LineKind::SectionHeader ? QString() : toQString(sectionName(entry.section));
}

}  // namespace

void OutlineRows::filter(std::string_view typed) {
    beginResetModel();
    filter_.filter(typed);
    endResetModel();
}

int OutlineRows::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(filter_.size());
}

QVariant OutlineRows::data(const QModelIndex& index, int role) const {
    constexpr qsizetype kIndent = 4;
    if (!index.isValid()) return {};
    const auto& entry = filter_[static_cast<size_t>(index.row())];
    switch (role) {
        case Qt::DisplayRole:
            return QString(kIndent * depthOf(entry.kind), ' ') + shownOf(entry);
        case Qt::AccessibleTextRole:
            return QString(shownOf(entry) + ' ' + sectionShown(entry)).trimmed();
        case kSectionRole:
            return sectionShown(entry);
        default:
            return {};
    }
}

void OutlineRowPainter::paint(QPainter* painter, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const {
    constexpr int kMargin = 6;
    QStyleOptionViewItem row = option;
    initStyleOption(&row, index);
    const QString section = index.data(OutlineRows::kSectionRole).toString();
    const int taken = section.isEmpty() ? 0 : row.fontMetrics.horizontalAdvance(section) + kMargin;
    row.text = row.fontMetrics.elidedText(row.text, Qt::ElideRight, row.rect.width() - taken - 2 * kMargin);
    const auto* style = row.widget ? row.widget->style() : QApplication::style();
    style->drawControl(QStyle::CE_ItemViewItem, &row, painter, row.widget);
    const bool isSelected = row.state.testFlag(QStyle::State_Selected);
    constexpr float kPaler = 0.65F;
    QColor colour = row.palette.color(isSelected ? QPalette::HighlightedText : QPalette::Text);
    if (!isSelected) colour.setAlphaF(kPaler);
    painter->save();
    painter->setPen(colour);
    painter->drawText(row.rect.adjusted(0, 0, -kMargin, 0), Qt::AlignRight | Qt::AlignVCenter, section);
    painter->restore();
}

}  // namespace klt
