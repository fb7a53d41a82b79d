#pragma once

#include <QListView>
#include <QStringListModel>
#include <functional>
#include <string_view>
#include <vector>

#include "checker/Completion.h"
#include "ui/RichTextBox.h"

namespace klt {

/// Tells the texts of all open documents.
using OpenTexts = std::function<std::vector<std::string_view>()>;
/// Tells what may stand at a caret in the text of the box.
using PlaceInBox = std::function<CompletionPlace(std::string_view text, size_t caret)>;

/// A list below the caret of what may stand there. The keyboard stays with the box, whose typing narrows it;
/// Enter, Tab or a click writes the chosen row, Escape closes the list, and so does whatever else takes the
/// caret away from what is typed.
class CompletionPopup : public QListView {
public:
    /// Shows one over `box`, which gives it its looks and its end. Where nothing may stand there, none comes.
    static void open(RichTextBox& box, PlaceInBox placeAt, OpenTexts openTexts);

    ~CompletionPopup() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool focusNextPrevChild(bool next) override;

private:
    CompletionPopup(RichTextBox& box, PlaceInBox placeAt, OpenTexts openTexts);

    Completions completions();
    bool list(Completions found);
    void narrow();
    void take();
    void place();

    RichTextBox& box_;
    const PlaceInBox placeAt_;
    const OpenTexts openTexts_;
    Completions found_;
    /// Where the caret stood when they were looked for.
    Position caret_ = 0;
    QStringListModel rows_;
    bool isTaking_ = false;
};

/// From now on Ctrl+Space in the box opens the list.
void addCompletion(RichTextBox& box, PlaceInBox placeAt, OpenTexts openTexts);

}  // namespace klt
