#include "ui/modKLTSyntaxHighlighter.h"

#include <algorithm>

#include "checker/DocumentPass.h"

namespace klt {
namespace {

StyleFormats formatsOf(const StyleTable& styles) {
    StyleFormats formats;
    for (size_t n = 0; n < formats.size(); ++n) {
        const Style& style = styles[static_cast<StyleCategory>(n)];
        formats[n] = {QColor(style.colour.red, style.colour.green, style.colour.blue), style.bold,
                      style.italic};
    }
    return formats;
}

/// The stretches of version lines, which no other text is coloured like.
std::vector<TextRange> versionRuns(std::string_view styles) {
    constexpr char kVersion = static_cast<char>(StyleCategory::VersionInformation);
    std::vector<TextRange> runs;
    for (size_t start = styles.find(kVersion); start != styles.npos; start = styles.find(kVersion, start)) {
        const size_t end = std::min(styles.find_first_not_of(kVersion, start), styles.size());
        runs.push_back({static_cast<Position>(start), static_cast<Position>(end)});
        start = end;
    }
    return runs;
}

/// Hands the letters over that differ, in ascending order: the box's gap then moves but once.
void layRewrites(RichTextBox& box, std::string_view text, TextRange part) {
    constexpr Position kBlock = 4096;
    constexpr Position kApart = 16;
    for (Position at = part.start; at < part.end; at += kBlock) {
        const Position end = std::min(at + kBlock, part.end);
        const std::string_view now = text.substr(static_cast<size_t>(at), static_cast<size_t>(end - at));
        if (box.Slice(at, end) == now) continue;
        const std::string was(box.Slice(at, end));
        for (size_t from = 0; from < was.size();) {
            from = static_cast<size_t>(std::mismatch(was.begin() + static_cast<Position>(from), was.end(),
                                                     now.begin() + static_cast<Position>(from))
                                           .first -
                                       was.begin());
            // A word is one run, though some of its letters may have been right.
            size_t to = from;
            for (size_t next = from; next < was.size() && next < to + kApart; ++next) {
                if (was[next] != now[next]) to = next + 1;
            }
            if (to > from) box.RewriteRun(at + static_cast<Position>(from), now.substr(from, to - from));
            from = std::max(to, from + 1);
        }
    }
}

}  // namespace

void modKLTSyntaxHighlighter::LoadStyles(RichTextBox& text) {
    text.setStyleFormats(formatsOf(klt::LoadStyles(settings_)));
}

void modKLTSyntaxHighlighter::setBaseFormat(RichTextBox& text, const TextFont& font, StyleCategory category) {
    text.setTextFont(font);
    LoadStyles(text);
    text.SetBaseStyle(static_cast<StyleByte>(category));
}

void modKLTSyntaxHighlighter::SetDocumentFormat(RichTextBox& text) {
    setBaseFormat(text, documentFont(), StyleCategory::NormalText);
}

void modKLTSyntaxHighlighter::SetFieldFormat(RichTextBox& text) {
    setBaseFormat(text, fieldFont(), StyleCategory::NormalText);
}

void modKLTSyntaxHighlighter::SetPreviewFormat(RichTextBox& text) {
    setBaseFormat(text, documentFont(), StyleCategory::NormalText);
}

void modKLTSyntaxHighlighter::SetErrorFieldFormat(RichTextBox& text) {
    setBaseFormat(text, fieldFont(), StyleCategory::SyntaxError);
}

void modKLTSyntaxHighlighter::ColourRange(RichTextBox& text, Position from, Position to) {
    if (from >= to) return;
    StyledText checked(std::string(text.Text()), text.Styles());
    CheckRange(checked, state, from, to);
    layChecked(text, checked);
}

void layChecked(RichTextBox& box, const StyledText& checked) {
    if (checked.size() != box.Length()) return;
    layRewrites(box, checked.text(), {0, checked.size()});
    box.SetStyles(checked.styles(), versionRuns(checked.styles()));
}

void layChecked(RichTextBox& box, const StyledText& checked, TextRange part) {
    if (checked.size() != box.Length()) return;
    layRewrites(box, checked.text(), part);
    box.LayStyles(part.start, checked.styles().substr(static_cast<size_t>(part.start),
                                                      static_cast<size_t>(part.end - part.start)));
}

}  // namespace klt
