#include "app/documents/Complete.h"

#include "app/commands/KeyCommand.h"
#include "app/documents/frmKLTEditor.h"
#include "app/window/frmMDIKLTEditor.h"
#include "ui/CompletionPopup.h"

namespace klt {

std::vector<std::string_view> openTexts(const frmMDIKLTEditor& window) {
    std::vector<std::string_view> texts;
    for (const auto* document : window.forms().documents()) texts.push_back(document->RichTextBox1->Text());
    return texts;
}

void addComplete(frmMDIKLTEditor& window, CommandQueue& queue) {
    addKeyCommand(window, queue, "Complete", Qt::CTRL | Qt::Key_Space, [&window](frmKLTEditor& document) {
        CompletionPopup::open(*document.RichTextBox1, placeInDocument,
                              [&window] { return openTexts(window); });
    });
}

}  // namespace klt
