#include "language/Outline.h"

#include <algorithm>
#include <array>

#include "text/Ascii.h"

namespace klt {
namespace {

/// Without the mark at its end by which the line goes on.
std::string_view withoutMark(std::string_view line) {
    line = trimBlanksAndTabs(line);
    return line.ends_with('_') ? trimBlanksAndTabs(line.substr(0, line.size() - 1)) : line;
}

/// Up to the comma outside parentheses, or to the comment.
std::string_view itemName(std::string_view line) {
    size_t open = 0;
    for (size_t i = 0; i < line.size(); ++i) {
        const char c = line[i];
        if (c == '(') ++open;
        if (c == ')' && open > 0) --open;
        if ((c == ',' && open == 0) || (c == '/' && line.substr(i + 1).starts_with('/')))
            return trimBlanksAndTabs(line.substr(0, i));
    }
    return withoutMark(line);
}

std::string_view shownOf(LineKind kind, std::string_view line) {
    switch (kind) {
        case LineKind::Item:
            return itemName(line);
        case LineKind::PackageHeader:
            return withoutMark(line);
        case LineKind::SectionHeader:
        case LineKind::SubsectionHeader:
            return trimBlanksAndTabs(line);
        default:
            return {};
    }
}

/// What those prefix tags name that have no section of their own.
struct NamedRow {
    std::string_view prefix;
    LineKind kind;
    Section section;
    bool isOffered = true;
};
constexpr auto kNamedRows = std::to_array<NamedRow>({
    {"SK_RL:", LineKind::Item, Section::Skills},
    {"CL:", LineKind::SubsectionHeader, Section::Skills, false},
    {"CL:", LineKind::SubsectionHeader, Section::Spells},
    {"CO:", LineKind::SubsectionHeader, Section::Spells},
    {"COLLEGE:", LineKind::SubsectionHeader, Section::Spells},
    {"GR:", LineKind::SubsectionHeader, Section::Groups},
    {"PA:", LineKind::PackageHeader, Section::Packages},
});
static_assert(std::ranges::all_of(kNamedRows, [](const NamedRow& row) {
    const int prefix = kPrefixTags.find(row.prefix);
    return prefix >= 0 && kPrefixRows[static_cast<size_t>(prefix)].section == Section::Other;
}));

/// The end where no row says so.
const NamedRow* rowOf(const OutlineEntry& entry, const PrefixRow& prefix) {
    return std::ranges::find_if(kNamedRows, [&](const NamedRow& row) {
        return row.prefix == prefix.word && row.kind == entry.kind && row.section == entry.section;
    });
}

}  // namespace

std::string_view OutlineEntry::name() const {
    if (kind == LineKind::Item) return shown;
    auto inner = shown.substr(1);
    if (kind == LineKind::PackageHeader)
        inner = inner.substr(0, inner.find_first_of("=}"));
    else if (inner.ends_with('>') || inner.ends_with(']'))
        inner.remove_suffix(1);
    return trimBlanksAndTabs(inner);
}

void walkOutline(std::string_view text, const std::function<void(const OutlineEntry&)>& visit) {
    auto section = Section::Other;
    for (size_t start = 0; start < text.size();) {
        const auto end = lineEnd(text, start);
        const auto line = text.substr(start, end - start);
        const auto kind = classifyLine(line, section);
        if (kind == LineKind::SectionHeader && isSectionHeader(trimBlanks(line)))
            section = sectionOf(trimBlanks(line));
        const OutlineEntry entry{kind, section, shownOf(kind, line)};
        const bool isListed = section != Section::Author || kind == LineKind::SectionHeader;
        if (isListed && !entry.shown.empty()) visit(entry);
        start = nextLine(text, start, end, kind);
    }
}

std::vector<OutlineEntry> outlineOf(std::string_view text) {
    std::vector<OutlineEntry> entries;
    walkOutline(text, [&entries](const OutlineEntry& entry) { entries.push_back(entry); });
    return entries;
}

bool isNamedBy(const OutlineEntry& entry, const PrefixRow& prefix) {
    if (prefix.section != Section::Other)
        return entry.kind == LineKind::Item && entry.section == prefix.section;
    return rowOf(entry, prefix) != kNamedRows.end();
}

bool isOfferedBehind(const OutlineEntry& entry, const PrefixRow& prefix) {
    if (prefix.section != Section::Other) return isNamedBy(entry, prefix);
    const auto* row = rowOf(entry, prefix);
    return row != kNamedRows.end() && row->isOffered;
}

}  // namespace klt
