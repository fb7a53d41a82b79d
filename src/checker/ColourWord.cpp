#include "checker/Scan.h"
#include "language/Vocabulary.h"

namespace klt {

namespace {

// Every word that one of the lists holds, so that nearly all words are done with after one look.
constexpr auto kReserved = [] {
    constexpr auto collect = [](auto take) {
        size_t count = 0;
        std::array<std::string_view, 64> all{};
        const auto add = [&](const auto& list) {
            for (const auto word : list.words()) {
                bool isNew = true;
                for (size_t i = 0; i < count; ++i) isNew = isNew && !equalIgnoringAsciiCase(all[i], word);
                if (isNew) all[count++] = word;
            }
        };
        add(kGivesKeywords);
        add(kNeedsKeywords);
        add(kUptoKeywords);
        add(kIfKeywords);
        add(kBonusKeywords);
        return take(all, count);
    };
    constexpr size_t count = collect([](const auto&, size_t n) { return n; });
    std::array<std::string_view, count> words{};
    collect([&](const auto& all, size_t n) {
        for (size_t i = 0; i < n; ++i) words[i] = all[i];
        return 0;
    });
    return words;
}();
constexpr WordList kReservedWords(kReserved);

template <size_t N>
bool recogniseIn(const WordList<N>& list, Scan& scan, ScanPosition end, std::string_view word,
                 StyleCategory style) {
    const int i = list.find(word);
    if (i >= 0) scan.recognise(end, word, list[i], style);
    return i >= 0;
}

bool colourSpecialKeyword(Scan& scan, ScanPosition end, std::string_view word) {
    switch (scan.CurrentTag) {
        case Tag::Gives:
            return recogniseIn(kGivesKeywords, scan, end, word, StyleCategory::SpecialKeywords);
        case Tag::Needs:
            return recogniseIn(kNeedsKeywords, scan, end, word, StyleCategory::SpecialKeywords);
        case Tag::Upto:
            return recogniseIn(kUptoKeywords, scan, end, word, StyleCategory::SpecialKeywords);
        default:
            return false;
    }
}

void rejectForeignKeyword(Scan& scan, ScanPosition end, std::string_view word) {
    const auto start = end - word.size();
    if (scan.CurrentTag != Tag::Gives && kGivesKeywords.find(word) >= 0)
        scan.error(start, end, ErrorReason::KeywordOfGives, {start, end});
    else if (scan.CurrentTag != Tag::Needs && kNeedsKeywords.find(word) >= 0)
        scan.error(start, end, ErrorReason::KeywordOfNeeds, {start, end});
    else if (scan.CurrentTag != Tag::Upto && kUptoKeywords.find(word) >= 0)
        scan.error(start, end, ErrorReason::KeywordOfUpto, {start, end});
}

}  // namespace

void colourCollected(Scan& scan, ScanPosition end, const WordBuffer& collected) {
    const auto word = collected.view();
    const bool isReserved = kReservedWords.find(word) >= 0;
    if (isReserved && colourSpecialKeyword(scan, end, word)) return;
    const auto& stack = scan.state.functionStack;
    if (!stack.isAllocated()) {
        // Before the first pass there is no stack of @functions, and every word counts as a keyword.
        scan.colour(end - collected.size(), end, StyleCategory::Keywords);
        return;
    }
    if (!isReserved) return;
    if (stack.top() == AtFunction::If && recogniseIn(kIfKeywords, scan, end, word, StyleCategory::Keywords))
        return;
    if (scan.CurrentTag == Tag::Gives &&
        recogniseIn(kBonusKeywords, scan, end, word, StyleCategory::Keywords))
        return;
    rejectForeignKeyword(scan, end, word);
}

}  // namespace klt
