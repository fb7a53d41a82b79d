#include "app/commands/EditCommands.h"

#include "app/documents/frmKLTEditor.h"
#include "app/window/frmMDIKLTEditor.h"

namespace klt {
namespace {

void putAtLineEnd(TextArea& text, std::string_view added) {
    text.UpTo("\r\n");
    text.SetSelText(added);
    text.ScrollCaret();
}

}  // namespace

RichTextBox* activeControl(const frmMDIKLTEditor& window) {
    if (auto* focused = qobject_cast<RichTextBox*>(window.focusWidget())) return focused;
    auto* document = window.ActiveForm();
    return document ? document->RichTextBox1 : nullptr;
}

void copy(frmMDIKLTEditor& window) {
    RichTextBox* text = activeControl(window);
    if (!text) return;
    text->Copy();
    window.toolbars().setEnabled(kDefaultBar, kPasteButton, text->GetLineFromChar(text->SelStart()) > 0);
}

void selectAll(RichTextBox& text) {
    text.Select(0, text.Length());
}

void insertCommentLine(TextArea& text) {
    putAtLineEnd(text, "\r\n*");
}

void insertComment(TextArea& text) {
    putAtLineEnd(text, " // ");
}

}  // namespace klt
