#pragma once

namespace klt {

class TextArea;
class Toolbars;

/// The rules for the buttons that edit the active document's text. On purpose they are not the menu's: a
/// first line that is longer than it should be is open to Cut, Copy and Delete behind its ninth character.

/// After the caret has moved, or the clipboard has changed.
void enableForCaret(Toolbars& bars, const TextArea& text, bool clipboardHasText);
void enablePaste(Toolbars& bars, const TextArea& text, bool clipboardHasText);
/// Once a text has been loaded there is nothing to undo, and the caret stands in the first line.
void disableAfterLoad(Toolbars& bars);

}  // namespace klt
