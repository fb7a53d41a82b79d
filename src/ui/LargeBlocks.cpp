#include "ui/LargeBlocks.h"

#include <algorithm>
#include <cstdlib>
#include <new>

#include "text/LargePages.h"

namespace klt {

void useLargeBlocks() {}

}  // namespace klt

// The address sanitizer has an allocator of its own.
#ifndef __SANITIZE_ADDRESS__

void* operator new(std::size_t size) {
    constexpr std::size_t kBig = std::size_t{4} << 20;
    for (;;) {
        if (void* const block = std::malloc(std::max<std::size_t>(size, 1))) {
            if (size >= kBig) klt::useLargePages(block, size);
            return block;
        }
        const std::new_handler handler = std::get_new_handler();
        if (handler == nullptr) throw std::bad_alloc();
        handler();
    }
}

void operator delete(void* block) noexcept {
    std::free(block);
}
void operator delete(void* block, std::size_t) noexcept {
    std::free(block);
}

#endif
