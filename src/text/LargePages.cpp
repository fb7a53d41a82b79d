#include "text/LargePages.h"

#include <sys/mman.h>

#include <cstdint>

namespace klt {

namespace {

constexpr size_t kLargePage = size_t{2} << 20;

}  // namespace

void useLargePages(void* memory, size_t size) {
    const size_t skipped = (kLargePage - reinterpret_cast<std::uintptr_t>(memory) % kLargePage) % kLargePage;
    if (size < skipped + kLargePage) return;
    // A hint: where the system refuses it, small pages serve.
    madvise(static_cast<char*>(memory) + skipped, (size - skipped) / kLargePage * kLargePage, MADV_HUGEPAGE);
}

void reserveLarge(std::string& text, size_t size) {
    if (size <= text.capacity()) return;
    text.reserve(size);
    useLargePages(text.data() + text.size(), text.capacity() - text.size());
}

}  // namespace klt
