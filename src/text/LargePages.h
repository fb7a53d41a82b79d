#pragma once

#include <cstddef>
#include <string>

namespace klt {

/// Asks for large pages for a stretch of memory not yet touched: fresh memory in small pages is dear. Short
/// stretches are left alone.
void useLargePages(void* memory, size_t size);

/// `text.reserve(size)`, in large pages where that is much.
void reserveLarge(std::string& text, size_t size);

}  // namespace klt
