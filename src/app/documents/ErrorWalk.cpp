#include "app/documents/ErrorWalk.h"

#include "app/commands/KeyCommand.h"
#include "app/documents/frmKLTEditor.h"
#include "language/StyleCategory.h"
#include "ui/StyleRunSearch.h"

namespace klt {
namespace {

constexpr auto kError = static_cast<StyleByte>(StyleCategory::SyntaxError);

void show(RichTextBox& text, std::optional<TextRange> run) {
    if (!run) return;
    text.Select(run->start, run->end - run->start);
    text.ScrollCaret();
    text.showErrorTip(*run);
}

void toNextError(RichTextBox& text) {
    show(text, nextStyleRun(text, kError, text.SelStart() + text.SelLength()));
}

void toPreviousError(RichTextBox& text) {
    show(text, previousStyleRun(text, kError, text.SelStart()));
}

}  // namespace

void addErrorWalk(frmMDIKLTEditor& window, CommandQueue& queue) {
    addKeyCommand(window, queue, "NextError", Qt::Key_F8,
                  [](frmKLTEditor& document) { toNextError(*document.RichTextBox1); });
    addKeyCommand(window, queue, "PreviousError", Qt::SHIFT | Qt::Key_F8,
                  [](frmKLTEditor& document) { toPreviousError(*document.RichTextBox1); });
}

}  // namespace klt
