#pragma once

#include <ctime>
#include <map>
#include <mutex>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Descriptor.h"
#include "platform/Failure.h"
#include "platform/KeptAbout.h"

namespace klt {

struct LeftText {
    std::string path;
    /// Without a name where nothing is known of it but its bytes.
    KeptAbout about;
    /// When it was written, in seconds since 1970.
    time_t when = 0;
};

/// The folder "recovery" below the state folder, and what one editor keeps there: texts that are in no file.
/// Each is a plain file as its document would be written, with a hidden one beside it that tells of it. Who
/// keeps texts holds a lock on a file of its own as long as it lives, so that nobody else offers them.
class RecoveryFolder {
public:
    RecoveryFolder() = default;
    ~RecoveryFolder();
    RecoveryFolder(const RecoveryFolder&) = delete;
    RecoveryFolder& operator=(const RecoveryFolder&) = delete;

    struct Kept {
        /// Where the text is kept, or the folder that did not take it.
        std::string path;
        Failure error;
    };
    /// Keeps a text, and returns when it is on the disk. `path` is where an earlier version of it is kept,
    /// which stays if this one can't be written; empty for a text that is new here. For any thread, also
    /// several at once.
    Kept keep(const std::string& path, const KeptAbout& about, std::string_view text);
    /// Takes a text away that is kept no longer. For any thread.
    void remove(const std::string& path);

    /// The texts that were left by editors which live no longer, oldest first. From now on they are this
    /// one's to offer.
    std::vector<LeftText> takeLeft();
    /// Moves a kept text into the folder "dismissed" beside it: it is no longer told of, but not lost.
    Failure dismiss(const std::string& path);

private:
    int lockOwner(const std::string& folder);
    int reserveName(const std::string& folder, const KeptAbout& about, std::string& path);
    bool isMine(const std::string& folder, const std::string& owner);
    void clearAway(const std::string& folder);

    std::mutex guard_;
    std::string owner_;
    Descriptor lock_;
    std::set<std::string> kept_;
    /// The locks of those that left texts.
    std::map<std::string, Descriptor> left_;
};

}  // namespace klt
