#include "app/options/ColourIcon.h"

#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>

namespace klt {
namespace {

class ColourIconEngine : public QIconEngine {
public:
    explicit ColourIconEngine(const QColor& colour) : colour_(colour) {}

    void paint(QPainter* painter, const QRect& place, QIcon::Mode, QIcon::State) override {
        painter->fillRect(place, QGuiApplication::palette().color(QPalette::Text));
        painter->fillRect(place.adjusted(1, 1, -1, -1), colour_);
    }
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap drawn(size);
        QPainter painter(&drawn);
        paint(&painter, QRect({}, size), mode, state);
        return drawn;
    }
    QIconEngine* clone() const override { return new ColourIconEngine(colour_); }

private:
    QColor colour_;
};

}  // namespace

QIcon colourIcon(const QColor& colour) {
    return QIcon(new ColourIconEngine(colour));
}

}  // namespace klt
