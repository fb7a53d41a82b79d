#include "wizards/LineTarget.h"

#include "language/StyleCategory.h"
#include "text/Ascii.h"
#include "text/TextAreaGuards.h"
#include "wizards/LinePlace.h"

namespace klt {
namespace {

constexpr std::string_view kLineEnd = "\r\n";

}  // namespace

bool LineTarget::write(const TargetText& line) {
    TextArea* const area = area_();
    if (area == nullptr) return false;
    const RedrawFreeze freeze(*area);
    const UndoGroup oneStep(*area);
    const auto joints = select(*area);
    if (!joints) return false;
    const auto [before, behind] = *joints;
    const auto whole = std::string(before).append(line.text).append(behind);
    if (!line.styles) return area->SetSelText(whole);
    std::string styles(whole.size(), static_cast<char>(StyleCategory::NormalText));
    return area->SetSelTextStyled(whole, styles.replace(before.size(), line.styles->size(), *line.styles));
}

PlacedLine::PlacedLine(AreaLookup document, std::string_view section, std::string subsection,
                       std::vector<std::string> categories, int index)
    : LineTarget(std::move(document)),
      section_(section),
      subsection_(std::move(subsection)),
      categories_(std::move(categories)),
      index_(index) {}

std::optional<LineTarget::Joints> PlacedLine::select(TextArea& area) {
    if (subsection_.empty()) {
        GoToSection(area, section_);
    } else {
        GoToSubSection(area, section_, subsection_, {categories_, index_});
    }
    return Joints{};
}

std::optional<TextRange> ReplacedLine::find(const TextArea& area) const {
    const auto [range, isTouched] = *item_.place;
    const auto now = area.Slice(range.start, range.end);
    // A pass puts the case of words right without an edit.
    if (now == item_.oldText || (!isTouched && equalIgnoringAsciiCase(now, item_.oldText))) return range;
    const auto text = area.Text();
    const auto found = item_.oldText.empty() ? text.npos : text.find(item_.oldText);
    if (found == text.npos || text.find(item_.oldText, found + 1) != text.npos) return std::nullopt;
    const auto start = static_cast<Position>(found);
    return TextRange{start, start + static_cast<Position>(item_.oldText.size())};
}

std::optional<LineTarget::Joints> ReplacedLine::select(TextArea& area) {
    const auto range = find(area);
    if (!range) return std::nullopt;
    const auto [start, end] = *range;
    area.Select(start, end - start);
    // Like a new line; without it, it would look like the heading in front of it.
    area.SetSelStyle(static_cast<StyleByte>(StyleCategory::NormalText));
    Joints joints;
    if (start == end) {
        // Where nothing stood, the lines have none of their own yet.
        const bool startsLine = start == 0 || area.Slice(start - 2, start) == kLineEnd;
        const bool endsLine = end == area.Length() || area.Slice(end, end + 2) == kLineEnd;
        if (!startsLine) joints.before = kLineEnd;
        if (!endsLine) joints.behind = kLineEnd;
    }
    return joints;
}

std::optional<LineTarget::Joints> LineBox::select(TextArea& area) {
    // Setting the text would empty the undo history amid the step.
    area.Select(0, area.Length());
    return Joints{};
}

std::optional<LineTarget::Joints> FieldEnd::select(TextArea& area) {
    area.SetSelStart(area.Length());
    return Joints{.before = area.Length() > 0 ? joiner_ : std::string_view()};
}

}  // namespace klt
