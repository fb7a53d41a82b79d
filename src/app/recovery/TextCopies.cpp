#include "app/recovery/TextCopies.h"

#include <algorithm>
#include <utility>

#include "ui/RichTextBox.h"

namespace klt {

TextCopies::TextCopies(RecoveryFolder& folder, std::function<void(const std::string&)> tell, Pace pace)
    : folder_(folder), tell_(std::move(tell)), pace_(pace) {
    constexpr int kBetweenLooks = 20;
    look_.setInterval(kBetweenLooks);
    connect(&look_, &QTimer::timeout, this, [this] { lookAtLanes(); });
}

TextCopies::~TextCopies() {
    finishAll();
}

bool TextCopies::isLarge(const RichTextBox& box) const {
    return box.Length() > pace_.large;
}

TextCopies::Watched* TextCopies::find(const QObject* box) {
    const auto place = watched_.find(box);
    return place == watched_.end() ? nullptr : &place->second;
}

void TextCopies::watch(RichTextBox& box, Describe about) {
    Watched& watched = watched_[&box];
    watched.box = &box;
    watched.about = std::move(about);
    watched.due.setSingleShot(true);
    connect(&watched.due, &QTimer::timeout, this, [this, &watched] { isDue(watched); });
    connect(&box, &RichTextBox::Change, this, [this, &box] { noteChange(box); });
    connect(&box, &QObject::destroyed, this, [this](const QObject* gone) { forget(gone); });
}

void TextCopies::noteChange(const RichTextBox& box) {
    Watched* const watched = find(&box);
    if (!watched) return;
    if (watched->edits++ == watched->held) watched->since = Clock::now();
    // A long text may have become a short one.
    const QTimer& due = watched->due;
    if (!due.isActive() || (due.remainingTimeAsDuration() > pace_.small && !isLarge(box))) wait(*watched);
}

/// Lets the text wait until the first edit that is not held has waited long enough.
void TextCopies::wait(Watched& watched) {
    const auto pace = isLarge(*watched.box) ? pace_.ofLarge : pace_.small;
    const auto waited = std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - watched.since);
    watched.due.start(std::max(pace - waited, std::chrono::milliseconds(0)));
}

void TextCopies::isDue(Watched& watched) {
    // What is under way is taken first, and the text waits again then.
    if (!watched.hasNews() || watched.writer || watched.isWaiting) return;
    Lane& lane = laneOf(*watched.box);
    watched.isWaiting = true;
    lane.waiting.push_back(watched.box);
    next(lane);
}

void TextCopies::next(Lane& lane) {
    while (!lane.lane.isBusy() && !lane.waiting.empty()) {
        Watched* const watched = find(lane.waiting.front());
        if (watched && watched->hasNews() && watched->about()) {
            copy(lane, *watched);
            continue;
        }
        lane.waiting.pop_front();
        if (!watched) continue;
        watched->isWaiting = false;
        if (watched->hasNews()) drop(*watched);
    }
}

/// Makes room first where there is not enough; the text then waits on.
void TextCopies::copy(Lane& lane, Watched& watched) {
    const auto length = static_cast<size_t>(watched.box->Length());
    look_.start();
    if (!lane.lane.hasRoomFor(length)) return lane.lane.makeRoom(length);
    lane.waiting.pop_front();
    watched.isWaiting = false;
    watched.writer = &lane;
    watched.box->CopyText(lane.lane.buffer());
    watched.held = watched.edits;
    lane.writing = watched.box;
    lane.earlier = watched.path;
    lane.lane.write(length, [&folder = folder_, path = watched.path, about = *watched.about()](
                                std::string_view text) { return folder.keep(path, about, text); });
}

void TextCopies::lookAtLanes() {
    for (Lane& lane : lanes_) {
        if (!lane.lane.isDone()) continue;
        finish(lane);
        next(lane);
    }
    if (std::ranges::none_of(lanes_, [](const Lane& it) { return it.lane.isBusy(); })) look_.stop();
}

/// Takes what the lane has written, or made room for.
void TextCopies::finish(Lane& lane) {
    const auto kept = lane.lane.take();
    const QObject* const writing = std::exchange(lane.writing, nullptr);
    Watched* watched = find(writing);
    if (!kept) return;
    if (watched && watched->writer == &lane) {
        watched->writer = nullptr;
        took(*watched, *kept);
    } else if (writing) {
        // Nobody wants it any more.
        folder_.remove(kept->error ? lane.earlier : kept->path);
    } else if (!lane.waiting.empty()) {
        // There is no room for it: later there may be.
        watched = find(lane.waiting.front());
        lane.waiting.pop_front();
        if (!watched) return;
        watched->isWaiting = false;
        took(*watched, *kept);
    }
}

void TextCopies::finishAll() {
    for (Lane& lane : lanes_) {
        for (const auto* box : std::exchange(lane.waiting, {}))
            if (Watched* const watched = find(box)) watched->isWaiting = false;
        if (lane.lane.isBusy()) finish(lane);
    }
}

void TextCopies::took(Watched& watched, const RecoveryFolder::Kept& kept) {
    if (kept.error) {
        if (!std::exchange(isTold_, true))
            tell_("Changed texts can't be kept" + (kept.path.empty() ? "" : " in " + kept.path) +
                  " while you write: " + *kept.error);
        // The whole wait again: what fails is not tried at every moment.
        watched.since = Clock::now();
        watched.held = watched.edits - 1;
        return wait(watched);
    }
    isTold_ = false;
    watched.path = kept.path;
    for (const auto& path : std::exchange(watched.replaced, {})) folder_.remove(path);
    folder_.remove(std::exchange(watched.left, {}));
    if (watched.hasNews()) wait(watched);
}

void TextCopies::replaceCopy(const RichTextBox& box, const std::string& path) {
    if (Watched* const watched = find(&box)) watched->replaced.push_back(path);
}

void TextCopies::drop(const RichTextBox& box) {
    if (Watched* const watched = find(&box)) drop(*watched);
}

void TextCopies::drop(Watched& watched) {
    folder_.remove(std::exchange(watched.left, {}));
    forgetCopy(watched);
}

void TextCopies::giveUp(const RichTextBox& box) {
    if (Watched* const watched = find(&box)) forgetCopy(*watched);
}

/// The text is watched on as if it had no copy. What is being written for it goes when it is done.
void TextCopies::forgetCopy(Watched& watched) {
    const std::string path = std::exchange(watched.path, {});
    if (!std::exchange(watched.writer, nullptr)) folder_.remove(path);
    for (const auto& replaced : std::exchange(watched.replaced, {})) folder_.remove(replaced);
    watched.held = watched.edits;
    watched.due.stop();
}

void TextCopies::forget(const QObject* box) {
    Watched* const watched = find(box);
    if (!watched) return;
    forgetCopy(*watched);
    watched_.erase(box);
    Position longest = 0;
    for (const auto& [other, it] : watched_) longest = std::max(longest, it.box->Length());
    for (Lane& lane : lanes_) lane.lane.trim(static_cast<size_t>(longest));
}

RecoveryFolder::Kept TextCopies::writeNow(Watched& watched) {
    const auto about = watched.about();
    if (!about) {
        drop(watched);
        return {};
    }
    auto kept = folder_.keep(watched.path, *about, watched.box->Text());
    took(watched, kept);
    if (!kept.error) watched.held = watched.edits;
    return kept;
}

RecoveryFolder::Kept TextCopies::putAside(const RichTextBox& box) {
    for (Lane& lane : lanes_)
        if (lane.lane.isBusy()) finish(lane);
    Watched* const watched = find(&box);
    if (!watched) return {};
    auto kept = writeNow(*watched);
    if (!kept.error) {
        // It is the caller's from now on.
        watched->path.clear();
        watched->due.stop();
    }
    for (Lane& lane : lanes_) next(lane);
    return kept;
}

RecoveryFolder::Kept TextCopies::leave(const RichTextBox& box) {
    auto kept = putAside(box);
    if (Watched* const watched = find(&box); watched && !kept.error) watched->left = kept.path;
    return kept;
}

void TextCopies::writeAll() {
    finishAll();
    for (auto& [box, watched] : watched_)
        if (watched.hasNews()) writeNow(watched);
}

void TextCopies::leaveAll() {
    writeAll();
    watched_.clear();
}

}  // namespace klt
