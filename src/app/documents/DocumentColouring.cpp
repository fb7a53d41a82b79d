#include "app/documents/DocumentColouring.h"

#include <QApplication>
#include <memory>

#include "app/commands/CommandQueue.h"
#include "app/dialogs/frmKLTChecker.h"
#include "app/documents/WindowPass.h"
#include "app/documents/frmKLTEditor.h"
#include "app/window/frmMDIKLTEditor.h"
#include "language/NewDocument.h"
#include "settings/Catalogue.h"
#include "text/Ascii.h"
#include "ui/WaitCursor.h"
#include "ui/modKLTSyntaxHighlighter.h"

namespace klt {

DocumentColouring::DocumentColouring(Store& store, CommandQueue& queue, modKLTSyntaxHighlighter& highlighter,
                                     std::function<frmMDIKLTEditor&()> mainWindow,
                                     std::function<void()> passBegins)
    : store_(store),
      queue_(queue),
      highlighter_(highlighter),
      mainWindow_(std::move(mainWindow)),
      passBegins_(std::move(passBegins)) {}

bool DocumentColouring::showsProgress(const frmKLTEditor& document) const {
    if (readSetting(store_, settings::kShowKLTCheckerWindow) != 1) return false;
    const RichTextBox& box = *document.RichTextBox1;
    return box.Length() != static_cast<Position>(kNewDocumentText.size()) ||
           !equalIgnoringAsciiCase(box.Text(), kNewDocumentText);
}

void DocumentColouring::ColourDocument(frmKLTEditor& document) {
    WindowPass::requireRoomFor(*document.RichTextBox1);
    passBegins_();
    std::unique_ptr<frmKLTChecker> progress;
    // Below a dialog that is up it would not answer.
    QWidget* const dialog = QApplication::activeModalWidget();
    if (showsProgress(document)) progress = std::make_unique<frmKLTChecker>(dialog ? dialog : &mainWindow_());
    const CommandQueue::Pass hold(queue_, progress.get());
    const WaitCursor waiting;
    if (progress) {
        progress->show();
        progress->repaint();
    }
    QCoreApplication::processEvents();
    RichTextBox& box = *document.RichTextBox1;
    {
        WindowPass pass(box, highlighter_.state, progress.get());
        highlighter_.LoadStyles(box);
        pass.run();
    }
    if (progress && progress->isActiveWindow()) progress->parentWidget()->activateWindow();
}

}  // namespace klt
