#pragma once

#include <QObject>

namespace klt {

/// Whether the clipboard has text, remembered from its changes: asking it means asking another program.
class ClipboardState : public QObject {
    Q_OBJECT

public:
    ClipboardState();

    bool hasText() const { return hasText_; }

signals:
    void changed();

private:
    void ask();

    bool hasText_ = false;
};

}  // namespace klt
