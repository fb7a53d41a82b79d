#pragma once

namespace klt {

class RichTextBox;
class TextArea;
class frmMDIKLTEditor;

/// The text area that the commands of the Edit menu work on: the one that has the focus in the window, else
/// the active document's; null without either.
RichTextBox* activeControl(const frmMDIKLTEditor& window);

/// Copies the selection. The clipboard then has text, and only the first line stays closed to pasting.
void copy(frmMDIKLTEditor& window);
void selectAll(RichTextBox& text);

/// Opens a comment line below the caret's, with the caret in it.
void insertCommentLine(TextArea& text);
/// Opens a comment at the end of the caret's line.
void insertComment(TextArea& text);

}  // namespace klt
