#include "checker/Restarts.h"
#include "checker/Scanners.h"
#include "checker/Structures.h"
#include "language/CharTable.h"
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

    Place secondField(Place fieldStart);
    bool restart();
    bool hasSecondField() const;
    Place behindCharacter(Place i) const;
    Place frontOfCharacter(Place i) const;
    bool wholeError(ErrorReason reason) {
        scan_.wholeError(reason);
        return false;
    }

    Scan& scan_;
    const Section section_;
    Place i_ = 1;
    Place fieldStart_ = 0;
    WordBuffer word_;
    Place skipped_ = 0;
    Place tagCount_ = 0;
    bool costSeen_ = false;
    Place depth_ = 0;
};

// The place behind the character that begins at `i`.
Place FieldWalk::behindCharacter(Place i) const {
    do ++i;
    while (isContinuation(scan_.at(i)));
    return i;
}

// Bytes that belong to no character stand for themselves, or the walk could come back in front of a comma.
Place FieldWalk::frontOfCharacter(Place i) const {
    Place front = i;
    while (front > 1 && isContinuation(scan_.at(front))) --front;
    return (scan_.at(front) & 0x80) != 0 ? front : i;
}

// The item name, up to the first comma outside parentheses.
bool FieldWalk::name() {
    Place depth = 0;
    for (; i_ <= scan_.length(); ++i_) {
        i_ = static_cast<Place>(kName.skip(scan_.text, static_cast<size_t>(i_ - 1), Act::Append)) + 1;
        const char c = scan_.at(i_);
        if (c == '(') ++depth;
        if (c == ')' && depth-- == 0) return wholeError(ErrorReason::ClosedBeforeOpened);
        if (c == ',' && depth == 0) break;
    }
    fieldStart_ = i_ + 1;
    if (scan_.at(fieldStart_) == ' ') ++fieldStart_;
    return true;
}

bool FieldWalk::fields() {
    for (i_ = fieldStart_; i_ <= scan_.length(); ++i_)
        if (!step()) return false;
    return true;
}

bool FieldWalk::step() {
    switch (kFields[scan_.at(i_)]) {
        case Act::Open:
            ++tagCount_;
            ++depth_;
            word_.append(scan_.span(i_, i_ + 1));
            return tag();
        case Act::Close:
            return depth_-- > 0 || wholeError(ErrorReason::ClosedBeforeOpened);
        case Act::Comma:
            return word_.empty() || bareField();
        case Act::Blank:
            if (!word_.empty()) ++skipped_;
            return true;
        case Act::PassOver:
            ++skipped_;
            return true;
        case Act::Append: {
            const auto from = static_cast<size_t>(i_ - 1);
            const auto end = kFields.skip(scan_.text, from, Act::Append);
            word_.append(scan_.text.substr(from, end - from));
            i_ = static_cast<Place>(end);
            return true;
        }
    }
    return true;
}

// At the parenthesis of a tag word. The character right behind the tag's end is not looked at.
bool FieldWalk::tag() {
    const auto word = word_.view();
    const auto tag = tagOf(word);
    if (tag == Tag::None) return wholeError(ErrorReason::UnknownTag);
    if (!IsTagValid(tag, section_)) return wholeError(ErrorReason::TagOfOtherSection);

    scan_.CurrentTag = tag;
    const auto end = scan_.lineStart + i_;
    const auto length = static_cast<Position>(word.size());
    if (word != tagWord(tag)) scan_.line.rewrite(end - length, tagWord(tag));
    scan_.colour(end - length - skipped_, end, StyleCategory::PackageItemsAndItemTags);

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
Place FieldWalk::secondField(Place fieldStart) {
    switch (section_) {
        case Section::Ads:
        case Section::Disads:
        case Section::Quirks:
        case Section::Powers:
            return CheckCost(scan_, fieldStart, ',');
        case Section::Skills:
            return CheckSkillType(scan_, fieldStart, ',');
        case Section::Mods:
            return CheckModValue(scan_, fieldStart);
        default:
            return 0;
    }
}

// No scanner says where to go on, and the count of characters passed over stands in for the place: the walk
// restarts near the start of the line. False always, for it has then been walked to its end.
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
    if (section_ == Section::Spells || section_ == Section::Stats) return wholeError(ErrorReason::BareField);
    if (!hasSecondField()) return restart();
    auto start = frontOfCharacter(i_ - static_cast<Place>(word_.size()));
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
