#pragma once

#include <string>
#include <vector>

#include "text/Encoding.h"
#include "text/TextArea.h"

namespace klt {

class RichTextBox;
class frmKLTEditor;

/// Where the user is in a text: selection and scroll, by lines, so that they can be found again in another
/// version of it.
class TextView {
public:
    explicit TextView(const TextArea& text);
    /// Selects what was selected, as far as the text has it now, and scrolls to where it stood.
    void restoreIn(TextArea& text) const;
    void restoreScrollIn(TextArea& text) const { text.ScrollToLine(firstVisible_); }

private:
    struct Place {
        Position line = 0;
        Position column = 0;  // in bytes
    };
    static Place placeOf(const TextArea& text, Position position);
    static Position positionOf(const TextArea& text, Place place);

    Place start_;
    Place end_;
    Position firstVisible_;
};

/// A document's text as it stood, colours included.
class KeptText {
public:
    explicit KeptText(const frmKLTEditor& document);
    /// Puts the text back, which counts as an edit. Throws `std::bad_alloc` with nothing changed.
    void bringBackTo(frmKLTEditor& document) const;

private:
    std::string text_;
    std::string styles_;
    std::vector<TextRange> protected_;
    Encoding encoding_;
    TextView view_;
};

}  // namespace klt
