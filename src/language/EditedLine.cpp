#include "language/EditedLine.h"

#include <algorithm>

#include "language/LogicalLine.h"
#include "text/Ascii.h"
#include "text/TextOperations.h"
#include "text/Unicode.h"

namespace klt {

namespace {

constexpr std::string_view kLineEnd = "\r\n";

size_t lineStart(std::string_view document, size_t offset) {
    const auto before = document.substr(0, unitStart(document, offset)).rfind(kLineEnd);
    return before == std::string_view::npos ? 0 : before + kLineEnd.size();
}

bool goesOn(std::string_view line) {
    const auto trimmed = trimBlanks(line);
    return !trimmed.empty() && std::string_view("_|,").find(trimmed.back()) != std::string_view::npos &&
           trimmed.front() != '*' && line.find("//") == std::string_view::npos;
}

}  // namespace

EditedLine GetLogicalLine(std::string_view document, Position position) {
    const auto start = lineStart(document, static_cast<size_t>(std::max<Position>(position, 0)));
    EditedLine result;
    auto from = start;
    for (;;) {
        const auto end = lineEnd(document, from);
        const auto line = document.substr(from, end - from);
        result.text += line;
        from = std::min(end + kLineEnd.size(), document.size());
        if (!goesOn(line)) break;
        result.text += trimBlanks(line).back() == '_' ? kLineEnd : " _\r\n";
        if (end == document.size()) break;
    }
    result.range = {static_cast<Position>(start), static_cast<Position>(from)};
    return result;
}

std::string joinItemLine(std::string_view logicalLine) {
    auto line = FastReplace(logicalLine, "_\r\n", "");
    line = FastReplace(line, "\t", " ");
    return FastReplace(line, "  ", " ");
}

std::string joinPackageLine(std::string_view logicalLine) {
    struct Step {
        std::string_view find;
        std::string_view with;
    };
    constexpr Step kSteps[] = {{"_\r\n\t", ""}, {"~P ", " ~P "}, {"\t", " "}, {"  ", " "}};
    std::string line(logicalLine);
    for (const auto& step : kSteps) {
        auto replaced = FastReplace(line, step.find, step.with);
        if (!replaced.empty()) line = std::move(replaced);
    }
    return line;
}

}  // namespace klt
