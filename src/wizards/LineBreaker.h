#pragma once

#include <string>
#include <string_view>

#include "language/Section.h"
#include "settings/Store.h"

namespace klt {

/// When a line is broken, and where. Both count characters, a tab in front and a mark behind among them.
struct LineBreakLimits {
    /// A longer line is broken; with 0 or less none is.
    int maximum = 0;
    /// How far before the maximum the break is looked for first.
    int tolerance = 0;
};

/// What the settings say at this moment.
LineBreakLimits readLineBreakLimits(Store& store);

/// The line, which must hold no line end, in pieces that are read as one line and checked like it under
/// `section`, CR LF between them. A break comes within the tolerance if it can, behind a `,` or `|` between
/// tags rather than inside a value, and there rather than at a blank; else at the last point before the
/// maximum; else at the first one behind it. A line that needs or allows no break comes back as it is.
std::string BreakLongLine(std::string_view line, Section section, const LineBreakLimits& limits);

}  // namespace klt
