#include "app/window/NoticeText.h"

#include <QMouseEvent>
#include <QPainter>
#include <cmath>

#include "ui/TextLines.h"

namespace klt {

NoticeText::NoticeText(int mostLines, QWidget* parent) : QLabel(parent), mostLines_(mostLines) {
    setTextFormat(Qt::PlainText);
    setForegroundRole(QPalette::ToolTipText);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    // Without it the base class says that the height does not follow from the width.
    setWordWrap(true);
}

bool NoticeText::isCut() const {
    QTextLayout lines(text(), font());
    breakLines(lines, width(), mostLines_);
    return klt::isCut(lines);
}

QSize NoticeText::sizeHint() const {
    return {fontMetrics().horizontalAdvance(text()), fontMetrics().height()};
}

QSize NoticeText::minimumSizeHint() const {
    return {0, fontMetrics().height()};
}

int NoticeText::heightForWidth(int width) const {
    QTextLayout lines(text(), font());
    return static_cast<int>(std::ceil(breakLines(lines, width, mostLines_)));
}

void NoticeText::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setPen(palette().color(foregroundRole()));
    QTextLayout lines(text(), font());
    const qreal height = breakLines(lines, width(), mostLines_);
    const QPointF top(0, std::max(0.0, (this->height() - height) / 2));
    const int whole = lines.lineCount() - (klt::isCut(lines) ? 1 : 0);
    for (int i = 0; i < whole; ++i) lines.lineAt(i).draw(&painter, top);
    if (whole == lines.lineCount()) return;
    const QTextLine last = lines.lineAt(whole);
    const QString rest = text().mid(last.textStart());
    painter.drawText(last.rect().translated(top), Qt::AlignVCenter | Qt::TextSingleLine,
                     fontMetrics().elidedText(rest, Qt::ElideMiddle, width()));
}

void NoticeText::mouseReleaseEvent(QMouseEvent* event) {
    QLabel::mouseReleaseEvent(event);
    if (clicked && event->button() == Qt::LeftButton && rect().contains(event->position().toPoint()))
        clicked();
}

void NoticeText::resizeEvent(QResizeEvent* event) {
    QLabel::resizeEvent(event);
    if (resized) resized();
}

}  // namespace klt
