// An entry is put into any bytes: read back as it is, with everything else as it stands.

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <utility>

#include "settings/IniText.h"

namespace {

void require(bool holds) {
    if (!holds) std::abort();
}

/// What of the old bytes is no longer there: the shortest part that they differ in.
std::string takenOut(const std::string& before, const std::string& after) {
    const auto shorter = std::min(before.size(), after.size());
    size_t same = 0;
    while (same < shorter && before[same] == after[same]) ++same;
    size_t end = 0;
    while (end < shorter - same && before[before.size() - 1 - end] == after[after.size() - 1 - end]) ++end;
    return before.substr(same, before.size() - same - end);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    using namespace klt;
    constexpr size_t kMostValue = 16;
    const std::string input(reinterpret_cast<const char*>(data), size);
    const auto value = input.substr(0, std::min(input.find('|'), kMostValue));
    const auto before = input.substr(std::min(value.size() + 1, input.size()));

    IniText ini(before);
    const auto rows = ini.rows("Addons"), others = ini.rows("Toolbits");
    const auto old = ini.value("Addons", "Key");
    if (ini.put("Addons", "Key", value)) {
        require(ini.bytes() == before);
        return 0;
    }
    const auto after = ini.bytes();
    require(ini.value("addons", "KEY") == value && ini.rows("Toolbits") == others);
    require(ini.rows("Addons").size() == rows.size() + (old ? 0 : 1));
    const auto lost = takenOut(before, after);
    // In UTF-16 such a byte may be half of another character.
    const bool isWide = before.starts_with("\xFF\xFE") || before.starts_with("\xFE\xFF");
    require(old ? isWide || lost.find_first_of("\r\n") == lost.npos : lost.empty());
    require(!ini.put("Addons", "Key", value) && ini.bytes() == after);
    // The blanks around no value are in front of the next.
    if (!old || value.empty()) return 0;

    // With what was there before all is as it was, where that could be read whole.
    if (old->size() < kLongestIniValue && !ini.put("Addons", "Key", *old)) require(ini.bytes() == before);
    return 0;
}
