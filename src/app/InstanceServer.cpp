#include "app/InstanceServer.h"

#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>

#include <QObject>
#include <QSocketNotifier>
#include <QTimer>
#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <optional>

#include "platform/Descriptor.h"
#include "platform/HandOver.h"
#include "platform/HandOverMessage.h"

namespace klt {

namespace {

// Connections that have not brought their message yet; more wait in the socket's queue.
constexpr int kMostUnfinished = 64;
constexpr int kQueueLength = 128;
constexpr size_t kPiece = 65536;

bool sendByte(const Descriptor& socket, char byte) {
    return ::send(socket.number(), &byte, 1, MSG_NOSIGNAL | MSG_DONTWAIT) == 1;
}

/// A socket at `path` that only this user can connect to; none on failure.
Descriptor listenAt(const std::string& path) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (path.size() >= sizeof address.sun_path) return {};
    std::memcpy(address.sun_path, path.data(), path.size());
    Descriptor socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
    // The folder lets nobody else in, so the moment before the mode is set is nobody's chance.
    const bool listens =
        socket && ::bind(socket.number(), reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0 &&
        ::chmod(path.c_str(), S_ISVTX | S_IRUSR | S_IWUSR) == 0 &&
        ::listen(socket.number(), kQueueLength) == 0;
    return listens ? std::move(socket) : Descriptor();
}

/// One connection up to its whole message.
class Incoming : public QObject {
public:
    using Completed = std::function<void(Descriptor socket, std::string commandLine)>;

    Incoming(Descriptor socket, std::chrono::milliseconds limit, Completed completed, QObject* parent)
        : QObject(parent),
          socket_(std::move(socket)),
          completed_(std::move(completed)),
          notifier_(socket_.number(), QSocketNotifier::Read) {
        connect(&notifier_, &QSocketNotifier::activated, this, [this] { readSome(); });
        connect(&silence_, &QTimer::timeout, this, [this] { endSilence(); });
        silence_.setSingleShot(true);
        silence_.start(limit);
    }

private:
    using State = MessageReader::State;

    /// One piece a call, so that nobody who sends much holds the window up. Nothing where there is nothing to
    /// read. Behind a complete message this may be gone.
    std::optional<State> readSome() {
        std::array<char, kPiece> piece{};
        const auto count =
            ::recv(socket_.number(), piece.data(), std::min(piece.size(), reader_.wanted()), MSG_DONTWAIT);
        if (count < 0 && (errno == EAGAIN || errno == EINTR)) return {};
        const auto state =
            count <= 0 ? State::refused : reader_.take({piece.data(), static_cast<size_t>(count)});
        if (state == State::refused) drop();
        if (state == State::complete) finish();
        return state;
    }

    /// Where no events have run for long, the message may lie here all the same.
    void endSilence() {
        std::optional state = State::unfinished;
        while (state == State::unfinished) state = readSome();
        if (!state) drop();
    }

    void drop() {
        notifier_.setEnabled(false);
        silence_.stop();
        deleteLater();
    }

    void finish() {
        drop();
        // Taken only when this succeeds: a sender that has stopped waiting opens its files itself.
        auto completed = std::move(completed_);
        if (sendByte(socket_, kAcknowledged)) completed(std::move(socket_), reader_.commandLine());
    }

    Descriptor socket_;
    Completed completed_;
    MessageReader reader_;
    QSocketNotifier notifier_;
    QTimer silence_;
};

}  // namespace

/// The listening socket, its connections as children, and the window's entry, which is taken back first.
class InstanceServer::Listener : public QObject {
public:
    Listener(WindowRegistration registration, Descriptor socket, InstanceHandlers handlers,
             std::chrono::milliseconds silenceLimit)
        : socket_(std::move(socket)),
          handlers_(std::make_shared<InstanceHandlers>(std::move(handlers))),
          silenceLimit_(silenceLimit),
          notifier_(socket_.number(), QSocketNotifier::Read),
          registration_(std::move(registration)) {
        connect(&notifier_, &QSocketNotifier::activated, this, [this] { acceptWaiting(); });
        connect(&pause_, &QTimer::timeout, this, [this] { notifier_.setEnabled(true); });
        pause_.setSingleShot(true);
    }

    WindowRegistration& registration() { return registration_; }

private:
    void acceptWaiting() {
        while (unfinished_ < kMostUnfinished) {
            Descriptor socket(::accept4(socket_.number(), nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK));
            if (!socket && (errno == EINTR || errno == ECONNABORTED)) continue;
            if (!socket && errno != EAGAIN) pause();
            if (!socket) return;
            if (peerIsSameUser(socket.number())) takeIn(std::move(socket));
        }
        notifier_.setEnabled(false);
    }

    void takeIn(Descriptor socket) {
        auto* incoming = new Incoming(
            std::move(socket), silenceLimit_,
            [handlers = handlers_](Descriptor taken, std::string commandLine) {
                handOn(*handlers, std::move(taken), std::move(commandLine));
            },
            this);
        ++unfinished_;
        connect(incoming, &QObject::destroyed, this, [this] {
            --unfinished_;
            notifier_.setEnabled(true);
        });
    }

    /// Out of descriptors, the notifier would come again and again at once.
    void pause() {
        notifier_.setEnabled(false);
        pause_.start(std::chrono::seconds(1));
    }

    static void handOn(const InstanceHandlers& handlers, Descriptor socket, std::string commandLine) {
        auto connection = std::make_shared<Descriptor>(std::move(socket));
        handlers.activate();
        if (commandLine.empty())
            sendByte(*connection, kFilesAreOpen);
        else
            handlers.received(std::move(commandLine), [connection] { sendByte(*connection, kFilesAreOpen); });
    }

    Descriptor socket_;
    std::shared_ptr<InstanceHandlers> handlers_;
    std::chrono::milliseconds silenceLimit_;
    int unfinished_ = 0;
    QSocketNotifier notifier_;
    QTimer pause_;
    WindowRegistration registration_;
};

InstanceServer::InstanceServer(Instances& instances, std::string_view windowTitle, InstanceHandlers handlers,
                               std::chrono::milliseconds silenceLimit) {
    auto registration = instances.registerWindow();
    if (!registration) return;
    auto socket = listenAt(registration->socketPath());
    if (!socket || !registration->publish(windowTitle)) return;
    listener_ = std::make_unique<Listener>(std::move(*registration), std::move(socket), std::move(handlers),
                                           silenceLimit);
}

InstanceServer::~InstanceServer() = default;

bool InstanceServer::isListening() const {
    return listener_ != nullptr;
}

void InstanceServer::setWindowTitle(std::string_view title) {
    if (listener_) listener_->registration().publish(title);
}

}  // namespace klt
