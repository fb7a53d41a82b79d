#include "tools/MergeOrder.h"

#include <algorithm>

#include "platform/Paths.h"
#include "text/Unicode.h"

namespace klt {

namespace {

using Rows = std::vector<std::string>;

constexpr std::string_view kCompendium = "COMPEND1.KLT", kBasic = "BASIC.KLT";

std::optional<size_t> placeOfBasic(const Rows& rows, std::string_view path) {
    const auto isSame = [path](const std::string& row) { return equalIgnoringCase(row, path); };
    if (std::any_of(rows.begin(), rows.end(), isSame)) return std::nullopt;
    if (rows.size() == 1 && upperCase(FileName(rows.front())) != kCompendium) return 1;
    return rows.size() - 1;
}

}  // namespace

bool mayBeMerged(std::string_view path) {
    return upperCase(FileExtension(path)) == "KLT" &&
           upperCase(FileName(path)).find("BASE") == std::string::npos;
}

std::optional<size_t> placeInMergeList(const Rows& rows, std::string_view path) {
    if (rows.empty()) return 0;
    const auto name = upperCase(FileName(path));
    if (name == kBasic) return placeOfBasic(rows, path);
    const bool isLast = name == kCompendium;
    if (equalIgnoringCase(isLast ? rows.back() : rows.front(), path)) return std::nullopt;
    return isLast ? rows.size() : 0;
}

}  // namespace klt
