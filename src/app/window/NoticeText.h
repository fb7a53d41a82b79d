#pragma once

#include <QLabel>
#include <functional>

namespace klt {

/// A label that breaks its text anywhere rather than widen its window, and shows no more than some lines of
/// it, the last one shortened. It always holds the whole text.
class NoticeText : public QLabel {
public:
    explicit NoticeText(int mostLines, QWidget* parent = nullptr);

    /// Whether it shows less than it holds.
    bool isCut() const;
    std::function<void()> clicked;
    /// Called when it may be cut, or no longer.
    std::function<void()> resized;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    int heightForWidth(int width) const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    const int mostLines_;
};

}  // namespace klt
