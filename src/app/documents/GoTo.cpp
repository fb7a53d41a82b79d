#include "app/documents/GoTo.h"

#include "app/commands/KeyCommand.h"
#include "app/commands/WindowCommands.h"
#include "app/dialogs/GoToField.h"
#include "app/documents/frmKLTEditor.h"
#include "app/window/frmMDIKLTEditor.h"
#include "language/NameReference.h"

namespace klt {
namespace {

/// The line with the longest name that fits: "Half-Moon" comes before "Half".
struct Target {
    frmKLTEditor* document = nullptr;
    TextRange place;
    size_t length = 0;
};

void search(frmKLTEditor& document, const NameReference& reference, Target& best) {
    const auto text = document.RichTextBox1->Text();
    walkOutline(text, [&](const OutlineEntry& entry) {
        const auto length = reference.lengthOf(entry);
        if (length <= best.length) return;
        const Position start = entry.shown.data() - text.data();
        best = {&document, {start, start + static_cast<Position>(entry.shown.size())}, length};
    });
}

void goToItem(frmMDIKLTEditor& window, frmKLTEditor& active) {
    const RichTextBox& box = *active.RichTextBox1;
    // Asked for first: it may move the text about.
    const auto text = box.Text();
    const Position line = box.GetLineFromChar(box.SelStart());
    const auto start = static_cast<size_t>(box.LineIndex(line));
    const auto length = static_cast<size_t>(box.LineLength(line));
    const auto reference =
        referenceAt(text.substr(start, length), static_cast<size_t>(box.SelStart()) - start);
    if (!reference) return;

    Target best;
    search(active, *reference, best);
    for (auto* document : window.forms().documents())
        if (document != &active) search(*document, *reference, best);
    if (!best.document) return;
    activateDocument(window, *best.document);
    RichTextBox& found = *best.document->RichTextBox1;
    showPlace(found, best.place);
    found.SetSelStart(best.place.start);
}

}  // namespace

void addGoTo(frmMDIKLTEditor& window, CommandQueue& queue) {
    addKeyCommand(window, queue, "GoTo", Qt::CTRL | Qt::Key_G, [&window](frmKLTEditor& document) {
        auto* field = new GoToField(*document.RichTextBox1);
        QObject::connect(&window, &frmMDIKLTEditor::documentActivated, field, &QWidget::close);
        field->open();
    });
    addKeyCommand(window, queue, "GoToItem", Qt::Key_F12,
                  [&window](frmKLTEditor& document) { goToItem(window, document); });
}

}  // namespace klt
