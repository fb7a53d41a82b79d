#include "app/documents/FileChanges.h"

#include <algorithm>
#include <utility>

#include "app/commands/CommandQueue.h"
#include "app/documents/FileWait.h"
#include "app/modVariables.h"
#include "app/recovery/TextCopies.h"
#include "app/window/frmMDIKLTEditor.h"
#include "platform/DetachedThread.h"
#include "platform/MemoryRoom.h"

namespace klt {
namespace {

/// Whether both have the same file, by whatever spelling or link.
bool shareFile(const frmKLTEditor& one, const frmKLTEditor& other) {
    if (!one.Exists() || !other.Exists()) return false;
    if (one.fileTarget == other.fileTarget) return true;
    return one.file.seen && other.file.seen && one.file.seen->identity.isSameFile(other.file.seen->identity);
}

}  // namespace

FileChanges::FileChanges(Services services) : services_(std::move(services)) {}

/// The main window may be gone when the documents go.
NoticeBar& FileChanges::bar() {
    if (!bar_) bar_ = &services_.mainWindow().notices();
    return *bar_;
}

FileChanges::Watched& FileChanges::watch(frmKLTEditor& document) {
    const auto [place, isNew] = watched_.try_emplace(&document);
    if (isNew) {
        connect(&document, &QObject::destroyed, this, [this](const QObject* gone) { forget(gone); });
        connect(document.RichTextBox1, &RichTextBox::Change, this, [this, &document] {
            if (!document.isLoading) dropKept(document);
        });
    }
    return place->second;
}

void FileChanges::forget(const QObject* document) {
    const auto place = watched_.find(document);
    if (place == watched_.end()) return;
    withdraw(place->second.news);
    withdraw(place->second.back);
    watched_.erase(place);
}

bool FileChanges::isOpen(const frmKLTEditor* document) const {
    return document && services_.mainWindow().forms().contains(document);
}

void FileChanges::withdraw(NoticeBar::Id& notice) {
    const auto id = std::exchange(notice, NoticeBar::kNone);
    if (bar_) bar_->withdraw(id);
}

void FileChanges::lookAtAll() {
    for (auto* document : services_.mainWindow().forms().documents()) look(*document);
}

void FileChanges::look(frmKLTEditor& document) {
    if (!document.Exists() || !document.oldFile.empty()) return;
    Watched& watched = watch(document);
    if (std::exchange(watched.isLooking, true)) {
        watched.looksAgain = true;
        return;
    }
    // Without memory or a thread the next occasion will do.
    bool isStarted = false;
    fitsMemory([&] {
        const Request request{&document, document.Caption(), document.file};
        const auto work = [this, request, post = mailbox_.post()] {
            const auto now = lookAtFile(request.path, request.known);
            post([this, request, now] { take(request, now); });
        };
        isStarted = !startDetached(work);
    });
    watched.isLooking = isStarted;
}

void FileChanges::take(const Request& request, const FileNow& now) {
    if (!isOpen(request.document)) return;
    frmKLTEditor& document = *request.document;
    Watched& watched = watch(document);
    watched.isLooking = false;
    const bool looksAgain = std::exchange(watched.looksAgain, false);
    if (request.path != document.Caption() || request.known != document.file) return look(document);
    if (now.state == FileState::AsSeen) document.file.seen->identity = now.identity;
    const auto news = newsOf(now, document.file.told);
    if (news != FileNews::Nothing) {
        document.file.told.reset();
        if (news != FileNews::Over) document.file.told = now.identity;
        tell(document, news);
    }
    if (looksAgain) look(document);
}

void FileChanges::tell(frmKLTEditor& document, FileNews news) {
    Watched& watched = watch(document);
    withdraw(watched.news);
    if (news == FileNews::Over) return;
    const auto keeps = choice("NoticeKeepMine", "&Keep mine", document, &FileChanges::keepMine);
    if (news == FileNews::Gone) {
        watched.news =
            bar().offer(document.Caption() + " is no longer on the disk. A save writes it again.", {keeps});
    } else {
        watched.news =
            bar().offer(document.Caption() + " has been changed on the disk.",
                        {choice("NoticeReload", "&Reload", document, &FileChanges::reload), keeps});
    }
}

NoticeChoice FileChanges::choice(const char* name, const char* caption, frmKLTEditor& document,
                                 void (FileChanges::*act)(frmKLTEditor&)) {
    return {name, caption, [this, act, alive = QPointer<frmKLTEditor>(&document)] {
                services_.queue.submit(Origin::User, [this, act, alive] {
                    if (isOpen(alive)) (this->*act)(*alive);
                });
            }};
}

/// What is to be kept is not on the disk: the document counts as changed, so that no close loses it.
void FileChanges::keepMine(frmKLTEditor& document) {
    frmMDIKLTEditor& window = services_.mainWindow();
    document.setModified(true);
    if (window.ActiveForm() == &document) window.panels().showModified(true);
}

void FileChanges::reload(frmKLTEditor& document) {
    const CommandQueue::Opening opening(services_.queue);
    const std::string path = document.Caption();
    const auto read = services_.wait.find<ReadText>(path, [path] { return readText(path); });
    if (read && !read->file.error) {
        if (fitsMemory([&] { show(document, *read); })) return;
        tellOfLack();
    } else {
        bar().tell(path + " could not be read: " + (read ? *read->file.error : kNoAnswer), {}, &document);
    }
    // It is offered again, or what has become of the file by now.
    document.file.told.reset();
    look(document);
}

void FileChanges::show(frmKLTEditor& document, const ReadText& read) {
    Watched& watched = watch(document);
    RichTextBox& box = *document.RichTextBox1;
    if (document.Modified()) dropKept(document);
    auto before = std::exchange(watched.before, {});
    if (document.Modified()) {
        const auto kept = services_.copies.putAside(box);
        before = {std::make_shared<const KeptText>(document), kept.error ? std::string() : kept.path};
    }
    const TextView view(box);
    {
        const RaisedFlag loading(document.isLoading);
        box.SetText(read.file.text);
    }
    withdraw(watched.news);
    document.encoding = read.file.encoding;
    document.file = read.known;
    document.setModified(false);
    view.restoreIn(box);
    tryStep([&] { services_.check(document); });
    view.restoreScrollIn(box);
    // Letters that the check puts right are no edit of the user's.
    if (before.text) offerBack(document, before);
    services_.mainWindow().updateMenus();
}

void FileChanges::offerBack(frmKLTEditor& document, const Before& before) {
    Watched& watched = watch(document);
    withdraw(watched.back);
    watched.before = before;
    const auto drop = [this, alive = QPointer<frmKLTEditor>(&document)] {
        if (alive) dropKept(*alive);
    };
    watched.back = bar().offer(
        document.Caption() + " was read again. The text before it is kept until the next edit or save.",
        {choice("NoticeBack", "&Back", document, &FileChanges::bringBack),
         {"NoticeDismiss", "&Dismiss", drop}});
}

void FileChanges::bringBack(frmKLTEditor& document) {
    const Before before = watch(document).before;
    if (!before.text) return;
    if (fitsMemory([&] { before.text->bringBackTo(document); })) return;
    tellOfLack();
    offerBack(document, before);
}

/// What is kept on the disk stays until the next copy, or save.
void FileChanges::dropKept(frmKLTEditor& document) {
    Watched& watched = watch(document);
    withdraw(watched.back);
    const Before before = std::exchange(watched.before, {});
    if (!before.path.empty()) services_.copies.replaceCopy(*document.RichTextBox1, before.path);
}

void FileChanges::opened(frmKLTEditor& document, const FoundText& found) {
    document.fileTarget = found.target;
    document.file = found.read.known;
    tellIfShared(document);
}

Failure FileChanges::write(frmKLTEditor& document, const std::string& path) {
    const auto point = std::make_shared<PointOfNoReturn>();
    const auto text = std::make_shared<const std::string>(document.RichTextBox1->Text());
    KnownFile known = document.file;
    // A version that was not seen is kept.
    if (document.isFileWanted) known.seen.reset();
    const auto result =
        services_.wait.find<SavedText>(path, [path, text, point, encoding = document.encoding, known] {
            return saveText(path, *text, encoding, known, *point);
        });
    const auto failed = [&path](const std::string& why) { return path + " could not be saved: " + why; };
    if (!result)
        return failed(point->callOff() ? kNoAnswer : kNoAnswer + ". It may have been written all the same");
    if (result->written.error) return failed(*result->written.error);
    saved(document, path, *result);
    return std::nullopt;
}

void FileChanges::saved(frmKLTEditor& document, const std::string& path, const SavedText& result) {
    document.encoding = result.written.encoding;
    document.fileTarget = result.target;
    document.file = {result.written.version, std::nullopt};
    const bool isFileWanted = std::exchange(document.isFileWanted, false) && path == document.Caption();
    withdraw(watch(document).news);
    dropKept(document);
    if (!result.written.kept.empty())
        bar().tell("What stood in " + path +
                   (isFileWanted ? " before its date was changed" : " and was not read here") +
                   " is kept in " + result.written.kept);
    for (auto* other : services_.mainWindow().forms().documents())
        if (other != &document) look(*other);
}

void FileChanges::tellIfShared(const frmKLTEditor& document) {
    const auto& all = services_.mainWindow().forms().documents();
    const auto other = std::ranges::find_if(
        all, [&](const auto* it) { return it != &document && shareFile(*it, document); });
    if (other == all.end()) return;
    const bool isSpeltAlike = (*other)->Caption() == document.Caption();
    bar().tell(document.Caption() + " is open in another window too" +
                   (isSpeltAlike ? "" : ", as " + (*other)->Caption()) + ".",
               {}, &document);
}

}  // namespace klt
