#pragma once

#include <QScrollArea>

namespace klt {

/// As large as what it holds; where the screen is smaller, it scrolls.
class FittingArea : public QScrollArea {
public:
    explicit FittingArea(QWidget* parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QSize onScreen(QSize wanted) const;
};

}  // namespace klt
