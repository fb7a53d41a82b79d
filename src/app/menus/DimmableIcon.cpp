#include "app/menus/DimmableIcon.h"

#include <QIconEngine>
#include <QPainter>

namespace klt {
namespace {

constexpr double kDisabledOpacity = 0.35;

QPixmap dimmed(const QPixmap& normal) {
    QPixmap pale(normal.size());
    pale.setDevicePixelRatio(normal.devicePixelRatio());
    pale.fill(Qt::transparent);
    QPainter painter(&pale);
    painter.setOpacity(kDisabledOpacity);
    painter.drawPixmap(0, 0, normal);
    return pale;
}

class DimmableIconEngine : public QIconEngine {
public:
    explicit DimmableIconEngine(QString name) : name_(std::move(name)) {}

    void paint(QPainter* painter, const QRect& place, QIcon::Mode mode, QIcon::State state) override {
        painter->drawPixmap(place, drawn(place.size(), painter->device()->devicePixelRatioF(), mode, state));
    }
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        return drawn(size, 1, mode, state);
    }
    QPixmap scaledPixmap(const QSize& size, QIcon::Mode mode, QIcon::State state, qreal scale) override {
        return drawn((QSizeF(size) / scale).toSize(), scale, mode, state);
    }
    QList<QSize> availableSizes(QIcon::Mode mode, QIcon::State state) override {
        return icon().availableSizes(mode, state);
    }
    bool isNull() override { return icon().isNull(); }
    QString iconName() override { return name_; }
    QIconEngine* clone() const override { return new DimmableIconEngine(name_); }

private:
    /// Asked anew each time, so that it comes from the theme in use.
    QIcon icon() const { return QIcon::fromTheme(name_); }
    QPixmap drawn(const QSize& size, qreal scale, QIcon::Mode mode, QIcon::State state) const {
        const bool isDisabled = mode == QIcon::Disabled;
        const QPixmap pixmap = icon().pixmap(size, scale, isDisabled ? QIcon::Normal : mode, state);
        return isDisabled ? dimmed(pixmap) : pixmap;
    }

    QString name_;
};

}  // namespace

QIcon dimmableIcon(const QString& name) {
    return QIcon(new DimmableIconEngine(name));
}

}  // namespace klt
