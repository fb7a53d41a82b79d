#include "checker/ValueWalk.h"

namespace klt {

namespace {

constexpr bool isMath(char c) {
    return c == '+' || c == '-' || c == '/' || c == '*' || c == '=';
}

}  // namespace

bool ValueWalk::separatorGoesOn() {
    const char next = scan.at(i + 1);
    const char previous = scan.at(i - 1);
    ColourWord(scan, i, word);
    if (isMath(next)) {
        word.clear();
    } else if (next == ' ') {
        word.removeTrailingBlanks();
        word.append(scan.stretch(i, 1));
    } else if (next != '\t' && next != '\r' && next != '\n') {
        if (!isMath(previous)) return false;
        word.clear();
    }
    return true;
}

}  // namespace klt
