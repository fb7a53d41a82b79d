#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "app/commands/CommandQueue.h"
#include "app/documents/FileChanges.h"
#include "app/documents/FileWait.h"
#include "platform/Failure.h"

namespace klt {

class RecoveryFolder;
class Store;
class TextCopies;
class frmKLTEditor;
class frmMDIKLTEditor;
struct LeftText;
struct modVariables;

/// Making, opening, saving and closing documents. What fails is told in the main window's bar of notices.
class Documents {
public:
    /// What keeps texts that are in no file.
    struct Kept {
        RecoveryFolder& folder;
        TextCopies& copies;
    };
    /// `mainWindow` gives the main window, which is loaded at its first call. `ColourDocument` runs the pass.
    Documents(modVariables& variables, Store& store, CommandQueue& queue,
              std::function<frmMDIKLTEditor&()> mainWindow, std::function<void(frmKLTEditor&)> ColourDocument,
              Kept kept);

    /// Opens the file in a new window, which is the active one then; a path of blanks makes a new document. A
    /// file that does not exist is told of in a message, and one that can't be read in a notice: the window
    /// stays all the same, empty. No window stays where there is not enough memory, which is told too.
    /// `checkNow` permits the check that the setting "AutoSyntaxCheck" asks for.
    void OpenDocument(std::string_view path, bool checkNow);
    /// Opens each in turn and lets events run in between. From the fourth message of files that do not exist
    /// on, the user may skip the other messages; the windows come all the same.
    void openFiles(const std::vector<std::string>& paths);

    /// Opens a text that an earlier editor has left, as a changed document under its path, or a new name. It
    /// is kept as before until the document's own copy is.
    void OpenLeft(const LeftText& left);

    /// What becomes of a document that is about to close, by default the active one: true if it stays. The
    /// document that the user is asked about comes to the front.
    bool CloseCheck(frmKLTEditor* document = nullptr);
    void SaveDocument();
    void SaveDocumentAs();
    /// Gives the document another file name, without folder, for its next save; the old file stays. A ".klt"
    /// is added where the name lacks it. A name of blanks, and the one that it has, change nothing.
    void NameFile(frmKLTEditor& document, const std::string& name);
    /// Puts the path at the head of the recent files and stores the list.
    void AddToRecent(const std::string& path);

    /// Looks whether others have changed the files of all documents, or of one; the bar tells of it later.
    void noticeChanges() { changes_.lookAtAll(); }
    void noticeChange(frmKLTEditor& document) { changes_.look(document); }

    /// How long a file system may be silent before what was to be read or written there is given up.
    void setPatience(std::chrono::milliseconds time) { wait_.patience = time; }

    /// The commands of the menu.
    void New();
    void Open();
    void Close();

private:
    /// The messages of one list of files.
    struct MissingFiles {
        int told = 0;
        bool isRestSkipped = false;
    };
    void open(std::string_view path, bool checkNow, MissingFiles& missing);
    void checkWhereWanted(frmKLTEditor& document);
    void tellMissing(std::string_view path, MissingFiles& missing);
    void load(std::string_view path, frmKLTEditor*& document, MissingFiles& missing);
    struct FoundFile {
        bool exists = false;
        /// The path without any link.
        std::string target;
    };
    std::optional<FoundFile> findFile(const std::string& path);
    void loadLeft(const LeftText& left, const std::string& text, frmKLTEditor*& document);
    frmKLTEditor& makeWindow();
    void show(frmKLTEditor& document);
    std::string newName() const;
    void giveUp(std::string_view path, frmKLTEditor* document, const std::string& why);
    void fillNew(frmKLTEditor& document);
    void fillFromFile(frmKLTEditor& document, const FoundText& found);
    void save(frmKLTEditor& document);
    void saveAs(frmKLTEditor& document);
    bool saveAtClose(frmKLTEditor& document);
    bool keep(const frmKLTEditor& document, const std::string& reason);
    Failure write(frmKLTEditor& document);
    bool writeOrTell(frmKLTEditor& document);
    void saved(frmKLTEditor& document);
    bool asksForFile(const frmKLTEditor& document);
    std::string askForFile(const frmKLTEditor& document, std::string_view title);

    modVariables& variables_;
    Store& store_;
    CommandQueue& queue_;
    std::function<frmMDIKLTEditor&()> mainWindow_;
    std::function<void(frmKLTEditor&)> ColourDocument_;
    Kept kept_;
    FileWait wait_{queue_};
    FileChanges changes_;
};

}  // namespace klt
