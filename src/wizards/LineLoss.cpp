#include "wizards/LineLoss.h"

#include <algorithm>
#include <vector>

#include "text/Ascii.h"

namespace klt {
namespace {

struct Part {
    std::string_view text;
    /// What it says: without blanks and case.
    std::string meaning;
};

std::string meaningOf(std::string_view text) {
    std::string meaning;
    for (const char c : text)
        if (c != ' ' && c != '\t') meaning += toLower(c);
    return meaning;
}

/// Whether a tag says nothing, or what the line says without it.
bool saysDefault(const ItemShape& shape, std::string_view meaning) {
    if (meaning.empty()) return true;
    const auto open = meaning.find('(');
    if (open == meaning.npos) return false;
    const auto tag = meaning.substr(0, open + 1);
    const auto row = std::ranges::find(shape.written, tag, &TagRow::tag);
    if (row == shape.written.end()) return false;
    const auto value = meaning.substr(tag.size());
    if (value == ")") return true;
    return std::ranges::any_of(row->choices, [value](const Choice& choice) {
        return !choice.spelled.empty() && value.ends_with(')') &&
               equalIgnoringAsciiCase(choice.spelled, value.substr(0, value.size() - 1));
    });
}

std::vector<Part> partsOf(const ItemShape& shape, std::string_view line) {
    std::vector<Part> parts;
    size_t start = 0;
    long depth = 0;
    for (size_t i = 0; i <= line.size(); ++i) {
        const char c = i < line.size() ? line[i] : ',';
        if (c == '(') ++depth;
        if (c == ')' && depth > 0) --depth;
        if (i < line.size() && (c != ',' || depth > 0)) continue;
        const auto text = trimBlanks(line.substr(start, i - start));
        auto meaning = meaningOf(text);
        if (!saysDefault(shape, meaning)) parts.push_back({text, std::move(meaning)});
        start = i + 1;
    }
    return parts;
}

/// The parts of `from` that `other` lacks, each as often as it lacks it.
std::string missing(const std::vector<Part>& from, std::vector<Part> other) {
    std::string list;
    for (const Part& part : from) {
        const auto same = std::ranges::find(other, part.meaning, &Part::meaning);
        if (same != other.end()) {
            other.erase(same);
        } else {
            list.append(list.empty() ? "" : ", ").append(part.text);
        }
    }
    return list;
}

}  // namespace

std::string lineLoss(const ItemShape& shape, std::string_view read, std::string_view written) {
    const auto before = partsOf(shape, read), after = partsOf(shape, written);
    const auto gone = missing(before, after), come = missing(after, before);
    std::string told;
    if (!gone.empty()) told += "This form does not keep: " + gone + ". ";
    if (!come.empty()) told += "It writes: " + come + ". ";
    return std::string(trimBlanks(told));
}

}  // namespace klt
