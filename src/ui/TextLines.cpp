#include "ui/TextLines.h"

#include <QTextOption>
#include <algorithm>

namespace klt {

qreal breakLines(QTextLayout& layout, qreal width, int most) {
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);
    layout.beginLayout();
    qreal height = 0;
    for (int count = 0; count < most; ++count) {
        QTextLine line = layout.createLine();
        if (!line.isValid()) break;
        line.setLineWidth(std::max(width, 1.0));
        line.setPosition({0, height});
        height += line.height();
    }
    layout.endLayout();
    return height;
}

bool isCut(const QTextLayout& layout) {
    if (layout.lineCount() == 0) return !layout.text().isEmpty();
    const QTextLine last = layout.lineAt(layout.lineCount() - 1);
    return last.textStart() + last.textLength() < layout.text().size();
}

}  // namespace klt
