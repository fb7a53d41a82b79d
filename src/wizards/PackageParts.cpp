#include "wizards/PackageParts.h"

#include "text/Ascii.h"
#include "text/TextOperations.h"

namespace klt {
namespace {

constexpr std::string_view kAt = " .AT. ";
constexpr std::string_view kWith = " .WITH. ";
constexpr std::string_view kPoints = "pts";
constexpr std::string_view kBreak = " ~P ";
constexpr std::string_view kLineEnd = "\r\n";

/// Cuts `text` in front of the keyword, and gives what stood behind it; empty without it.
std::string_view takeBehind(std::string_view& text, std::string_view keyword) {
    const auto place = findIgnoringAsciiCase(text, keyword);
    if (place == text.npos) return {};
    const auto behind = text.substr(place + keyword.size());
    text = text.substr(0, place);
    return behind;
}

}  // namespace

std::string packageItemText(const PackageItem& item) {
    std::string text = item.item;
    if (!item.level.empty()) text.append(kAt).append(item.level).append(item.isPoints ? kPoints : "");
    if (!item.mods.empty()) text.append(kWith).append(item.mods);
    return text;
}

PackageItem packageItemOf(std::string_view text) {
    PackageItem item;
    item.mods = takeBehind(text, kWith);
    std::string_view level = takeBehind(text, kAt);
    item.isPoints = level.size() >= kPoints.size() &&
                    equalIgnoringAsciiCase(level.substr(level.size() - kPoints.size()), kPoints);
    if (item.isPoints) level.remove_suffix(kPoints.size());
    item.level = level;
    item.item = text;
    return item;
}

std::string packageMessageText(const PackageMessage& message) {
    std::string_view lines = message.text;
    if (lines.ends_with(kLineEnd)) lines.remove_suffix(kLineEnd.size());
    return message.caption + std::string(kWith) + FastReplace(lines, kLineEnd, kBreak);
}

PackageMessage packageMessageOf(std::string_view text) {
    const auto behind = takeBehind(text, kWith);
    auto lines = FastReplace(FastReplace(behind, kBreak, kLineEnd), "~P", kLineEnd);
    return {std::string(text), FastReplace(lines, " \r\n", kLineEnd)};
}

std::string_view levelOf(std::string_view text) {
    return takeBehind(text, kAt);
}

}  // namespace klt
