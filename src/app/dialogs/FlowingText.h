#pragma once

#include <QLabel>
#include <vector>

namespace klt {

/// A paragraph that is made of several labels, whose texts flow into each other.
class FlowingText : public QWidget {
public:
    struct Piece {
        const char* name;
        const char* text;
    };
    FlowingText(const std::vector<Piece>& pieces, QWidget* parent);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }
    int heightForWidth(int width) const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    QString text_;
    /// In their order; they hold their texts and draw nothing.
    std::vector<QLabel*> labels_;
};

}  // namespace klt
