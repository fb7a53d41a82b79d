#pragma once

#include <QAbstractListModel>
#include <QStyledItemDelegate>

#include "language/OutlineFilter.h"

namespace klt {

/// The lines that a filter lists, as rows of a view: each text is made when it is asked for.
class OutlineRows : public QAbstractListModel {
public:
    /// The section in which the line stands; empty for a section's header.
    static constexpr int kSectionRole = Qt::UserRole;
    /// No more characters of a line are shown.
    static constexpr size_t kMostShown = 200;

    /// The text must stay where it is and as it is.
    explicit OutlineRows(std::string_view text, QObject* parent = nullptr)
        : QAbstractListModel(parent), filter_(text) {}

    void filter(std::string_view typed);
    const OutlineFilter& lines() const { return filter_; }

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;

private:
    OutlineFilter filter_;
};

/// Draws a row with its section, paler, at the right.
class OutlineRowPainter : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;
    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
};

}  // namespace klt
