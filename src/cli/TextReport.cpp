#include "cli/Findings.h"
#include "cli/Report.h"

namespace klt {

namespace {

struct Colours {
    std::string_view location;
    std::string_view error;
    std::string_view none;
};
constexpr Colours kPlain;
constexpr Colours kTerminal = {"\x1b[1m", "\x1b[1;31m", "\x1b[0m"};

class TextReport : public Report {
public:
    TextReport(Output& out, bool coloured) : out_(out), colours_(coloured ? kTerminal : kPlain) {}

    void add(Checked checked) override {
        std::string line;
        for (const auto& finding : findingsOf(checked.text.text(), std::move(checked.errors))) {
            line.clear();
            line.append(colours_.location).append(checked.name).append(":");
            line.append(std::to_string(finding.start.line)).append(":");
            line.append(std::to_string(finding.start.column)).append(":").append(colours_.none).append(" ");
            line.append(colours_.error).append("error:").append(colours_.none).append(" ");
            line.append(errorReason(finding.reason).text).append("\n");
            out_.write(line);
        }
    }

private:
    Output& out_;
    Colours colours_;
};

}  // namespace

std::unique_ptr<Report> makeTextReport(Output& out, bool coloured) {
    return std::make_unique<TextReport>(out, coloured);
}

}  // namespace klt
