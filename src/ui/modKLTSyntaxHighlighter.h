#pragma once

#include "checker/CheckerState.h"
#include "language/StyledText.h"
#include "settings/CRegSettings.h"
#include "ui/RichTextBox.h"
#include "ui/StyleTable.h"

namespace klt {

/// What all documents and wizards share for colouring: `CurrentSection` and `FunctionStack`, and the table of
/// styles, which is read anew whenever a text box takes a base format.
class modKLTSyntaxHighlighter {
public:
    /// `settings` is the road to the styles, and must outlive this.
    explicit modKLTSyntaxHighlighter(CRegSettings& settings) : settings_(settings) {}

    CheckerState state;

    /// The base formats: all of the text in one look, protection gone, and that look for what is typed next.
    void SetDocumentFormat(RichTextBox& text);
    void SetFieldFormat(RichTextBox& text);
    void SetPreviewFormat(RichTextBox& text);
    void SetErrorFieldFormat(RichTextBox& text);

    /// Reads the styles and shows them in `text`, whose style bytes stay.
    void LoadStyles(RichTextBox& text);

    /// Colours the bytes [from, to) of a preview box under `CurrentSection`, line by line, keeps why what is
    /// in error, and puts the case of words right. Nothing happens unless `from` is less than `to`.
    void ColourRange(RichTextBox& text, Position from, Position to);

private:
    void setBaseFormat(RichTextBox& text, const TextFont& font, StyleCategory category);

    CRegSettings& settings_;
};

/// The version lines of a text with these styles: what is to be protected.
std::vector<TextRange> versionRuns(std::string_view styles);

/// Lays what a check came to, a style for each byte of the box's text, and protects the version lines.
void layCheckedStyles(RichTextBox& box, std::string_view styles);

}  // namespace klt
