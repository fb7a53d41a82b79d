#include "cli/Findings.h"
#include "cli/Report.h"
#include "cli/SourcePicture.h"

namespace klt {

namespace {

struct Colours {
    std::string_view location;
    std::string_view error;
    std::string_view none;
};
constexpr Colours kPlain;
constexpr Colours kTerminal = {"\x1b[1m", "\x1b[1;31m", "\x1b[0m"};

const Colours& coloursIf(bool coloured) {
    return coloured ? kTerminal : kPlain;
}

class TextReport : public Report {
public:
    TextReport(Output& out, bool coloured) : out_(out), colours_(coloursIf(coloured)) {}

    void add(Checked checked) override {
        const auto text = showsSource() ? checked.source : checked.text.text();
        std::string lines;
        for (const auto& finding : findingsOf(text, std::move(checked.errors))) {
            lines.clear();
            lines.append(colours_.location).append(checked.name).append(":");
            lines.append(std::to_string(finding.start.line)).append(":");
            lines.append(std::to_string(finding.start.column)).append(":").append(colours_.none).append(" ");
            lines.append(colours_.error).append("error:").append(colours_.none).append(" ");
            lines.append(reasonText(finding.reason, finding.wordIn(text))).append("\n");
            addSource(lines, finding, text);
            out_.write(lines);
        }
    }

protected:
    virtual void addSource(std::string& /*lines*/, const Finding& /*finding*/, std::string_view /*text*/) {}
    const Colours& colours() const { return colours_; }

private:
    Output& out_;
    const Colours& colours_;
};

// The word that is spoken of, if it stands in the line in which the run starts; else the run's start.
size_t caretOf(const Finding& finding, std::string_view text) {
    const auto start = static_cast<size_t>(finding.run.start), word = static_cast<size_t>(finding.word.start);
    if (finding.word == TextRange() || word < finding.lineStart) return start;
    if (word <= start) return word;
    return text.substr(start, word - start).find('\n') == text.npos ? word : start;
}

class FullReport : public TextReport {
public:
    FullReport(Output& out, bool coloured, size_t columns) : TextReport(out, coloured), columns_(columns) {}

    bool showsSource() const override { return true; }

private:
    void addSource(std::string& lines, const Finding& finding, std::string_view text) override {
        const auto picture =
            pictureOf(text, finding.lineStart, finding.run, caretOf(finding, text), columns_);
        const auto firstMark = picture.marks.find_first_not_of(' ');
        lines.append(picture.line).append("\n").append(picture.marks, 0, firstMark);
        lines.append(colours().error).append(picture.marks, firstMark).append(colours().none).append("\n");
    }

    size_t columns_;
};

}  // namespace

std::unique_ptr<Report> makeTextReport(Output& out, bool coloured) {
    return std::make_unique<TextReport>(out, coloured);
}

std::unique_ptr<Report> makeFullReport(Output& out, bool coloured, size_t columns) {
    return std::make_unique<FullReport>(out, coloured, columns);
}

}  // namespace klt
