#include "cli/Report.h"

#include <algorithm>
#include <charconv>
#include <cstdlib>
#include <string_view>

namespace klt {

namespace {

class QuietReport : public Report {
public:
    void add(Checked) override {}
};

// By the custom of NO_COLOR an empty value counts as unset.
bool hasValue(const char* variable) {
    const char* value = std::getenv(variable);
    return value != nullptr && *value != '\0';
}

bool wantsColour(ColourChoice choice, const Output& out) {
    if (choice == ColourChoice::Auto) return out.isTerminal() && !hasValue("NO_COLOR");
    return choice == ColourChoice::Always;
}

// By the custom of terminals COLUMNS tells the width where nothing else does.
size_t widthOf(const Output& out) {
    constexpr size_t kUsual = 80, kLeast = 24, kMost = 1000;
    auto width = out.columns();
    if (width == 0 && hasValue("COLUMNS")) {
        const std::string_view told = std::getenv("COLUMNS");
        std::from_chars(told.data(), told.data() + told.size(), width);
    }
    return width == 0 ? kUsual : std::clamp(width, kLeast, kMost);
}

}  // namespace

std::unique_ptr<Report> makeReport(const CheckArguments& arguments, Output& out) {
    if (arguments.quiet) return std::make_unique<QuietReport>();
    const bool coloured = wantsColour(arguments.colour, out);
    switch (arguments.format.value_or(out.isTerminal() ? ReportFormat::Full : ReportFormat::Text)) {
        case ReportFormat::Full:
            return makeFullReport(out, coloured, widthOf(out));
        case ReportFormat::Json:
            return makeJsonReport(out);
        case ReportFormat::Sarif:
            return makeSarifReport(out);
        case ReportFormat::Runs:
            return makeRunsReport(out);
        case ReportFormat::Text:
            break;
    }
    return makeTextReport(out, coloured);
}

}  // namespace klt
