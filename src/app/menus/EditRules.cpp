#include "app/menus/EditRules.h"

#include "language/LogicalLine.h"

namespace klt {

bool isEnabled(Rule rule, const MenuFacts& facts) {
    if (rule == Rule::Always) return true;
    if (!facts.documentOpen) return false;
    const bool isBehindFirst = facts.selStart > kVersionLineLength;
    const bool isOnLaterLine = facts.line >= 1;
    switch (rule) {
        case Rule::Undo:
            return facts.modified;
        case Rule::CutOrCopy:
            return facts.selLength > 0 && isBehindFirst && isOnLaterLine;
        case Rule::Paste:
            return facts.clipboardHasText && isOnLaterLine;
        case Rule::Delete:
            return isBehindFirst && (facts.selLength == 0 || isOnLaterLine);
        default:
            return true;
    }
}

}  // namespace klt
