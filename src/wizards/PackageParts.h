#pragma once

#include <string>
#include <string_view>

// The lines of a package as texts: what stands behind "ADD=", "CREATE=" and "EMESSAGE=".
namespace klt {

/// `item .AT. level .WITH. mods`, the last two where there are such.
struct PackageItem {
    std::string item = {};
    std::string level = {};
    /// Whether the level is one of points, "pts" behind it.
    bool isPoints = false;
    std::string mods = {};

    bool operator==(const PackageItem&) const = default;
};
std::string packageItemText(const PackageItem& item);
/// Cuts at the first keyword of each kind, in any case. Without a level nothing is taken for "pts".
PackageItem packageItemOf(std::string_view text);

/// `caption .WITH. text`, the lines of the text separated by " ~P ".
struct PackageMessage {
    std::string caption = {};
    std::string text = {};

    bool operator==(const PackageMessage&) const = default;
};
/// A line end behind the last line makes no further one.
std::string packageMessageText(const PackageMessage& message);
PackageMessage packageMessageOf(std::string_view text);

/// What stands behind " .AT. "; empty without it.
std::string_view levelOf(std::string_view text);

}  // namespace klt
