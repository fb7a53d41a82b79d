#include <algorithm>

#include "cli/Report.h"

namespace klt {

namespace {

class RunsReport : public Report {
public:
    explicit RunsReport(Output& out) : out_(out) {}

    void add(Checked checked) override {
        const auto styles = checked.text.styles();
        for (size_t start = 0; start < styles.size();) {
            const auto end = std::min(styles.find_first_not_of(styles[start], start), styles.size());
            const auto style = checked.text.categoryAt(static_cast<Position>(start));
            if (style != StyleCategory::NormalText) writeRun(start, end, style);
            start = end;
        }
        if (!checked.isField) return;
        out_.write("TEXT ");
        out_.write(checked.text.text());
        out_.write("\n");
    }

private:
    void writeRun(size_t start, size_t end, StyleCategory style) {
        auto line = std::to_string(start).append(" ").append(std::to_string(end)).append(" ");
        out_.write(line.append(styleCategoryName(style)).append("\n"));
    }

    Output& out_;
};

}  // namespace

std::unique_ptr<Report> makeRunsReport(Output& out) {
    return std::make_unique<RunsReport>(out);
}

}  // namespace klt
