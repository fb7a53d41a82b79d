#include "app/recovery/SessionEnd.h"

#include <QEvent>
#include <QGuiApplication>
#include <QPointer>
#include <QSessionManager>
#include <utility>
#include <vector>

#include "app/documents/frmKLTEditor.h"
#include "app/window/frmMDIKLTEditor.h"

namespace klt {

SessionEnd::SessionEnd(Services services) : services_(std::move(services)) {
    connect(
        qGuiApp, &QGuiApplication::commitDataRequest, this,
        [this](QSessionManager& manager) { commit(manager); }, Qt::DirectConnection);
    // Started again by the session it would take the session's own words for files.
    connect(
        qGuiApp, &QGuiApplication::saveStateRequest, this,
        [](QSessionManager& manager) { manager.setRestartHint(QSessionManager::RestartNever); },
        Qt::DirectConnection);
    qGuiApp->installEventFilter(this);
}

void SessionEnd::commit(QSessionManager& manager) {
    prepare({[&manager] { return manager.allowsInteraction(); }, [&manager] { manager.release(); },
             [&manager] { manager.cancel(); }});
}

void SessionEnd::prepare(const Manager& manager) {
    answered_.clear();
    isUnasked_ = !manager.allowsInteraction();
    if (isUnasked_) return services_.keepAll();
    const bool goesOn = ask();
    manager.release();
    if (goesOn) return;
    answered_.clear();
    manager.cancel();
}

/// False where the user goes back.
bool SessionEnd::ask() {
    frmMDIKLTEditor* const window = services_.mainWindow();
    if (!window) return true;
    if (!services_.mayCloseForms()) return false;
    for (auto* form : std::vector(window->forms().documents())) {
        if (!window->forms().contains(form) || !form->Modified()) continue;
        const QPointer<frmKLTEditor> document(form);
        if (services_.closeCheck(*document)) return false;
        if (document && document->Modified()) noteAnswer(*document);
    }
    return true;
}

bool SessionEnd::isAnswered(const frmKLTEditor& document) const {
    return answered_.contains(&document);
}

/// The answer holds until the next edit: the session may go on.
void SessionEnd::noteAnswer(const frmKLTEditor& document) {
    answered_.insert(&document);
    connect(document.RichTextBox1, &RichTextBox::Change, this,
            [this, it = &document] { answered_.erase(it); });
    connect(&document, &QObject::destroyed, this, [this](const QObject* gone) { answered_.erase(gone); });
}

bool SessionEnd::eventFilter(QObject* watched, QEvent* event) {
    if (watched != qGuiApp || event->type() != QEvent::Quit || !isUnasked_) return false;
    services_.keepAllForGood();
    QCoreApplication::exit();
    return true;
}

}  // namespace klt
