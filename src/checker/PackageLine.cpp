// The lines of [PACKAGES].

#include "checker/Structures.h"
#include "language/Vocabulary.h"
#include "text/Ascii.h"
#include "text/Unicode.h"

namespace klt {

namespace {

constexpr std::string_view kAt = " .AT. ";
constexpr std::string_view kWith = " .WITH. ";
constexpr std::string_view kAnd = " .AND. ";

constexpr Place widthOf(std::string_view word) {
    return static_cast<Place>(word.size());
}

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
    void emessage();
    void add();
    void race();
    void attribute(int index);
    void addItem();
    void create();

    /// What is before `.AT.` or `.WITH.`, from `start_` to the given place. False where the line is done
    /// with.
    bool nameScan(Place end);
    bool itemCheck(Place end);
    /// The forms with both words, `.WITH.` or `.AT.` alone, and neither, around either of the two above.
    using Head = bool (PackageLine::*)(Place end);
    void withBehindAt(Head head);
    void atBehindWith(Head head);
    void onlyAt(Head head);
    void onlyWith(Head head);

    /// Colours the prefix tag that begins at `from`; its index, or -1.
    int prefixTag(Place from);
    bool modifierList(Place from, Place end);
    void levelTest(Place from, Place end);
    bool part(Section section, Place from, Place end);

    Place find(std::string_view word, Place from = 1) const;
    Place findLastAnd() const;
    void mark(Place hit, std::string_view word);
    Place textEnd() const { return scan_.length() + 1; }
    bool wholeError(ErrorReason reason) {
        scan_.wholeError(reason);
        return false;
    }

    Scan& scan_;
    // Where the name or item text begins, and the blanks before the two words; 0 where a word is missing.
    Place start_ = 0;
    Place at_ = 0;
    Place with_ = 0;
    Section section_ = Section::Stats;
};

// The place of the first hit at or behind `from`, or 0.
Place PackageLine::find(std::string_view word, Place from) const {
    return static_cast<Place>(findIgnoringAsciiCase(scan_.text, word, static_cast<size_t>(from - 1)) + 1);
}

Place PackageLine::findLastAnd() const {
    for (Place i = scan_.length() - widthOf(kAnd) + 1; i >= 1; --i)
        if (equalIgnoringAsciiCase(scan_.span(i, i + widthOf(kAnd)), kAnd)) return i;
    return 0;
}

// Rewrites and colours the word between the blanks of a hit.
void PackageLine::mark(Place hit, std::string_view word) {
    const auto inner = trimBlanks(word);
    const auto end = hit + 1 + widthOf(inner);
    scan_.recognise(scan_.lineStart + end - 1, scan_.span(hit + 1, end), inner,
                    StyleCategory::PackageItemsAndItemTags);
}

void PackageLine::run() {
    const auto equals = scan_.find('=', 1);
    if (equals > scan_.length()) return scan_.wholeError(ErrorReason::NoEqualsSign);
    const auto word = scan_.span(1, equals + 1);
    const int index = kPackageWords.find(word);
    if (index < 0) return scan_.wholeError(ErrorReason::UnknownPackageWord);
    const auto spelling = kPackageWords[index];
    scan_.recognise(scan_.lineStart + equals, word, spelling, StyleCategory::PackageItemsAndItemTags);
    if (spelling == "EMESSAGE=")
        emessage();
    else if (spelling == "ADD=")
        add();
    else if (spelling == "CREATE=")
        create();
}

void PackageLine::emessage() {
    const auto with = find(kWith);
    if (with == 0) return scan_.wholeError(ErrorReason::NoWith);
    mark(with, kWith);
    constexpr std::string_view kNewParagraph = " ~P ";
    for (Place hit = find(kNewParagraph, 2); hit != 0; hit = find(kNewParagraph, hit + 2))
        scan_.recognise(scan_.lineStart + hit + 2, scan_.span(hit + 1, hit + 3), "~P",
                        StyleCategory::Keywords);
}

void PackageLine::add() {
    constexpr Place kName = 5;
    const int attributeIndex = kAttributes.find(scan_.span(kName, kName + 2));
    if (equalIgnoringAsciiCase(scan_.span(kName, kName + 4), "RACE"))
        race();
    else if (attributeIndex >= 0)
        attribute(attributeIndex);
    else
        addItem();
}

void PackageLine::race() {
    constexpr Place kRaceAt = 9;
    scan_.line.rewrite(scan_.lineStart + 4, "Race");
    const auto name = kRaceAt + widthOf(kAt);
    if (!equalIgnoringAsciiCase(scan_.span(kRaceAt, name), kAt))
        return scan_.wholeError(ErrorReason::RaceWithoutAt);
    mark(kRaceAt, kAt);
    if (trimBlanks(scan_.span(name, textEnd())).empty()) scan_.wholeError(ErrorReason::RaceEmpty);
}

void PackageLine::attribute(int index) {
    constexpr Place kSuffix = 7;
    scan_.line.rewrite(scan_.lineStart + 4, kAttributes[index]);
    Place at = kSuffix;
    if (equalIgnoringAsciiCase(scan_.span(kSuffix, kSuffix + 3), "ADJ")) {
        scan_.line.rewrite(scan_.lineStart + kSuffix - 1, "Adj");
        at += 3;
    }
    const auto value = at + widthOf(kAt);
    if (!equalIgnoringAsciiCase(scan_.span(at, value), kAt))
        return scan_.wholeError(ErrorReason::AttributeWithoutAt);
    mark(at, kAt);
    for (Place i = value; i <= scan_.length(); ++i) {
        const char c = scan_.at(i);
        if (c == '+' || c == '-')
            scan_.colourAt(i, StyleCategory::MathCharacters);
        else if (!isDigit(c) && c != ' ')
            return scan_.wholeError(ErrorReason::AttributeValue);
    }
}

int PackageLine::prefixTag(Place from) {
    const auto colon = scan_.find(':', from);
    if (colon > scan_.length()) {
        start_ = from;
        return -1;
    }
    start_ = colon + 1;
    const auto word = scan_.span(from, start_);
    const int prefix = kPrefixTags.find(word);
    if (prefix >= 0)
        scan_.recognise(scan_.lineStart + colon, word, kPrefixTags[prefix], StyleCategory::PrefixTags);
    return prefix;
}

void PackageLine::addItem() {
    constexpr Place kPrefix = 5;
    if (!isAddPrefix(prefixTag(kPrefix))) return scan_.wholeError(ErrorReason::AddPrefix);
    at_ = find(kAt);
    with_ = find(kWith);
    constexpr Head kHead = &PackageLine::nameScan;
    if (at_ != 0 && with_ != 0)
        at_ <= with_ ? withBehindAt(kHead) : atBehindWith(kHead);
    else if (at_ != 0)
        onlyAt(kHead);
    else if (with_ != 0)
        onlyWith(kHead);
    else
        nameScan(textEnd());
}

void PackageLine::create() {
    constexpr Place kPrefix = 8;
    const auto section = sectionOfPrefix(prefixTag(kPrefix));
    section_ = section == Section::Other ? Section::Stats : section;
    at_ = find(kAt);
    with_ = find(kWith);
    constexpr Head kHead = &PackageLine::itemCheck;
    const bool takesWith = section_ != Section::Spells && section_ != Section::Stats;
    if (at_ != 0 && with_ != 0 && takesWith)
        at_ <= with_ ? withBehindAt(kHead) : atBehindWith(kHead);
    else if (at_ != 0)
        onlyAt(kHead);
    else if (with_ != 0 && takesWith)
        onlyWith(kHead);
    else
        itemCheck(textEnd());
}

// Nothing behind `.WITH.` is looked at.
void PackageLine::withBehindAt(Head head) {
    mark(at_, kAt);
    if (!(this->*head)(at_)) return;
    mark(with_, kWith);
    levelTest(at_ + widthOf(kAt), with_);
}

void PackageLine::atBehindWith(Head head) {
    mark(with_, kWith);
    if (!(this->*head)(with_)) return;
    const auto lastAnd = findLastAnd();
    const auto at = lastAnd == 0 ? at_ : find(kAt, lastAnd + widthOf(kAnd));
    if (!modifierList(with_ + widthOf(kWith), at == 0 ? textEnd() : at)) return;
    if (at == 0) return scan_.wholeError(ErrorReason::BadLevel);
    mark(at, kAt);
    levelTest(at + widthOf(kAt), textEnd());
}

void PackageLine::onlyAt(Head head) {
    mark(at_, kAt);
    if ((this->*head)(at_)) levelTest(at_ + widthOf(kAt), textEnd());
}

void PackageLine::onlyWith(Head head) {
    mark(with_, kWith);
    if ((this->*head)(with_)) modifierList(with_ + widthOf(kWith), textEnd());
}

bool PackageLine::nameScan(Place end) {
    Place depth = 0;
    for (const char c : scan_.span(start_, end)) {
        if (c == '(') ++depth;
        if (c == ')' && --depth == 0) return true;
        if (c == ',' && depth == 0) return wholeError(ErrorReason::AddComma);
    }
    return true;
}

bool PackageLine::itemCheck(Place end) {
    return part(section_, start_, end);
}

bool PackageLine::modifierList(Place from, Place end) {
    for (Place hit = find(kAnd, from); hit != 0; hit = find(kAnd, from)) {
        mark(hit, kAnd);
        if (!part(Section::Mods, from, hit)) return false;
        from = hit + widthOf(kAnd);
    }
    return part(Section::Mods, from, end);
}

void PackageLine::levelTest(Place from, Place end) {
    auto value = scan_.span(from, end);
    const auto unit = value.substr(value.size() - std::min<size_t>(value.size(), 3));
    const auto rest = cutThree(value);
    if (equalIgnoringAsciiCase(unit, "pts")) {
        scan_.line.rewrite(scan_.lineStart + from - 1 + widthOf(value) - widthOf(unit), "pts");
        value.remove_suffix(unit.size());
    } else if (!rest.empty()) {
        value = rest;
    }
    if (value.starts_with('.')) value.remove_prefix(1);
    if (!isNumber(value)) scan_.wholeError(ErrorReason::BadLevel);
}

// Checks a part of the line as a line of another section. False where the check of the whole line is over.
bool PackageLine::part(Section section, Place from, Place end) {
    auto& state = scan_.state;
    state.SetCurrentSection(sectionName(section));
    CheckLine(scan_.line, scan_.span(from, end), scan_.lineStart + from - 1);
    state.SetCurrentSection(sectionName(Section::Packages));
    return !scan_.line.hasEnded;
}

}  // namespace

void checkPackageLine(Scan& scan) {
    PackageLine(scan).run();
}

}  // namespace klt
