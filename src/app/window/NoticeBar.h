#pragma once

#include <QFrame>
#include <QString>
#include <functional>
#include <string_view>
#include <vector>

#include "app/window/PendingNotice.h"

class QHBoxLayout;
class QLabel;
class QPushButton;
class QToolButton;

namespace klt {

class NoticeList;
class NoticeText;

/// A bar that tells what went wrong, or what has happened, newest first, without stopping anybody. It is
/// hidden while there is nothing to tell and never takes the focus by itself; each of its buttons takes one
/// notice away. Where there are several, or one is longer than the bar's few lines, one more button, or a
/// click on the text, lists them whole. The list stays while notices are dismissed in it.
class NoticeBar : public QFrame {
public:
    using Id = int;
    static constexpr Id kNone = 0;

    explicit NoticeBar(QWidget* parent = nullptr);

    /// Shows `text` (UTF-8) until the user dismisses it, when `dismissed` is called. The same twice in a row
    /// is one. `about` is what `offer` takes.
    void tell(std::string_view text, std::function<void()> dismissed = {}, const QObject* about = nullptr);
    /// Shows `text` until the user takes one of the choices, or it is withdrawn. What it is about, if
    /// anything, takes it along when it is destroyed.
    Id offer(std::string_view text, std::vector<NoticeChoice> choices, const QObject* about = nullptr);
    /// Takes a notice away, if it is still there, without a choice.
    void withdraw(Id notice);
    /// Takes all notices about an object away, without a choice.
    void withdrawAbout(const QObject* about);

private:
    void choose(Id notice, size_t choice);
    void showNewest();
    void showListButton();
    void list();
    QPushButton& button(size_t index);

    std::vector<PendingNotice> notices_;
    Id lastId_ = kNone;
    /// The notice whose button is down.
    Id pressed_ = kNone;
    QHBoxLayout* row_;
    QLabel* icon_;
    NoticeText* text_;
    QToolButton* all_;
    /// As many as a notice ever had, in their order.
    std::vector<QPushButton*> buttons_;
    NoticeList* list_;
};

}  // namespace klt
