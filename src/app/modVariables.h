#pragma once

#include <string>

#include "settings/EditorFormat.h"
#include "settings/cMRUFileList.h"

namespace klt {

/// The process-wide state, made once and passed by reference. All of it lives on the user-interface thread.
struct modVariables {
    explicit modVariables(Store& store) : Settings(editorFormatSettings(store)) {}

    /// The road to the styles of the categories of text.
    CRegSettings Settings;
    std::string AppVersion;
    /// Loaded with the main window.
    cMRUFileList RecentFiles;
    /// While true, the text of a new document is a load. Behind a file in one list it is an edit. What a
    /// change is, the document itself knows.
    bool LoadingDocuments = false;
    /// While true, a document window is being activated, and the focus is not yet moved.
    bool ActivatingDocument = false;
    /// While true, code moves the caret of a document, and nobody takes note of it.
    bool SuppressCaretUpdate = false;
    /// The path that open, save or close is working on.
    std::string CurrentFilePath;
    /// The program owns the foreground.
    bool AppIsActive = false;
    /// `Main` has run to its end.
    bool StartupComplete = false;
    /// Grows with every document that is made or opened.
    int DocumentCounter = 0;
};

/// Raises a flag, and lowers it at the end whatever became of it meanwhile. For `LoadingDocuments` that is
/// the rule: who opens several files has the next `OpenDocument` raise it again.
class RaisedFlag {
public:
    explicit RaisedFlag(bool& flag) : flag_(flag) { flag_ = true; }
    ~RaisedFlag() { flag_ = false; }
    RaisedFlag(const RaisedFlag&) = delete;
    RaisedFlag& operator=(const RaisedFlag&) = delete;

private:
    bool& flag_;
};

}  // namespace klt
