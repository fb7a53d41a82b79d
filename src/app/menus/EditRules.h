#pragma once

#include "text/TextArea.h"

namespace klt {

/// When a command can be used.
enum class Rule : unsigned char { Always, Document, Undo, CutOrCopy, Paste, Delete };

/// What the rules ask about.
struct MenuFacts {
    bool documentOpen = false;
    bool modified = false;  ///< the document's `Label1`
    bool clipboardHasText = false;
    Position selStart = 0;
    Position selLength = 0;
    Position line = 0;  ///< of `selStart`, from 0
};

/// Whether a command with this rule can be used. The first line of a data file is closed to cutting, copying,
/// pasting and deleting.
bool isEnabled(Rule rule, const MenuFacts& facts);

}  // namespace klt
