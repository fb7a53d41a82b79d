#pragma once

#include <string>
#include <vector>

namespace bench {

struct Run {
    int status = -1;
    double seconds = 0;
    double peakBytes = 0;
};

/// Runs the program klt from start to end, its output thrown away.
Run runKlt(std::vector<std::string> arguments);

}  // namespace bench
