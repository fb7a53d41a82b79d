#include "wizards/LineBreaker.h"

#include <algorithm>
#include <optional>
#include <vector>

#include "settings/Catalogue.h"
#include "text/Unicode.h"
#include "wizards/BrokenLine.h"

namespace klt {

namespace {

// Bounds the time for a huge line in which the checker accepts no break; the rest then stays whole.
constexpr size_t kMostWork = 32'000'000;

Position charactersOf(std::string_view text) {
    return static_cast<Position>(countCharacters(text));
}

class Breaker {
public:
    Breaker(std::string_view line, Section section, const LineBreakLimits& limits);

    std::string run();

private:
    struct Candidate {
        BreakPoint point;
        // The characters in front of the blank.
        Position column = 0;
        bool isDropped = false;
    };

    void breakOn();
    std::optional<size_t> nextBreak() const;
    void dropFirstBad();
    bool isSame(size_t breaks) { return check_.isSame(std::span(points_).first(breaks)); }
    // The column at which the piece behind the breaks begins, and the tab in front of it.
    Position pieceStart() const { return chosen_.empty() ? 0 : candidates_[chosen_.back()].column + 1; }
    Position tab() const { return chosen_.empty() ? 0 : 1; }

    const std::string_view line_;
    const LineBreakLimits limits_;
    const Position characters_;
    BrokenLineCheck check_;
    std::vector<Candidate> candidates_;
    // The breaks chosen, as indices of candidates and as points; the first `same_` change nothing.
    std::vector<size_t> chosen_;
    std::vector<BreakPoint> points_;
    size_t same_ = 0;
};

Breaker::Breaker(std::string_view line, Section section, const LineBreakLimits& limits)
    : line_(line), limits_(limits), characters_(charactersOf(line)), check_(line, section) {
    Position column = 0;
    size_t done = 0;
    for (const auto& point : breakPoints(line, section)) {
        column += charactersOf(line.substr(done, point.blank - done));
        done = point.blank;
        candidates_.push_back({.point = point, .column = column});
    }
}

std::optional<size_t> Breaker::nextBreak() const {
    constexpr Position kBlankAndMark = 2;
    std::optional<size_t> best;
    std::optional<size_t> last;
    for (size_t i = chosen_.empty() ? 0 : chosen_.back() + 1; i < candidates_.size(); ++i) {
        const auto& [point, column, isDropped] = candidates_[i];
        if (isDropped) continue;
        const auto length = tab() + column - pieceStart() + (point.needsMark() ? kBlankAndMark : 0);
        if (length > limits_.maximum) {
            if (!last) last = i;
            break;
        }
        last = i;
        const bool isTolerated = length >= Position{limits_.maximum} - limits_.tolerance;
        if (isTolerated && (!best || point.kind <= candidates_[*best].point.kind)) best = i;
    }
    return best ? best : last;
}

void Breaker::breakOn() {
    while (tab() + characters_ - pieceStart() > limits_.maximum) {
        const auto next = nextBreak();
        if (!next) return;
        chosen_.push_back(*next);
        points_.push_back(candidates_[*next].point);
    }
}

// Looks for a break that changes the check where the ones before it do not, in steps that grow as long as all
// is well, and then by halves; drops it and gives up those behind it.
void Breaker::dropFirstBad() {
    auto bad = points_.size() + 1;
    for (size_t step = 1; same_ < points_.size() && bad > points_.size(); step *= 2) {
        const auto goal = std::min(same_ + step, points_.size());
        (isSame(goal) ? same_ : bad) = goal;
    }
    if (bad > points_.size()) return;
    while (bad - same_ > 1) {
        const auto middle = same_ + (bad - same_) / 2;
        (isSame(middle) ? same_ : bad) = middle;
    }
    candidates_[chosen_[same_]].isDropped = true;
    chosen_.resize(same_);
    points_.resize(same_);
}

std::string Breaker::run() {
    breakOn();
    if (isSame(points_.size())) same_ = points_.size();
    while (same_ < points_.size()) {
        dropFirstBad();
        if (check_.work() <= kMostWork) breakOn();
    }
    return brokenAt(line_, points_);
}

}  // namespace

LineBreakLimits readLineBreakLimits(Store& store) {
    return {.maximum = readSetting(store, settings::kLineBreakerMaximum),
            .tolerance = readSetting(store, settings::kLineBreakerTolerance)};
}

std::string BreakLongLine(std::string_view line, Section section, const LineBreakLimits& limits) {
    if (limits.maximum <= 0 || charactersOf(line) <= limits.maximum) return std::string(line);
    return Breaker(line, section, limits).run();
}

}  // namespace klt
