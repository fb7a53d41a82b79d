#include "checker/DocumentPass.h"

#include <algorithm>

#include "checker/Scanners.h"
#include "checker/Structures.h"
#include "language/LogicalLine.h"
#include "language/Vocabulary.h"
#include "text/Ascii.h"

namespace klt {

namespace {

constexpr auto toPosition(size_t offset) {
    return static_cast<Position>(offset);
}

// How many bytes in front of its line a check may colour. Where an @function runs off the text, its scanner
// starts over in front of the line: with the keyword that it holds, and its errors a tag or name further on.
constexpr Position kFarthestBack = [] {
    constexpr size_t kRestOfCharacter = 3;
    const auto longestKeyword =
        std::max({kGivesKeywords.longest(), kNeedsKeywords.longest(), kUptoKeywords.longest(),
                  kIfKeywords.longest(), kBonusKeywords.longest()});
    const auto longestName = std::max(kTagWords.longest(), kFunctionNames.longest());
    return toPosition(std::max(longestKeyword, longestName + 1) + kRestOfCharacter);
}();

// What both passes do alike at a line. `shift` is what has to be added to an offset in `text` for the
// position in the document.
class LinePainter {
public:
    LinePainter(StyledText& target, CheckerState& state, ErrorRuns* errors)
        : target_(target), line_(target, state, errors, false) {}

    void colour(size_t start, size_t end, Position shift, StyleCategory style) {
        target_.colour(toPosition(start) + shift, toPosition(end) + shift, style);
    }
    void version(size_t start, size_t end, Position shift) {
        target_.rewrite(toPosition(start) + shift, kVersionLine);
        colour(start, end, shift, StyleCategory::VersionInformation);
    }
    void item(std::string_view text, const LogicalLine& item, Position shift) {
        if (item.hasComment()) colour(item.end, item.commentEnd, shift, StyleCategory::Comments);
        line_.begin();
        CheckLine(line_, text.substr(item.start, item.end - item.start), toPosition(item.start) + shift);
        line_.end();
    }
    void error(size_t start, size_t end, ErrorReason reason, TextRange word = {}) {
        line_.begin();
        line_.error(toPosition(start), toPosition(end), reason, word);
    }

private:
    StyledText& target_;
    LineCheck line_;
};

}  // namespace

class DocumentPass::Work {
public:
    Work(StyledText& target, CheckerState& state, PassObserver* observer, ErrorRuns* errors)
        : target_(target), state_(state), observer_(observer), painter_(target, state, errors) {
        state.functionStack.reset();
    }

    bool advance(Position lines) {
        const auto goal = line + std::min(lines, target_.size() + 1);
        while (line < goal && position <= target_.size()) step();
        return position <= target_.size();
    }

    Position settledEnd() const {
        return position > target_.size() ? target_.size() : std::max<Position>(position - kFarthestBack, 0);
    }

    Position line = 0;
    Position position = 0;

private:
    void step();
    void sectionHeader(std::string_view text, size_t start, size_t end);
    void subsectionHeader(std::string_view text, size_t start, size_t end);
    void take(const LogicalLine& taken) {
        line += taken.lines;
        position = toPosition(taken.next);
    }

    StyledText& target_;
    CheckerState& state_;
    PassObserver* observer_;
    LinePainter painter_;
};

void DocumentPass::Work::step() {
    const auto text = target_.text();
    const auto start = static_cast<size_t>(position);
    const auto end = lineEnd(text, start);
    LogicalLine taken{.start = start, .end = end, .commentEnd = end, .next = end + 2};
    const auto kind = classifyLine(text.substr(start, end - start), state_.section());
    if (kind == LineKind::PackageHeader) taken = packageHeader(text, start);
    if (kind == LineKind::Item) taken = itemLine(text, start, EmptyTest::NextLine);
    target_.colour(position, toPosition(taken.next), StyleCategory::NormalText);
    switch (kind) {
        case LineKind::Blank:
            break;
        case LineKind::Comment:
            painter_.colour(start, end, 0, StyleCategory::Comments);
            break;
        case LineKind::SectionHeader:
            sectionHeader(text, start, end);
            break;
        case LineKind::SubsectionHeader:
            subsectionHeader(text, start, end);
            break;
        case LineKind::Version:
            painter_.version(start, end, 0);
            break;
        case LineKind::PackageHeader:
            painter_.colour(start, taken.end, 0, StyleCategory::PackageHeaders);
            break;
        case LineKind::Item:
            painter_.item(text, taken, 0);
            take(taken);
            if (observer_ != nullptr) observer_->StepIt(line - 1);
            return;
    }
    take(taken);
}

void DocumentPass::Work::sectionHeader(std::string_view text, size_t start, size_t end) {
    const auto trimmed = trimBlanks(text.substr(start, end - start));
    if (!isSectionHeader(trimmed)) {
        const auto name = start + text.substr(start).find('[');
        return painter_.error(start, end, ErrorReason::UnknownSection,
                              {toPosition(name), toPosition(name + trimmed.size())});
    }
    state_.SetCurrentSection(trimmed);
    std::string upper(text.substr(start, end - start));
    for (char& c : upper) c = toUpper(c);
    target_.rewrite(toPosition(start), upper);
    painter_.colour(start, end, 0, StyleCategory::Sections);
    if (observer_ != nullptr) observer_->SetLblCaptions(state_.CurrentSection(), "(none)");
}

void DocumentPass::Work::subsectionHeader(std::string_view text, size_t start, size_t end) {
    const auto trimmed = trimBlanks(text.substr(start, end - start));
    if (!trimmed.ends_with('>')) return painter_.error(start, end, ErrorReason::SubsectionNotClosed);
    painter_.colour(start, end, 0, StyleCategory::SubSections);
    if (observer_ != nullptr) observer_->SetLblCaptions(state_.CurrentSection(), trimmed);
}

DocumentPass::DocumentPass(StyledText& target, CheckerState& state, PassObserver* observer, ErrorRuns* errors)
    : work_(std::make_unique<Work>(target, state, observer, errors)) {}
DocumentPass::~DocumentPass() = default;

bool DocumentPass::advance(Position lines) {
    return work_->advance(lines);
}
Position DocumentPass::linesDone() const {
    return work_->line;
}
Position DocumentPass::position() const {
    return work_->position;
}
Position DocumentPass::settledEnd() const {
    return work_->settledEnd();
}

void CheckDocument(StyledText& target, CheckerState& state, PassObserver* observer, ErrorRuns* errors) {
    DocumentPass(target, state, observer, errors).advance(target.size() + 1);
}

void CheckRange(StyledText& target, CheckerState& state, Position from, Position to, ErrorRuns* errors) {
    from = std::max<Position>(from, 0);
    to = std::min(to, target.size());
    if (from >= to) return;
    const auto document = target.text();
    const auto text = document.substr(static_cast<size_t>(from), static_cast<size_t>(to - from));
    LinePainter painter(target, state, errors);

    // The range may begin in the middle of a line. What is laid of that line is laid from where the line
    // begins in the document; every other line is laid where it stands.
    const auto before = document.substr(0, static_cast<size_t>(from)).rfind("\r\n");
    auto shift = before == std::string_view::npos ? 0 : toPosition(before) + 2;
    for (size_t start = 0; start <= text.size();) {
        const auto end = lineEnd(text, start);
        const auto line = text.substr(start, end - start);
        LogicalLine taken{.start = start, .end = end, .commentEnd = end, .next = end + 2};
        switch (classifyLine(line, state.section())) {
            case LineKind::Blank:
                break;
            case LineKind::Comment:
                painter.colour(start, end, shift, StyleCategory::Comments);
                break;
            case LineKind::Version:
                painter.version(start, end, shift);
                break;
            case LineKind::PackageHeader:
                taken = packageHeader(text, start);
                painter.colour(start, taken.end, shift, StyleCategory::PackageHeaders);
                break;
            default:
                taken = itemLine(text, start, EmptyTest::FirstFollowing);
                painter.item(text, taken, shift);
                break;
        }
        start = taken.next;
        shift = from;
    }
}

void CheckField(StyledText& field, CheckerState& state, std::string_view tag, ErrorRuns* errors) {
    const auto text = field.text();
    if (text.empty()) return;
    field.clearStyles();
    LineCheck line(field, state, errors, true);
    line.begin();
    Scan scan(line, text, 0);
    if (!parenthesesMatch(text)) return scan.wholeError(ErrorReason::ParenthesesDiffer);
    scan.CurrentTag = fieldTag(tag);
    if (scan.CurrentTag == Tag::None || scan.CurrentTag == Tag::Type) return;
    checkTagValue(scan, kFirst);
    line.end();
}

}  // namespace klt
