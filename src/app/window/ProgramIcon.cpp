#include "app/window/ProgramIcon.h"

#include <QPainter>
#include <QPixmap>

namespace klt {
namespace {

struct Stroke {
    int x, y, length;
    QRgb colour;
};

// On a field of 64 by 64.
constexpr QSizeF kField(64, 64);
constexpr QRgb kInk = 0xff31363b;
constexpr Stroke kStrokes[] = {
    {18, 18, 12, 0xff0080ff}, {18, 28, 10, 0xff800000}, {34, 28, 12, 0xff000080}, {18, 38, 18, kInk},
    {42, 38, 4, 0xffff0000},  {18, 48, 8, 0xff008080},  {32, 48, 14, 0xff008000},
};

QPixmap drawn(int size) {
    QPixmap pixmap(size, size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    drawProgramIcon(painter, QRectF(0, 0, size, size));
    return pixmap;
}

}  // namespace

void drawProgramIcon(QPainter& painter, const QRectF& place) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(place.topLeft());
    painter.scale(place.width() / kField.width(), place.height() / kField.height());
    painter.setPen(QPen(QColor(kInk), 2));
    painter.setBrush(Qt::white);
    painter.drawPolygon(QPolygonF({{10, 4}, {40, 4}, {54, 18}, {54, 60}, {10, 60}}));
    painter.drawPolyline(QPolygonF({{40, 4}, {40, 18}, {54, 18}}));
    for (const auto& stroke : kStrokes) {
        painter.setPen(QPen(QColor(stroke.colour), 4, Qt::SolidLine, Qt::RoundCap));
        painter.drawLine(stroke.x, stroke.y, stroke.x + stroke.length, stroke.y);
    }
    painter.restore();
}

QIcon programIcon() {
    QIcon icon;
    for (const int size : {16, 32, 48}) icon.addPixmap(drawn(size));
    return icon;
}

}  // namespace klt
