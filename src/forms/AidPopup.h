#pragma once

#include <QMenu>

#include "wizards/AidMenus.h"

namespace klt {

/// A Syntax Aid menu as a popup under its name. The item at a position (from 1, all items counted) is the
/// action "NAME.POSITION".
class AidPopup : public QMenu {
public:
    /// The table must outlive it.
    explicit AidPopup(const AidMenu& table, QWidget* parent = nullptr);

    /// Shows it at a point of the screen and returns when it has closed: the position of the chosen item; 0
    /// for none.
    int choose(QPoint place);
};

}  // namespace klt
