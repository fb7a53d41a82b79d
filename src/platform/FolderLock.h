#pragma once

#include <string>

#include "platform/Descriptor.h"

namespace klt {

/// A lock on a folder, among the processes that use it. All of them share it while they use a file in it; one
/// that gives the file another name claims it alone. SQLite finds a journal by its name, and would take the
/// new file's for the old one's. Nothing is left behind in the folder.
class FolderLock {
public:
    enum class Answer { Held, Busy, Unsupported };

    /// Waits for a claim to end. `Unsupported` also where there is no such folder, or none that may be read.
    Answer share(const std::string& folder, int milliseconds);
    /// Turns the share into a claim, or loses it. Waits for all others to end.
    Answer claim(int milliseconds);
    void release() { folder_ = Descriptor(); }

private:
    Answer take(int operation, int milliseconds);

    Descriptor folder_;
};

}  // namespace klt
