#include "cli/Report.h"

#include <cstdlib>

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

}  // namespace

std::unique_ptr<Report> makeReport(const CheckArguments& arguments, Output& out) {
    if (arguments.quiet) return std::make_unique<QuietReport>();
    switch (arguments.format) {
        case ReportFormat::Json:
            return makeJsonReport(out);
        case ReportFormat::Sarif:
            return makeSarifReport(out);
        case ReportFormat::Runs:
            return makeRunsReport(out);
        case ReportFormat::Text:
            break;
    }
    return makeTextReport(out, wantsColour(arguments.colour, out));
}

}  // namespace klt
