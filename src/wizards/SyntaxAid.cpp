#include "wizards/SyntaxAid.h"

namespace klt {
namespace {

/// Whose names an item asks for: only stats are named without a prefix.
const PrefixRow* kindOf(const AidItem& item) {
    return findPrefixTag(item.tag.empty() ? "ST:" : item.tag);
}

}  // namespace

void InsertAid(TextArea& field, std::string_view text, bool isSeparated) {
    const std::string_view separator = isSeparated && field.Length() > 0 ? ", " : "";
    field.SetSelText(std::string(separator).append(text));
}

AidOutcome SyntaxAid(const AidMenu& menu, int position, TextArea& field, const AskFor& askFor) {
    const AidItem* const item = choosableItem(menu, position);
    if (item == nullptr) return AidOutcome::Nothing;
    if (item->act == AidAct::OpenFunctions) return AidOutcome::OpensFunctions;
    if (item->act == AidAct::OpenMods) return AidOutcome::OpensMods;
    if (item->act == AidAct::Insert || item->act == AidAct::Append) {
        if (item->act == AidAct::Append) field.SetSelStart(field.Length());
        InsertAid(field, item->tag, false);
        return AidOutcome::Inserted;
    }
    const bool asksName = item->act == AidAct::AskName;
    const auto answer =
        asksName ? askFor(menu.namePrompt, kindOf(*item)) : askFor(menu.numberPrompt, nullptr);
    if (answer.empty()) return AidOutcome::Nothing;
    const std::string tag(item->tag);
    InsertAid(field, asksName ? tag + answer : answer + ' ' + tag, menu.isSeparated);
    return AidOutcome::Inserted;
}

}  // namespace klt
