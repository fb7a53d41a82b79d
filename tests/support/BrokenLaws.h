#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "checker/DocumentPass.h"
#include "language/EditedLine.h"
#include "wizards/LineBreaker.h"

namespace klt {

/// For each character in which `broken` follows `whole`, the blank that a tab stands for among them, whether
/// it is in error.
inline std::vector<bool> errorsOf(std::string_view broken, Section section) {
    StyledText styled{std::string(broken)};
    CheckerState state;
    state.SetCurrentSection(sectionName(section));
    CheckDocument(styled, state);
    std::vector<bool> errors;
    for (Position i = 0; i < styled.size(); ++i) {
        const auto rest = broken.substr(static_cast<size_t>(i));
        if (rest.starts_with("_\r\n\t"))
            i += 3;
        else if (rest.starts_with("\r\n"))
            i += 1;
        else
            errors.push_back(styled.categoryAt(i) == StyleCategory::SyntaxError);
    }
    return errors;
}

/// What is wrong with a piece that ends at `end` and the one behind it; nullptr where they are as they must
/// be.
inline const char* wrongAtBreak(std::string_view broken, size_t end) {
    const auto before = broken.substr(0, end);
    const auto behind = broken.substr(end + 2);
    if (!behind.starts_with('\t') || behind.size() < 2 ||
        std::string_view(" \t*<[{").find(behind[1]) != std::string_view::npos)
        return "how a piece begins";
    const bool isMarked = before.ends_with(" _");
    if (!isMarked && !before.ends_with(',') && !before.ends_with('|')) return "how a piece ends";
    if (isMarked && end > 2 && std::string_view(" \t,|").find(before[end - 3]) != std::string_view::npos)
        return "where a mark stands";
    return nullptr;
}

/// The first law of the line breaker that its result for this line breaks; nullptr if it holds all. The line
/// must hold no line end.
inline const char* brokenLaw(std::string_view line, Section section, const LineBreakLimits& limits) {
    const auto broken = BreakLongLine(line, section, limits);
    const auto read = GetLogicalLine(broken, 0);
    if (read.range.end != static_cast<Position>(broken.size())) return "all pieces are one logical line";
    const auto whole = GetLogicalLine(line, 0).text;
    for (const auto join : {joinItemLine, joinPackageLine}) {
        const auto joined = join(read.text);
        if (joined != join(whole)) return "the pieces give the line again";
        if (joined == line && BreakLongLine(joined, section, limits) != broken)
            return "the same pieces again";
    }
    if (errorsOf(broken, section) != errorsOf(line, section)) return "errors where the whole line has them";
    bool isQuoted = false;
    for (size_t i = 0; i < broken.size(); ++i) {
        isQuoted = isQuoted != (broken[i] == '"');
        if (broken[i] != '\r') continue;
        if (isQuoted) return "a break inside quotes";
        if (const auto* wrong = wrongAtBreak(broken, i)) return wrong;
    }
    return nullptr;
}

}  // namespace klt
