#pragma once

#include <string_view>

#include "wizards/WizardTable.h"

namespace klt {

class RichTextBox;
class WizardState;
class modKLTSyntaxHighlighter;

/// The section, with its brackets, as whose lines a box is read: that of its row, or the one that a list
/// chooses; empty where it chooses none.
std::string_view sectionOfLines(const ControlRow& row, const WizardState& state);

/// From now on `box` is coloured as lines of the section that its row names, with the case of words put
/// right: at each change, or, where the row says so, when it gets the focus. A line that is no more than its
/// beginning has no colours. What it is given must outlive the box.
void keepColoured(RichTextBox& box, const ControlRow& row, const WizardTable& table, const WizardState& state,
                  modKLTSyntaxHighlighter& highlighter);

}  // namespace klt
