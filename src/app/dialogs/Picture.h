#pragma once

#include <QWidget>

class QPainter;

namespace klt {

/// A picture that is drawn by code, sharp at every scale.
class Picture : public QWidget {
    Q_OBJECT

public:
    /// Draws one frame of a picture on the field that `Picture` was made with.
    using Draw = void (*)(QPainter& painter, int frame);

    /// `field` is the size in pixels of scale 1, and that of the widget.
    Picture(Draw draw, QSize field, QWidget* parent = nullptr);
    /// Shows another frame; the first is 1.
    void setFrame(int frame);

signals:
    void clicked();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    const Draw draw_;
    int frame_ = 1;
};

/// The program's emblem: its page on a ground.
Picture* makeEmblem(const char* name, QWidget* parent = nullptr);
inline constexpr int kDragonFrames = 10;
/// A dragon in flight, in ten frames that follow each other in a ring.
Picture* makeDragon(const char* name, QWidget* parent = nullptr);

}  // namespace klt
