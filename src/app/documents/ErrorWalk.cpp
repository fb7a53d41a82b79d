#include "app/documents/ErrorWalk.h"

#include <QAction>

#include "app/commands/CommandQueue.h"
#include "app/documents/frmKLTEditor.h"
#include "app/window/frmMDIKLTEditor.h"
#include "language/StyleCategory.h"
#include "ui/StyleRunSearch.h"

namespace klt {
namespace {

constexpr auto kError = static_cast<StyleByte>(StyleCategory::SyntaxError);

void show(RichTextBox& text, std::optional<TextRange> run) {
    if (!run) return;
    text.Select(run->start, run->end - run->start);
    text.ScrollCaret();
}

void toNextError(RichTextBox& text) {
    show(text, nextStyleRun(text, kError, text.SelStart() + text.SelLength()));
}

void toPreviousError(RichTextBox& text) {
    show(text, previousStyleRun(text, kError, text.SelStart()));
}

}  // namespace

void addErrorWalk(frmMDIKLTEditor& window, CommandQueue& queue) {
    const auto add = [&](const char* name, Qt::KeyboardModifiers modifiers, void (*walk)(RichTextBox&)) {
        auto* action = new QAction(&window);
        action->setObjectName(name);
        action->setShortcut(modifiers | Qt::Key_F8);
        window.addAction(action);
        QObject::connect(action, &QAction::triggered, &window, [&window, &queue, walk] {
            queue.submit(Origin::User, [&window, walk] {
                if (auto* document = window.ActiveForm()) walk(*document->RichTextBox1);
            });
        });
    };
    add("NextError", Qt::NoModifier, toNextError);
    add("PreviousError", Qt::ShiftModifier, toPreviousError);
}

}  // namespace klt
