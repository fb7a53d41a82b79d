#include "language/StyledText.h"

#include <utility>

#include "text/Ascii.h"
#include "text/LargePages.h"

namespace klt {

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
    useLargePages(styles_.data(), text_.size());
    styles_.resize(text_.size());
}

void StyledText::rewrite(Position start, std::string_view text) {
    const auto from = static_cast<size_t>(start);
    if (start < 0 || from > text_.size() || text.size() > text_.size() - from) return;
    if (equalIgnoringAsciiCase(text, this->text().substr(from, text.size())))
        text.copy(text_.data() + from, text.size());
}

}  // namespace klt
