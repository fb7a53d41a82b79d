#include "wizards/LinePlace.h"

#include "language/StyleCategory.h"
#include "text/TextSearch.h"

namespace klt {
namespace {

constexpr std::string_view kLineEnd = "\r\n";
constexpr Position kLineEndLength = 2;

void write(TextArea& document, StyleCategory style, std::string_view text) {
    document.SetSelStyle(static_cast<StyleByte>(style));
    document.SetSelText(text);
}

bool endsInLineEnd(const TextArea& document) {
    return document.Slice(document.Length() - kLineEndLength, document.Length()) == kLineEnd;
}

/// Writes the header where it belongs in the section from `start` to `end`, and leaves the caret on the empty
/// line under it.
void makeSubSection(TextArea& document, std::string_view subsection, const CategoryList& categories,
                    TextRange section, bool isSectionNew) {
    const auto next = static_cast<size_t>(Position{categories.index} + 1);
    const bool isFollowed =
        next < categories.list.size() &&
        document.Find('<' + categories.list[next] + '>', section.start, section.end) != kNotFound;
    // Also where the next one is not there yet: in the text's last section the caret would stand at the
    // header, and go from there into the section above.
    if (!isFollowed) document.SetSelStart(section.end);
    // Back over the line end in front; a text may end without one.
    const bool isBehindLine = document.SelStart() == document.Length() && !endsInLineEnd(document);
    if (!isSectionNew && !isBehindLine) document.SetSelStart(document.SelStart() - kLineEndLength);
    write(document, StyleCategory::SubSections,
          std::string(kLineEnd).append(subsection).append(kLineEnd).append(kLineEnd));
    document.SetSelStart(document.SelStart() - kLineEndLength);
}

}  // namespace

Position EnsureSection(TextArea& document, std::string_view section) {
    const Position found = document.Find(section, 0);
    if (found != kNotFound) return found;
    document.SetSelStart(document.Length());
    std::string header(section);
    if (document.Length() > 0 && !endsInLineEnd(document)) header.insert(0, kLineEnd);
    write(document, StyleCategory::Sections, header.append(kLineEnd).append(kLineEnd));
    return kNotFound;
}

void GoToSubSection(TextArea& document, std::string_view section, std::string_view subsection,
                    const CategoryList& categories) {
    const bool isSectionNew = EnsureSection(document, section) == kNotFound;
    TextRange range{document.SelStart(), document.Length()};
    const Position bracket = document.Find("[", range.start + 1);
    if (bracket != kNotFound) range.end = bracket;

    if (document.Find(subsection, range.start, range.end) != kNotFound) {
        document.UpTo(kLineEnd);
        write(document, StyleCategory::NormalText, kLineEnd);
    } else {
        makeSubSection(document, subsection, categories, range, isSectionNew);
    }
    document.SetSelStyle(static_cast<StyleByte>(StyleCategory::NormalText));
}

void GoToSection(TextArea& document, std::string_view section) {
    EnsureSection(document, section);
    document.UpTo(kLineEnd);
    write(document, StyleCategory::NormalText, kLineEnd);
}

void ScrollToSection(TextArea& document, std::string_view section) {
    const TextRange found = TextSearch(section, false).next(document.Text());
    if (found.start != kNotFound) document.ScrollToLine(document.GetLineFromChar(found.start));
}

}  // namespace klt
