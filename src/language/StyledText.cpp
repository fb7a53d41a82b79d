#include "language/StyledText.h"

#include <sys/mman.h>

#include <cstdint>
#include <utility>

#include "language/Ascii.h"

namespace klt {

namespace {

// The first touch of fresh memory is dear in small pages. What is refused here costs time alone.
void askForLargePages(char* buffer, size_t size) {
    constexpr size_t kLargePage = size_t{2} << 20;
    const auto behindPage = reinterpret_cast<uintptr_t>(buffer) % kLargePage;
    const auto skipped = behindPage == 0 ? 0 : kLargePage - behindPage;
    if (size < skipped + kLargePage) return;
    madvise(buffer + skipped, (size - skipped) / kLargePage * kLargePage, MADV_HUGEPAGE);
}

}  // namespace

StyledText::StyledText(std::string text) : text_(std::move(text)) {
    styles_.reserve(text_.size());
    askForLargePages(styles_.data(), text_.size());
    styles_.resize(text_.size());
}

void StyledText::rewrite(Position start, std::string_view text) {
    const auto from = static_cast<size_t>(start);
    if (start < 0 || from > text_.size() || text.size() > text_.size() - from) return;
    if (equalsIgnoreCase(text, std::string_view(text_).substr(from, text.size())))
        text.copy(text_.data() + from, text.size());
}

}  // namespace klt
