#include "wizards/LineTarget.h"

#include "language/StyleCategory.h"
#include "text/TextAreaGuards.h"
#include "wizards/LinePlace.h"

namespace klt {

bool LineTarget::write(const TargetText& line) {
    TextArea* const area = area_();
    if (area == nullptr) return false;
    const RedrawFreeze freeze(*area);
    const UndoGroup oneStep(*area);
    const auto joiner = select(*area);
    if (!joiner) return false;
    const auto whole = std::string(*joiner).append(line.text);
    if (!line.styles) return area->SetSelText(whole);
    return area->SetSelTextStyled(whole, std::string(joiner->size(), '\0').append(*line.styles));
}

PlacedLine::PlacedLine(AreaLookup document, std::string_view section, std::string subsection,
                       std::vector<std::string> categories, int index)
    : LineTarget(std::move(document)),
      section_(section),
      subsection_(std::move(subsection)),
      categories_(std::move(categories)),
      index_(index) {}

std::optional<std::string_view> PlacedLine::select(TextArea& area) {
    if (subsection_.empty()) {
        GoToSection(area, section_);
    } else {
        GoToSubSection(area, section_, subsection_, {categories_, index_});
    }
    return "";
}

std::optional<std::string_view> ReplacedLine::select(TextArea& area) {
    const auto length = static_cast<Position>(oldText_.size());
    if (area.Slice(start_, start_ + length) != oldText_) return std::nullopt;
    area.Select(start_, length);
    // Like a new line; without it, it would look like the heading in front of it.
    area.SetSelStyle(static_cast<StyleByte>(StyleCategory::NormalText));
    return "";
}

std::optional<std::string_view> LineBox::select(TextArea& area) {
    // Setting the text would empty the undo history amid the step.
    area.Select(0, area.Length());
    return "";
}

std::optional<std::string_view> FieldEnd::select(TextArea& area) {
    area.SetSelStart(area.Length());
    return area.Length() > 0 ? joiner_ : std::string_view();
}

}  // namespace klt
