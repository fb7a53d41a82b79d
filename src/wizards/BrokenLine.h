#pragma once

#include <span>
#include <string>
#include <string_view>

#include "checker/CheckerState.h"
#include "checker/ErrorReason.h"
#include "wizards/BreakPoints.h"

namespace klt {

/// The line with a break at each of the points: behind `,` and `|` CR LF and a tab in place of the blank, at
/// other blanks `_`, CR LF and a tab behind it.
std::string brokenAt(std::string_view line, std::span<const BreakPoint> points);

/// What the checker makes of a line, and whether it makes the same of the line with breaks.
class BrokenLineCheck {
public:
    /// `line` must outlive the object.
    BrokenLineCheck(std::string_view line, Section section);

    /// Whether, with breaks at these points, every character gets the style and spelling that it has in the
    /// whole line, every error stands where it stands there, and the @functions are left as they are there.
    /// What is put in does not count, save that the tab in place of a blank is in error just where the blank
    /// is.
    bool isSame(std::span<const BreakPoint> points);

    /// The bytes looked at so far.
    size_t work() const { return work_; }

private:
    struct Outcome {
        std::string text;
        std::string styles;
        ErrorRuns errors;
        FunctionStack stack;
        bool operator==(const Outcome&) const = default;
    };

    Outcome check(std::string text);
    void takeOutBreaks(Outcome& outcome, std::span<const BreakPoint> points) const;

    const std::string_view line_;
    const Section section_;
    size_t work_ = 0;
    Outcome whole_;
};

}  // namespace klt
