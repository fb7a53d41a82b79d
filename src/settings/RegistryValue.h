#pragma once

#include <cstdint>
#include <string>
#include <variant>

#include "settings/StoredValue.h"

namespace klt {

/// What `cRegistry` takes and gives as `Value`.
using RegistryValue =
    std::variant<std::monostate, bool, std::int16_t, std::int32_t, double, std::string, Bytes>;

/// Nothing is "", truth "True" or "False", a number decimal, bytes stand as they are.
std::string asText(const RegistryValue& value);

/// A number, or the number that a text spells; 0 for anything else, and no more than 32 bits hold.
std::int32_t asNumber(const RegistryValue& value);

/// What a stored value stands for by its type, `fallback` for an unknown type or data that don't fit it.
/// References to environment variables are expanded in `REG_EXPAND_SZ`.
RegistryValue fromStored(const StoredValue& stored, const RegistryValue& fallback);

}  // namespace klt
