#include "platform/MemoryRoom.h"

#include <sys/mman.h>

#include <atomic>
#include <cstdlib>
#include <utility>

namespace klt {

namespace {

constexpr size_t kReserve = size_t{16} << 20;
// Left to windows, their icons and what the desktop wants to know.
constexpr size_t kMargin = size_t{16} << 20;
// So little comes from what the process has already, and need not leave the margin.
constexpr size_t kSmall = size_t{64} << 10;

std::atomic<void*> reserve = nullptr;
std::function<void()> teller;

// Address space alone, so that it costs no memory until it is used.
void* map(size_t bytes) {
    void* const area = mmap(nullptr, bytes, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    return area == MAP_FAILED ? nullptr : area;
}

bool canMap(size_t bytes) {
    void* const area = map(bytes);
    return area != nullptr && munmap(area, bytes) == 0;
}

bool canAllocate(size_t bytes) {
    // Volatile, or the compiler leaves both calls out.
    void* volatile const block = std::malloc(bytes);
    std::free(block);
    return block != nullptr;
}

bool holdReserve() {
    if (reserve.load() != nullptr) return true;
    std::set_new_handler([] {
        if (!releaseReserve()) throw std::bad_alloc();
    });
    reserve = map(kReserve);
    return reserve.load() != nullptr;
}

}  // namespace

bool releaseReserve() {
    void* const area = reserve.exchange(nullptr);
    return area != nullptr && munmap(area, kReserve) == 0;
}

bool roomFor(size_t bytes) {
    if (bytes <= kSmall) return canAllocate(2 * kSmall) || (releaseReserve() && canAllocate(2 * kSmall));
    if (bytes < SIZE_MAX - kMargin && holdReserve() && canMap(bytes + kMargin)) return true;
    releaseReserve();
    return false;
}

void requireRoom(size_t bytes) {
    if (!roomFor(bytes)) throw std::bad_alloc();
}

void onLackOfMemory(std::function<void()> tell) {
    teller = std::move(tell);
}

void tellOfLack() noexcept {
    fitsMemory([] {
        if (teller) teller();
    });
}

}  // namespace klt
