#pragma once

#include <span>
#include <string>
#include <string_view>

#include "wizards/WizardState.h"

namespace klt {

/// The first item that starts with `text`, letters compared without regard to case; -1 where there is none.
int FindPrefix(std::span<const std::string> list, std::string_view text);

/// The selection in the edit part of a combo, in bytes.
struct ComboSelection {
    size_t start = 0;
    size_t length = 0;
};

/// At the release of a key that has changed the text: makes the text in front of the caret the first item
/// that starts with it, or, where none does, all there is, and selects what was added. With
/// `keepsParenthesis` a ")" right behind the caret stays where no item fits. False where it leaves the combo
/// as it is: with all of the text selected, with the caret at the start.
bool AutoComplete(ControlState& combo, ComboSelection& selection, bool keepsParenthesis = false);

/// What of an item a text must be to stand for it, in any case.
enum class EntryMatch : unsigned char { Prefix, Whole };

/// When the combo loses the focus: a text that is no item becomes the first item that starts with it, or a
/// new one in front of the first that is greater, letters compared in upper case. Nothing with an empty text
/// or a chosen item.
void CommitComboEntry(ControlState& combo, EntryMatch match = EntryMatch::Prefix);

}  // namespace klt
