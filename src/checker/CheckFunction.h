#pragma once

#include "checker/Scan.h"

namespace klt {

struct FunctionEnd {
    /// Where the scanner goes on behind, and what it takes as the start of its value. In front of the text if
    /// the text ended inside the @function: the scanner then starts over.
    ScanPosition position;
    /// The scanner returns `position` at once.
    bool leaves;
};

/// Scans the @function whose `@` stands at `at`, with all that are nested in it. An unknown name is an error
/// from `errorStart`.
FunctionEnd EnterFunction(Scan& scan, ScanPosition at, ScanPosition errorStart);

}  // namespace klt
