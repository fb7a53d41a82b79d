// How documents become texts that are kept, and texts that are kept documents.

#include <cerrno>
#include <tuple>

#include "app/documents/Documents.h"
#include "app/documents/frmKLTEditor.h"
#include "app/modVariables.h"
#include "app/recovery/TextCopies.h"
#include "app/window/frmMDIKLTEditor.h"
#include "platform/FileCalls.h"
#include "platform/FileReader.h"
#include "platform/MemoryRoom.h"
#include "platform/RecoveryFolder.h"

namespace klt {

/// Keeps the text of a document that must go and is in no file because of `reason`. False where that is not
/// possible.
bool Documents::keep(const frmKLTEditor& document, const std::string& reason) {
    NoticeBar& notices = mainWindow_().notices();
    const auto kept = kept_.copies.leave(*document.RichTextBox1);
    if (kept.error) {
        notices.tell(reason + ". The document stays, for its text could not be kept in " + kept.path +
                         " either: " + *kept.error,
                     {}, &document);
    } else {
        notices.tell(reason + ". Its text is kept in " + kept.path,
                     [&folder = kept_.folder, kept] { std::ignore = folder.dismiss(kept.path); });
    }
    return !kept.error;
}

void Documents::OpenLeft(const LeftText& left) {
    const CommandQueue::Opening opening(queue_);
    const TextFile file = readTextFile(left.path);
    if (file.error && !file.isOutOfMemory()) {
        mainWindow_().notices().tell(left.path + " could not be read: " + *file.error);
        return;
    }
    ++variables_.DocumentCounter;
    frmKLTEditor* document = nullptr;
    const bool fits = !file.isOutOfMemory() && fitsMemory([&] { loadLeft(left, file.text, document); });
    if (!fits) return giveUp(left.path, document, *systemFailure(ENOMEM));
    mainWindow_().updateMenus();
}

void Documents::loadLeft(const LeftText& left, const std::string& text, frmKLTEditor*& document) {
    const KeptAbout& about = left.about;
    document = &makeWindow();
    document->setCaption(about.hasFile ? about.name : newName());
    {
        const RaisedFlag loading(document->isLoading);
        const RaisedFlag keeping(document->isKeptText);
        document->encoding = about.encoding;
        document->RichTextBox1->SetText(text);
    }
    document->isFileWanted = about.isFileWanted;
    document->setModified(true);
    document->RichTextBox1->SetSelStart(about.caret);
    if (about.hasFile) {
        variables_.CurrentFilePath = about.name;
        // Where the file system does not answer the file counts as gone.
        const auto file = findFile(about.name).value_or(FoundFile{false, about.name});
        document->Label2->setEnabled(file.exists);
        changes_.opened(*document, {about.name, file.target, {{}, {about.seen, {}}}, {}});
        changes_.look(*document);
    }
    show(*document);
    document->RichTextBox1->ScrollCaret();
    mainWindow_().panels().showModified(true);
    // Not before all is there: a document that is given up must not take the text along.
    kept_.copies.replaceCopy(*document->RichTextBox1, left.path);
}

}  // namespace klt
