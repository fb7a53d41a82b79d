#include "wizards/ItemLine.h"

#include <algorithm>
#include <functional>
#include <vector>

#include "text/Ascii.h"
#include "text/TextOperations.h"
#include "text/Unicode.h"
#include "wizards/NameList.h"

namespace klt {
namespace {

struct FoundTag {
    size_t place;
    const TagRow* row;
};

std::string_view valueOf(const TagRow& row, const WizardState& state) {
    if (row.choices.empty()) return state.text(row.control);
    const auto chosen = std::ranges::find_if(row.choices, [&state](const Choice& choice) {
        return state.control(choice.control).state == choice.state;
    });
    return chosen == row.choices.end() ? std::string_view() : chosen->text;
}

void setValue(const TagRow& row, std::string_view value, WizardState& state) {
    if (row.choices.empty()) return state.setText(row.control, value);
    const Choice* const chosen = choiceOf(row, value);
    if (chosen != nullptr) state.setState(chosen->control, chosen->state);
}

/// A replacement that would leave nothing is not made.
void replaceUnlessAll(std::string& line, std::string_view find, std::string_view with) {
    auto replaced = FastReplace(line, find, with);
    if (!replaced.empty()) line = std::move(replaced);
}

/// The last one first.
std::vector<FoundTag> findTags(std::string_view line, std::span<const TagRow> rows) {
    std::vector<FoundTag> found;
    for (const TagRow& row : rows) {
        const auto place = findIgnoringAsciiCase(line, row.tag);
        if (place != line.npos) found.push_back({place, &row});
    }
    std::ranges::sort(found, std::ranges::greater(), &FoundTag::place);
    return found;
}

/// The line as the loader goes through it.
std::string normalLine(std::string_view item) {
    std::string normal(item.substr(0, item.find_last_not_of(" \t") + 1));
    replaceUnlessAll(normal, "\t", " ");
    replaceUnlessAll(normal, "  ", " ");
    return normal;
}

/// What stands behind the first "(" at or behind `place`, less the line's last character.
std::string_view valueBehind(std::string_view line, size_t place) {
    const auto open = line.find('(', place);
    if (open == line.npos) return {};
    const auto end = previousUnit(line, line.size());
    return open < end ? line.substr(open + 1, end - open - 1) : std::string_view();
}

/// `place` less two characters; 0 where there are not as many.
size_t twoBefore(std::string_view line, size_t place) {
    return previousUnit(line, previousUnit(line, place));
}

}  // namespace

const Choice* choiceOf(const TagRow& row, std::string_view value) {
    const auto chosen = std::ranges::find_if(row.choices, [value](const Choice& choice) {
        return choice.text.empty() || equalIgnoringAsciiCase(choice.text, trimBlanks(value));
    });
    return chosen == row.choices.end() ? nullptr : &*chosen;
}

std::string itemText(const ItemShape& shape, const WizardState& state) {
    std::string line;
    forEachName(shape.heads, [&](std::string_view head) {
        if (head.data() != shape.heads.data()) line += ", ";
        line += state.text(head);
    });
    for (const TagRow& row : shape.written) {
        const auto value = valueOf(row, state);
        if (!value.empty()) line.append(", ").append(row.tag).append(value).append(")");
    }
    return line;
}

void LoadLineIntoWizard(const ItemShape& shape, std::string_view item, WizardState& state) {
    const std::string normal = normalLine(item);
    std::string_view line = normal;
    for (const FoundTag& tag : findTags(normal, shape.loaded)) {
        setValue(*tag.row, valueBehind(line, tag.place), state);
        line = line.substr(0, twoBefore(normal, tag.place));
    }
    if (!shape.secondField.empty()) {
        const auto comma = line.rfind(',');
        if (comma != line.npos) {
            state.setText(shape.secondField, trimBlanks(line.substr(comma + 1)));
            line = line.substr(0, comma);
        }
    }
    state.setText(shape.nameField, line);
}

std::vector<std::string> itemParts(const ItemShape& shape, std::string_view item) {
    const std::string line = normalLine(item);
    std::vector<std::string> parts;
    size_t end = line.size();
    for (const FoundTag& tag : findTags(line, shape.loaded)) {
        parts.emplace_back(trimBlanks(std::string_view(line).substr(tag.place, end - tag.place)));
        end = tag.place;
    }
    parts.emplace_back(trimBlanks(std::string_view(line).substr(0, end)));
    std::ranges::reverse(parts);
    return parts;
}

}  // namespace klt
