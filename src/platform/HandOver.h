#pragma once

#include <chrono>
#include <string_view>

#include "platform/Instances.h"

namespace klt {

inline constexpr std::chrono::milliseconds kAcknowledgementLimit{10000};

/// How a hand-over ended. Only `delivered` ends this process: else it goes on as a first instance and opens
/// its files itself.
enum class HandOver {
    delivered,        ///< the other instance has opened all files
    notAcknowledged,  ///< it has not taken the command line, and never will
    unanswered,       ///< it took the command line, and the connection ended before all files were open
};

/// Brings the given window forward and passes it `commandLine`; an empty one only restores and activates it.
/// Blocks until the other instance has opened all files; until it takes the command line, at most `limit`. A
/// socket that another user listens at counts as not acknowledging.
HandOver ActivatePreviousInstance(const WindowEntry& window, std::string_view commandLine,
                                  std::chrono::milliseconds limit = kAcknowledgementLimit);

/// Whether the process at the other end of a unix socket belongs to this process's user.
bool peerIsSameUser(int socket);

}  // namespace klt
