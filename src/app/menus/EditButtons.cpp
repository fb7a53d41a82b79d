#include "app/menus/EditButtons.h"

#include "app/menus/Toolbars.h"
#include "language/LogicalLine.h"
#include "text/TextArea.h"

namespace klt {

void enableForCaret(Toolbars& bars, const TextArea& text, bool clipboardHasText) {
    const bool isBehindFirst = text.SelStart() > kVersionLineLength;
    const bool isSelected = text.SelLength() != 0;
    bars.setEnabled(kDefaultBar, kCutButton, isBehindFirst && isSelected);
    bars.setEnabled(kDefaultBar, kCopyButton, isBehindFirst && isSelected);
    bars.setEnabled(kDefaultBar, kDeleteButton, isBehindFirst);
    enablePaste(bars, text, clipboardHasText);
}

void enablePaste(Toolbars& bars, const TextArea& text, bool clipboardHasText) {
    bars.setEnabled(kDefaultBar, kPasteButton, clipboardHasText && text.GetLineFromChar(text.SelStart()) > 0);
}

void disableAfterLoad(Toolbars& bars) {
    for (int index = kUndoButton; index <= kDeleteButton; ++index) bars.setEnabled(kDefaultBar, index, false);
}

}  // namespace klt
