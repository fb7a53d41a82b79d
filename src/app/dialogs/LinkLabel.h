#pragma once

#include <QLabel>

namespace klt {

/// A label that can be clicked, or pressed with Enter or the space bar. Under the mouse, and with the focus,
/// it has the colour of a link.
class LinkLabel : public QLabel {
    Q_OBJECT

public:
    explicit LinkLabel(const QString& text, QWidget* parent = nullptr);

signals:
    void clicked();

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    void showState();
};

}  // namespace klt
