#include "platform/LineEnds.h"

namespace klt {

bool hasOnlyCrLf(std::string_view text) {
    for (;;) {
        const auto cr = text.find('\r');
        if (text.substr(0, cr).find('\n') != text.npos) return false;
        if (cr == text.npos) return true;
        if (cr + 1 == text.size() || text[cr + 1] != '\n') return false;
        text.remove_prefix(cr + 2);
    }
}

std::string withCrLf(std::string_view text) {
    std::string result;
    result.reserve(text.size() + text.size() / 16);
    while (!text.empty()) {
        const auto end = text.find_first_of("\r\n");
        result += text.substr(0, end);
        if (end == text.npos) break;
        result += "\r\n";
        text.remove_prefix(end + (text.substr(end).starts_with("\r\n") ? 2 : 1));
    }
    return result;
}

}  // namespace klt
