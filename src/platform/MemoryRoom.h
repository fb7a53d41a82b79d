#pragma once

#include <cstddef>
#include <functional>
#include <new>

// Memory that runs out. What grows with a text is asked for before the work begins, for neither Scintilla nor
// Qt leaves a text whole that they ran out in the middle of. `std::bad_alloc` is the one exception that
// crosses folders: a step that meets it is given up where it was begun, by `fitsMemory`.
namespace klt {

/// Whether `bytes` more are to be had, and enough beside them for what a window does at its own pace. Part of
/// the memory is put by for the time when there is none; a refusal gives it free, so that it can be told of.
bool roomFor(size_t bytes);

/// Throws `std::bad_alloc` where there is no room.
void requireRoom(size_t bytes);

/// Gives what was put by free; false where nothing was left.
bool releaseReserve();

/// Runs `step`. False where memory ran out under it: `step` must then leave things as they were.
template <typename Step>
bool fitsMemory(Step&& step) {
    try {
        step();
        return true;
    } catch (const std::bad_alloc&) {
        releaseReserve();
        return false;
    }
}

/// Who tells of steps that were given up, one for the process; nobody by default.
void onLackOfMemory(std::function<void()> tell);
void tellOfLack() noexcept;

/// Runs a step that somebody asked for. Where memory runs out it is given up, and told of.
template <typename Step>
void tryStep(Step&& step) {
    if (!fitsMemory(step)) tellOfLack();
}

}  // namespace klt
