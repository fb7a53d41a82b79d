#pragma once

#include <chrono>
#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Descriptor.h"

namespace klt {

/// What a later instance looks for: a part of the main window's title, and its class.
inline constexpr std::string_view kWindowTitleSought = "KLT Editor";
inline constexpr std::string_view kMainWindowClass = "ThunderRT6MDIForm";

/// A main window as other processes see it.
struct WindowEntry {
    std::string title;
    std::string windowClass;
    std::string socketPath;
    bool operator==(const WindowEntry&) const = default;
};

class Instances;

/// This process's own entry among the windows. It stands as long as the object; other processes see the lock
/// on its file and know it for live. When the process dies the entry counts for nothing and is cleared away.
class WindowRegistration {
public:
    WindowRegistration(WindowRegistration&& other) noexcept;
    WindowRegistration& operator=(WindowRegistration&&) = delete;
    ~WindowRegistration();

    /// Where the window's socket belongs: in the runtime folder, short enough for a socket's address. A
    /// socket there is removed with the entry.
    std::string socketPath() const;
    /// Lets the window be found, from now on under this title. False when the entry could not be written.
    bool publish(std::string_view title, std::string_view windowClass = kMainWindowClass);

private:
    friend class Instances;
    WindowRegistration(Instances& instances, std::string id, Descriptor file);

    Instances* instances_;
    std::string id_;
    Descriptor file_;
};

/// The instances of the program that the user runs, as they meet in the runtime folder: a lock that only the
/// first holds, and an entry for each main window. Locks, not process ids, tell the living from the dead.
class Instances {
public:
    /// `folder` is made if it is not there, its parent is not. Where it is empty, no real folder, not the
    /// user's own with mode 0700, or too long for a socket's address, the process runs alone.
    explicit Instances(std::string folder);
    Instances(const Instances&) = delete;
    Instances& operator=(const Instances&) = delete;

    /// True where there is no folder to meet in: no earlier instance, no windows, no registration.
    bool alone() const { return !folder_; }

    /// Whether another process is first, or has a live main window. The first call that finds no other first
    /// makes this process the first, for life.
    bool earlierInstanceExists();

    /// The live windows of other processes whose title contains `title` without regard to case and whose
    /// class is `windowClass` without regard to case, the one registered longest ago first.
    std::vector<WindowEntry> FindMatchingWindows(std::string_view title, std::string_view windowClass) const;

    /// An entry for this process's main window, not yet to be found by others. Nothing where the process runs
    /// alone or the folder takes no file. Must not outlive this object.
    std::optional<WindowRegistration> registerWindow();

private:
    friend class WindowRegistration;
    struct LiveEntry {
        std::string id;
        std::string content;
    };
    std::vector<LiveEntry> liveEntries() const;
    std::optional<std::string> readIfLive(const std::string& id) const;
    void removeEntry(const std::string& id) const;
    bool holdsLock();

    std::string path_;
    Descriptor folder_, lock_;
    std::vector<std::string> own_;
};

/// The wait of a later instance for the earlier one's main window: a search every 250 ms while less than
/// 10000 ms have been slept, and 250 ms more once a window is found. `sleep` is called for each of these.
/// Nothing when no window came in time or the earlier instance ended: the process goes on as a first one.
std::optional<WindowEntry> waitForPreviousInstance(
    Instances& instances, const std::function<void(std::chrono::milliseconds)>& sleep);

}  // namespace klt
