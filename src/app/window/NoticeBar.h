#pragma once

#include <QFrame>
#include <QString>
#include <functional>
#include <string_view>
#include <vector>

class QLabel;

namespace klt {

/// A bar of one line that tells what went wrong, newest first, without stopping anybody. It is hidden while
/// there is nothing to tell and never takes the focus by itself; its button takes one notice away.
class NoticeBar : public QFrame {
public:
    explicit NoticeBar(QWidget* parent = nullptr);

    /// Shows `text` (UTF-8) until the user dismisses it, when `dismissed` is called. The same twice in a row
    /// is one.
    void tell(std::string_view text, std::function<void()> dismissed = {});

private:
    struct Notice {
        QString text;
        std::function<void()> dismissed;
    };
    void dismiss();
    void showNewest();

    std::vector<Notice> notices_;
    QLabel* icon_;
    QLabel* text_;
    QLabel* others_;
};

}  // namespace klt
