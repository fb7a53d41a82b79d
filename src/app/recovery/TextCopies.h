#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>
#include <array>
#include <chrono>
#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "app/recovery/CopyLane.h"
#include "platform/RecoveryFolder.h"

namespace klt {

class RichTextBox;

/// Copies the texts that are in no file yet to the recovery folder while they are edited, so that a process
/// that ends without being asked takes only the last seconds along.
class TextCopies : public QObject {
public:
    /// How long the first edit that no copy holds waits for one, in ms. Longer texts than `large` bytes wait
    /// longer, and others are not kept waiting by them.
    struct Pace {
        std::chrono::milliseconds small{3000};
        std::chrono::milliseconds ofLarge{18000};
        Position large = Position{10} << 20;
    };
    /// What is known of a box's text now; nothing where it has no change to keep.
    using Describe = std::function<std::optional<KeptAbout>()>;

    /// `tell` is called when a text can't be copied, until one could be once.
    TextCopies(RecoveryFolder& folder, std::function<void(const std::string&)> tell, Pace pace);
    TextCopies(RecoveryFolder& folder, std::function<void(const std::string&)> tell)
        : TextCopies(folder, std::move(tell), Pace()) {}
    /// Waits for what is being written.
    ~TextCopies() override;

    /// From now on the box's text is copied after its edits, and the copy goes with the box.
    void watch(RichTextBox& box, Describe about);
    /// The text has to be copied, though it may not have been edited.
    void noteChange(const RichTextBox& box);
    /// The text is in its file, or nobody wants it: its copy goes.
    void drop(const RichTextBox& box);
    /// Nobody wants the text; what was left of it stays.
    void giveUp(const RichTextBox& box);
    /// What is kept at `path` goes as soon as the box's text has a copy of its own, or needs none.
    void replaceCopy(const RichTextBox& box, const std::string& path);

    /// Keeps the text of a box that is about to go. It stays until the next start; if the box does not go,
    /// until a later copy, or its file, holds the text.
    RecoveryFolder::Kept leave(const RichTextBox& box);
    /// The same for the caller, whose copy it is.
    RecoveryFolder::Kept putAside(const RichTextBox& box);
    /// Writes all that no copy holds yet, and returns when it is on the disk.
    void writeAll();
    /// The same, and from now on nothing is taken away or written any more: the process ends.
    void leaveAll();

private:
    using Clock = std::chrono::steady_clock;
    struct Lane;
    struct Watched {
        const RichTextBox* box = nullptr;
        Describe about;
        QTimer due;
        /// Where its copy is; empty while there is none.
        std::string path;
        /// What goes with the next copy.
        std::vector<std::string> replaced;
        /// A copy that outlives the box.
        std::string left;
        /// The edits up to now, and those that the copy holds, or the one that is being written.
        unsigned long edits = 0;
        unsigned long held = 0;
        /// The first edit that is not held.
        Clock::time_point since;
        bool isWaiting = false;
        /// Who writes for it; nobody any more once that copy is unwanted.
        const Lane* writer = nullptr;

        bool hasNews() const { return edits != held; }
    };
    struct Lane {
        CopyLane lane;
        std::deque<const QObject*> waiting;
        /// Whose text it writes; null while it writes none.
        const QObject* writing = nullptr;
        /// Over which earlier copy.
        std::string earlier;
    };

    bool isLarge(const RichTextBox& box) const;
    Lane& laneOf(const RichTextBox& box) { return lanes_[isLarge(box) ? 1 : 0]; }
    Watched* find(const QObject* box);
    void wait(Watched& watched);
    void isDue(Watched& watched);
    void next(Lane& lane);
    void copy(Lane& lane, Watched& watched);
    void finish(Lane& lane);
    void finishAll();
    void took(Watched& watched, const RecoveryFolder::Kept& kept);
    void lookAtLanes();
    void forgetCopy(Watched& watched);
    void drop(Watched& watched);
    void forget(const QObject* box);
    RecoveryFolder::Kept writeNow(Watched& watched);

    RecoveryFolder& folder_;
    std::function<void(const std::string&)> tell_;
    Pace pace_;
    bool isTold_ = false;
    std::map<const QObject*, Watched> watched_;
    std::array<Lane, 2> lanes_;
    QTimer look_;
};

}  // namespace klt
