#include "text/LineEnds.h"

#include <algorithm>

#include "text/LargePages.h"

namespace klt {

namespace {

// The loops over a block have a fixed length, so that the compiler makes vector code of them.
constexpr size_t kBlock = 64;

}  // namespace

size_t countLineEndBytes(std::string_view text) {
    size_t count = 0, at = 0;
    for (; at + kBlock <= text.size(); at += kBlock) {
        const char* block = text.data() + at;
        unsigned char inBlock = 0;
        for (size_t i = 0; i < kBlock; ++i)
            inBlock = static_cast<unsigned char>(inBlock + ((block[i] == '\r') | (block[i] == '\n')));
        count += inBlock;
    }
    for (; at < text.size(); ++at) count += text[at] == '\r' || text[at] == '\n';
    return count;
}

bool hasOnlyCrLf(std::string_view text) {
    if (text.empty()) return true;
    if (text.front() == '\n' || text.back() == '\r') return false;
    size_t at = 0;
    for (; at + kBlock < text.size(); at += kBlock) {
        const char* block = text.data() + at;
        unsigned char lone = 0;
        for (size_t i = 0; i < kBlock; ++i)
            lone = static_cast<unsigned char>(lone | ((block[i] == '\r') ^ (block[i + 1] == '\n')));
        if (lone) return false;
    }
    for (; at + 1 < text.size(); ++at)
        if ((text[at] == '\r') != (text[at + 1] == '\n')) return false;
    return true;
}

std::string withCrLf(std::string_view text) {
    std::string result;
    reserveLarge(result, text.size() + countLineEndBytes(text));
    size_t cr = text.find('\r'), lf = text.find('\n');
    for (size_t start = 0;;) {
        const size_t end = std::min(cr, lf);
        result += text.substr(start, end - start);
        if (end == text.npos) return result;
        result += "\r\n";
        start = end + (end == cr && lf == cr + 1 ? 2 : 1);
        // Each is looked for again only when it was passed: a text without one of them is walked once.
        if (cr < start) cr = text.find('\r', start);
        if (lf < start) lf = text.find('\n', start);
    }
}

bool tearsLineEnd(std::string_view text) {
    return text.starts_with('\n') || text.ends_with('\r');
}

}  // namespace klt
