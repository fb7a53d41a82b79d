#pragma once

#include "checker/Scan.h"

namespace klt {

struct FunctionEnd {
    /// Where the scanner goes on behind, and what it takes as the start of its value; 0 if the text ended
    /// inside the @function.
    Place position;
    /// The scanner returns `position` at once.
    bool leaves;
};

/// Scans the @function whose `@` stands at place `at`, with all that are nested in it. An unknown name is an
/// error from document offset `errorStart`.
FunctionEnd EnterFunction(Scan& scan, Place at, Position errorStart);

}  // namespace klt
