#include "checker/Restarts.h"
#include "checker/Scanners.h"
#include "checker/Structures.h"
#include "text/Unicode.h"

namespace klt {

namespace {

enum class Act : unsigned char { Append, Open, Close, Comma, Blank, PassOver };

constexpr CharTable<Act> kName(Act::Append, {{"(", Act::Open}, {")", Act::Close}, {",", Act::Comma}});
constexpr CharTable<Act> kFields(Act::Append, {
                                                  {"(", Act::Open},
                                                  {")", Act::Close},
                                                  {",", Act::Comma},
                                                  {" ", Act::Blank},
                                                  {"_\r\n\t|", Act::PassOver},
                                              });

class FieldWalk {
public:
    explicit FieldWalk(Scan& scan) : scan_(scan), section_(scan.state.section()) {}

    void run();

private:
    // Each is false where the check of the line is over.
    bool name();
    bool fields();
    bool step();
    bool tag();
    bool bareField();
    void lastField();

    ScanPosition secondField(ScanPosition fieldStart);
    bool restart();
    bool hasSecondField() const;
    ScanPosition behindCharacter(ScanPosition i) const;
    ScanPosition frontOfCharacter(ScanPosition i) const;
    bool wholeError(ErrorReason reason, ScanRange word = {}) {
        scan_.wholeError(reason, word);
        return false;
    }

    Scan& scan_;
    const Section section_;
    ScanPosition i_;
    ScanPosition fieldStart_;
    WordBuffer word_;
    // The characters passed over since the last tag.
    size_t skipped_ = 0;
    int tagCount_ = 0;
    bool costSeen_ = false;
    int depth_ = 0;
};

// Behind the character that begins at `i`.
ScanPosition FieldWalk::behindCharacter(ScanPosition i) const {
    do ++i;
    while (isContinuation(scan_.at(i)));
    return i;
}

// The start of the character that holds the byte at `i`. A byte that belongs to no character counts as one:
// it must not take the walk back in front of a comma.
ScanPosition FieldWalk::frontOfCharacter(ScanPosition i) const {
    auto front = i;
    while (front > kFirst && isContinuation(scan_.at(front))) --front;
    return (scan_.at(front) & 0x80) != 0 ? front : i;
}

// The item name, up to the first comma outside parentheses.
bool FieldWalk::name() {
    int depth = 0;
    for (; scan_.isInside(i_); ++i_) {
        i_ = ScanPosition(kName.skip(scan_.text, i_.offset(), Act::Append));
        const char c = scan_.at(i_);
        if (c == '(') ++depth;
        if (c == ')') {
            if (depth == 0) return wholeError(ErrorReason::ClosedBeforeOpened);
            --depth;
        }
        if (c == ',' && depth == 0) break;
    }
    fieldStart_ = i_ + 1;
    if (scan_.at(fieldStart_) == ' ') ++fieldStart_;
    return true;
}

bool FieldWalk::fields() {
    for (i_ = fieldStart_; scan_.isInside(i_); ++i_)
        if (!step()) return false;
    return true;
}

bool FieldWalk::step() {
    switch (kFields[scan_.at(i_)]) {
        case Act::Open:
            ++tagCount_;
            ++depth_;
            word_.append(scan_.stretch(i_, 1));
            return tag();
        case Act::Close:
            if (depth_ == 0) return wholeError(ErrorReason::ClosedBeforeOpened);
            --depth_;
            return true;
        case Act::Comma:
            if (word_.empty()) return true;
            return bareField();
        case Act::Blank:
            if (!word_.empty()) ++skipped_;
            return true;
        case Act::PassOver:
            ++skipped_;
            return true;
        case Act::Append:
            scan_.collect(kFields, i_, word_);
            return true;
    }
    return true;
}

// At the parenthesis of a tag word. The character right behind the tag's end is not looked at.
bool FieldWalk::tag() {
    const auto word = word_.view();
    const auto tag = tagOf(word);
    const auto end = i_ + 1;
    if (tag == Tag::None) return wholeError(ErrorReason::UnknownTag, {scan_.wordBefore(i_).start, end});
    if (!IsTagValid(tag, section_))
        return wholeError(ErrorReason::TagOfOtherSection, {scan_.wordBefore(i_).start, end});

    scan_.CurrentTag = tag;
    const auto start = end - word.size();
    if (word != tagWord(tag)) scan_.rewrite(start, tagWord(tag));
    scan_.colour(start - skipped_, end, StyleCategory::PackageItemsAndItemTags);

    if (tag == Tag::Type) {
        ++tagCount_;
        costSeen_ = true;
    }
    const auto closed = checkTagValue(scan_, i_ + 1);
    scan_.CurrentTag = Tag::None;
    if (scan_.line.hasEnded) return false;
    i_ = behindCharacter(closed + 1) - 1;
    skipped_ = 0;
    word_.clear();
    return true;
}

bool FieldWalk::hasSecondField() const {
    return section_ != Section::Stats && section_ != Section::Spells && section_ != Section::Author &&
           section_ != Section::Other;
}

// The second field by the section's scanner, from where it is told to begin.
ScanPosition FieldWalk::secondField(ScanPosition fieldStart) {
    switch (section_) {
        case Section::Ads:
        case Section::Disads:
        case Section::Quirks:
        case Section::Powers:
            return CheckCost(scan_, fieldStart, ',');
        case Section::Skills:
            return CheckSkillType(scan_, fieldStart, ',');
        default:  // [MODS]: the others have no second field, or a structure of their own
            return CheckModValue(scan_, fieldStart);
    }
}

// No scanner says where to go on. The walk restarts behind as many characters as it has passed over since the
// last tag, near the start of the line. False always: it is walked to its end here.
bool FieldWalk::restart() {
    switch (walkRestarts(scan_.text, skipped_)) {
        case RestartEnd::TagMet:
            return wholeError(ErrorReason::TagOfOtherSection);
        case RestartEnd::ClosedBeforeOpened:
            return wholeError(ErrorReason::ClosedBeforeOpened);
        case RestartEnd::TextEnds:
            return false;
        case RestartEnd::ComesBack:
            scan_.line.hasEnded = true;
            return false;
    }
    return false;
}

// At the comma behind a word that has no parenthesis. The first character of a cost or value is not examined.
bool FieldWalk::bareField() {
    if (section_ == Section::Spells || section_ == Section::Stats)
        return wholeError(ErrorReason::BareField, scan_.wordBefore(i_));
    if (!hasSecondField()) return restart();
    auto start = frontOfCharacter(i_ - word_.size());
    if (section_ != Section::Skills) start = behindCharacter(start);
    i_ = secondField(start);
    costSeen_ = true;
    ++tagCount_;
    word_.clear();
    skipped_ = 0;
    return true;
}

void FieldWalk::lastField() {
    if (tagCount_ < 2 && !costSeen_) {
        if (hasSecondField()) secondField(fieldStart_);
    } else if (tagCount_ >= 3 && !costSeen_ && section_ != Section::Stats && section_ != Section::Spells) {
        wholeError(ErrorReason::NoSecondField);
    }
}

void FieldWalk::run() {
    if (name() && fields()) lastField();
}

}  // namespace

void checkFields(Scan& scan) {
    FieldWalk(scan).run();
}

}  // namespace klt
