#include "text/Unicode.h"

#include <utf8proc.h>

#include <algorithm>

namespace klt {

namespace {

constexpr char32_t kLoneByte = 0xDC00;
constexpr size_t kLongestCharacter = 4;
constexpr size_t kBlock = 64;

bool isHigh(char byte) {
    return static_cast<unsigned char>(byte) >= 0x80;
}

bool isInsideLineEnd(std::string_view text, size_t offset) {
    return offset > 0 && offset < text.size() && text[offset] == '\n' && text[offset - 1] == '\r';
}

}  // namespace

Character characterAt(std::string_view text, size_t offset) {
    const auto first = static_cast<unsigned char>(text[offset]);
    if (first < 0x80) return {first, 1};
    utf8proc_int32_t code = 0;
    const auto rest = static_cast<utf8proc_ssize_t>(std::min(kLongestCharacter, text.size() - offset));
    const auto length =
        utf8proc_iterate(reinterpret_cast<const utf8proc_uint8_t*>(text.data() + offset), rest, &code);
    if (length <= 0) return {kLoneByte + first, 1};
    return {static_cast<char32_t>(code), static_cast<size_t>(length)};
}

void appendCharacter(std::string& text, char32_t code) {
    if (code < 0x80) {
        text.push_back(static_cast<char>(code));
        return;
    }
    utf8proc_uint8_t bytes[kLongestCharacter];
    const auto length = utf8proc_encode_char(static_cast<utf8proc_int32_t>(code), bytes);
    text.append(reinterpret_cast<const char*>(bytes), static_cast<size_t>(length));
}

// How many bytes from `offset` on are ASCII, blocks first. The loop over a block has a fixed length, so that
// the compiler makes vector code of it.
size_t asciiLength(std::string_view text, size_t offset) {
    const size_t start = offset;
    for (; offset + kBlock <= text.size(); offset += kBlock) {
        const char* block = text.data() + offset;
        unsigned char seen = 0;
        for (size_t i = 0; i < kBlock; ++i) seen |= static_cast<unsigned char>(block[i]);
        if (seen & 0x80) break;
    }
    while (offset < text.size() && !isHigh(text[offset])) ++offset;
    return offset - start;
}

bool isAscii(std::string_view text) {
    return asciiLength(text, 0) == text.size();
}

bool isValidUtf8(std::string_view text) {
    for (size_t offset = 0;;) {
        offset += asciiLength(text, offset);
        if (offset == text.size()) return true;
        do {
            const auto length = characterAt(text, offset).length;
            if (length == 1) return false;
            offset += length;
        } while (offset < text.size() && isHigh(text[offset]));
    }
}

size_t countCharacters(std::string_view text) {
    size_t count = 0, offset = 0;
    for (; offset + kBlock <= text.size(); offset += kBlock) {
        const char* block = text.data() + offset;
        unsigned char inBlock = 0;
        for (size_t i = 0; i < kBlock; ++i)
            inBlock = static_cast<unsigned char>(inBlock + !isContinuation(block[i]));
        count += inBlock;
    }
    for (; offset < text.size(); ++offset) count += !isContinuation(text[offset]);
    return count;
}

std::string_view firstCharacters(std::string_view text, size_t count) {
    size_t end = 0;
    while (end < text.size() && count-- > 0) end += characterAt(text, end).length;
    return text.substr(0, end);
}

size_t previousCharacter(std::string_view text, size_t offset) {
    for (size_t length = 2; length <= std::min(kLongestCharacter, offset); ++length) {
        if (!isContinuation(text[offset - length + 1])) break;
        if (characterAt(text.substr(0, offset), offset - length).length == length) return offset - length;
    }
    return offset - 1;
}

size_t unitStart(std::string_view text, size_t offset) {
    if (offset >= text.size()) return text.size();
    if (isInsideLineEnd(text, offset)) return offset - 1;
    if (!isContinuation(text[offset])) return offset;
    for (size_t back = 1; back < kLongestCharacter && back <= offset; ++back)
        if (characterAt(text, offset - back).length > back) return offset - back;
    return offset;
}

size_t unitEnd(std::string_view text, size_t offset) {
    const size_t start = unitStart(text, offset);
    return start >= offset ? start : nextUnit(text, start);
}

size_t nextUnit(std::string_view text, size_t offset) {
    if (offset >= text.size()) return text.size();
    if (isInsideLineEnd(text, offset + 1)) return offset + 2;
    return offset + characterAt(text, offset).length;
}

size_t previousUnit(std::string_view text, size_t offset) {
    offset = std::min(offset, text.size());
    if (offset == 0) return 0;
    if (isInsideLineEnd(text, offset - 1)) return offset - 2;
    return previousCharacter(text, offset);
}

std::string upperCase(std::string_view text) {
    std::string upper;
    upper.reserve(text.size());
    for (size_t offset = 0; offset < text.size();) {
        const auto character = characterAt(text, offset);
        if (character.code < 0x80) {
            const char c = text[offset];
            upper.push_back(c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c);
        } else if (character.length == 1) {
            upper.push_back(text[offset]);
        } else {
            const auto code = utf8proc_toupper(static_cast<utf8proc_int32_t>(character.code));
            appendCharacter(upper, static_cast<char32_t>(code));
        }
        offset += character.length;
    }
    return upper;
}

char32_t foldCase(char32_t code) {
    if (code < 0x80) return code >= 'A' && code <= 'Z' ? code - 'A' + 'a' : code;
    // By way of the upper case: the Greek sigma has two lower-case forms.
    return static_cast<char32_t>(utf8proc_tolower(utf8proc_toupper(static_cast<utf8proc_int32_t>(code))));
}

bool equalIgnoringCase(std::string_view left, std::string_view right) {
    size_t l = 0, r = 0;
    while (l < left.size() && r < right.size()) {
        const auto a = characterAt(left, l), b = characterAt(right, r);
        if (a.code != b.code && foldCase(a.code) != foldCase(b.code)) return false;
        l += a.length;
        r += b.length;
    }
    return l == left.size() && r == right.size();
}

}  // namespace klt
