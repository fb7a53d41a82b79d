#include "cli/Findings.h"

#include <algorithm>
#include <tuple>

#include "text/Unicode.h"

namespace klt {

namespace {

// Of ascending places, in one walk over the text.
std::vector<LineColumn> linesAndColumns(std::string_view text, const std::vector<Position>& places) {
    std::vector<LineColumn> found;
    found.reserve(places.size());
    LineColumn now;
    size_t reached = 0;
    for (const auto place : places) {
        const auto goal = unitStart(text, static_cast<size_t>(std::max<Position>(place, 0)));
        while (reached < goal) {
            const auto rest = text.substr(reached, goal - reached);
            const auto lineEnd = rest.find('\n');
            if (lineEnd == rest.npos) {
                now.column += countCharacters(rest);
                reached = goal;
            } else {
                now = {now.line + 1, 1};
                reached += lineEnd + 1;
            }
        }
        found.push_back(now);
    }
    return found;
}

}  // namespace

std::vector<Finding> findingsOf(std::string_view text, ErrorRuns runs) {
    const auto key = [](const ErrorRun& run) { return std::tuple(run.start, run.end, run.reason); };
    std::sort(runs.begin(), runs.end(), [&](const auto& a, const auto& b) { return key(a) < key(b); });
    runs.erase(std::unique(runs.begin(), runs.end()), runs.end());

    std::vector<Position> places;
    places.reserve(runs.size() * 2);
    for (const auto& run : runs) places.insert(places.end(), {run.start, run.end});
    std::sort(places.begin(), places.end());
    places.erase(std::unique(places.begin(), places.end()), places.end());
    const auto found = linesAndColumns(text, places);
    const auto at = [&](Position place) {
        return found[static_cast<size_t>(std::lower_bound(places.begin(), places.end(), place) -
                                         places.begin())];
    };

    std::vector<Finding> findings;
    findings.reserve(runs.size());
    for (const auto& run : runs) findings.push_back({at(run.start), at(run.end), run.reason});
    return findings;
}

}  // namespace klt
