#pragma once

#include <QFrame>
#include <QString>
#include <functional>
#include <string_view>
#include <vector>

class QHBoxLayout;
class QLabel;
class QPushButton;

namespace klt {

/// A button of a notice, which takes the notice away before it acts.
struct NoticeChoice {
    const char* name;
    /// With its access key.
    const char* caption;
    /// May be empty.
    std::function<void()> chosen;
};

/// A bar of one line that tells what went wrong, or what has happened, newest first, without stopping
/// anybody. It is hidden while there is nothing to tell and never takes the focus by itself; each of its
/// buttons takes one notice away.
class NoticeBar : public QFrame {
public:
    using Id = int;
    static constexpr Id kNone = 0;

    explicit NoticeBar(QWidget* parent = nullptr);

    /// Shows `text` (UTF-8) until the user dismisses it, when `dismissed` is called. The same twice in a row
    /// is one.
    void tell(std::string_view text, std::function<void()> dismissed = {});
    /// Shows `text` until the user takes one of the choices, or it is withdrawn.
    Id offer(std::string_view text, std::vector<NoticeChoice> choices);
    /// Takes a notice away, if it is still there, without a choice.
    void withdraw(Id notice);

private:
    struct Notice {
        Id id;
        QString text;
        std::vector<NoticeChoice> choices;
    };
    void choose(size_t index);
    void showNewest();
    QPushButton& button(size_t index);

    std::vector<Notice> notices_;
    Id lastId_ = kNone;
    QHBoxLayout* row_;
    QLabel* icon_;
    QLabel* text_;
    QLabel* others_;
    /// As many as a notice ever had, in their order.
    std::vector<QPushButton*> buttons_;
};

}  // namespace klt
