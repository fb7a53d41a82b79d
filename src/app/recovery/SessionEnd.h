#pragma once

#include <QObject>
#include <functional>
#include <set>

class QSessionManager;

namespace klt {

class frmKLTEditor;
class frmMDIKLTEditor;

/// The end of the desktop session, at which nothing closes: another program may still stop it.
class SessionEnd : public QObject {
public:
    struct Services {
        /// The main window, null while there is none.
        std::function<frmMDIKLTEditor*()> mainWindow;
        /// Asks about open wizards, then about one changed document; false, or true for the document, where
        /// the user goes back.
        std::function<bool()> mayCloseForms;
        std::function<bool(frmKLTEditor&)> closeCheck;
        /// Keeps all texts that are in no file, and goes on; and for good, since the process ends.
        std::function<void()> keepAll;
        std::function<void()> keepAllForGood;
    };
    /// What the session's manager lets a program do.
    struct Manager {
        std::function<bool()> allowsInteraction;
        std::function<void()> release;
        std::function<void()> cancel;
    };
    explicit SessionEnd(Services services);

    /// The session is about to end: asks about each changed document where the user may be asked, which may
    /// stop it; else keeps the texts.
    void prepare(const Manager& manager);
    /// Whether the user has answered for the document, and it was not edited since.
    bool isAnswered(const frmKLTEditor& document) const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void commit(QSessionManager& manager);
    bool ask();
    void noteAnswer(const frmKLTEditor& document);

    Services services_;
    std::set<const QObject*> answered_;
    bool isUnasked_ = false;
};

}  // namespace klt
