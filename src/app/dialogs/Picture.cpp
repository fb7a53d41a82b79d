#include "app/dialogs/Picture.h"

#include <QMouseEvent>
#include <QPainter>
#include <cmath>
#include <numbers>

#include "app/window/ProgramIcon.h"

namespace klt {
namespace {

constexpr QSize kField(120, 96);
constexpr QRgb kGround = 0xff88c0b8, kNight = 0xff24404f, kMoon = 0xfff4e9b8;
constexpr QRgb kScales = 0xff4f9a4a, kFarWing = 0xff2f6b3c, kNearWing = 0xff7cc06a, kHorn = 0xffe8dcb0;
constexpr QRgb kFlame = 0xffff8c1a, kGlow = 0xffffe066;

void drawGround(QPainter& painter, QRgb colour) {
    constexpr int kRounding = 10;
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(colour));
    painter.drawRoundedRect(QRect(QPoint(), kField), kRounding, kRounding);
}

void drawEmblem(QPainter& painter, int) {
    constexpr int kPage = 72;
    drawGround(painter, kGround);
    drawProgramIcon(
        painter, {{(kField.width() - kPage) / 2.0, (kField.height() - kPage) / 2.0}, QSizeF(kPage, kPage)});
}

void fill(QPainter& painter, QRgb colour, const QPolygonF& polygon) {
    painter.setBrush(QColor(colour));
    painter.drawPolygon(polygon);
}

void disc(QPainter& painter, QRgb colour, QPointF centre, double radius) {
    painter.setBrush(QColor(colour));
    painter.drawEllipse(centre, radius, radius);
}

/// The body is a row of discs: thin at the tail, thick in the middle, thin at the neck.
void drawBody(QPainter& painter, double swing) {
    constexpr int kDiscs = 60;
    for (int n = 0; n <= kDiscs; ++n) {
        const double along = static_cast<double>(n) / kDiscs, bend = std::numbers::pi * 2 * along;
        const double y = 66 - 16 * along * along - 5 * std::sin(bend) + 3 * swing * std::cos(bend);
        disc(painter, kScales, {10 + 82 * along, y},
             1.2 + 6.3 * std::pow(std::sin(std::numbers::pi * std::min(along, 0.92)), 1.4));
    }
}

void drawHead(QPainter& painter, QPointF neck, double breath) {
    if (breath > 0) {
        const double reach = neck.x() + 14 + 12 * breath, y = neck.y() + 1;
        fill(painter, kFlame,
             {{neck.x() + 11, y}, {reach, y - 6 * breath}, {reach + 3, y}, {reach, y + 6 * breath}});
        fill(painter, kGlow, {{neck.x() + 11, y}, {reach - 4, y - 3 * breath}, {reach - 4, y + 3 * breath}});
    }
    fill(painter, kHorn, {neck + QPointF(-2, -3), neck + QPointF(-10, -11), neck + QPointF(3, -5)});
    fill(painter, kScales,
         {neck + QPointF(-6, -4), neck + QPointF(2, -6), neck + QPointF(13, -1), neck + QPointF(13, 3),
          neck + QPointF(0, 6), neck + QPointF(-6, 4)});
    disc(painter, 0xffffffff, neck + QPointF(3, -2), 1.8);
    disc(painter, 0xff000000, neck + QPointF(3.5, -2), 0.9);
}

/// `lift` is 1 with the wing up and -1 with the wing down.
void drawWing(QPainter& painter, QRgb colour, QPointF shoulder, double lift) {
    const auto at = [&](double back, double up) { return shoulder + QPointF(-back, -up * lift); };
    fill(painter, colour,
         {at(-8, 0), at(-4, 22), at(10, 38), at(12, 24), at(22, 26), at(20, 13), at(28, 10), at(14, 0)});
}

void drawDragon(QPainter& painter, int frame) {
    const double phase = 2 * std::numbers::pi * (frame - 1) / kDragonFrames;
    const double lift = std::cos(phase), swing = std::sin(phase);
    drawGround(painter, kNight);
    disc(painter, kMoon, {96, 20}, 9);
    painter.translate(0, 2 * swing);
    drawWing(painter, kFarWing, {66, 56}, lift * 0.9);
    drawBody(painter, swing);
    drawHead(painter, {94, 50 + 3 * swing}, -swing);
    drawWing(painter, kNearWing, {54, 60}, lift);
}

Picture* make(const char* name, const QString& description, Picture::Draw draw, QWidget* parent) {
    auto* picture = new Picture(draw, kField, parent);
    picture->setObjectName(name);
    picture->setAccessibleName(description);
    return picture;
}

}  // namespace

Picture::Picture(Draw draw, QSize field, QWidget* parent) : QWidget(parent), draw_(draw) {
    setFixedSize(field);
}

void Picture::setFrame(int frame) {
    frame_ = frame;
    update();
}

void Picture::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    draw_(painter, frame_);
}

void Picture::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) emit clicked();
}

Picture* makeEmblem(const char* name, QWidget* parent) {
    return make(name, "KLT Editor", drawEmblem, parent);
}

Picture* makeDragon(const char* name, QWidget* parent) {
    return make(name, "Dragon", drawDragon, parent);
}

}  // namespace klt
