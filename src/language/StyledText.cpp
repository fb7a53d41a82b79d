#include "language/StyledText.h"

#include <sys/mman.h>

#include <cstdint>
#include <utility>

#include "text/Ascii.h"

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

StyledText::StyledText(std::string text) : own_(std::move(text)), text_(own_) {
    makeStyles();
}

StyledText::StyledText(std::string text, std::string styles)
    : own_(std::move(text)), text_(own_), styles_(std::move(styles)) {
    styles_.resize(text_.size());
}

StyledText::StyledText(std::span<char> letters) : text_(letters) {
    makeStyles();
}

void StyledText::makeStyles() {
    styles_.reserve(text_.size());
    askForLargePages(styles_.data(), text_.size());
    styles_.resize(text_.size());
}

void StyledText::rewrite(Position start, std::string_view text) {
    const auto from = static_cast<size_t>(start);
    if (start < 0 || from > text_.size() || text.size() > text_.size() - from) return;
    if (equalIgnoringAsciiCase(text, this->text().substr(from, text.size())))
        text.copy(text_.data() + from, text.size());
}

}  // namespace klt
