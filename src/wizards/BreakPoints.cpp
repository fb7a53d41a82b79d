#include "wizards/BreakPoints.h"

#include <algorithm>
#include <array>
#include <string>

#include "language/LogicalLine.h"
#include "language/Tags.h"
#include "language/WordList.h"
#include "text/Ascii.h"

namespace klt {

namespace {

bool isAnyOf(char c, std::string_view characters) {
    return characters.find(c) != std::string_view::npos;
}

bool isSeparator(char c) {
    return isAnyOf(c, ",|");
}

// A value that is looked at as a whole, or in which nothing is passed over.
bool isRigid(Tag tag) {
    switch (tag) {
        case Tag::Type:
        case Tag::Step:
        case Tag::MaxScore:
        case Tag::MinScore:
        case Tag::Up:
        case Tag::Down:
        case Tag::DoubleInPlay:
        case Tag::Display:
        case Tag::Round:
            return true;
        default:
            return false;
    }
}

class Walk {
public:
    Walk(std::string_view line, Section section) : line_(line), section_(section) {}

    std::vector<BreakPoint> run();

private:
    void step();
    void open();
    void close();
    // `start` is the comma in front of the field, or the blank behind that.
    void beginField(size_t start);
    void endField(bool isLast);
    bool packageWord();
    void offer();
    static bool allowsWord(std::string_view rest);

    const std::string_view line_;
    const Section section_;
    std::vector<BreakPoint> points_;
    size_t i_ = 0;
    bool isQuoted_ = false;
    // The field: the name, the bare ones, the tags.
    size_t fieldStart_ = 0;
    size_t firstOfField_ = 0;
    bool isName_ = true;
    bool isBare_ = true;
    // Behind `.AT.`.
    bool isLevel_ = false;
    // The word, and the parentheses open behind it.
    size_t wordStart_ = 0;
    size_t depth_ = 0;
    Tag tag_ = Tag::None;
};

// The tag is the word in front of its parenthesis, whatever is passed over in it.
void Walk::open() {
    isBare_ = false;
    if (depth_++ > 0 || isName_) return;
    std::string word(line_.substr(wordStart_, i_ + 1 - wordStart_));
    std::erase_if(word, [](char c) { return isAnyOf(c, " _\t|"); });
    tag_ = tagOf(word);
}

// The character behind the last parenthesis belongs to the tag.
void Walk::close() {
    if (depth_ == 0 || --depth_ > 0) return;
    tag_ = Tag::None;
    wordStart_ = i_ + 2;
}

void Walk::beginField(size_t start) {
    fieldStart_ = start;
    wordStart_ = start + 1;
    firstOfField_ = points_.size();
    isBare_ = true;
    depth_ = 0;
    tag_ = Tag::None;
}

// A bare field is never broken, and the last one stays with what is in front of it.
void Walk::endField(bool isLast) {
    if (isName_ || !isBare_) return;
    points_.resize(firstOfField_);
    if (isLast && !points_.empty() && points_.back().blank == fieldStart_) points_.pop_back();
}

// At a blank: takes the word of a package line that begins there, behind which another item begins.
bool Walk::packageWord() {
    constexpr std::array<std::string_view, 3> kWords = {" .AT. ", " .WITH. ", " .AND. "};
    const auto rest = line_.substr(i_);
    const auto word = std::find_if(kWords.begin(), kWords.end(), [rest](auto each) {
        return equalIgnoringAsciiCase(rest.substr(0, each.size()), each);
    });
    if (word == kWords.end()) return false;
    if (section_ == Section::Packages) {
        endField(true);
        i_ += word->size() - 1;
        isLevel_ = word == kWords.begin() || (isLevel_ && *word == kWords.back());
        isName_ = true;
        beginField(i_);
        if (!isLevel_) offer();
    }
    return true;
}

// Before these words of a bonus the blank itself counts.
bool Walk::allowsWord(std::string_view rest) {
    constexpr WordList kWords(std::to_array<std::string_view>({"to", "upto", "pts"}));
    return kWords.find(rest.substr(0, rest.find_first_of(" ,|()"))) < 0;
}

// At a blank that stands alone.
void Walk::offer() {
    if (isQuoted_ || isLevel_ || isRigid(tag_) || i_ == 0 || i_ + 1 == line_.size()) return;
    const char before = line_[i_ - 1];
    const char next = line_[i_ + 1];
    if (isAnyOf(before, " \t") || isAnyOf(next, " \t*<[{")) return;
    const bool isBehindSeparator = isSeparator(before);
    if (tag_ == Tag::Gives) {
        if (isBehindSeparator && !isAnyOf(next, "+-=")) return;
        if (!isBehindSeparator && !allowsWord(line_.substr(i_ + 1))) return;
    }
    const auto inside = depth_ > 0 ? BreakKind::InValue : BreakKind::BetweenTags;
    points_.push_back({i_, isBehindSeparator ? inside : BreakKind::Blank});
}

void Walk::step() {
    switch (line_[i_]) {
        case '"':
            isQuoted_ = !isQuoted_;
            break;
        case '(':
            return open();
        case ')':
            return close();
        case ' ':
            if (!packageWord()) offer();
            break;
        case ',':
            if (depth_ > 0) break;
            endField(false);
            isName_ = false;
            if (i_ + 1 < line_.size() && line_[i_ + 1] == ' ') {
                ++i_;
                if (!packageWord()) offer();
            }
            beginField(i_);
            break;
        default:
            break;
    }
}

std::vector<BreakPoint> Walk::run() {
    for (; i_ < line_.size(); ++i_) step();
    endField(true);
    return std::move(points_);
}

// Bonus and group lines stand in blocks that are read physical line by physical line.
bool isBrokenIn(Section section, std::string_view line) {
    const auto begins = [line](std::string_view word) {
        return equalIgnoringAsciiCase(line.substr(0, word.size()), word);
    };
    switch (section) {
        case Section::Author:
        case Section::Bonus:
        case Section::Groups:
            return false;
        case Section::Packages:
            return begins("CREATE=") || (begins("ADD=") && !begins("ADD=RACE"));
        default:
            return true;
    }
}

bool mayBeBroken(std::string_view line, Section section) {
    return line.find("//") == std::string_view::npos &&
           line.find_first_of("\r\n") == std::string_view::npos &&
           classifyLine(line, section) == LineKind::Item && isBrokenIn(section, line);
}

}  // namespace

std::vector<BreakPoint> breakPoints(std::string_view line, Section section) {
    return mayBeBroken(line, section) ? Walk(line, section).run() : std::vector<BreakPoint>();
}

}  // namespace klt
