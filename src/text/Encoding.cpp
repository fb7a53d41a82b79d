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

// A text whose characters stand in units of 2 or 4 bytes, behind a byte order mark.
struct WideForm {
    Encoding encoding;
    std::string_view mark;
    bool isBigEndian;

    size_t unit() const { return mark.size(); }
};
// UTF-32 first: its little-endian mark begins with that of UTF-16.
constexpr std::array<WideForm, 4> kWideForms = {{
    {Encoding::Utf32LE, {"\xFF\xFE\0\0", 4}, false},
    {Encoding::Utf32BE, {"\0\0\xFE\xFF", 4}, true},
    {Encoding::Utf16LE, "\xFF\xFE", false},
    {Encoding::Utf16BE, "\xFE\xFF", true},
}};

// The characters of the bytes from 0x80 to 0x9F. The five without one stand for themselves.
constexpr std::array<char32_t, 32> kWindows1252 = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};

// The unit at `offset`; the bytes must be there.
char32_t unitAt(std::string_view bytes, size_t offset, const WideForm& form) {
    char32_t unit = 0;
    for (size_t i = 0; i < form.unit(); ++i) {
        const size_t next = offset + (form.isBigEndian ? i : form.unit() - 1 - i);
        unit = unit << 8 | static_cast<unsigned char>(bytes[next]);
    }
    return unit;
}

void appendUnit(std::string& bytes, char32_t unit, const WideForm& form) {
    for (size_t i = 0; i < form.unit(); ++i) {
        const size_t byte = form.isBigEndian ? form.unit() - 1 - i : i;
        bytes.push_back(static_cast<char>(unit >> 8 * byte & 0xFF));
    }
}

constexpr bool isLead(char32_t unit) {
    return unit >= 0xD800 && unit < 0xDC00;
}
constexpr bool isTrail(char32_t unit) {
    return unit >= 0xDC00 && unit < 0xE000;
}
constexpr bool isCharacter(char32_t unit) {
    return unit < 0x110000 && !isLead(unit) && !isTrail(unit);
}

bool isValidWide(std::string_view bytes, const WideForm& form) {
    if (bytes.size() % form.unit() != 0) return false;
    for (size_t offset = 0; offset < bytes.size(); offset += form.unit()) {
        const char32_t unit = unitAt(bytes, offset, form);
        if (isCharacter(unit)) continue;
        offset += form.unit();
        const bool isPair =
            form.unit() == 2 && isLead(unit) && offset < bytes.size() && isTrail(unitAt(bytes, offset, form));
        if (!isPair) return false;
    }
    return true;
}

// The form whose mark the bytes begin with, where what follows bears it out; else null.
const WideForm* wideFormOf(std::string_view bytes) {
    const auto* form = std::find_if(kWideForms.begin(), kWideForms.end(), [&](const WideForm& it) {
        return bytes.starts_with(it.mark) && isValidWide(bytes.substr(it.mark.size()), it);
    });
    return form == kWideForms.end() ? nullptr : form;
}

const WideForm* wideForm(Encoding encoding) {
    const auto* form = std::find_if(kWideForms.begin(), kWideForms.end(),
                                    [&](const WideForm& it) { return it.encoding == encoding; });
    return form == kWideForms.end() ? nullptr : form;
}

// `bytes` must be valid.
std::string fromWide(std::string_view bytes, const WideForm& form) {
    bytes.remove_prefix(form.mark.size());
    std::string text;
    reserveLarge(text, bytes.size() / form.unit() + bytes.size() / 8);
    for (size_t offset = 0; offset < bytes.size(); offset += form.unit()) {
        char32_t code = unitAt(bytes, offset, form);
        if (isLead(code)) {
            offset += form.unit();
            code = 0x10000 + ((code - 0xD800) << 10) + (unitAt(bytes, offset, form) - 0xDC00);
        }
        appendCharacter(text, code);
    }
    return text;
}

// `text` must be valid UTF-8.
std::string toWide(std::string_view text, const WideForm& form) {
    std::string bytes(form.mark);
    reserveLarge(bytes, bytes.size() + text.size() * form.unit());
    for (size_t offset = 0; offset < text.size();) {
        const auto character = characterAt(text, offset);
        const bool isPair = form.unit() == 2 && character.code > 0xFFFF;
        if (isPair) appendUnit(bytes, 0xD800 + ((character.code - 0x10000) >> 10), form);
        appendUnit(bytes, isPair ? 0xDC00 + (character.code & 0x3FF) : character.code, form);
        offset += character.length;
    }
    return bytes;
}

std::string fromWindows1252(std::string_view bytes) {
    std::string text;
    reserveLarge(text, bytes.size() + bytes.size() / 8);
    for (size_t offset = 0;; ++offset) {
        const auto plain = asciiLength(bytes, offset);
        text.append(bytes, offset, plain);
        offset += plain;
        if (offset == bytes.size()) return text;
        const auto byte = static_cast<unsigned char>(bytes[offset]);
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
    for (size_t offset = 0;;) {
        const auto plain = asciiLength(text, offset);
        bytes.append(text, offset, plain);
        offset += plain;
        if (offset == text.size()) return bytes;
        const auto character = characterAt(text, offset);
        const auto byte = windows1252Byte(character.code);
        if (!byte) return std::nullopt;
        bytes.push_back(*byte);
        offset += character.length;
    }
}

Encoding encodingOf(std::string_view bytes) {
    if (isAscii(bytes)) return Encoding::Any;
    if (const auto* form = wideFormOf(bytes)) return form->encoding;
    if (!isValidUtf8(bytes)) return Encoding::Windows1252;
    return bytes.starts_with(kUtf8Mark) ? Encoding::Utf8Bom : Encoding::Utf8;
}

std::string textOf(std::string bytes, Encoding encoding) {
    if (const auto* form = wideForm(encoding)) return fromWide(bytes, *form);
    if (encoding == Encoding::Windows1252) return fromWindows1252(bytes);
    if (encoding == Encoding::Utf8Bom) bytes.erase(0, kUtf8Mark.size());
    return bytes;
}

// How many bytes a CR or LF has.
size_t unitSize(Encoding encoding) {
    const auto* form = wideForm(encoding);
    return form == nullptr ? 1 : form->unit();
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

// None where the text is no valid UTF-8, or where the bytes would be read back as another encoding.
std::optional<Encoded> asWide(std::string_view text, const WideForm& form) {
    if (!isValidUtf8(text)) return std::nullopt;
    auto bytes = toWide(text, form);
    if (text.starts_with('\0') && wideFormOf(bytes) != &form) return std::nullopt;
    return Encoded(std::move(bytes), form.encoding);
}

std::optional<Encoded> asNarrow(std::string_view text, Encoding encoding) {
    return isAscii(text) ? Encoded(text, encoding) : asWindows1252(text);
}

}  // namespace

Decoded decodeAsIs(std::string bytes) {
    const auto encoding = encodingOf(bytes);
    const size_t size = bytes.size();
    return {textOf(std::move(bytes), encoding), encoding, size};
}

Decoded decode(std::string bytes) {
    auto decoded = decodeAsIs(std::move(bytes));
    if (hasOnlyCrLf(decoded.text)) return decoded;
    auto whole = withCrLf(decoded.text);
    decoded.fileSize += (whole.size() - decoded.text.size()) * unitSize(decoded.encoding);
    decoded.text = std::move(whole);
    return decoded;
}

Encoded encodeAsIs(std::string_view text, Encoding encoding) {
    std::optional<Encoded> encoded;
    if (const auto* form = wideForm(encoding)) encoded = asWide(text, *form);
    if (encoding == Encoding::Any || encoding == Encoding::Windows1252) encoded = asNarrow(text, encoding);
    if (encoded) return std::move(*encoded);
    return asUtf8(text, encoding == Encoding::Utf8Bom);
}

std::string_view encodingName(Encoding encoding) {
    static constexpr std::array<std::string_view, 8> kNames = {
        "ASCII",    "Windows-1252", "UTF-8",    "UTF-8 with a byte order mark",
        "UTF-16LE", "UTF-16BE",     "UTF-32LE", "UTF-32BE",
    };
    static_assert(kNames.size() == static_cast<size_t>(Encoding::Utf32BE) + 1);
    return kNames[static_cast<size_t>(encoding)];
}

std::string encodingChange(Encoding before, Encoding now) {
    return std::string("the encoding changes from ")
        .append(encodingName(before))
        .append(" to ")
        .append(encodingName(now));
}

Encoded encode(std::string_view text, Encoding encoding) {
    if (hasOnlyCrLf(text)) return encodeAsIs(text, encoding);
    const auto whole = withCrLf(text);
    const auto encoded = encodeAsIs(whole, encoding);
    return {std::string(encoded.bytes()), encoded.encoding()};
}

}  // namespace klt
