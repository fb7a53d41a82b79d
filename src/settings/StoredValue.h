#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <variant>
#include <vector>

namespace klt {

inline constexpr std::int32_t HKEY_CLASSES_ROOT = INT32_MIN;
inline constexpr std::int32_t HKEY_CURRENT_USER = INT32_MIN + 1;

/// The numbers of value types.
inline constexpr std::int32_t REG_SZ = 1;
inline constexpr std::int32_t REG_EXPAND_SZ = 2;
inline constexpr std::int32_t REG_BINARY = 3;
inline constexpr std::int32_t REG_DWORD = 4;
inline constexpr std::int32_t REG_DWORD_BIG_ENDIAN = 5;
inline constexpr std::int32_t REG_LINK = 6;
inline constexpr std::int32_t REG_MULTI_SZ = 7;

/// The longest text, and the most bytes, that a value may hold.
inline constexpr int kLongestEntry = 64 * 1024;
/// The longest name of a key or a value, in bytes.
inline constexpr int kLongestName = 255;

using Bytes = std::vector<std::byte>;

/// What stands under a name of a key. A person may have put any data under any type.
struct StoredValue {
    std::int64_t type = REG_SZ;
    std::variant<std::string, std::int64_t, Bytes> data;
    bool operator==(const StoredValue&) const = default;
};

/// The data as text: integers in decimal form, bytes as they stand.
std::string textOf(const StoredValue& value);

}  // namespace klt
