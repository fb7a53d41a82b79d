#include "platform/HandOverMessage.h"

#include "text/Unicode.h"

namespace klt {

namespace {

constexpr size_t kHeaderLength = 4;
constexpr char32_t kReplacement = 0xFFFD;
// What `characterAt` adds to a byte that is no UTF-8: 0xDC80 to 0xDCFF, which no valid text holds.
constexpr char32_t kByteEscape = 0xDC00;

bool isHighSurrogate(char32_t unit) {
    return unit >= 0xD800 && unit < 0xDC00;
}
bool isLowSurrogate(char32_t unit) {
    return unit >= 0xDC00 && unit < 0xE000;
}
bool isEscapedByte(char32_t unit) {
    return unit >= kByteEscape + 0x80 && unit <= kByteEscape + 0xFF;
}

void appendUnit(std::string& out, char32_t unit) {
    out += static_cast<char>(unit & 0xFF);
    out += static_cast<char>(unit >> 8 & 0xFF);
}

void appendUtf16(std::string& out, char32_t character) {
    if (character < 0x10000) return appendUnit(out, character);
    appendUnit(out, 0xD800 + ((character - 0x10000) >> 10));
    appendUnit(out, 0xDC00 + ((character - 0x10000) & 0x3FF));
}

char32_t unitAt(std::string_view utf16, size_t at) {
    if (at + 1 >= utf16.size()) return 0;
    return static_cast<unsigned char>(utf16[at]) |
           static_cast<char32_t>(static_cast<unsigned char>(utf16[at + 1])) << 8;
}

}  // namespace

std::string encodeMessage(std::string_view commandLine) {
    std::string message(kHeaderLength, '\0');
    message.reserve(kHeaderLength + 2 * commandLine.size());
    for (size_t at = 0; at < commandLine.size();) {
        const auto character = characterAt(commandLine, at);
        appendUtf16(message, character.code);
        at += character.length;
    }
    const size_t length = message.size() - kHeaderLength;
    for (size_t i = 0; i < kHeaderLength; ++i) message[i] = static_cast<char>(length >> 8 * i & 0xFF);
    return message;
}

std::string decodeMessageText(std::string_view utf16) {
    std::string text;
    text.reserve(utf16.size());
    for (size_t at = 0; at + 1 < utf16.size(); at += 2) {
        const auto unit = unitAt(utf16, at), next = unitAt(utf16, at + 2);
        if (isHighSurrogate(unit) && isLowSurrogate(next)) {
            appendCharacter(text, 0x10000 + ((unit - 0xD800) << 10) + (next - 0xDC00));
            at += 2;
        } else if (isEscapedByte(unit)) {
            text += static_cast<char>(unit - kByteEscape);
        } else {
            appendCharacter(text, isHighSurrogate(unit) || isLowSurrogate(unit) ? kReplacement : unit);
        }
    }
    return text;
}

size_t MessageReader::wanted() const {
    if (state_ != State::unfinished) return 0;
    return header_.size() < kHeaderLength ? kHeaderLength - header_.size() : length_ - text_.size();
}

MessageReader::State MessageReader::take(std::string_view bytes) {
    bytes = bytes.substr(0, wanted());
    if (state_ != State::unfinished) return state_;
    if (header_.size() == kHeaderLength) {
        text_ += bytes;
    } else {
        header_ += bytes;
        if (header_.size() < kHeaderLength) return state_;
        for (size_t i = kHeaderLength; i-- > 0;)
            length_ = length_ << 8 | static_cast<unsigned char>(header_[i]);
        if (length_ > kLongestMessage || length_ % 2 != 0) return state_ = State::refused;
    }
    return state_ = text_.size() == length_ ? State::complete : State::unfinished;
}

}  // namespace klt
