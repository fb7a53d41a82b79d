#include "app/documents/Documents.h"

#include <QCoreApplication>
#include <QPointer>
#include <QScopedValueRollback>
#include <algorithm>
#include <cerrno>

#include "app/commands/WindowCommands.h"
#include "app/documents/frmKLTEditor.h"
#include "app/modVariables.h"
#include "app/window/frmMDIKLTEditor.h"
#include "language/NewDocument.h"
#include "platform/FileCalls.h"
#include "platform/KeptCopies.h"
#include "platform/MemoryRoom.h"
#include "platform/Paths.h"
#include "platform/ProgramNames.h"
#include "settings/Catalogue.h"
#include "ui/MessageBox.h"

namespace klt {
namespace {

constexpr const char* kOpenTitle = "Select Data File to Open";
constexpr unsigned kSaveFlags = kOverwritePrompt | kHideReadOnly | kPathMustExist | kExplorer | kLongNames;
constexpr unsigned kOpenFlags = kHideReadOnly | kAllowMultiselect | kFileMustExist | kExplorer | kLongNames;
static_assert(kSaveFlags == 2623494 && kOpenFlags == 2626052);

// Room for what a document's window itself needs, in bytes.
constexpr size_t kWindowSize = size_t{1} << 20;

bool isBlank(std::string_view path) {
    return path.find_first_not_of(' ') == path.npos;
}

void letEventsRun() {
    QCoreApplication::processEvents();
}

/// What the document's file is called, or would be.
std::string displayName(const frmKLTEditor& document) {
    const std::string name = FileName(document.Caption());
    return FileExtension(document.Caption()).empty() ? name + std::string(kFileEnding) : name;
}

/// What the file dialog proposes: a name that was given beside a file stays in that file's folder.
std::string proposedFile(const frmKLTEditor& document) {
    return document.oldFile.empty() ? displayName(document) : document.Caption();
}

/// A question is answered by looking at what it is about.
void bringToFront(frmMDIKLTEditor& window, frmKLTEditor& document) {
    if (window.isMinimized()) window.bringForward();
    const bool isInFront = window.ActiveForm() == &document && !document.parentWidget()->isMinimized();
    if (!isInFront) activateDocument(window, document);
}

}  // namespace

Documents::Documents(modVariables& variables, Store& store, CommandQueue& queue,
                     std::function<frmMDIKLTEditor&()> mainWindow,
                     std::function<void(frmKLTEditor&)> ColourDocument, Kept kept)
    : variables_(variables),
      store_(store),
      queue_(queue),
      mainWindow_(std::move(mainWindow)),
      ColourDocument_(std::move(ColourDocument)),
      kept_(kept),
      changes_(FileChanges::Services{.queue = queue,
                                     .wait = wait_,
                                     .mainWindow = mainWindow_,
                                     .check = [this](frmKLTEditor& document) { checkWhereWanted(document); },
                                     .copies = kept.copies}) {}

void Documents::OpenDocument(std::string_view path, bool checkNow) {
    MissingFiles alone;
    open(path, checkNow, alone);
}

void Documents::open(std::string_view path, bool checkNow, MissingFiles& missing) {
    const CommandQueue::Opening opening(queue_);
    ++variables_.DocumentCounter;
    frmMDIKLTEditor& window = mainWindow_();
    frmKLTEditor* document = nullptr;
    if (!fitsMemory([&] { load(path, document, missing); }))
        return giveUp(path, document, *systemFailure(ENOMEM));
    if (!document) return giveUp(path, nullptr, kNoAnswer);
    if (checkNow) tryStep([&] { checkWhereWanted(*document); });
    window.updateMenus();
}

void Documents::checkWhereWanted(frmKLTEditor& document) {
    if (readSetting(store_, settings::kAutoSyntaxCheck)) ColourDocument_(document);
}

/// Makes the window and fills it; where memory runs out `document` is what there is of it. None is made where
/// the file system does not answer.
void Documents::load(std::string_view path, frmKLTEditor*& document, MissingFiles& missing) {
    using Found = std::optional<FoundText>;
    const bool isNew = isBlank(path);
    const auto answer =
        isNew ? std::optional(Found())
              : wait_.find<Found>(std::string(path), [path = std::string(path)] { return findText(path); });
    if (!answer) return;
    const Found& found = *answer;
    if (found && found->read.file.isOutOfMemory()) throw std::bad_alloc();
    document = &makeWindow();
    if (isNew) {
        fillNew(*document);
    } else if (found) {
        fillFromFile(*document, *found);
    } else {
        tellMissing(path, missing);
    }
    mainWindow_().panels().showCaret(1, 1);
    show(*document);
}

frmKLTEditor& Documents::makeWindow() {
    requireRoom(kWindowSize);
    frmKLTEditor& document = mainWindow_().loadDocument();
    letEventsRun();
    return document;
}

void Documents::show(frmKLTEditor& document) {
    mainWindow_().showDocument(document);
    letEventsRun();
}

std::string Documents::newName() const {
    return "KLT" + std::to_string(variables_.DocumentCounter);
}

/// An opening can't come to its end: no window stays.
void Documents::giveUp(std::string_view path, frmKLTEditor* document, const std::string& why) {
    if (document) {
        document->AppEnd = true;
        mainWindow_().closeDocument(*document);
    }
    mainWindow_().notices().tell((isBlank(path) ? "A new document" : std::string(path)) +
                                 " could not be opened: " + why);
}

void Documents::tellMissing(std::string_view path, MissingFiles& missing) {
    constexpr int kToldWithoutChoice = 3;
    if (missing.isRestSkipped) return;
    const bool hasChoice = missing.told++ >= kToldWithoutChoice;
    const auto answer = MessageBox(
        &mainWindow_(), "The specified data file (" + std::string(path) + ") does not exist.",
        MessageIcon::Exclamation, kTitle,
        hasChoice ? QMessageBox::Ok | kSkipTheRest : QMessageBox::StandardButtons(QMessageBox::Ok));
    missing.isRestSkipped = answer == kSkipTheRest;
}

void Documents::fillNew(frmKLTEditor& document) {
    document.setCaption(newName());
    const QScopedValueRollback loading(document.isLoading, variables_.LoadingDocuments);
    document.RichTextBox1->SetText(kNewDocumentText);
}

void Documents::fillFromFile(frmKLTEditor& document, const FoundText& found) {
    const std::string& path = found.path;
    const TextFile& file = found.read.file;
    document.setCaption(path);
    {
        const RaisedFlag loadingAny(variables_.LoadingDocuments);
        const RaisedFlag loading(document.isLoading);
        document.encoding = file.encoding;
        if (file.error)
            mainWindow_().notices().tell(path + " could not be read: " + *file.error, {}, &document);
        document.RichTextBox1->SetText(file.text);
    }
    variables_.CurrentFilePath = path;
    AddToRecent(path);
    document.Label2->setEnabled(true);
    changes_.opened(document, found);
    for (const auto& copy : found.leftovers) {
        std::string told = "A save of " + path;
        told += " did not come to its end; what stood there before is kept in " + copy;
        mainWindow_().notices().tell(
            told, [copy] { std::ignore = dismissKeptFile(copy); }, &document);
    }
}

void Documents::openFiles(const std::vector<std::string>& paths) {
    const CommandQueue::Opening opening(queue_);
    const RaisedFlag loading(variables_.LoadingDocuments);
    MissingFiles missing;
    for (const auto& path : paths) {
        open(path, true, missing);
        letEventsRun();
    }
}

void Documents::New() {
    const RaisedFlag loading(variables_.LoadingDocuments);
    OpenDocument("", true);
}

void Documents::Open() {
    CommonDialog1& dialog = mainWindow_().fileDialog();
    dialog.DialogTitle = kOpenTitle;
    dialog.FileName.clear();
    dialog.Flags = kOpenFlags;
    openFiles(dialog.ShowOpen());
}

void Documents::Close() {
    if (auto* document = mainWindow_().ActiveForm()) mainWindow_().closeDocument(*document);
}

std::string Documents::askForFile(const frmKLTEditor& document, std::string_view title) {
    CommonDialog1& dialog = mainWindow_().fileDialog();
    dialog.DialogTitle = title;
    dialog.FileName = proposedFile(document);
    dialog.Flags = kSaveFlags;
    dialog.ShowSave();
    return dialog.FileName;
}

void Documents::SaveDocument() {
    if (auto* document = mainWindow_().ActiveForm()) save(*document);
}

void Documents::SaveDocumentAs() {
    if (auto* document = mainWindow_().ActiveForm()) saveAs(*document);
}

void Documents::save(frmKLTEditor& document) {
    if (asksForFile(document)) return saveAs(document);
    variables_.CurrentFilePath = document.Caption();
    if (writeOrTell(document)) saved(document);
}

void Documents::saveAs(frmKLTEditor& document) {
    // Other documents may come and go while the dialog is up.
    const QPointer<frmKLTEditor> alive(&document);
    const std::string chosen = askForFile(document, kOpenTitle);
    if (chosen.empty() || !alive) return;
    variables_.CurrentFilePath = chosen;
    if (!writeOrTell(document)) return;
    document.setCaption(chosen);
    document.Label2->setEnabled(true);
    saved(document);
    changes_.tellIfShared(document);
}

void Documents::saved(frmKLTEditor& document) {
    document.setModified(false);
    document.oldFile.clear();
    if (mainWindow_().ActiveForm() == &document) mainWindow_().panels().showModified(false);
    AddToRecent(variables_.CurrentFilePath);
    mainWindow_().updateMenus();
}

void Documents::NameFile(frmKLTEditor& document, const std::string& name) {
    const std::string stem(withoutFileEnding(name));
    if (isBlank(stem) || name == document.fileStem()) return;
    const bool hasEnding = withoutFileEnding(document.Caption()) != document.Caption();
    if (hasEnding && stem == document.fileStem()) return;
    std::string path = stem;
    path += kFileEnding;
    if (document.Exists()) {
        path.insert(0, document.Caption(), 0, document.Caption().rfind('/') + 1);
        const std::string file = document.oldFile.empty() ? document.Caption() : document.oldFile;
        document.oldFile = path == file ? std::string() : file;
    }
    document.setCaption(path);
    if (mainWindow_().ActiveForm() == &document) variables_.CurrentFilePath = path;
    changes_.forgetNews(document);
    if (!document.oldFile.empty())
        mainWindow_().notices().tell(
            document.oldFile + " stays as it is. The document is saved as " + path + " from now on.", {},
            &document);
    mainWindow_().updateMenus();
}

/// None where the file system does not answer.
std::optional<Documents::FoundFile> Documents::findFile(const std::string& path) {
    return wait_.find<FoundFile>(path, [path] { return FoundFile{PathExists(path), linkTarget(path)}; });
}

/// Whether a save has to ask where to: without a file, and where a name that was given is taken by now.
bool Documents::asksForFile(const frmKLTEditor& document) {
    if (!document.Exists()) return true;
    if (document.oldFile.empty()) return false;
    const std::string path = document.Caption();
    const auto file = findFile(path);
    const bool isTaken = !file || file->exists || file->target != path;
    return isTaken || std::ranges::any_of(mainWindow_().forms().documents(), [&](const auto* other) {
               return other != &document && (other->Caption() == path || other->fileTarget == path);
           });
}

/// Writes the document to `CurrentFilePath`. A failure leaves the document as it is.
Failure Documents::write(frmKLTEditor& document) {
    const std::string path = variables_.CurrentFilePath;
    const Encoding before = document.encoding;
    auto failure = changes_.write(document, path);
    // Events may have run.
    variables_.CurrentFilePath = path;
    // What was told of it before is over.
    if (!failure) mainWindow_().notices().withdrawAbout(&document);
    const bool hasChanged = document.Exists() && document.encoding != before;
    if (!failure && hasChanged && document.encoding == Encoding::Utf8)
        mainWindow_().notices().tell(
            path + ": " + encodingChange(before, document.encoding) + ", since a character asks for it.", {},
            &document);
    return failure;
}

bool Documents::writeOrTell(frmKLTEditor& document) {
    const auto failure = write(document);
    if (failure) mainWindow_().notices().tell(*failure, {}, &document);
    return !failure;
}

bool Documents::CloseCheck(frmKLTEditor* document) {
    if (!document) document = mainWindow_().ActiveForm();
    if (!document || !document->Modified()) return false;
    const QPointer<frmKLTEditor> alive(document);
    bringToFront(mainWindow_(), *document);
    const auto answer = MessageBox(
        &mainWindow_(), "The data file " + displayName(*document) + " has been changed!\nSave changes?",
        MessageIcon::Exclamation, kTitle, QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
    if (!alive) return false;
    if (answer == QMessageBox::Yes) return saveAtClose(*document);
    if (answer != QMessageBox::Cancel) return false;
    variables_.LoadingDocuments = false;
    return true;
}

/// True if the document has to stay, since its text could be put nowhere. A user who cancels the file dialog
/// lets it go unsaved; it is kept all the same.
bool Documents::saveAtClose(frmKLTEditor& document) {
    const QPointer<frmKLTEditor> alive(&document);
    const std::string chosen =
        asksForFile(document) ? askForFile(document, "Select Data File Name") : document.Caption();
    if (!alive) return false;
    if (chosen.empty()) return !keep(document, displayName(document) + " was not saved");
    variables_.CurrentFilePath = chosen;
    if (const auto failure = write(document)) return !keep(document, *failure);
    // Where something else stops the end of the session the document stays, and is saved.
    document.setCaption(chosen);
    document.Label2->setEnabled(true);
    saved(document);
    return false;
}

void Documents::AddToRecent(const std::string& path) {
    cMRUFileList& recent = variables_.RecentFiles;
    auto registry = recentFilesRegistry(store_);
    // Loaded anew: another editor may have added to the list, or it could not be read at start-up.
    const cMRUFileList before = recent;
    const bool stored = store_.together([&] {
        recent.Load(registry);
        recent.AddFile(path);
        return recent.Save(registry);
    });
    if (stored) return;
    recent = before;
    recent.AddFile(path);
}

}  // namespace klt
