#pragma once

#include <QString>
#include <string>
#include <string_view>

// Wizards speak UTF-8, their windows UTF-16.
namespace klt {

inline QString toQString(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

/// A caption as the text of a label or button that knows "&" as the sign of an access key, which it shows.
inline QString literally(std::string_view text) {
    return toQString(text).replace('&', "&&");
}

}  // namespace klt
