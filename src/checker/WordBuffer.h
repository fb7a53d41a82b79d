#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstring>
#include <string_view>

namespace klt {

/// The characters that a scanner has collected since its last delimiter. As long as nothing was passed over
/// between them it is a slice of the text; else it keeps them itself, up to more than any word of the
/// language is long. A longer text can match nothing, and of it only the length and the last three characters
/// are kept.
class WordBuffer {
public:
    bool empty() const { return size_ == 0; }
    size_t size() const { return size_; }
    void clear() { size_ = 0; }

    /// What was collected; empty where it is too long to be any word.
    std::string_view view() const {
        if (!isOwn_) return {slice_, size_};
        return size_ <= kKept ? std::string_view(own_.data(), size_) : std::string_view();
    }

    /// The last three characters, or all if there are fewer.
    std::string_view tail() const {
        if (!isOwn_) return std::string_view(slice_, size_).substr(size_ - std::min(size_, kTail));
        const auto kept = std::min(size_, kKept);
        return std::string_view(own_.data(), kept).substr(kept - std::min(kept, kTail));
    }

    /// `text` must be of the scanned text, or outlive the buffer.
    void append(std::string_view text) {
        if (size_ == 0) {
            isOwn_ = false;
            slice_ = text.data();
            size_ = text.size();
        } else if (!isOwn_ && slice_ + size_ == text.data()) {
            size_ += text.size();
        } else {
            appendOwn(text);
        }
    }

    void removeTrailingBlanks() {
        while (size_ > 0 && !view().empty() && view().back() == ' ') --size_;
    }

private:
    static constexpr size_t kKept = 30;
    static constexpr size_t kTail = 3;

    void appendOwn(std::string_view text) {
        if (!isOwn_) keep(std::string_view(slice_, size_), 0);
        isOwn_ = true;
        keep(text, std::min(size_, kKept));
        size_ += text.size();
    }

    // Puts `text` behind `used` kept bytes. What does not fit pushes the oldest out: only the end is of use
    // then.
    void keep(std::string_view text, size_t used) {
        if (text.size() > kKept) text.remove_prefix(text.size() - kKept);
        if (used + text.size() > kKept) {
            const auto drop = used + text.size() - kKept;
            std::memmove(own_.data(), own_.data() + drop, used - drop);
            used -= drop;
        }
        std::memcpy(own_.data() + used, text.data(), text.size());
    }

    const char* slice_ = nullptr;
    size_t size_ = 0;
    std::array<char, kKept> own_{};
    bool isOwn_ = false;
};

}  // namespace klt
