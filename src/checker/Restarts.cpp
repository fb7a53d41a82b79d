#include "checker/Restarts.h"

#include <cstdint>
#include <utility>
#include <vector>

#include "language/CharTable.h"

namespace klt {

namespace {

enum class Act : unsigned char { Word, Open, Close, Comma, Blank, PassOver };

constexpr CharTable<Act> kTable(Act::Word, {
                                               {"(", Act::Open},
                                               {")", Act::Close},
                                               {",", Act::Comma},
                                               {" ", Act::Blank},
                                               {"_\r\n\t|", Act::PassOver},
                                           });

// What a walk comes to: a count of characters passed over at its bare field, or its end.
using Outcome = size_t;
constexpr Outcome kTagMet = SIZE_MAX;
constexpr Outcome kClosed = SIZE_MAX - 1;
constexpr Outcome kTextEnds = SIZE_MAX - 2;
constexpr Outcome kSeen = SIZE_MAX - 3;

constexpr Outcome oneMore(Outcome outcome) {
    return outcome < kSeen ? outcome + 1 : outcome;
}

// The outcome of the walk that begins behind each number of characters, from the text's end to its start.
std::vector<Outcome> outcomes(std::string_view text) {
    std::vector<Outcome> fromHere(text.size() + 1);
    Outcome withoutWord = kTextEnds;
    Outcome withWord = kTextEnds;
    fromHere[text.size()] = withoutWord;
    for (size_t i = text.size(); i-- > 0;) {
        switch (kTable[text[i]]) {
            case Act::Open:
                withoutWord = withWord = kTagMet;
                break;
            case Act::Close:
                withoutWord = withWord = kClosed;
                break;
            case Act::Comma:
                withWord = 0;
                break;
            case Act::Word:
                withoutWord = withWord;
                break;
            case Act::Blank:
                withWord = oneMore(withWord);
                break;
            case Act::PassOver:
                withWord = oneMore(withWord);
                withoutWord = oneMore(withoutWord);
                break;
        }
        fromHere[i] = withoutWord;
    }
    return fromHere;
}

}  // namespace

RestartEnd walkRestarts(std::string_view text, size_t first) {
    auto fromHere = outcomes(text);
    for (auto at = first;;) {
        const auto next = std::exchange(fromHere[at], kSeen);
        switch (next) {
            case kTagMet:
                return RestartEnd::TagMet;
            case kClosed:
                return RestartEnd::ClosedBeforeOpened;
            case kTextEnds:
                return RestartEnd::TextEnds;
            case kSeen:
                return RestartEnd::ComesBack;
            default:
                at = next;
        }
    }
}

}  // namespace klt
