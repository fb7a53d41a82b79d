#pragma once

#include <QIcon>

class QPainter;
class QRectF;

namespace klt {

/// A page with coloured lines. Drawn, for reading an image costs a start more than all the rest of the icon.
QIcon programIcon();
/// The same into a place of a painter.
void drawProgramIcon(QPainter& painter, const QRectF& place);

}  // namespace klt
