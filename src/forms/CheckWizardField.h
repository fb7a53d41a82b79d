#pragma once

#include <string>
#include <string_view>

#include "ui/RichTextBox.h"

namespace klt {

class Store;
class modKLTSyntaxHighlighter;

/// Colours a field that holds the value of one tag ("gives(", "name(" ..., in lower case) and puts the case
/// of its words right, caret and undo kept; the box keeps why what is in error. Where `tag` is none, as
/// "name(" or "", only the parentheses are counted. An empty field, and every one while the setting
/// "WizardSyntaxCheck" is off, is left alone.
void CheckWizardField(RichTextBox& box, std::string_view tag, modKLTSyntaxHighlighter& highlighter,
                      Store& store);

/// Makes `box` a wizard's field: in the format of fields, checked at each change, and with parentheses that
/// close themselves. What it is given must outlive the box.
void makeWizardField(RichTextBox& box, std::string tag, modKLTSyntaxHighlighter& highlighter, Store& store);

}  // namespace klt
