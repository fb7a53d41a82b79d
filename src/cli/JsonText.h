#pragma once

#include <nlohmann/json.hpp>
#include <string>

namespace klt {

/// On one line; bytes of no valid character become U+FFFD.
inline std::string jsonText(const nlohmann::ordered_json& value) {
    return value.dump(-1, ' ', false, nlohmann::ordered_json::error_handler_t::replace);
}

}  // namespace klt
