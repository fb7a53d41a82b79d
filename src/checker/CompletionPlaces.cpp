#include <algorithm>

#include "checker/Choices.h"
#include "checker/OpenValue.h"
#include "checker/TakesName.h"
#include "checker/ValuePlace.h"
#include "language/LineAt.h"
#include "text/Ascii.h"

namespace klt {
namespace {

/// What a field walk passes over in front of a word.
constexpr std::string_view kPassedOver = " _\t\r\n|";

size_t firstNotOf(std::string_view text, std::string_view characters) {
    return std::min(text.find_first_not_of(characters), text.size());
}

/// Words of which the whole text is one's beginning.
CompletionPlace wholeWord(auto add) {
    CompletionPlace place;
    add(place.words);
    return place;
}

CompletionPlace placeInItem(std::string_view item, Section section) {
    const auto at = openItem(item);
    if (at.tag != Tag::None) {
        const auto start = at.open.front().inside;
        return movedBy(start, placeInValue(item.substr(start), at.tag, section));
    }
    if (!at.open.empty() || at.commas == 0) return {};
    CompletionPlace place{.wordStart = at.fieldStart + firstNotOf(item.substr(at.fieldStart), kPassedOver)};
    if (section == Section::Skills && at.commas == 1) {
        addWords(place.words, kSkillTypes.words());
        return place;
    }
    for (const auto word : kTagWords.words())
        if (IsTagValid(tagOf(word), section)) place.words.push_back(tagChoice(tagOf(word)));
    return place;
}

/// A prefix tag that `takes` says yes to, and a name.
CompletionPlace placeInPrefixed(std::string_view text, const NameTrial& trial, auto takes) {
    const auto colon = text.find(':');
    if (colon == text.npos)
        return wholeWord([&takes](std::vector<Completion>& words) { addPrefixes(words, takes); });
    const auto* prefix = findPrefixTag(text.substr(0, colon + 1));
    CompletionPlace place{.wordStart = text.size()};
    if (prefix == nullptr || !takes(*prefix)) return place;
    place.prefix = prefix;
    place.nameStart = colon + 1;
    place.trial = trial;
    return place;
}

CompletionPlace placeInNameLine(std::string_view text, const NameTrial& trial) {
    return placeInPrefixed(text, trial, [&trial](const PrefixRow& row) { return takesPrefix(trial, row); });
}

CompletionPlace placeInBonus(std::string_view line) {
    const auto blank = line.find(' ');
    if (blank == line.npos) return {};
    const NameTrial trial{.section = Section::Bonus, .front = "+1 "};
    return movedBy(blank + 1, placeInNameLine(line.substr(blank + 1), trial));
}

/// The condition of a list of bonuses.
CompletionPlace placeInCondition(std::string_view header) {
    const auto start = header.find('<');
    if (start == header.npos) return {};
    return movedBy(start + 1, placeInNameLine(header.substr(start + 1), {.section = Section::Groups}));
}

class PackageLinePlace {
public:
    explicit PackageLinePlace(std::string_view line) : line_(line), equals_(line.find('=')) {}

    CompletionPlace place() const {
        if (equals_ == line_.npos) return beginning();
        if (!isAdded() && !isMessage() && !isWord("CREATE=")) return {};
        auto inner = innerWord();
        if (!inner.words.empty()) return inner;
        if (isMessage()) return paragraph();
        return isAdded() ? added() : created();
    }

private:
    static constexpr std::string_view kAdd = "ADD=", kAt = ".AT.", kWith = ".WITH.", kAnd = ".AND.";

    bool isWord(std::string_view word) const {
        return equalIgnoringAsciiCase(line_.substr(0, equals_ + 1), word);
    }
    bool isAdded() const { return isWord(kAdd); }
    /// With a caption: any other is no more than a text.
    bool isMessage() const { return isWord("EMESSAGE="); }
    static bool beginsLine(std::string_view word) { return word.ends_with('='); }

    CompletionPlace beginning() const {
        CompletionPlace place;
        for (const auto word : kPackageWords.words())
            if (beginsLine(word)) place.words.push_back(wordChoice(word));
        return place;
    }

    bool has(std::string_view word) const {
        return findIgnoringAsciiCase(line_, ' ' + std::string(word) + ' ') != line_.npos;
    }
    /// Whether a word may join on a part that the line has not.
    bool mayFollow(std::string_view word) const {
        if (word == kAnd) return has(kWith);
        return !has(word) && (word != kWith || takesModifiers());
    }
    /// Neither races, attributes, spells nor stats do.
    bool takesModifiers() const {
        const auto head = line_.substr(equals_ + 1);
        const auto* prefix = findPrefixTag(head.substr(0, head.find(':') + 1));
        return isMessage() ||
               (prefix != nullptr &&
                (isAdded() || (prefix->section != Section::Spells && prefix->section != Section::Stats)));
    }

    /// The words between the parts of a line, once one is begun.
    CompletionPlace innerWord() const {
        CompletionPlace place;
        place.wordStart = line_.rfind(' ') + 1;
        if (line_.substr(place.wordStart, 1) != ".") return place;
        for (const auto word : kPackageWords.words())
            if (!beginsLine(word) && (!isMessage() || word == kWith) && mayFollow(word))
                place.words.push_back(wordChoice(std::string(word) + ' '));
        return place;
    }

    CompletionPlace paragraph() const {
        const auto start = line_.rfind(' ');
        if (start == line_.npos) return {};
        CompletionPlace place{.wordStart = start + 1};
        place.words.push_back(wordChoice(std::string(kParagraphWord) + ' '));
        return place;
    }

    /// The unit behind a number.
    static CompletionPlace placeInLevel(std::string_view level) {
        CompletionPlace place{.wordStart = level.find_last_not_of("PTSpts") + 1};
        if (isNumber(level.substr(0, place.wordStart))) place.words.push_back(wordChoice(kPointsWord));
        return place;
    }

    /// Where the last part of the line begins, behind its word; 0 in the part that names the item.
    size_t lastPart(bool& isLevel) const {
        size_t start = 0;
        for (const auto word : kPackageWords.words()) {
            if (beginsLine(word)) continue;
            const std::string found = ' ' + std::string(word) + ' ';
            for (auto at = findIgnoringAsciiCase(line_, found); at != line_.npos;
                 at = findIgnoringAsciiCase(line_, found, at + 1)) {
                if (at + found.size() <= start) continue;
                start = at + found.size();
                isLevel = word == kAt;
            }
        }
        return start;
    }

    CompletionPlace part(auto head) const {
        bool isLevel = false;
        const auto start = lastPart(isLevel);
        if (isLevel) return movedBy(start, placeInLevel(line_.substr(start)));
        if (start > 0) return movedBy(start, placeInItem(line_.substr(start), Section::Mods));
        return movedBy(equals_ + 1, head(line_.substr(equals_ + 1)));
    }

    CompletionPlace added() const {
        return part([](std::string_view head) {
            auto place = placeInPrefixed(head, {.section = Section::Packages, .front = std::string(kAdd)},
                                         [](const PrefixRow& row) { return row.isAdded; });
            if (place.prefix == nullptr && place.wordStart == 0) addAttributes(place.words);
            return place;
        });
    }

    /// What has no prefix tag.
    static void addAttributes(std::vector<Completion>& words) {
        const std::string at = ' ' + std::string(kAt) + ' ';
        words.push_back(wordChoice(std::string(kRaceWord) + at));
        for (const auto attribute : kAttributes.words()) {
            words.push_back(wordChoice(std::string(attribute) + at));
            words.push_back(wordChoice(std::string(attribute) + std::string(kAdjustmentWord) + at));
        }
    }

    CompletionPlace created() const {
        return part([](std::string_view head) {
            const auto takes = [](const PrefixRow& row) { return row.section != Section::Other; };
            auto place = placeInPrefixed(head, {.section = Section::Stats}, takes);
            const auto start = head.find(':') + 1;
            if (place.prefix == nullptr || head.find(',') == head.npos) return place;
            return movedBy(start, placeInItem(head.substr(start), place.prefix->section));
        });
    }

    const std::string_view line_;
    const size_t equals_;
};

CompletionPlace placeInLine(std::string_view line, LineKind kind, Section section) {
    if (kind == LineKind::SubsectionHeader)
        return section == Section::Bonus ? placeInCondition(line) : CompletionPlace();
    if (kind != LineKind::Item && kind != LineKind::Blank) return {};
    switch (section) {
        case Section::Groups:
            return placeInNameLine(line, {.section = Section::Groups});
        case Section::Bonus:
            return placeInBonus(line);
        case Section::Packages:
            return PackageLinePlace(line).place();
        default:
            return placeInItem(line, section);
    }
}

}  // namespace

CompletionPlace placeInDocument(std::string_view text, size_t caret) {
    caret = std::min(caret, text.size());
    const auto section = sectionAt(text, caret);
    const auto line = lineAt(text, caret, section);
    const auto before = text.substr(line.start, caret - line.start);
    if (line.kind != LineKind::SectionHeader) return placeInLines(text, caret, section);
    const auto bracket = before.find('[');
    if (bracket == before.npos) return {};
    CompletionPlace place{.wordStart = line.start + bracket};
    for (const auto name : kSectionNames)
        if (!name.empty()) place.words.push_back(wordChoice(name));
    return place;
}

CompletionPlace placeInLines(std::string_view text, size_t caret, Section section) {
    caret = std::min(caret, text.size());
    const auto line = lineAt(text, caret, section);
    if (line.isInComment) return {};
    const auto before = text.substr(line.start, caret - line.start);
    return movedBy(line.start, placeInLine(before, line.kind, section));
}

CompletionPlace placeInField(std::string_view text, size_t caret, Tag tag) {
    return placeInValue(text.substr(0, caret), tag, Section::Other);
}

}  // namespace klt
