#pragma once

#include <string>

#include "text/TextArea.h"

namespace klt {

/// The text with its selection between "<" and ">".
inline std::string markedText(const TextArea& area) {
    const auto start = static_cast<size_t>(area.SelStart());
    const auto length = static_cast<size_t>(area.SelLength());
    return std::string(area.Text()).insert(start + length, ">").insert(start, "<");
}

/// Sets a text whose selection stands between "<" and ">".
inline void setMarkedText(TextArea& area, std::string text) {
    const size_t start = text.find('<'), end = text.find('>') - 1;
    area.SetText(text.erase(end + 1, 1).erase(start, 1));
    area.Select(static_cast<Position>(start), static_cast<Position>(end - start));
}

/// A digit for each byte's style.
inline std::string styleDigits(const TextArea& area) {
    std::string digits;
    for (Position at = 0; at < area.Length(); ++at) digits += static_cast<char>('0' + area.StyleAt(at));
    return digits;
}

}  // namespace klt
