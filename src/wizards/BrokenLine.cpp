#include "wizards/BrokenLine.h"

#include <algorithm>
#include <vector>

#include "checker/DocumentPass.h"

namespace klt {

namespace {

constexpr std::string_view kBreak = "\r\n";
constexpr std::string_view kMarkedBreak = "_\r\n\t";

bool isError(char style) {
    return static_cast<StyleCategory>(style) == StyleCategory::SyntaxError;
}

// What a break puts in, and in front of which place of the line.
std::string_view insertion(const BreakPoint& point) {
    return point.needsMark() ? kMarkedBreak : kBreak;
}
size_t insertedAt(const BreakPoint& point) {
    return point.needsMark() ? point.blank + 1 : point.blank;
}

// From places in a broken line to those in the whole one.
class Places {
public:
    explicit Places(std::span<const BreakPoint> points) : points_(points) {
        size_t shift = 0;
        for (const auto& point : points) {
            starts_.push_back(insertedAt(point) + shift);
            shift += insertion(point).size();
        }
    }

    Position inWhole(Position place) const {
        const auto broken = static_cast<size_t>(place);
        const auto behind = std::upper_bound(starts_.begin(), starts_.end(), broken) - starts_.begin();
        if (behind == 0) return place;
        const auto last = static_cast<size_t>(behind) - 1;
        const auto beyond = broken - starts_[last];
        return static_cast<Position>(insertedAt(points_[last]) + beyond -
                                     std::min(beyond, insertion(points_[last]).size()));
    }

private:
    std::span<const BreakPoint> points_;
    // Where the insertions begin in the broken line.
    std::vector<size_t> starts_;
};

}  // namespace

std::string brokenAt(std::string_view line, std::span<const BreakPoint> points) {
    std::string broken;
    broken.reserve(line.size() + points.size() * kMarkedBreak.size());
    size_t done = 0;
    for (const auto& point : points) {
        const auto place = insertedAt(point);
        broken.append(line, done, place - done).append(insertion(point));
        done = place;
        if (point.needsMark()) continue;
        broken += '\t';
        ++done;
    }
    return broken.append(line, done);
}

BrokenLineCheck::BrokenLineCheck(std::string_view line, Section section)
    : line_(line), section_(section), whole_(check(std::string(line))) {}

BrokenLineCheck::Outcome BrokenLineCheck::check(std::string text) {
    work_ += text.size();
    StyledText styled(std::move(text));
    CheckerState state;
    state.SetCurrentSection(sectionName(section_));
    Outcome outcome;
    CheckDocument(styled, state, nullptr, &outcome.errors);
    // The runs and their reasons count; a word of theirs may end at a break.
    for (auto& run : outcome.errors) run.word = {};
    outcome.text = styled.takeText();
    outcome.styles = styled.takeStyles();
    outcome.stack = state.functionStack;
    return outcome;
}

void BrokenLineCheck::takeOutBreaks(Outcome& outcome, std::span<const BreakPoint> points) const {
    const Places places(points);
    for (auto& run : outcome.errors) {
        run.start = places.inWhole(run.start);
        run.end = places.inWhole(run.end);
    }
    std::string text;
    std::string styles;
    size_t done = 0;
    for (const auto& point : points) {
        const auto count = insertedAt(point) - text.size();
        text.append(outcome.text, done, count);
        styles.append(outcome.styles, done, count);
        done += count + insertion(point).size();
        if (point.needsMark()) continue;
        text += ' ';
        const char style = outcome.styles[done++];
        const char whole = whole_.styles[point.blank];
        styles += isError(style) || isError(whole) ? style : whole;
    }
    outcome.text = text.append(outcome.text, done);
    outcome.styles = styles.append(outcome.styles, done);
}

bool BrokenLineCheck::isSame(std::span<const BreakPoint> points) {
    auto outcome = check(brokenAt(line_, points));
    takeOutBreaks(outcome, points);
    return outcome == whole_;
}

}  // namespace klt
