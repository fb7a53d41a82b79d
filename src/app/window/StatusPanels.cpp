#include "app/window/StatusPanels.h"

#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QStatusBar>
#include <QStyle>
#include <algorithm>
#include <utility>

namespace klt {
namespace {

constexpr int kBlanks = 18;

/// As wide as a long text, where there is room, so that what stands behind it stays in its place; never
/// narrower than its text or a usual one. Both go by the font that there is.
class Panel : public QLabel {
public:
    Panel(const char* name, QString usual, QString longText, QWidget* parent)
        : QLabel(parent), usual_(std::move(usual)), long_(std::move(longText)) {
        setObjectName(name);
        setTextFormat(Qt::PlainText);
    }
    QSize sizeHint() const override { return atLeast(QLabel::sizeHint(), long_); }
    QSize minimumSizeHint() const override { return atLeast(QLabel::minimumSizeHint(), usual_); }

private:
    QSize atLeast(const QSize& hint, const QString& text) const {
        return hint.expandedTo({fontMetrics().horizontalAdvance(text), 0});
    }

    const QString usual_, long_;
};

/// Fewer blanks before a longer number keep the word behind them about where it is.
QString caretText(Position line, Position column) {
    const QString number = QString::number(line);
    const auto blanks = std::max<qsizetype>(0, kBlanks - 1 - 2 * number.size());
    return "Line " + number + QString(blanks, ' ') + "Column " + QString::number(column);
}

}  // namespace

StatusPanels::StatusPanels(QStatusBar& bar)
    : panel1_(new Panel("Panel1", "Modified", "Modified", &bar)),
      panel1Icon_(new QLabel(&bar)),
      panel2_(new Panel("Panel2", "99999 bytes", "999,999,999 bytes", &bar)),
      panel3_(new Panel("Panel3", caretText(999, 99), caretText(999999, 9999), &bar)) {
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
    // The base class would let the window be narrower than what stands in the bar.
    bar.setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
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
