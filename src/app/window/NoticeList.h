#pragma once

#include <QDialog>
#include <functional>
#include <vector>

#include "app/window/PendingNotice.h"

class QScrollArea;

namespace klt {

/// All notices under each other, newest first, each whole and with its buttons, as a popup below the bar.
class NoticeList : public QDialog {
public:
    /// `choose` takes a notice away and acts.
    NoticeList(QWidget& bar, std::function<void(int notice, size_t choice)> choose);

    /// Shows the notices, oldest first in `notices`, in the place of those that it showed. Without any it
    /// closes.
    void showNotices(const std::vector<PendingNotice>& notices);
    /// Comes up below the bar, with the keyboard on the first button.
    void popUp(const std::vector<PendingNotice>& notices);

private:
    QWidget* makeRow(const PendingNotice& notice, int index);
    int focusedRow() const;
    void focusRow(int index);
    void place();

    QWidget& bar_;
    std::function<void(int, size_t)> choose_;
    QScrollArea* scroll_;
};

}  // namespace klt
