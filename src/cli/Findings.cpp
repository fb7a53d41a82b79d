#include "cli/Findings.h"

#include <algorithm>
#include <tuple>

#include "text/Unicode.h"

namespace klt {

namespace {

// Of ascending positions, in one walk over the text.
std::vector<LineColumn> linesAndColumns(std::string_view text, const std::vector<Position>& positions) {
    std::vector<LineColumn> found;
    found.reserve(positions.size());
    LineColumn now;
    size_t reached = 0;
    for (const auto position : positions) {
        const auto goal = unitStart(text, static_cast<size_t>(std::max<Position>(position, 0)));
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

    std::vector<Position> positions;
    positions.reserve(runs.size() * 2);
    for (const auto& run : runs) positions.insert(positions.end(), {run.start, run.end});
    std::sort(positions.begin(), positions.end());
    positions.erase(std::unique(positions.begin(), positions.end()), positions.end());
    const auto found = linesAndColumns(text, positions);
    const auto at = [&](Position position) {
        return found[static_cast<size_t>(std::lower_bound(positions.begin(), positions.end(), position) -
                                         positions.begin())];
    };

    std::vector<Finding> findings;
    findings.reserve(runs.size());
    for (const auto& run : runs) findings.push_back({at(run.start), at(run.end), run.reason});
    return findings;
}

}  // namespace klt
