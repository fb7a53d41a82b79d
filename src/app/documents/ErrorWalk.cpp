#include "app/documents/ErrorWalk.h"

#include "app/commands/KeyCommand.h"
#include "app/documents/frmKLTEditor.h"
#include "language/StyleCategory.h"
#include "ui/StyleRunSearch.h"

namespace klt {
namespace {

constexpr auto kError = static_cast<StyleByte>(StyleCategory::SyntaxError);

/// `elsewhere` tells in which direction there is none where there are others.
void show(RichTextBox& text, std::optional<TextRange> run, const char* elsewhere) {
    if (!run) {
        const bool hasAny = nextStyleRun(text, kError, 0).has_value();
        return text.showTipAtCaret(hasAny ? elsewhere : "No errors");
    }
    text.Select(run->start, run->end - run->start);
    text.ScrollCaret();
    text.showErrorTip(*run);
}

void toNextError(RichTextBox& text) {
    show(text, nextStyleRun(text, kError, text.SelStart() + text.SelLength()), "No errors below");
}

void toPreviousError(RichTextBox& text) {
    show(text, previousStyleRun(text, kError, text.SelStart()), "No errors above");
}

}  // namespace

void addErrorWalk(frmMDIKLTEditor& window, CommandQueue& queue) {
    addKeyCommand(window, queue, "NextError", Qt::Key_F8,
                  [](frmKLTEditor& document) { toNextError(*document.RichTextBox1); });
    addKeyCommand(window, queue, "PreviousError", Qt::SHIFT | Qt::Key_F8,
                  [](frmKLTEditor& document) { toPreviousError(*document.RichTextBox1); });
}

}  // namespace klt
