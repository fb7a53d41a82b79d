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

void TextCopies::watch(RichTextBox& box, Describe about) {
    auto watched = std::make_shared<Watched>();
    watched->box = &box;
    watched->about = std::move(about);
    watched->due = std::make_unique<QTimer>();
    watched->due->setSingleShot(true);
    connect(watched->due.get(), &QTimer::timeout, this,
            [this, it = std::weak_ptr(watched)] { isDue(it.lock()); });
    connect(&box, &RichTextBox::Change, this, [this, &box] { noteChange(box); });
    connect(&box, &QObject::destroyed, this, [this](const QObject* gone) { forget(gone); });
    watched_[&box] = std::move(watched);
}

void TextCopies::noteChange(const RichTextBox& box) {
    const auto place = watched_.find(&box);
    if (place == watched_.end()) return;
    Watched& watched = *place->second;
    if (watched.edits++ == watched.held) watched.since = Clock::now();
    // A long text may have become a short one.
    if (!watched.due->isActive() || (watched.due->remainingTimeAsDuration() > pace_.small && !isLarge(box)))
        wait(watched);
}

/// Lets the text wait until the first edit that is not held has waited long enough.
void TextCopies::wait(Watched& watched) {
    const auto pace = isLarge(*watched.box) ? pace_.ofLarge : pace_.small;
    const auto waited = std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - watched.since);
    watched.due->start(std::max(pace - waited, std::chrono::milliseconds(0)));
}

void TextCopies::isDue(const std::shared_ptr<Watched>& watched) {
    if (!watched || watched->edits == watched->held) return;
    // It comes again when what is under way is done.
    if (isWriting(*watched) || isWaiting(*watched)) return;
    Lane& lane = laneOf(*watched->box);
    lane.waiting.push_back(watched);
    next(lane);
}

bool TextCopies::isWriting(const Watched& watched) const {
    return std::ranges::any_of(lanes_,
                               [&watched](const Lane& it) { return it.writing.lock().get() == &watched; });
}

bool TextCopies::isWaiting(const Watched& watched) const {
    return std::ranges::any_of(lanes_, [&watched](const Lane& lane) {
        return std::ranges::any_of(lane.waiting,
                                   [&watched](const auto& it) { return it.lock().get() == &watched; });
    });
}

void TextCopies::next(Lane& lane) {
    while (!lane.lane.isBusy() && !lane.waiting.empty()) {
        const auto watched = lane.waiting.front().lock();
        if (watched && watched->edits != watched->held && watched->about()) {
            copy(lane, watched);
            continue;
        }
        lane.waiting.pop_front();
        if (watched && watched->edits != watched->held) drop(*watched->box);
    }
}

/// Makes room first where there is not enough; the text then waits on.
void TextCopies::copy(Lane& lane, const std::shared_ptr<Watched>& watched) {
    const auto length = static_cast<size_t>(watched->box->Length());
    look_.start();
    if (!lane.lane.hasRoomFor(length)) return lane.lane.makeRoom(length);
    lane.waiting.pop_front();
    watched->box->CopyText(lane.lane.buffer());
    watched->held = watched->edits;
    lane.writing = watched;
    lane.isWriting = true;
    lane.earlier = watched->path;
    lane.lane.write(length, [&folder = folder_, path = watched->path, about = *watched->about()](
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
    const auto watched = std::exchange(lane.writing, {}).lock();
    const bool wasWriting = std::exchange(lane.isWriting, false);
    if (watched && kept) {
        took(*watched, *kept);
    } else if (kept && wasWriting) {
        // The text went meanwhile.
        folder_.remove(kept->error ? lane.earlier : kept->path);
    } else if (kept && !lane.waiting.empty()) {
        // There is no room for it: later there may be.
        const auto first = lane.waiting.front().lock();
        lane.waiting.pop_front();
        if (first) took(*first, *kept);
    }
}

void TextCopies::finishAll() {
    for (Lane& lane : lanes_) {
        lane.waiting.clear();
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
    if (watched.edits != watched.held) wait(watched);
}

void TextCopies::replaceCopy(const RichTextBox& box, const std::string& path) {
    const auto place = watched_.find(&box);
    if (place != watched_.end()) place->second->replaced.push_back(path);
}

void TextCopies::drop(const RichTextBox& box) {
    const auto place = watched_.find(&box);
    if (place == watched_.end()) return;
    folder_.remove(std::exchange(place->second->left, {}));
    forgetCopy(&box);
}

void TextCopies::giveUp(const RichTextBox& box) {
    forgetCopy(&box);
}

/// The box is watched on as if it had no copy. Gives what was known of it.
std::shared_ptr<TextCopies::Watched> TextCopies::renew(Place place) {
    auto old = std::exchange(place->second, std::make_shared<Watched>());
    Watched& fresh = *place->second;
    fresh.box = old->box;
    fresh.about = std::move(old->about);
    fresh.left = std::move(old->left);
    fresh.due = std::move(old->due);
    fresh.due->stop();
    fresh.due->disconnect(this);
    connect(fresh.due.get(), &QTimer::timeout, this,
            [this, it = std::weak_ptr(place->second)] { isDue(it.lock()); });
    return old;
}

void TextCopies::forgetCopy(const QObject* box) {
    const auto place = watched_.find(box);
    if (place == watched_.end()) return;
    // What is being written for it is taken away when it is done.
    const auto old = renew(place);
    if (!old->path.empty() && !isWriting(*old)) folder_.remove(old->path);
    for (const auto& path : old->replaced) folder_.remove(path);
}

void TextCopies::forget(const QObject* box) {
    forgetCopy(box);
    if (watched_.erase(box) == 0) return;
    Position longest = 0;
    for (const auto& [other, it] : watched_) longest = std::max(longest, it->box->Length());
    for (Lane& lane : lanes_) lane.lane.trim(static_cast<size_t>(longest));
}

RecoveryFolder::Kept TextCopies::writeNow(Watched& watched) {
    const auto about = watched.about();
    if (!about) {
        drop(*watched.box);
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
    const auto place = watched_.find(&box);
    if (place == watched_.end()) return {};
    const auto watched = place->second;
    auto kept = writeNow(*watched);
    if (!kept.error && !kept.path.empty()) renew(place);
    for (Lane& lane : lanes_) next(lane);
    return kept;
}

RecoveryFolder::Kept TextCopies::leave(const RichTextBox& box) {
    auto kept = putAside(box);
    const auto place = watched_.find(&box);
    if (place != watched_.end() && !kept.error) place->second->left = kept.path;
    return kept;
}

void TextCopies::writeAll() {
    finishAll();
    for (const auto& [box, watched] : std::map(watched_))
        if (watched->edits != watched->held) writeNow(*watched);
}

void TextCopies::leaveAll() {
    writeAll();
    for (const auto& [box, watched] : watched_) watched->due->stop();
    watched_.clear();
}

}  // namespace klt
