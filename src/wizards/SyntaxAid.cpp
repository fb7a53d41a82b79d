#include "wizards/SyntaxAid.h"

#include <algorithm>

namespace klt {

void InsertAid(TextArea& field, std::string_view text, bool isSeparated) {
    const std::string_view separator = isSeparated && field.Length() > 0 ? ", " : "";
    field.SetSelText(std::string(separator).append(text));
}

AidOutcome SyntaxAid(const AidMenu& menu, int position, TextArea& field, const AskFor& askFor) {
    if (!isChoosable(menu, position)) return AidOutcome::Nothing;
    const auto rule =
        std::ranges::find_if(menu.rules, [position](const AidRule& each) { return position <= each.last; });
    if (rule == menu.rules.end()) return AidOutcome::Nothing;
    if (rule->act == AidAct::OpenFunctions) return AidOutcome::OpensFunctions;

    std::string text(menu.items[static_cast<size_t>(position - 1)].tag);
    if (rule->act != AidAct::Insert) {
        const auto answer = askFor(rule->prompt);
        if (answer.empty()) return AidOutcome::Nothing;
        text = rule->act == AidAct::AskName ? text + answer : answer + ' ' + text;
    }
    InsertAid(field, text, rule->isSeparated);
    return AidOutcome::Inserted;
}

}  // namespace klt
