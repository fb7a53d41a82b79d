#include "settings/Conversions.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

#include "text/Ascii.h"
#include "text/Unicode.h"

namespace klt {

std::optional<double> realFrom(std::string_view text) {
    text = trimBlanks(text);
    if (text.starts_with('+') && !text.starts_with("+-")) text.remove_prefix(1);
    if (text.empty() || text.find_first_not_of("0123456789.-+eE") != std::string_view::npos)
        return std::nullopt;
    double number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
    return number;
}

std::optional<std::int32_t> numberFrom(std::string_view text) {
    const auto number = realFrom(text);
    if (!number) return std::nullopt;
    using Limits = std::numeric_limits<std::int32_t>;
    return static_cast<std::int32_t>(
        std::clamp(std::nearbyint(*number), double{Limits::min()}, double{Limits::max()}));
}

std::optional<bool> truthFrom(std::string_view text) {
    text = trimBlanks(text);
    if (equalIgnoringCase(text, truthText(true))) return true;
    if (equalIgnoringCase(text, truthText(false))) return false;
    const auto number = realFrom(text);
    return number ? std::optional(*number != 0) : std::nullopt;
}

}  // namespace klt
