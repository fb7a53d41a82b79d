#pragma once

#include <QObject>
#include <QPointer>
#include <functional>
#include <map>
#include <memory>
#include <string>

#include "app/Mailbox.h"
#include "app/documents/KeptText.h"
#include "app/documents/frmKLTEditor.h"
#include "app/window/NoticeBar.h"
#include "platform/DocumentFile.h"
#include "platform/Failure.h"

namespace klt {

class CommandQueue;
class FileWait;
class TextCopies;
class frmMDIKLTEditor;

/// Sees what others do to the files of open documents, tells it in the bar, and does what the bar offers
/// then. Files are looked at on threads that nobody waits for.
class FileChanges : public QObject {
public:
    struct Services {
        CommandQueue& queue;
        FileWait& wait;
        std::function<frmMDIKLTEditor&()> mainWindow;
        /// The check that an opening makes too, where it is wanted.
        std::function<void(frmKLTEditor&)> check;
        /// Keeps on the disk what "Back" would bring.
        TextCopies& copies;
    };
    explicit FileChanges(Services services);

    /// Looks at the document's file, or at those of all; what is found is told later.
    void look(frmKLTEditor& document);
    void lookAtAll();

    /// The document was filled with what was found at its path.
    void opened(frmKLTEditor& document, const FoundText& found);
    /// Writes the document to the path; a failure leaves it as it is. Events may run.
    Failure write(frmKLTEditor& document, const std::string& path);
    /// The document gets another file: what was told of the one that it had is over.
    void forgetNews(frmKLTEditor& document) { withdraw(watch(document).news); }
    /// Tells where another document has the same file.
    void tellIfShared(const frmKLTEditor& document);

private:
    /// The text that a document had before it was read again, and where it is kept in case that the program
    /// ends.
    struct Before {
        std::shared_ptr<const KeptText> text;
        std::string path;
    };
    /// What is under way for a document, and what the bar shows for it.
    struct Watched {
        bool isLooking = false;
        bool looksAgain = false;
        NoticeBar::Id news = NoticeBar::kNone;
        NoticeBar::Id back = NoticeBar::kNone;
        Before before;
    };
    struct Request {
        QPointer<frmKLTEditor> document;
        std::string path;
        KnownFile known;
    };
    NoticeBar& bar();
    Watched& watch(frmKLTEditor& document);
    void forget(const QObject* document);
    bool isOpen(const frmKLTEditor* document) const;
    void withdraw(NoticeBar::Id& notice);

    void take(const Request& request, const FileNow& now);
    void tell(frmKLTEditor& document, FileNews news);
    NoticeChoice choice(const char* name, const char* caption, frmKLTEditor& document,
                        void (FileChanges::*act)(frmKLTEditor&));
    void keepMine(frmKLTEditor& document);
    void reload(frmKLTEditor& document);
    void show(frmKLTEditor& document, const ReadText& read);
    void saved(frmKLTEditor& document, const std::string& path, const SavedText& result);
    void offerBack(frmKLTEditor& document, const Before& before);
    void bringBack(frmKLTEditor& document);
    void dropKept(frmKLTEditor& document);

    Services services_;
    QPointer<NoticeBar> bar_;
    std::map<const QObject*, Watched> watched_;
    Mailbox mailbox_;
};

}  // namespace klt
