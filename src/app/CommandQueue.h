#pragma once

#include <QObject>
#include <QTimer>
#include <deque>
#include <functional>
#include <optional>

namespace klt {

/// Who asks for something to be done. What the user asked for waits also for a dialog that has come up
/// meanwhile; what came from outside passes it, for another process may be waiting.
enum class Origin { User, Outside };

/// Carries out commands, closing, quitting, dropped files and other processes' messages in their order, at
/// once where nothing stands against it. While a `Hold` stands they wait, and keys and clicks for the text
/// areas of documents wait among them: an edit would fall into the middle of a load.
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

    /// Nothing is carried out while one stands: for what opens documents, from its first step to its last,
    /// and for the closing of the main window.
    class Hold {
    public:
        explicit Hold(CommandQueue& queue) : queue_(queue) { queue_.hold(); }
        ~Hold() { queue_.release(); }
        Hold(const Hold&) = delete;
        Hold& operator=(const Hold&) = delete;

    private:
        CommandQueue& queue_;
    };

    bool eventFilter(QObject* receiver, QEvent* event) override;

private:
    struct Waiting {
        Origin origin;
        Command command;
    };
    void hold();
    void release();
    void watchEvents(bool on);
    void carryOut();
    std::optional<Command> takeNext();
    void keepForLater(QObject* receiver, const QEvent& event);

    std::deque<Waiting> waiting_;
    /// Carries out when control is back in the event loop.
    QTimer later_;
    int holds_ = 0;
    bool ended_ = false;
    bool watching_ = false;
    const QObject* delivering_ = nullptr;
};

}  // namespace klt
