#include "cli/Findings.h"

#include <algorithm>
#include <tuple>

#include "text/Unicode.h"

namespace klt {

namespace {

struct Place {
    LineColumn at;
    size_t lineStart = 0;
};

// Of ascending positions, in one walk over the text.
std::vector<Place> placesOf(std::string_view text, const std::vector<Position>& positions) {
    std::vector<Place> found;
    found.reserve(positions.size());
    Place now;
    size_t reached = 0;
    for (const auto position : positions) {
        const auto goal = unitStart(text, static_cast<size_t>(std::max<Position>(position, 0)));
        while (reached < goal) {
            const auto rest = text.substr(reached, goal - reached);
            const auto lineEnd = rest.find('\n');
            if (lineEnd == rest.npos) {
                now.at.column += countCharacters(rest);
                reached = goal;
            } else {
                reached += lineEnd + 1;
                now = {{now.at.line + 1, 1}, reached};
            }
        }
        found.push_back(now);
    }
    return found;
}

TextRange wholeCharacters(std::string_view text, TextRange range) {
    const auto offset = [](Position position) {
        return static_cast<size_t>(std::max<Position>(position, 0));
    };
    return {static_cast<Position>(unitStart(text, offset(range.start))),
            static_cast<Position>(unitEnd(text, offset(range.end)))};
}

}  // namespace

std::vector<Finding> findingsOf(std::string_view text, ErrorRuns runs) {
    const auto key = [](const ErrorRun& run) { return std::tuple(run.start, run.end, run.reason); };
    std::stable_sort(runs.begin(), runs.end(), [&](const auto& a, const auto& b) { return key(a) < key(b); });
    const auto isSame = [&](const auto& a, const auto& b) { return key(a) == key(b); };
    runs.erase(std::unique(runs.begin(), runs.end(), isSame), runs.end());

    std::vector<Position> positions;
    positions.reserve(runs.size() * 2);
    for (const auto& run : runs) positions.insert(positions.end(), {run.start, run.end});
    std::sort(positions.begin(), positions.end());
    positions.erase(std::unique(positions.begin(), positions.end()), positions.end());
    const auto found = placesOf(text, positions);
    const auto at = [&](Position position) {
        return found[static_cast<size_t>(std::lower_bound(positions.begin(), positions.end(), position) -
                                         positions.begin())];
    };

    std::vector<Finding> findings;
    findings.reserve(runs.size());
    for (const auto& run : runs) {
        const auto start = at(run.start);
        findings.push_back({start.at, at(run.end).at, run.reason, wholeCharacters(text, {run.start, run.end}),
                            wholeCharacters(text, run.word), start.lineStart});
    }
    return findings;
}

}  // namespace klt
