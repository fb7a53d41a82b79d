#pragma once

#include <QObject>
#include <QPointer>
#include <QTimer>
#include <QWidget>
#include <deque>
#include <functional>
#include <optional>
#include <vector>

namespace klt {

/// Who asks for something to be done. What the user asked for waits also for a dialog that has come up
/// meanwhile; what came from outside passes it, for another process may be waiting.
enum class Origin { User, Outside };

/// Carries out commands, closing, quitting, dropped files and other processes' messages in their order, at
/// once where nothing stands against it. While a `Hold` stands they wait, and keys and clicks for the text
/// areas of documents wait among them. While an `Opening` stands, keys and clicks for all windows that stood
/// before it wait too, and while a `Pass` stands, those for whatever window. None of them comes before what
/// waits already. What was meant for a window that has closed meanwhile is dropped.
class CommandQueue : public QObject {
public:
    using Command = std::function<void()>;

    CommandQueue();
    ~CommandQueue() override;

    /// Commands that are still waiting when the queue goes are destroyed uncalled.
    void submit(Origin origin, Command command);
    bool isHeld() const { return holds_ > 0; }
    /// Nothing is carried out any more: what waits, and what still comes, is destroyed uncalled.
    void end();

    /// Nothing is carried out while one stands: for the closing of the main window.
    class Hold {
    public:
        explicit Hold(CommandQueue& queue) : queue_(queue) { queue_.hold(); }
        ~Hold() { queue_.release(); }
        Hold(const Hold&) = delete;
        Hold& operator=(const Hold&) = delete;

    private:
        CommandQueue& queue_;
    };

    /// A hold that keeps keys and clicks back from every window that is up when the outermost one begins: for
    /// what opens documents, from its first step to its last. A box that it raises itself answers at once.
    class Opening {
    public:
        explicit Opening(CommandQueue& queue) : hold_(queue), queue_(queue) { queue_.beginOpening(); }
        ~Opening() { --queue_.openings_; }
        Opening(const Opening&) = delete;
        Opening& operator=(const Opening&) = delete;

    private:
        Hold hold_;
        CommandQueue& queue_;
    };

    /// A hold that keeps keys and clicks back from every window that is up when it begins but one: for a pass
    /// over a document.
    class Pass {
    public:
        /// `spared` may be null.
        Pass(CommandQueue& queue, const QWidget* spared) : hold_(queue), queue_(queue) {
            queue_.beginPass(spared);
        }
        ~Pass() { queue_.passes_ = false; }
        Pass(const Pass&) = delete;
        Pass& operator=(const Pass&) = delete;

    private:
        Hold hold_;
        CommandQueue& queue_;
    };

    bool eventFilter(QObject* receiver, QEvent* event) override;

private:
    struct Waiting {
        Origin origin;
        Command command;
        /// Of keys and clicks, and null for all else.
        QPointer<const QWidget> receiver;
    };
    void hold();
    void release();
    void beginOpening();
    void beginPass(const QWidget* spared);
    void watchEvents(bool on);
    void carryOut();
    std::deque<Waiting>::iterator next();
    std::optional<Command> takeNext();
    bool holdsBack(const QWidget& receiver);
    bool mustStay(const QWidget& window) const;
    void keepForLater(QWidget& receiver, const QEvent& event);
    void deliver(QEvent& event, QWidget& receiver);

    std::deque<Waiting> waiting_;
    /// Carries out when control is back in the event loop.
    QTimer later_;
    int holds_ = 0;
    int openings_ = 0;
    /// The windows that were up when the outermost opening began.
    std::vector<QPointer<const QWidget>> standing_;
    /// The windows that were up when the pass began.
    std::vector<QPointer<const QWidget>> besidePass_;
    bool passes_ = false;
    QPointer<const QWidget> spared_;
    bool ended_ = false;
    bool watching_ = false;
    /// Where something that had waited took the focus. A click does so at once, though it waits itself.
    QPointer<QWidget> movedFocus_;
    /// The event loop, counted from the outermost, in which an event that waited is being delivered.
    int deliveringLevel_ = -1;
};

}  // namespace klt
