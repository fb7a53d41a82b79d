#pragma once

#include "text/TextArea.h"

namespace klt {

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

}  // namespace klt
