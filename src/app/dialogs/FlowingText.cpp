#include "app/dialogs/FlowingText.h"

#include <QPainter>
#include <cmath>

#include "ui/TextLines.h"

namespace klt {
namespace {

/// Its text is drawn by the paragraph.
class BareLabel : public QLabel {
public:
    using QLabel::QLabel;

protected:
    void paintEvent(QPaintEvent*) override {}
};

}  // namespace

FlowingText::FlowingText(const std::vector<Piece>& pieces, QWidget* parent) : QWidget(parent) {
    for (const auto& [name, text] : pieces) {
        auto* label = new BareLabel(text, this);
        label->setObjectName(name);
        label->setTextFormat(Qt::PlainText);
        label->setWordWrap(true);
        labels_.push_back(label);
        if (!text_.isEmpty()) text_ += ' ';
        text_ += text;
    }
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

QSize FlowingText::sizeHint() const {
    const int width = minimumWidth();
    return {width, heightForWidth(width)};
}

int FlowingText::heightForWidth(int width) const {
    QTextLayout lines(text_, font());
    return static_cast<int>(std::ceil(breakLines(lines, width)));
}

void FlowingText::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setPen(palette().color(foregroundRole()));
    QTextLayout lines(text_, font());
    breakLines(lines, width());
    lines.draw(&painter, {});
}

/// Each label lies over the lines in which its text stands.
void FlowingText::resizeEvent(QResizeEvent*) {
    QTextLayout lines(text_, font());
    breakLines(lines, width());
    qsizetype start = 0;
    for (auto* label : labels_) {
        const auto end = start + label->text().size();
        const QRectF first = lines.lineForTextPosition(static_cast<int>(start)).rect();
        const QRectF last = lines.lineForTextPosition(static_cast<int>(end - 1)).rect();
        label->setGeometry(QRectF(0, first.top(), width(), last.bottom() - first.top()).toAlignedRect());
        start = end + 1;
    }
}

}  // namespace klt
