#include "app/Editor.h"

#include <QCoreApplication>
#include <QPointer>
#include <algorithm>
#include <utility>

#include "app/commands/Commands.h"
#include "app/commands/WizardCommands.h"
#include "app/dialogs/MergeFolder.h"
#include "app/dialogs/frmKLTMerger.h"
#include "app/documents/Complete.h"
#include "app/documents/ErrorWalk.h"
#include "app/documents/GoTo.h"
#include "app/documents/frmKLTEditor.h"
#include "platform/CommandKeys.h"
#include "platform/CommandLine.h"
#include "platform/MemoryRoom.h"
#include "platform/Paths.h"
#include "platform/ProgramNames.h"
#include "settings/Catalogue.h"
#include "ui/MessageBox.h"
#include "ui/TextZoom.h"

namespace klt {

namespace {

// Tells the first of them on top, and of very many only how many there are.
void tellNotes(NoticeBar& bar, const std::vector<std::string>& notes) {
    constexpr size_t kMost = 20;
    const auto told = std::min(notes.size(), kMost);
    if (told < notes.size())
        bar.tell(std::to_string(notes.size() - told) +
                 " more messages of the merge: \"klt merge\" lists all.");
    for (auto i = told; i-- > 0;) bar.tell(notes[i]);
}

}  // namespace

Editor::Editor(Store& store, Instances* instances, std::string commandLine)
    : variables(store),
      copies(recovery,
             [this](const std::string& failure) {
                 if (window_) window_->notices().tell(failure);
             }),
      wizardLines(recovery, copies, [this]() -> NoticeBar& { return mainWindow().notices(); }),
      highlighter(variables.Settings),
      aids({.store = store,
            .highlighter = highlighter,
            .SuppressCaretUpdate = variables.SuppressCaretUpdate,
            .openTexts = [this] { return openTexts(mainWindow()); },
            .keeper = &wizardLines}),
      colouring(
          store, queue, highlighter, [this]() -> frmMDIKLTEditor& { return mainWindow(); },
          [this] { closeSplash(); }),
      documents(
          variables, store, queue, [this]() -> frmMDIKLTEditor& { return mainWindow(); },
          [this](frmKLTEditor& document) { colouring.ColourDocument(document); },
          {.folder = recovery, .copies = copies}),
      sessionEnd({.mainWindow = [this] { return window_.get(); },
                  .mayCloseForms = [this] { return mayCloseForms(*window_); },
                  .closeCheck = [this](frmKLTEditor& document) { return documents.CloseCheck(&document); },
                  .keepAll = [this] { copies.writeAll(); },
                  .keepAllForGood = [this] { keepAllTexts(); }}),
      store_(store),
      instances_(instances),
      commandLine_(std::move(commandLine)),
      leftTexts_(recovery, queue, [this](const LeftText& text) { documents.OpenLeft(text); }) {
    // Later: the event that was given up may be a paint event, in which no widget may be shown.
    lack_.setSingleShot(true);
    connect(&lack_, &QTimer::timeout, this, [this] {
        if (window_) window_->notices().tell("There is not enough memory for this. Nothing was changed.");
    });
    onLackOfMemory([this] { lack_.start(); });
    keepZoom();
}

Editor::~Editor() {
    onLackOfMemory({});
    // The window goes last and must not reach what is gone by then.
    if (window_) window_->disconnect(this);
}

void Editor::keepZoom() {
    for (const auto& [which, setting] : {std::pair(TextZoom::Of::Documents, &settings::kZoom),
                                         std::pair(TextZoom::Of::Fields, &settings::kFieldZoom)}) {
        TextZoom& zoom = TextZoom::of(which);
        zoom.set(readSetting(store_, *setting));
        connect(&zoom, &TextZoom::changed, this,
                [this, stored = setting](int points) { writeSetting(store_, *stored, points); });
    }
}

frmMDIKLTEditor& Editor::mainWindow() {
    if (window_) return *window_;
    window_ = std::make_unique<frmMDIKLTEditor>(variables, store_, queue);
    events_ = std::make_unique<DocumentEvents>(variables, store_, highlighter, *window_);
    wireWindow();
    window_->Load();
    listen();
    leftTexts_.offer(window_->notices());
    window_->show();
    return *window_;
}

void Editor::showSplash() {
    splash_ = std::make_unique<frmSplash>(store_);
    splash_->show();
}

void Editor::wireWindow() {
    connect(&*window_, &frmMDIKLTEditor::documentLoaded, this, [this](frmKLTEditor* it) { watch(*it); });
    window_->setCloseCheck([this](frmKLTEditor& document) {
        return !sessionEnd.isAnswered(document) && documents.CloseCheck(&document);
    });
    window_->setFormsCheck([this] { return mayCloseForms(*window_); });
    connect(&*window_, &frmMDIKLTEditor::MenuClick, this,
            [this](const QString& key) { queue.submit(Origin::User, [this, key] { MenuClick(key); }); });
    connect(&*window_, &frmMDIKLTEditor::filesDropped, this, [this](const std::vector<std::string>& paths) {
        queue.submit(Origin::Outside, [this, paths] { documents.openFiles(paths); });
    });
    connect(&*window_, &frmMDIKLTEditor::windowActivated, this, [this] { documents.noticeChanges(); });
    connect(&*window_, &frmMDIKLTEditor::documentActivated, this,
            [this](frmKLTEditor* document) { documents.noticeChange(*document); });
    addErrorWalk(*window_, queue);
    addGoTo(*window_, queue);
    addComplete(*window_, queue);
    connect(&*window_, &frmMDIKLTEditor::unloading, this, [this] { server_.reset(); });
    connect(&*window_, &frmMDIKLTEditor::unloaded, this, [this] {
        // Whoever waits for an answer then opens its files itself.
        queue.end();
        QCoreApplication::exit();
    });
}

void Editor::listen() {
    if (!instances_) return;
    const auto title = [this] { return window_->windowTitle().toStdString(); };
    server_ = std::make_unique<InstanceServer>(
        *instances_, title(),
        InstanceHandlers{[this] { window_->bringForward(); },
                         [this](std::string commandLine, std::function<void()> done) {
                             receive(std::move(commandLine), std::move(done));
                         }});
    connect(&*window_, &QWidget::windowTitleChanged, this, [this, title] {
        if (server_) server_->setWindowTitle(title());
    });
}

/// Copies the document's text as long as it is in no file.
void Editor::watch(frmKLTEditor& document) {
    RichTextBox& box = *document.RichTextBox1;
    copies.watch(box, [&document, &box]() -> std::optional<KeptAbout> {
        if (!document.Modified()) return std::nullopt;
        return KeptAbout{document.Caption(), document.Exists(),  document.encoding,
                         box.SelStart(),     document.file.seen, document.isFileWanted};
    });
    connect(&document, &frmKLTEditor::modifiedSet, this, [this, &box](bool on) {
        if (on) {
            copies.noteChange(box);
        } else {
            copies.drop(box);
        }
    });
}

void Editor::keepAllTexts() {
    if (window_) {
        for (const auto* document : window_->forms().documents())
            if (sessionEnd.isAnswered(*document)) copies.giveUp(*document->RichTextBox1);
    }
    copies.leaveAll();
}

void Editor::receive(std::string commandLine, std::function<void()> done) {
    queue.submit(Origin::Outside, [this, commandLine = std::move(commandLine), done = std::move(done)] {
        // The sender gets its answer whatever became of the opening.
        tryStep([&] {
            const RaisedFlag loading(variables.LoadingDocuments);
            ParseCommandLine(commandLine);
        });
        done();
    });
}

void Editor::ParseCommandLine(std::string_view commandLine) {
    const CommandQueue::Opening opening(queue);
    const auto split = splitCommandLine(commandLine.empty() ? commandLine_ : commandLine);
    if (split.error != CommandLineError::none) {
        MessageBox(&mainWindow(), describe(split.error), MessageIcon::Exclamation, kTitle);
    }
    std::vector<std::string> paths;
    for (const auto& path : split.paths) paths.push_back(CanonicalPath(path));
    documents.openFiles(paths);
}

void Editor::MenuClick(const QString& key) {
    runCommand(*this, key.toStdString());
}

void Editor::openMerger() {
    frmMDIKLTEditor& window = mainWindow();
    // Destroying the window may have destroyed it.
    const QPointer<frmKLTMerger> form =
        new frmKLTMerger(window.fileDialog(), store_, mergeFolder(store_, window.ActiveForm()), &window);
    const bool isMerged = form->exec() == QDialog::Accepted;
    if (!form) return;
    const auto file = form->outputName();
    if (!form->keptInput().empty())
        window.notices().tell(file + " was merged into itself. What stood there is kept in " +
                              form->keptInput());
    tellNotes(window.notices(), form->notes());
    const bool isWanted = isMerged && form->loadsFile(), mayCheck = form->checksSyntax();
    delete form;
    if (!isWanted) return;
    const RaisedFlag loading(variables.LoadingDocuments);
    documents.OpenDocument(file, mayCheck);
}

frmFind* Editor::makeFind() {
    frmMDIKLTEditor& window = mainWindow();
    FindServices services{.store = store_,
                          .queue = queue,
                          .highlighter = highlighter,
                          .SuppressCaretUpdate = variables.SuppressCaretUpdate,
                          .activeText = [&window]() -> RichTextBox* {
                              const auto* document = window.ActiveForm();
                              return document == nullptr ? nullptr : document->RichTextBox1;
                          }};
    if (commandIsThere(commands::kContents))
        services.showHelp = [&window] { emit window.MenuClick(commands::kContents); };
    auto* form = new frmFind(std::move(services), &window);
    connect(&window, &frmMDIKLTEditor::unloading, form, &QWidget::close);
    return form;
}

void Editor::openFind(frmFind::Shape shape) {
    // A closed one is about to be deleted.
    if (!find_ || find_->isHidden()) find_ = makeFind();
    find_->setShape(shape);
    find_->show();
    find_->raise();
    find_->activateWindow();
}

}  // namespace klt
