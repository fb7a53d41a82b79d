#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace klt {

/// Whether a byte goes on a character of UTF-8 that began in front of it.
constexpr bool isContinuation(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

/// One character taken from UTF-8. A byte that belongs to no valid character stands alone: its length is 1
/// and its code 0xDC00 plus the byte, a value that no valid text yields.
struct Character {
    char32_t code = 0;
    size_t length = 1;
};

/// The character that begins at `offset`, which must lie inside the text.
Character characterAt(std::string_view text, size_t offset);

void appendCharacter(std::string& text, char32_t code);

/// How many bytes from `offset` on are ASCII.
size_t asciiLength(std::string_view text, size_t offset);
bool isAscii(std::string_view text);
/// No overlong forms, no surrogates, nothing behind U+10FFFF. NUL is a character like others.
bool isValidUtf8(std::string_view text);

/// How many characters the text has; CR LF counts as two, a byte of no valid character as none or one.
size_t countCharacters(std::string_view text);

/// At most the first `count` characters.
std::string_view firstCharacters(std::string_view text, size_t count);

/// The start of the character that ends at `offset`, which must lie behind 0 and inside the text.
size_t previousCharacter(std::string_view text, size_t offset);

/// `offset` itself, or the start of the character or CR LF inside which it lies. Clamped to the text.
size_t unitStart(std::string_view text, size_t offset);
/// `offset` itself, or the end of the character or CR LF inside which it lies. Clamped to the text.
size_t unitEnd(std::string_view text, size_t offset);
/// One step on, over a whole character or CR LF; the text's end stays.
size_t nextUnit(std::string_view text, size_t offset);
/// One step back, over a whole character or CR LF; 0 stays.
size_t previousUnit(std::string_view text, size_t offset);

/// Upper case, letter by letter, beyond ASCII too. The length in bytes may change; what is no valid character
/// stays as it is.
std::string upperCase(std::string_view text);

/// One value for all the letters that differ in case alone.
char32_t foldCase(char32_t code);
bool equalIgnoringCase(std::string_view left, std::string_view right);

}  // namespace klt
