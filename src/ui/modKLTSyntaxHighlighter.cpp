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
    ErrorRuns errors;
    CheckRange(checked, state, from, to, &errors);
    text.RewriteRun(0, checked.text());
    layCheckedStyles(text, checked.styles());
    text.keepReasons({from, to}, errors);
}

std::vector<TextRange> versionRuns(std::string_view styles) {
    // No other text is coloured like them.
    constexpr char kVersion = static_cast<char>(StyleCategory::VersionInformation);
    std::vector<TextRange> runs;
    for (size_t start = styles.find(kVersion); start != styles.npos; start = styles.find(kVersion, start)) {
        const size_t end = std::min(styles.find_first_not_of(kVersion, start), styles.size());
        runs.push_back({static_cast<Position>(start), static_cast<Position>(end)});
        start = end;
    }
    return runs;
}

void layCheckedStyles(RichTextBox& box, std::string_view styles) {
    box.SetStyles(styles, versionRuns(styles));
}

}  // namespace klt
