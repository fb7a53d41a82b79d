#pragma once

#include <memory>
#include <string_view>

#include "checker/ErrorReason.h"
#include "cli/Arguments.h"
#include "cli/Output.h"
#include "language/StyledText.h"

namespace klt {

/// A text that has been checked.
struct Checked {
    std::string_view name;
    const StyledText& text;
    ErrorRuns errors;
    /// The text as it was read, its case not put right; only where the report `showsSource`.
    std::string_view source;
    bool isField = false;
};

/// Writes what was found, text by text, in one format.
class Report {
public:
    virtual ~Report() = default;
    virtual void add(Checked checked) = 0;
    virtual bool showsSource() const { return false; }
    /// That a file could not be checked.
    virtual void addFailure(std::string_view /*name*/, std::string_view /*reason*/) {}
    /// Writes what stands behind the last text.
    virtual void end() {}
};

/// One line a finding.
std::unique_ptr<Report> makeTextReport(Output& out, bool coloured);
/// The same, and below it the line of the text with the run marked, in at most `columns`, 24 or more.
std::unique_ptr<Report> makeFullReport(Output& out, bool coloured, size_t columns);
std::unique_ptr<Report> makeJsonReport(Output& out);
std::unique_ptr<Report> makeSarifReport(Output& out);
/// One line a run of one style; behind those of a field its text.
std::unique_ptr<Report> makeRunsReport(Output& out);

/// The report that the arguments ask for. `out` must outlive it.
std::unique_ptr<Report> makeReport(const CheckArguments& arguments, Output& out);

}  // namespace klt
