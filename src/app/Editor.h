#pragma once

#include <QObject>
#include <QPointer>
#include <QTimer>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "app/InstanceServer.h"
#include "app/commands/CommandQueue.h"
#include "app/dialogs/frmFind.h"
#include "app/dialogs/frmSplash.h"
#include "app/documents/DocumentColouring.h"
#include "app/documents/DocumentEvents.h"
#include "app/documents/Documents.h"
#include "app/modVariables.h"
#include "app/recovery/LeftTexts.h"
#include "app/recovery/SessionEnd.h"
#include "app/recovery/TextCopies.h"
#include "app/recovery/WizardLines.h"
#include "app/window/frmMDIKLTEditor.h"
#include "forms/WizardAids.h"
#include "platform/RecoveryFolder.h"
#include "ui/modKLTSyntaxHighlighter.h"

namespace klt {

class Instances;
class Store;

/// The objects of the running program, made once and wired to each other.
class Editor : public QObject {
public:
    /// `instances` may be null: then no other process finds this one. `commandLine` is the process's own.
    Editor(Store& store, Instances* instances, std::string commandLine);
    ~Editor() override;

    /// The main window, which is loaded and shown at the first call.
    frmMDIKLTEditor& mainWindow();
    /// Whether the main window was closed.
    bool isOver() const { return window_ && window_->isUnloaded(); }

    /// The window that stands in front of all while the program starts: until `closeSplash`, or the first
    /// pass.
    void showSplash();
    void closeSplash() { splash_.reset(); }
    /// Opens the files of a command line, by default the process's own.
    void ParseCommandLine(std::string_view commandLine = {});
    /// Carries out the command of a menu's item.
    void MenuClick(const QString& key);
    /// Shows the merger, and opens what it has written where that is wanted.
    void openMerger();
    /// Brings the find window up in a shape; one that is open already keeps what it holds.
    void openFind(frmFind::Shape shape);

    /// Keeps all texts that are in no file, but those whose user has given them up: the process ends.
    void keepAllTexts();

    Store& store() { return store_; }

    modVariables variables;
    CommandQueue queue;
    RecoveryFolder recovery;
    TextCopies copies;
    WizardLines wizardLines;
    modKLTSyntaxHighlighter highlighter;
    WizardAids aids;
    DocumentColouring colouring;
    Documents documents;
    SessionEnd sessionEnd;

private:
    void keepZoom();
    void wireWindow();
    void listen();
    void watch(frmKLTEditor& document);
    frmFind* makeFind();
    void receive(std::string commandLine, std::function<void()> done);

    Store& store_;
    Instances* instances_;
    std::string commandLine_;
    std::unique_ptr<frmSplash> splash_;
    std::unique_ptr<frmMDIKLTEditor> window_;
    std::unique_ptr<DocumentEvents> events_;
    LeftTexts leftTexts_;
    std::unique_ptr<InstanceServer> server_;
    QPointer<frmFind> find_;
    QTimer lack_;
};

}  // namespace klt
