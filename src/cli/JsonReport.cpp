#include <utility>

#include "cli/Findings.h"
#include "cli/JsonText.h"
#include "cli/Report.h"

namespace klt {

namespace {

/// One array of findings, written as they come: a big file may have more than fit into memory as a tree.
class JsonReport : public Report {
public:
    explicit JsonReport(Output& out) : out_(out) { out_.write("["); }

    void add(Checked checked) override {
        for (const auto& finding : findingsOf(checked.text.text(), std::move(checked.errors))) {
            const auto& reason = errorReason(finding.reason);
            out_.write(std::exchange(isEmpty_, false) ? "\n" : ",\n");
            out_.write(jsonText({{"file", checked.name},
                                 {"line", finding.start.line},
                                 {"column", finding.start.column},
                                 {"endLine", finding.end.line},
                                 {"endColumn", finding.end.column},
                                 {"severity", "error"},
                                 {"rule", reason.id},
                                 {"reason", reason.text}}));
        }
    }

    void end() override { out_.write(isEmpty_ ? "]\n" : "\n]\n"); }

private:
    Output& out_;
    bool isEmpty_ = true;
};

}  // namespace

std::unique_ptr<Report> makeJsonReport(Output& out) {
    return std::make_unique<JsonReport>(out);
}

}  // namespace klt
