#pragma once

#include <QString>

#include "text/TextArea.h"

class QLabel;
class QStatusBar;

namespace klt {

/// The three panels of the status bar. They speak of the active document.
class StatusPanels {
public:
    /// Builds the panels into `bar`, as for no document.
    explicit StatusPanels(QStatusBar& bar);

    /// Panel 1.
    void showModified(bool modified);
    /// Panel 2: the length of the text in characters.
    void showLength(Position characters);
    /// Panel 3: line and column, from 1.
    void showCaret(Position line, Position column);
    /// Has the icon of panel 1 come from the icons in use.
    void refreshIcon();
    /// As it is when no document is left.
    void clear();

private:
    QLabel* panel1_;
    QLabel* panel1Icon_;
    QLabel* panel2_;
    QLabel* panel3_;
};

}  // namespace klt
