#include "text/ShownText.h"

#include <utf8proc.h>

#include "text/Unicode.h"

namespace klt {

namespace {

constexpr char32_t kReplacement = 0xFFFD;
constexpr char32_t kControlPictures = 0x2400;
constexpr char32_t kDeletePicture = 0x2421;
constexpr char32_t kDelete = 0x7F;
constexpr char32_t kFirstSurrogate = 0xD800, kLastSurrogate = 0xDFFF;

// A change of direction would put what stands behind it elsewhere.
bool changesDirection(char32_t code) {
    return code == 0x061C || code == 0x200E || code == 0x200F || (code >= 0x202A && code <= 0x202E) ||
           (code >= 0x2066 && code <= 0x2069);
}

bool isObeyed(char32_t code) {
    switch (utf8proc_category(static_cast<utf8proc_int32_t>(code))) {
        case UTF8PROC_CATEGORY_CC:
        case UTF8PROC_CATEGORY_ZL:
        case UTF8PROC_CATEGORY_ZP:
            return true;
        default:
            return changesDirection(code) || (code >= kFirstSurrogate && code <= kLastSurrogate);
    }
}

bool isSpacing(char32_t code) {
    return code == ' ' || code == '\t' || code == '\r' || code == '\n';
}

}  // namespace

ShownCharacter shownCharacter(char32_t code) {
    if (code < ' ') return {kControlPictures + code, 1};
    if (code < kDelete) return {code, 1};
    if (code == kDelete) return {kDeletePicture, 1};
    if (isObeyed(code)) return {kReplacement, 1};
    return {code, utf8proc_charwidth(static_cast<utf8proc_int32_t>(code))};
}

std::string shownOnOneLine(std::string_view text, size_t most) {
    constexpr std::string_view kCut = "...";
    std::string shown;
    size_t count = 0, whereCut = 0;
    bool isBehindBlank = false;
    for (size_t offset = 0; offset < text.size();) {
        const auto character = characterAt(text, offset);
        offset += character.length;
        const bool isBlank = isSpacing(character.code);
        if (isBlank && isBehindBlank) continue;
        isBehindBlank = isBlank;
        if (count == most) return shown.substr(0, whereCut).append(kCut);
        if (count++ == most - kCut.size()) whereCut = shown.size();
        appendCharacter(shown, isBlank ? U' ' : shownCharacter(character.code).code);
    }
    return shown;
}

}  // namespace klt
