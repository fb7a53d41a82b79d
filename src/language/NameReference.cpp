#include "language/NameReference.h"

#include "text/Ascii.h"
#include "text/Unicode.h"

namespace klt {
namespace {

bool isOfPrefix(char c) {
    return isLetter(c) || c == '_';
}

/// Whether a name may end in front of this text.
bool endsName(std::string_view behind) {
    constexpr std::string_view kSigns = ",|<>=+-*/)}\"_";
    const auto start = behind.find_first_not_of(kBlanksAndTabs);
    if (start == behind.npos) return true;
    const auto rest = behind.substr(start);
    if (kSigns.find(rest.front()) != kSigns.npos) return true;
    if (start == 0) return false;
    const auto word = rest.substr(0, rest.find_first_of(kBlanksAndTabs));
    return kBonusKeywords.find(word) >= 0 || kIfKeywords.find(word) >= 0 || kPackageWords.find(word) >= 0;
}

}  // namespace

size_t NameReference::lengthOf(const OutlineEntry& entry) const {
    if (!isNamedBy(entry, *prefix)) return 0;
    const auto name = entry.name();
    const auto length = name.size();
    const bool isIt = length >= reach && length <= behind.size() &&
                      equalIgnoringCase(behind.substr(0, length), name) && endsName(behind.substr(length));
    return isIt ? length : 0;
}

std::optional<NameReference> referenceAt(std::string_view line, size_t caret) {
    std::optional<NameReference> last;
    for (auto colon = line.find(':'); colon != line.npos; colon = line.find(':', colon + 1)) {
        auto start = colon;
        while (start > 0 && isOfPrefix(line[start - 1])) --start;
        if (start > caret) break;
        const auto behind = colon + 1;
        const auto* prefix = findPrefixTag(line.substr(start, behind - start));
        if (prefix == nullptr) continue;
        last = {prefix, line.substr(behind), caret > behind ? caret - behind : 0};
    }
    return last;
}

}  // namespace klt
