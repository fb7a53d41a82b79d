#include "settings/RegistryValue.h"

#include <array>
#include <charconv>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <optional>

#include "settings/Conversions.h"

namespace klt {

namespace {

template <class... Cases>
struct Overloaded : Cases... {
    using Cases::operator()...;
};
template <class... Cases>
Overloaded(Cases...) -> Overloaded<Cases...>;

std::string realText(double number) {
    std::array<char, 32> text{};
    return {text.data(), std::to_chars(text.data(), text.data() + text.size(), number).ptr};
}

/// Each %NAME% that names an environment variable becomes its value; all else stays, and so does a text that
/// would grow beyond what the store holds.
std::string ExpandEnvStr(const std::string& text) {
    std::string expanded;
    size_t offset = 0;
    while (expanded.size() <= kLongestEntry) {
        const auto open = text.find('%', offset);
        const auto close = open == std::string::npos ? open : text.find('%', open + 1);
        if (close == std::string::npos) return expanded.append(text, offset);
        const auto* value = std::getenv(text.substr(open + 1, close - open - 1).c_str());
        expanded.append(text, offset, open - offset);
        // The second "%" of no name may be the first of one.
        expanded.append(value ? value : text.substr(open, close - open));
        offset = value ? close + 1 : close;
    }
    return text;
}

std::optional<std::int32_t> wholeNumber(const StoredValue& stored) {
    const auto* number = std::get_if<std::int64_t>(&stored.data);
    if (!number) return numberFrom(textOf(stored));
    using Limits = std::numeric_limits<std::int32_t>;
    if (*number < Limits::min() || *number > Limits::max()) return std::nullopt;
    return static_cast<std::int32_t>(*number);
}

std::int32_t SwapEndian(std::int32_t number) {
    return static_cast<std::int32_t>(__builtin_bswap32(static_cast<std::uint32_t>(number)));
}

Bytes bytesOf(const StoredValue& stored) {
    if (const auto* bytes = std::get_if<Bytes>(&stored.data)) return *bytes;
    const auto text = textOf(stored);
    Bytes bytes(text.size());
    std::memcpy(bytes.data(), text.data(), text.size());
    return bytes;
}

}  // namespace

std::string asText(const RegistryValue& value) {
    return std::visit(Overloaded{
                          [](std::monostate) { return std::string(); },
                          [](bool truth) { return std::string(truthText(truth)); },
                          [](double number) { return realText(number); },
                          [](const std::string& text) { return text; },
                          [](const Bytes& bytes) {
                              return textOf({REG_BINARY, bytes});
                          },
                          [](auto number) { return std::to_string(number); },
                      },
                      value);
}

std::int32_t asNumber(const RegistryValue& value) {
    if (const auto* truth = std::get_if<bool>(&value)) return *truth ? -1 : 0;
    return numberFrom(asText(value)).value_or(0);
}

RegistryValue fromStored(const StoredValue& stored, const RegistryValue& fallback) {
    switch (stored.type) {
        case REG_SZ:
        case REG_MULTI_SZ:
            return textOf(stored);
        case REG_EXPAND_SZ:
            return ExpandEnvStr(textOf(stored));
        case REG_DWORD:
            if (const auto number = wholeNumber(stored)) return *number;
            return fallback;
        case REG_DWORD_BIG_ENDIAN:
            if (const auto number = wholeNumber(stored)) return SwapEndian(*number);
            return fallback;
        case REG_BINARY:
        case REG_LINK:
            return bytesOf(stored);
        default:
            return fallback;
    }
}

}  // namespace klt
