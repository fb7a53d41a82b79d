#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "platform/Instances.h"

namespace klt {

/// What the main window does with a later instance's message. Both are called from the event loop, at any
/// moment at which events run: also while documents are being opened.
struct InstanceHandlers {
    /// Restores the window if it is minimised and brings it to the front.
    std::function<void()> activate;
    /// Opens the files of a command line, now or later, and calls `done` when all are open: until then the
    /// other process waits. Where `done` is destroyed uncalled, that process opens its files itself. It may
    /// be called after the server is gone.
    std::function<void(std::string commandLine, std::function<void()> done)> received;
};

/// Makes the main window one that later instances find and hand their command lines to: its entry among the
/// windows and the socket behind it. Other users, messages that are not whole or not in form, and silent
/// connections are dropped; nothing blocks.
class InstanceServer {
public:
    static constexpr std::chrono::milliseconds kSilenceLimit{5000};

    /// Listens from now on, unless the process runs alone or the folder takes no socket. A connection that
    /// has not brought its whole message within `silenceLimit` is dropped. `instances` must outlive this.
    InstanceServer(Instances& instances, std::string_view windowTitle, InstanceHandlers handlers,
                   std::chrono::milliseconds silenceLimit = kSilenceLimit);
    ~InstanceServer();
    InstanceServer(const InstanceServer&) = delete;
    InstanceServer& operator=(const InstanceServer&) = delete;

    bool isListening() const;
    /// The title under which the window is found.
    void setWindowTitle(std::string_view title);

private:
    class Listener;
    std::unique_ptr<Listener> listener_;
};

}  // namespace klt
