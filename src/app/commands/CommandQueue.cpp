#include "app/commands/CommandQueue.h"

#include <QApplication>
#include <QDropEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QScopedValueRollback>
#include <QThread>
#include <algorithm>
#include <memory>

#include "platform/MemoryRoom.h"
#include "ui/DroppedFiles.h"
#include "ui/RichTextBox.h"

namespace klt {
namespace {

enum class Handling { Pass, Keep, Refuse };

/// What happens to an event for a widget that has to wait.
Handling handlingOf(const QEvent& event) {
    switch (event.type()) {
        case QEvent::KeyPress:
        case QEvent::KeyRelease:
        case QEvent::InputMethod:
        // An access key of a menu or a button; those of actions become commands.
        case QEvent::Shortcut:
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonRelease:
        case QEvent::MouseButtonDblClick:
        case QEvent::ContextMenu:
        case QEvent::Close:
            return Handling::Keep;
        case QEvent::MouseMove:
            return static_cast<const QMouseEvent&>(event).buttons() == Qt::NoButton ? Handling::Pass
                                                                                    : Handling::Keep;
        // What is dragged does not outlive the event.
        case QEvent::DragEnter:
        case QEvent::DragMove:
        case QEvent::Drop:
            return Handling::Refuse;
        default:
            return Handling::Pass;
    }
}

bool isTyping(const QEvent& event) {
    return event.type() == QEvent::KeyPress || event.type() == QEvent::KeyRelease ||
           event.type() == QEvent::InputMethod;
}

/// Whether it is a document's text area or the viewport of one.
bool isDocumentArea(const QWidget& receiver) {
    const auto* box = qobject_cast<const RichTextBox*>(&receiver);
    if (!box) box = qobject_cast<const RichTextBox*>(receiver.parentWidget());
    return box && box->kind() == RichTextBox::Kind::Document;
}

/// A press that is sent again brings no focus by itself.
void giveClickFocus(QWidget* receiver) {
    while (!(receiver->focusPolicy() & Qt::ClickFocus)) {
        if (receiver->isWindow()) return;
        receiver = receiver->parentWidget();
    }
    receiver->setFocus(Qt::MouseFocusReason);
}

bool isInPopup(const QWidget& widget) {
    return widget.window()->windowType() == Qt::Popup;
}

/// Whether a modal dialog leaves the receiver free: it is in the dialog, over it, or in a popup.
bool isFreeUnder(const QWidget& dialog, const QWidget* receiver) {
    if (receiver && isInPopup(*receiver)) return true;
    while (receiver && receiver != &dialog) receiver = receiver->parentWidget();
    return receiver != nullptr;
}

/// Who gets a key now that was meant for `target`.
QWidget& typingReceiver(QWidget& target, QWidget* movedFocus) {
    auto* popup = QApplication::activePopupWidget();
    if (!popup) return movedFocus ? *movedFocus : target;
    return popup->focusWidget() ? *popup->focusWidget() : *popup;
}

bool isFileDrag(const QEvent& event) {
    const auto* drop = dynamic_cast<const QDropEvent*>(&event);
    return drop && drop->mimeData() && !localFiles(*drop->mimeData()).empty();
}

using Windows = std::vector<QPointer<const QWidget>>;

Windows visibleWindows() {
    Windows windows;
    for (const auto* window : QApplication::topLevelWidgets())
        if (window->isVisible()) windows.emplace_back(window);
    return windows;
}

bool isAmong(const Windows& windows, const QWidget& window) {
    return std::find(windows.begin(), windows.end(), &window) != windows.end();
}

}  // namespace

CommandQueue::CommandQueue() {
    later_.setSingleShot(true);
    connect(&later_, &QTimer::timeout, this, &CommandQueue::carryOut);
}

CommandQueue::~CommandQueue() {
    watchEvents(false);
}

void CommandQueue::end() {
    ended_ = true;
    waiting_.clear();
}

void CommandQueue::submit(Origin origin, Command command) {
    if (ended_) return;
    if (isHeld() || !waiting_.empty()) {
        waiting_.push_back({origin, std::move(command), nullptr});
        watchEvents(true);
    } else {
        tryStep(command);
    }
    carryOut();
}

void CommandQueue::hold() {
    ++holds_;
    watchEvents(true);
}

void CommandQueue::release() {
    if (--holds_ == 0) later_.start();
}

void CommandQueue::beginOpening() {
    if (openings_++ == 0) standing_ = visibleWindows();
}

void CommandQueue::beginPass(const QWidget* spared) {
    passes_ = true;
    spared_ = spared;
    besidePass_ = visibleWindows();
}

void CommandQueue::watchEvents(bool on) {
    if (std::exchange(watching_, on) == on || !qApp) return;
    if (on) {
        qApp->installEventFilter(this);
    } else {
        qApp->removeEventFilter(this);
    }
}

void CommandQueue::carryOut() {
    while (auto command = takeNext()) {
        // A dialog of this command lets the rest come through its own event loop.
        if (!waiting_.empty()) later_.start();
        const auto* focus = QApplication::focusWidget();
        tryStep(*command);
        if (auto* now = QApplication::focusWidget(); now && now != focus) movedFocus_ = now;
    }
    if (waiting_.empty()) movedFocus_ = nullptr;
    if (!isHeld() && waiting_.empty()) watchEvents(false);
}

/// What is carried out next, or the end. A dialog that is up stops what the user asked for elsewhere.
std::deque<CommandQueue::Waiting>::iterator CommandQueue::next() {
    const auto* dialog = QApplication::activeModalWidget();
    if (isHeld()) return waiting_.end();
    return std::find_if(waiting_.begin(), waiting_.end(), [dialog](const Waiting& entry) {
        return !dialog || entry.origin == Origin::Outside || isFreeUnder(*dialog, entry.receiver);
    });
}

std::optional<CommandQueue::Command> CommandQueue::takeNext() {
    const auto taken = next();
    if (taken == waiting_.end()) return std::nullopt;
    auto command = std::move(taken->command);
    waiting_.erase(taken);
    return command;
}

/// Whether the window has to stay for keys and clicks that wait for it. A popup that stayed would keep them
/// from a box that comes up.
bool CommandQueue::mustStay(const QWidget& window) const {
    return !isInPopup(window) &&
           std::any_of(waiting_.begin(), waiting_.end(), [&window](const Waiting& entry) {
               return entry.receiver && entry.receiver->window() == &window;
           });
}

bool CommandQueue::holdsBack(const QWidget& receiver) {
    if (!isHeld()) {
        // Events that are sent while another is delivered belong to that one.
        return deliveringLevel_ != QThread::currentThread()->loopLevel() && next() != waiting_.end();
    }
    // A box that comes up amid a pass, as at the end of the session, is answered at once.
    if (passes_) return receiver.window() != spared_ && isAmong(besidePass_, *receiver.window());
    return isDocumentArea(receiver) || (openings_ > 0 && isAmong(standing_, *receiver.window()));
}

bool CommandQueue::eventFilter(QObject* receiver, QEvent* event) {
    if (ended_) return false;
    // A dialog has ended: what waited for it alone can go on.
    if (event->type() == QEvent::WindowUnblocked) later_.start();
    const Handling handling = handlingOf(*event);
    auto* const widget = qobject_cast<QWidget*>(receiver);
    if (handling == Handling::Pass || !widget || !holdsBack(*widget)) return false;
    if (event->type() == QEvent::Close && !mustStay(*widget)) return false;
    if (handling == Handling::Refuse) {
        if (isFileDrag(*event)) return false;
        event->ignore();
    } else {
        keepForLater(*widget, *event);
        event->setAccepted(event->type() != QEvent::Close);
    }
    return true;
}

void CommandQueue::keepForLater(QWidget& receiver, const QEvent& event) {
    const std::shared_ptr<QEvent> copy(event.clone());
    const bool followsFocus = isTyping(event) && &receiver == receiver.window()->focusWidget();
    const auto deliverLater = [this, copy, followsFocus, target = QPointer<QWidget>(&receiver)] {
        if (!target || !target->window()->isVisible()) return;
        deliver(*copy, followsFocus ? typingReceiver(*target, movedFocus_) : *target);
    };
    waiting_.push_back({Origin::User, deliverLater, &receiver});
    if (!isHeld()) later_.start();
}

void CommandQueue::deliver(QEvent& event, QWidget& receiver) {
    const QScopedValueRollback guard(deliveringLevel_, QThread::currentThread()->loopLevel());
    if (event.type() == QEvent::Close) {
        receiver.close();
        return;
    }
    if (event.type() == QEvent::MouseButtonPress) giveClickFocus(&receiver);
    QCoreApplication::sendEvent(&receiver, &event);
}

}  // namespace klt
