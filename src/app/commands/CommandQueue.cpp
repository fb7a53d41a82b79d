#include "app/commands/CommandQueue.h"

#include <QApplication>
#include <QDropEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QScopedValueRollback>
#include <algorithm>
#include <memory>

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

/// The document's text area that `receiver` is, or whose viewport it is.
RichTextBox* documentArea(QObject* receiver) {
    auto* box = qobject_cast<RichTextBox*>(receiver);
    if (!box) {
        auto* parent = qobject_cast<RichTextBox*>(receiver->parent());
        if (parent && parent->viewport() == receiver) box = parent;
    }
    return box && box->kind() == RichTextBox::Kind::Document ? box : nullptr;
}

/// A press that is sent again brings no focus by itself.
void giveClickFocus(QObject* receiver) {
    auto* widget = qobject_cast<QWidget*>(receiver);
    if (auto* area = documentArea(receiver)) widget = area;
    if (widget && (widget->focusPolicy() & Qt::ClickFocus) != 0) widget->setFocus(Qt::MouseFocusReason);
}

bool isFileDrag(const QEvent& event) {
    const auto* drop = dynamic_cast<const QDropEvent*>(&event);
    return drop && drop->mimeData() && !localFiles(*drop->mimeData()).empty();
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
        waiting_.push_back({origin, std::move(command)});
        watchEvents(true);
    } else {
        command();
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

void CommandQueue::watchEvents(bool on) {
    if (std::exchange(watching_, on) == on || !qApp) return;
    on ? qApp->installEventFilter(this) : qApp->removeEventFilter(this);
}

void CommandQueue::carryOut() {
    while (auto command = takeNext()) {
        // A dialog of this command lets the rest come through its own event loop.
        if (!waiting_.empty()) later_.start();
        const auto* focus = QApplication::focusWidget();
        (*command)();
        if (auto* now = QApplication::focusWidget(); now && now != focus) movedFocus_ = now;
    }
    if (waiting_.empty()) movedFocus_ = nullptr;
    if (!isHeld() && waiting_.empty()) watchEvents(false);
}

std::optional<CommandQueue::Command> CommandQueue::takeNext() {
    if (isHeld()) return std::nullopt;
    const bool dialogIsUp = QApplication::activeModalWidget() != nullptr;
    const auto next = std::find_if(waiting_.begin(), waiting_.end(), [dialogIsUp](const Waiting& entry) {
        return !dialogIsUp || entry.origin == Origin::Outside;
    });
    if (next == waiting_.end()) return std::nullopt;
    auto command = std::move(next->command);
    waiting_.erase(next);
    return command;
}

bool CommandQueue::holdsBack(QObject* receiver) const {
    if (receiver == delivering_) return false;
    if (!passes_) return documentArea(receiver) != nullptr;
    const auto* widget = qobject_cast<QWidget*>(receiver);
    return widget != nullptr && (spared_ == nullptr || widget->window() != spared_);
}

bool CommandQueue::eventFilter(QObject* receiver, QEvent* event) {
    if (ended_) return false;
    // A dialog has ended: what waited for it alone can go on.
    if (event->type() == QEvent::WindowUnblocked) later_.start();
    if (!isHeld() && waiting_.empty()) return false;
    const Handling handling = handlingOf(*event);
    if (handling == Handling::Pass || !holdsBack(receiver)) return false;
    if (handling == Handling::Refuse) {
        if (isFileDrag(*event)) return false;
        event->ignore();
    } else {
        keepForLater(receiver, *event);
        event->accept();
    }
    return true;
}

void CommandQueue::keepForLater(QObject* receiver, const QEvent& event) {
    const std::shared_ptr<QEvent> copy(event.clone());
    const auto* modal = QApplication::activeModalWidget();
    const auto* widget = qobject_cast<const QWidget*>(receiver);
    // What is meant for the dialog that is up must not wait for its end.
    const Origin origin = modal && widget && widget->window() == modal ? Origin::Outside : Origin::User;
    const bool followsFocus = isTyping(event) && widget && widget == widget->window()->focusWidget();
    waiting_.push_back({origin, [this, copy, followsFocus, target = QPointer<QObject>(receiver)] {
                            if (!target) return;
                            deliver(*copy, followsFocus && movedFocus_ ? *movedFocus_ : *target);
                        }});
}

void CommandQueue::deliver(QEvent& event, QObject& receiver) {
    const QScopedValueRollback guard(delivering_, static_cast<const QObject*>(&receiver));
    if (event.type() == QEvent::MouseButtonPress) giveClickFocus(&receiver);
    QCoreApplication::sendEvent(&receiver, &event);
}

}  // namespace klt
