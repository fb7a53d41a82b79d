#include "app/window/StatusPanels.h"

#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QStatusBar>
#include <QStyle>
#include <algorithm>

namespace klt {
namespace {

constexpr int kBlanks = 18;

QLabel* makePanel(const char* name, const QString& widest, QWidget* parent) {
    auto* panel = new QLabel(parent);
    panel->setObjectName(name);
    panel->setTextFormat(Qt::PlainText);
    panel->setMinimumWidth(panel->fontMetrics().horizontalAdvance(widest));
    return panel;
}

/// Fewer blanks before a longer number keep the word behind them about where it is.
QString caretText(Position line, Position column) {
    const QString number = QString::number(line);
    const auto blanks = std::max<qsizetype>(0, kBlanks - 1 - 2 * number.size());
    return "Line " + number + QString(blanks, ' ') + "Column " + QString::number(column);
}

}  // namespace

StatusPanels::StatusPanels(QStatusBar& bar)
    : panel1_(makePanel("Panel1", "Modified", &bar)),
      panel1Icon_(new QLabel(&bar)),
      panel2_(makePanel("Panel2", "999,999,999 bytes", &bar)),
      panel3_(makePanel("Panel3", caretText(999999, 9999), &bar)) {
    const int size = bar.style()->pixelMetric(QStyle::PM_SmallIconSize);
    panel1Icon_->setFixedSize(size, size);
    QSizePolicy policy = panel1Icon_->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    panel1Icon_->setSizePolicy(policy);
    auto* first = new QWidget(&bar);
    auto* row = new QHBoxLayout(first);
    row->setContentsMargins(4, 0, 12, 0);
    row->addWidget(panel1Icon_);
    row->addWidget(panel1_);
    bar.addWidget(first);
    bar.addWidget(panel2_);
    bar.addWidget(panel3_, 1);
    clear();
}

void StatusPanels::showModified(bool modified) {
    panel1Icon_->setVisible(modified);
    // Made at its first use: icons are slow to find.
    if (modified && panel1Icon_->pixmap(Qt::ReturnByValue).isNull()) refreshIcon();
    panel1_->setText(modified ? "Modified" : "");
}

void StatusPanels::refreshIcon() {
    if (panel1Icon_->isHidden()) return panel1Icon_->clear();
    panel1Icon_->setPixmap(QIcon::fromTheme("document-edit").pixmap(panel1Icon_->size()));
}

void StatusPanels::showLength(Position characters) {
    panel2_->setText(QString::number(characters) + " bytes");
}

void StatusPanels::showCaret(Position line, Position column) {
    panel3_->setText(caretText(line, column));
}

void StatusPanels::clear() {
    showModified(false);
    panel2_->clear();
    panel3_->setText("Line" + QString(kBlanks, ' ') + "Column");
}

}  // namespace klt
