#include "wizards/LineLoss.h"

#include <algorithm>
#include <vector>

#include "text/Ascii.h"
#include "text/Unicode.h"
#include "wizards/ItemLine.h"

namespace klt {
namespace {

constexpr std::string_view kEllipsis = "…";

struct Part {
    std::string text;
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
    for (auto text : itemParts(shape, line)) {
        while (text.ends_with(',')) text = std::string(trimBlanks(text.substr(0, text.size() - 1)));
        auto meaning = meaningOf(text);
        if (!saysDefault(shape, meaning)) parts.push_back({std::string(text), std::move(meaning)});
    }
    return parts;
}

/// The parts of `from` that `other` lacks, each as often as it lacks it.
std::vector<Part> missing(const std::vector<Part>& from, std::vector<Part> other) {
    std::vector<Part> list;
    for (const Part& part : from) {
        const auto same = std::ranges::find(other, part.meaning, &Part::meaning);
        if (same != other.end()) {
            other.erase(same);
        } else {
            list.push_back(part);
        }
    }
    return list;
}

/// With its "("; empty in front of the tags.
std::string_view tagOf(std::string_view part) {
    return part.substr(0, part.find('(') + 1);
}

/// A long part is told by its tag and the place where it differs from what stands for it among `others`.
std::string shortened(const Part& part, const std::vector<Part>& others) {
    constexpr size_t kMost = 60, kCommon = 20;
    const std::string_view text = part.text, tag = tagOf(text);
    if (text.size() <= kMost) return part.text;
    const auto other = std::ranges::find_if(
        others, [tag](const Part& each) { return equalIgnoringAsciiCase(tagOf(each.text), tag); });
    size_t same = 0;
    if (other != others.end())
        same = static_cast<size_t>(std::ranges::mismatch(text, other->text).in1 - text.begin());
    const size_t start = same > tag.size() + kCommon ? unitStart(text, same - kCommon) : 0;
    const size_t end = text.size() - start > kMost ? unitStart(text, start + kMost) : text.size();
    std::string told;
    if (start > 0) told.append(tag).append(kEllipsis);
    told += text.substr(start, end - start);
    if (end < text.size()) told += kEllipsis;
    return told;
}

std::string listOf(const std::vector<Part>& parts, const std::vector<Part>& others) {
    std::string list;
    for (const Part& part : parts) list.append(list.empty() ? "" : ", ").append(shortened(part, others));
    return list;
}

}  // namespace

std::string lineLoss(const ItemShape& shape, std::string_view read, std::string_view written) {
    const auto before = partsOf(shape, read), after = partsOf(shape, written);
    const auto gone = missing(before, after), come = missing(after, before);
    std::string told;
    if (!gone.empty()) told += "This form does not keep: " + listOf(gone, come) + ". ";
    if (!come.empty()) told += "It writes: " + listOf(come, gone) + ". ";
    return std::string(trimBlanks(told));
}

}  // namespace klt
