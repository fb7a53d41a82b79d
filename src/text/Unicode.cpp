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

bool isInsideLineEnd(std::string_view text, size_t place) {
    return place > 0 && place < text.size() && text[place] == '\n' && text[place - 1] == '\r';
}

}  // namespace

Character characterAt(std::string_view text, size_t place) {
    const auto first = static_cast<unsigned char>(text[place]);
    if (first < 0x80) return {first, 1};
    utf8proc_int32_t code = 0;
    const auto rest = static_cast<utf8proc_ssize_t>(std::min(kLongestCharacter, text.size() - place));
    const auto length =
        utf8proc_iterate(reinterpret_cast<const utf8proc_uint8_t*>(text.data() + place), rest, &code);
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

// How many bytes from `place` on are ASCII, blocks first. The loop over a block has a fixed length, so that
// the compiler makes vector code of it.
size_t asciiLength(std::string_view text, size_t place) {
    const size_t start = place;
    for (; place + kBlock <= text.size(); place += kBlock) {
        const char* block = text.data() + place;
        unsigned char seen = 0;
        for (size_t i = 0; i < kBlock; ++i) seen |= static_cast<unsigned char>(block[i]);
        if (seen & 0x80) break;
    }
    while (place < text.size() && !isHigh(text[place])) ++place;
    return place - start;
}

bool isAscii(std::string_view text) {
    return asciiLength(text, 0) == text.size();
}

bool isValidUtf8(std::string_view text) {
    for (size_t place = 0; (place += asciiLength(text, place)) < text.size();) {
        do {
            const auto length = characterAt(text, place).length;
            if (length == 1) return false;
            place += length;
        } while (place < text.size() && isHigh(text[place]));
    }
    return true;
}

size_t countCharacters(std::string_view text) {
    size_t count = 0, place = 0;
    for (; place + kBlock <= text.size(); place += kBlock) {
        const char* block = text.data() + place;
        unsigned char inBlock = 0;
        for (size_t i = 0; i < kBlock; ++i)
            inBlock = static_cast<unsigned char>(inBlock + !isContinuation(block[i]));
        count += inBlock;
    }
    for (; place < text.size(); ++place) count += !isContinuation(text[place]);
    return count;
}

size_t previousCharacter(std::string_view text, size_t place) {
    for (size_t length = 2; length <= std::min(kLongestCharacter, place); ++length) {
        if (!isContinuation(text[place - length + 1])) break;
        if (characterAt(text.substr(0, place), place - length).length == length) return place - length;
    }
    return place - 1;
}

size_t unitStart(std::string_view text, size_t place) {
    if (place >= text.size()) return text.size();
    if (isInsideLineEnd(text, place)) return place - 1;
    if (!isContinuation(text[place])) return place;
    for (size_t back = 1; back < kLongestCharacter && back <= place; ++back)
        if (characterAt(text, place - back).length > back) return place - back;
    return place;
}

size_t unitEnd(std::string_view text, size_t place) {
    const size_t start = unitStart(text, place);
    return start >= place ? start : nextUnit(text, start);
}

size_t nextUnit(std::string_view text, size_t place) {
    if (place >= text.size()) return text.size();
    if (isInsideLineEnd(text, place + 1)) return place + 2;
    return place + characterAt(text, place).length;
}

size_t previousUnit(std::string_view text, size_t place) {
    place = std::min(place, text.size());
    if (place == 0) return 0;
    if (isInsideLineEnd(text, place - 1)) return place - 2;
    return previousCharacter(text, place);
}

std::string upperCase(std::string_view text) {
    std::string upper;
    upper.reserve(text.size());
    for (size_t place = 0; place < text.size();) {
        const auto character = characterAt(text, place);
        if (character.code < 0x80) {
            const char c = text[place];
            upper.push_back(c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c);
        } else if (character.length == 1) {
            upper.push_back(text[place]);
        } else {
            const auto code = utf8proc_toupper(static_cast<utf8proc_int32_t>(character.code));
            appendCharacter(upper, static_cast<char32_t>(code));
        }
        place += character.length;
    }
    return upper;
}

char32_t foldCase(char32_t code) {
    if (code < 0x80) return code >= 'A' && code <= 'Z' ? code - 'A' + 'a' : code;
    // By way of the upper case, so that letters with two lower forms, as the Greek sigma, meet.
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
