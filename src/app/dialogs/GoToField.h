#pragma once

#include <QFrame>
#include <optional>

#include "text/TextArea.h"

class QLineEdit;
class QListView;

namespace klt {

class OutlineRows;
class RichTextBox;

/// Selects a place, no more of it than a row of a list shows, and brings its line to the middle of the view.
void showPlace(RichTextBox& box, TextRange place);

/// One field over a document's text with a list of its headers and items, which what is typed narrows; a
/// number is a line. The text shows the line that is chosen. Enter, or a click on a row, leaves the caret
/// there; Escape, or whatever else closes the field, puts caret and view back.
class GoToField : public QFrame {
public:
    /// It is the box's own, and goes with the next edit of its text.
    explicit GoToField(RichTextBox& box);

    /// Shows it in the corner of the box, with the line at the caret chosen.
    void open();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    /// Where caret and view were.
    struct Origin {
        long anchor, caret, firstLine, xOffset;
    };

    void buildLayout();
    void place();
    void typed();
    void step(int rows);
    void choose(std::optional<size_t> row);
    void showRow();
    void showLine(Position line);
    void follow(TextRange found);
    void goBack();
    void jump();
    void leave();

    RichTextBox& box_;
    const Origin origin_;
    OutlineRows* const rows_;
    QLineEdit* const field_;
    QListView* const list_;
    /// Where Enter goes; nothing while the text shows where it was.
    std::optional<Position> target_;
    bool staysThere_ = false;
};

}  // namespace klt
