// The lines of [PACKAGES].

#include <optional>

#include "checker/Structures.h"
#include "language/Vocabulary.h"
#include "text/Ascii.h"
#include "text/Unicode.h"

namespace klt {

namespace {

constexpr std::string_view kAt = " .AT. ";
constexpr std::string_view kWith = " .WITH. ";
constexpr std::string_view kAnd = " .AND. ";

// Without its last three characters.
std::string_view cutThree(std::string_view text) {
    for (int cut = 0; cut < 3 && !text.empty(); ++cut) {
        while (text.size() > 1 && isContinuation(text.back())) text.remove_suffix(1);
        text.remove_suffix(1);
    }
    return text;
}

class PackageLine {
public:
    explicit PackageLine(Scan& scan) : scan_(scan) {}

    void run();

private:
    // Each from behind the words that have told it from the others.
    void emessage();
    void add(ScanPosition from);
    void race(ScanPosition from);
    void attribute(ScanPosition from, int index);
    void addItem(ScanPosition from);
    void create(ScanPosition from);

    /// What stands in front of `.AT.` or `.WITH.`, from `start_` up to `end`. False where the line is done
    /// with.
    using Head = bool (PackageLine::*)(ScanPosition end);
    bool nameScan(ScanPosition end);
    bool itemCheck(ScanPosition end);
    /// A line of a head and what `.AT.` and `.WITH.` bring; `takesWith`: the second is looked for at all.
    void headAndWords(Head head, bool takesWith);
    void withBehindAt(Head head, ScanPosition at, ScanPosition with);
    void atBehindWith(Head head, ScanPosition with, ScanPosition at);
    void onlyAt(Head head, ScanPosition at);
    void onlyWith(Head head, ScanPosition with);

    /// Colours the prefix tag that begins at `from`; null if there is none.
    const PrefixRow* prefixTag(ScanPosition from);
    bool modifierList(ScanPosition from, ScanPosition end);
    void levelTest(ScanPosition from, ScanPosition end);
    bool part(Section section, ScanPosition from, ScanPosition end);

    /// Where a word stands, blanks included.
    using Hit = std::optional<ScanPosition>;
    Hit find(std::string_view word, ScanPosition from = kFirst) const;
    Hit findLastAnd() const;
    void mark(ScanPosition hit, std::string_view word);
    bool wholeError(ErrorReason reason) {
        scan_.wholeError(reason);
        return false;
    }

    Scan& scan_;
    // Where the name or item text begins.
    ScanPosition start_;
    Section section_ = Section::Stats;
};

PackageLine::Hit PackageLine::find(std::string_view word, ScanPosition from) const {
    const auto hit = findIgnoringAsciiCase(scan_.text, word, from.offset());
    return hit == std::string_view::npos ? Hit() : ScanPosition(hit);
}

PackageLine::Hit PackageLine::findLastAnd() const {
    for (auto i = scan_.end() - kAnd.size(); i >= kFirst; --i)
        if (equalIgnoringAsciiCase(scan_.stretch(i, kAnd.size()), kAnd)) return i;
    return std::nullopt;
}

// Rewrites and colours the word between the blanks of a hit.
void PackageLine::mark(ScanPosition hit, std::string_view word) {
    const auto inner = trimBlanks(word);
    const auto start = hit + 1;
    scan_.recognise(start + inner.size(), scan_.stretch(start, inner.size()), inner,
                    StyleCategory::PackageItemsAndItemTags);
}

void PackageLine::run() {
    const auto equals = scan_.find('=');
    if (!scan_.isInside(equals)) return scan_.wholeError(ErrorReason::NoEqualsSign);
    const auto behind = equals + 1;
    const auto word = scan_.between(kFirst, behind);
    const int index = kPackageWords.find(word);
    if (index < 0) return scan_.wholeError(ErrorReason::UnknownPackageWord, {kFirst, behind});
    const auto spelling = kPackageWords[index];
    scan_.recognise(behind, word, spelling, StyleCategory::PackageItemsAndItemTags);
    if (spelling == "EMESSAGE=")
        emessage();
    else if (spelling == "ADD=")
        add(behind);
    else if (spelling == "CREATE=")
        create(behind);
}

void PackageLine::emessage() {
    const auto with = find(kWith);
    if (!with) return scan_.wholeError(ErrorReason::NoWith);
    mark(*with, kWith);
    constexpr std::string_view kNewParagraph = " ~P ";
    for (auto hit = find(kNewParagraph, kFirst + 1); hit; hit = find(kNewParagraph, *hit + 2))
        scan_.recognise(*hit + 3, scan_.stretch(*hit + 1, 2), kParagraphWord, StyleCategory::Keywords);
}

void PackageLine::add(ScanPosition from) {
    const int attributeIndex = kAttributes.find(scan_.stretch(from, 2));
    if (equalIgnoringAsciiCase(scan_.stretch(from, kRaceWord.size()), kRaceWord))
        race(from);
    else if (attributeIndex >= 0)
        attribute(from, attributeIndex);
    else
        addItem(from);
}

void PackageLine::race(ScanPosition from) {
    scan_.rewrite(from, kRaceWord);
    const auto at = from + kRaceWord.size();
    if (!equalIgnoringAsciiCase(scan_.stretch(at, kAt.size()), kAt))
        return scan_.wholeError(ErrorReason::RaceWithoutAt);
    mark(at, kAt);
    if (trimBlanks(scan_.between(at + kAt.size(), scan_.end())).empty())
        scan_.wholeError(ErrorReason::RaceEmpty);
}

void PackageLine::attribute(ScanPosition from, int index) {
    scan_.rewrite(from, kAttributes[index]);
    auto at = from + kAttributes[index].size();
    if (equalIgnoringAsciiCase(scan_.stretch(at, kAdjustmentWord.size()), kAdjustmentWord)) {
        scan_.rewrite(at, kAdjustmentWord);
        at += kAdjustmentWord.size();
    }
    if (!equalIgnoringAsciiCase(scan_.stretch(at, kAt.size()), kAt))
        return scan_.wholeError(ErrorReason::AttributeWithoutAt);
    mark(at, kAt);
    for (auto i = at + kAt.size(); scan_.isInside(i); ++i) {
        const char c = scan_.at(i);
        if (c == '+' || c == '-')
            scan_.colourAt(i, StyleCategory::MathCharacters);
        else if (!isDigit(c) && c != ' ')
            return scan_.wholeError(ErrorReason::AttributeValue, {at + kAt.size(), scan_.end()});
    }
}

const PrefixRow* PackageLine::prefixTag(ScanPosition from) {
    start_ = from;
    const auto colon = scan_.find(':', from);
    if (!scan_.isInside(colon)) return nullptr;
    start_ = colon + 1;
    const auto word = scan_.between(from, start_);
    const auto* prefix = findPrefixTag(word);
    if (prefix != nullptr) scan_.recognise(start_, word, prefix->word, StyleCategory::PrefixTags);
    return prefix;
}

void PackageLine::addItem(ScanPosition from) {
    const auto* prefix = prefixTag(from);
    if (prefix == nullptr || !prefix->isAdded)
        return scan_.wholeError(ErrorReason::AddPrefix,
                                {from, start_ > from ? start_ : scan_.find(' ', from)});
    headAndWords(&PackageLine::nameScan, true);
}

void PackageLine::create(ScanPosition from) {
    const auto* prefix = prefixTag(from);
    if (prefix != nullptr && prefix->section != Section::Other) section_ = prefix->section;
    headAndWords(&PackageLine::itemCheck, section_ != Section::Spells && section_ != Section::Stats);
}

void PackageLine::headAndWords(Head head, bool takesWith) {
    const auto at = find(kAt);
    const auto with = takesWith ? find(kWith) : Hit();
    if (at && with && *at <= *with)
        withBehindAt(head, *at, *with);
    else if (at && with)
        atBehindWith(head, *with, *at);
    else if (at)
        onlyAt(head, *at);
    else if (with)
        onlyWith(head, *with);
    else
        (this->*head)(scan_.end());
}

// Nothing behind `.WITH.` is looked at.
void PackageLine::withBehindAt(Head head, ScanPosition at, ScanPosition with) {
    mark(at, kAt);
    if (!(this->*head)(at)) return;
    mark(with, kWith);
    levelTest(at + kAt.size(), with);
}

// The level is behind the last `.AND.`; an `.AT.` in front of it is part of a modifier.
void PackageLine::atBehindWith(Head head, ScanPosition with, ScanPosition firstAt) {
    mark(with, kWith);
    if (!(this->*head)(with)) return;
    const auto lastAnd = findLastAnd();
    const auto at = lastAnd ? find(kAt, *lastAnd + kAnd.size()) : firstAt;
    if (!modifierList(with + kWith.size(), at.value_or(scan_.end()))) return;
    if (!at) return scan_.wholeError(ErrorReason::BadLevel);
    mark(*at, kAt);
    levelTest(*at + kAt.size(), scan_.end());
}

void PackageLine::onlyAt(Head head, ScanPosition at) {
    mark(at, kAt);
    if ((this->*head)(at)) levelTest(at + kAt.size(), scan_.end());
}

void PackageLine::onlyWith(Head head, ScanPosition with) {
    mark(with, kWith);
    if ((this->*head)(with)) modifierList(with + kWith.size(), scan_.end());
}

bool PackageLine::nameScan(ScanPosition end) {
    int depth = 0;
    for (const char c : scan_.between(start_, end)) {
        if (c == '(') ++depth;
        if (c == ')' && --depth == 0) return true;
        if (c == ',' && depth == 0) return wholeError(ErrorReason::AddComma);
    }
    return true;
}

bool PackageLine::itemCheck(ScanPosition end) {
    return part(section_, start_, end);
}

bool PackageLine::modifierList(ScanPosition from, ScanPosition end) {
    for (auto hit = find(kAnd, from); hit; hit = find(kAnd, from)) {
        mark(*hit, kAnd);
        if (!part(Section::Mods, from, *hit)) return false;
        from = *hit + kAnd.size();
    }
    return part(Section::Mods, from, end);
}

void PackageLine::levelTest(ScanPosition from, ScanPosition end) {
    auto value = scan_.between(from, end);
    const auto unit = value.substr(value.size() - std::min<size_t>(value.size(), 3));
    const auto rest = cutThree(value);
    if (equalIgnoringAsciiCase(unit, kPointsWord)) {
        value.remove_suffix(unit.size());
        scan_.rewrite(from + value.size(), kPointsWord);
    } else if (!rest.empty()) {
        value = rest;
    }
    if (value.starts_with('.')) value.remove_prefix(1);
    if (!isNumber(value)) scan_.wholeError(ErrorReason::BadLevel, {from, end});
}

// Checks a part of the line as a line of another section. False where the check of the whole line is over.
bool PackageLine::part(Section section, ScanPosition from, ScanPosition end) {
    auto& state = scan_.state;
    state.SetCurrentSection(sectionName(section));
    CheckLine(scan_.line, scan_.between(from, end), scan_.inDocument(from));
    state.SetCurrentSection(sectionName(Section::Packages));
    return !scan_.line.hasEnded;
}

}  // namespace

void checkPackageLine(Scan& scan) {
    PackageLine(scan).run();
}

}  // namespace klt
