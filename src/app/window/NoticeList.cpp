#include "app/window/NoticeList.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <algorithm>
#include <utility>

#include "app/window/NoticeText.h"
#include "ui/TextLines.h"

namespace klt {
namespace {

constexpr const char* kRow = "row";

QFrame* makeLine(QWidget* parent) {
    auto* line = new QFrame(parent);
    line->setFrameShape(QFrame::HLine);
    line->setFrameShadow(QFrame::Sunken);
    return line;
}

}  // namespace

NoticeList::NoticeList(QWidget& bar, std::function<void(int, size_t)> choose)
    : QDialog(&bar, Qt::Popup), bar_(bar), choose_(std::move(choose)), scroll_(new QScrollArea(this)) {
    setObjectName("NoticeList");
    setAccessibleName("Notices");
    scroll_->setWidgetResizable(true);
    scroll_->setFrameShape(QFrame::StyledPanel);
    scroll_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    scroll_->setFocusPolicy(Qt::NoFocus);
    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(0, 0, 0, 0);
    all->addWidget(scroll_);
}

void NoticeList::showNotices(const std::vector<PendingNotice>& notices) {
    const int focused = focusedRow();
    auto* content = new QWidget;
    content->setBackgroundRole(QPalette::ToolTipBase);
    auto* column = new QVBoxLayout(content);
    const int count = static_cast<int>(notices.size());
    for (int index = 0; index < count; ++index) {
        if (index > 0) column->addWidget(makeLine(content));
        // The newest first.
        column->addWidget(makeRow(notices[notices.size() - 1 - static_cast<size_t>(index)], index));
    }
    column->addStretch();
    // One of its buttons may be at work.
    if (auto* old = scroll_->takeWidget()) old->deleteLater();
    scroll_->setWidget(content);
    if (notices.empty()) {
        close();
        return;
    }
    if (!isVisible()) return;
    place();
    focusRow(std::min(focused, count - 1));
}

void NoticeList::popUp(const std::vector<PendingNotice>& notices) {
    showNotices(notices);
    place();
    focusRow(0);
    show();
}

/// No access keys: the same ones would stand in every row.
QWidget* NoticeList::makeRow(const PendingNotice& notice, int index) {
    auto* row = new QWidget;
    auto* line = new QHBoxLayout(row);
    line->setContentsMargins(0, 0, 0, 0);
    const QString at = '(' + QString::number(index) + ')';
    auto* text = new NoticeText(kAllLines, row);
    text->setObjectName("NoticeText" + at);
    text->setText(notice.text);
    line->addWidget(text, 1);
    for (size_t choice = 0; choice < notice.choices.size(); ++choice) {
        auto* button = new QPushButton(tr(notice.choices[choice].caption).remove('&'), row);
        button->setObjectName(notice.choices[choice].name + at);
        button->setAccessibleDescription(notice.text);
        button->setProperty(kRow, index);
        connect(button, &QPushButton::clicked, this, [this, id = notice.id, choice] { choose_(id, choice); });
        line->addWidget(button);
    }
    return row;
}

int NoticeList::focusedRow() const {
    return focusWidget() ? focusWidget()->property(kRow).toInt() : 0;
}

void NoticeList::focusRow(int index) {
    for (auto* button : scroll_->widget()->findChildren<QPushButton*>()) {
        if (button->property(kRow).toInt() != index) continue;
        button->setFocus();
        return scroll_->ensureWidgetVisible(button);
    }
}

/// As wide as the bar, and no higher than the screen leaves.
void NoticeList::place() {
    constexpr int kLeast = 80;
    const QPoint corner = bar_.mapToGlobal(bar_.rect().bottomLeft());
    const int frame = 2 * scroll_->frameWidth();
    const int needed = scroll_->widget()->layout()->totalHeightForWidth(bar_.width() - frame) + frame;
    const int room = bar_.screen()->availableGeometry().bottom() - corner.y();
    setGeometry({corner, QSize(bar_.width(), std::min(needed, std::max(room, kLeast)))});
}

}  // namespace klt
