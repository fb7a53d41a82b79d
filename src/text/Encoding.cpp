#include "text/Encoding.h"

#include <algorithm>
#include <array>
#include <optional>

#include "text/LargePages.h"
#include "text/LineEnds.h"
#include "text/Unicode.h"

namespace klt {

namespace {

constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";
constexpr std::string_view kUtf16LEMark = "\xFF\xFE";
constexpr std::string_view kUtf16BEMark = "\xFE\xFF";

// The characters of the bytes from 0x80 to 0x9F. The five without one stand for themselves.
constexpr std::array<char32_t, 32> kWindows1252 = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};

// The 16-bit unit at `place`; the bytes must be there.
char16_t unitAt(std::string_view bytes, size_t place, bool bigEndian) {
    const auto first = static_cast<unsigned char>(bytes[place]);
    const auto second = static_cast<unsigned char>(bytes[place + 1]);
    return static_cast<char16_t>(bigEndian ? first << 8 | second : second << 8 | first);
}

bool isValidUtf16(std::string_view bytes, bool bigEndian) {
    if (bytes.size() % 2 != 0) return false;
    for (size_t place = 0; place < bytes.size(); place += 2) {
        const char16_t unit = unitAt(bytes, place, bigEndian);
        if ((unit & 0xF800) != 0xD800) continue;
        place += 2;
        const bool isPair =
            unit < 0xDC00 && place < bytes.size() && (unitAt(bytes, place, bigEndian) & 0xFC00) == 0xDC00;
        if (!isPair) return false;
    }
    return true;
}

std::string fromUtf16Bytes(std::string_view bytes, bool bigEndian) {
    std::u16string wide;
    wide.reserve(bytes.size() / 2);
    for (size_t place = 0; place + 1 < bytes.size(); place += 2)
        wide.push_back(unitAt(bytes, place, bigEndian));
    return fromUtf16(wide);
}

std::string toUtf16Bytes(std::string_view text, bool bigEndian) {
    const auto wide = toUtf16(text);
    std::string bytes(bigEndian ? kUtf16BEMark : kUtf16LEMark);
    reserveLarge(bytes, bytes.size() + wide.size() * 2);
    for (const char16_t unit : wide) {
        const auto high = static_cast<char>(unit >> 8), low = static_cast<char>(unit & 0xFF);
        bytes.push_back(bigEndian ? high : low);
        bytes.push_back(bigEndian ? low : high);
    }
    return bytes;
}

std::string fromWindows1252(std::string_view bytes) {
    std::string text;
    reserveLarge(text, bytes.size() + bytes.size() / 8);
    for (size_t place = 0;; ++place) {
        const auto plain = asciiLength(bytes, place);
        text.append(bytes, place, plain);
        if ((place += plain) == bytes.size()) return text;
        const auto byte = static_cast<unsigned char>(bytes[place]);
        appendCharacter(text, byte < 0xA0 ? kWindows1252[byte - 0x80U] : byte);
    }
}

// For characters beyond ASCII.
std::optional<char> windows1252Byte(char32_t code) {
    if (code >= 0xA0 && code <= 0xFF) return static_cast<char>(code);
    const auto* found = std::find(kWindows1252.begin(), kWindows1252.end(), code);
    if (found == kWindows1252.end()) return std::nullopt;
    return static_cast<char>(0x80 + (found - kWindows1252.begin()));
}

std::optional<std::string> toWindows1252(std::string_view text) {
    std::string bytes;
    reserveLarge(bytes, text.size());
    for (size_t place = 0;;) {
        const auto plain = asciiLength(text, place);
        bytes.append(text, place, plain);
        if ((place += plain) == text.size()) return bytes;
        const auto character = characterAt(text, place);
        const auto byte = windows1252Byte(character.code);
        if (!byte) return std::nullopt;
        bytes.push_back(*byte);
        place += character.length;
    }
}

Encoding encodingOf(std::string_view bytes) {
    if (isAscii(bytes)) return Encoding::Any;
    if (bytes.starts_with(kUtf16LEMark) && isValidUtf16(bytes.substr(kUtf16LEMark.size()), false))
        return Encoding::Utf16LE;
    if (bytes.starts_with(kUtf16BEMark) && isValidUtf16(bytes.substr(kUtf16BEMark.size()), true))
        return Encoding::Utf16BE;
    if (!isValidUtf8(bytes)) return Encoding::Windows1252;
    return bytes.starts_with(kUtf8Mark) ? Encoding::Utf8Bom : Encoding::Utf8;
}

std::string textOf(std::string bytes, Encoding encoding) {
    switch (encoding) {
        case Encoding::Windows1252:
            return fromWindows1252(bytes);
        case Encoding::Utf16LE:
        case Encoding::Utf16BE:
            return fromUtf16Bytes(std::string_view(bytes).substr(2), encoding == Encoding::Utf16BE);
        case Encoding::Utf8Bom:
            bytes.erase(0, kUtf8Mark.size());
            break;
        case Encoding::Any:
        case Encoding::Utf8:
            break;
    }
    return bytes;
}

Encoded asUtf8(std::string_view text, bool withMark) {
    // A text that begins with a mark of its own would lose it at the next reading.
    if (!withMark && !text.starts_with(kUtf8Mark)) return {text, Encoding::Utf8};
    std::string bytes;
    reserveLarge(bytes, kUtf8Mark.size() + text.size());
    bytes.append(kUtf8Mark).append(text);
    return {std::move(bytes), Encoding::Utf8Bom};
}

// None where Windows-1252 lacks a character, or where the bytes would be read back as another encoding.
std::optional<Encoded> asWindows1252(std::string_view text) {
    auto bytes = toWindows1252(text);
    if (!bytes || encodingOf(*bytes) != Encoding::Windows1252) return std::nullopt;
    return Encoded(std::move(*bytes), Encoding::Windows1252);
}

Encoded encodeCharacters(std::string_view text, Encoding encoding) {
    switch (encoding) {
        case Encoding::Any:
        case Encoding::Windows1252:
            if (isAscii(text)) return {text, encoding};
            if (auto encoded = asWindows1252(text)) return std::move(*encoded);
            return asUtf8(text, false);
        case Encoding::Utf16LE:
        case Encoding::Utf16BE:
            if (isValidUtf8(text)) return {toUtf16Bytes(text, encoding == Encoding::Utf16BE), encoding};
            break;
        case Encoding::Utf8:
        case Encoding::Utf8Bom:
            break;
    }
    return asUtf8(text, encoding == Encoding::Utf8Bom);
}

}  // namespace

Decoded decode(std::string bytes) {
    const auto encoding = encodingOf(bytes);
    auto text = textOf(std::move(bytes), encoding);
    if (hasOnlyCrLf(text)) return {std::move(text), encoding};
    return {withCrLf(text), encoding};
}

Encoded encode(std::string_view text, Encoding encoding) {
    if (hasOnlyCrLf(text)) return encodeCharacters(text, encoding);
    const auto whole = withCrLf(text);
    const auto encoded = encodeCharacters(whole, encoding);
    return {std::string(encoded.bytes()), encoded.encoding()};
}

}  // namespace klt
