#include "wizards/SyntaxAid.h"

#include <gtest/gtest.h>

#include "support/MemoryTextArea.h"

using namespace klt;

namespace {

TEST(SyntaxAid, DoesWhatTheItemStandsFor) {
    const struct {
        const char* menu;
        int position;
        /// The field, "^" its caret.
        std::string field;
        std::string prompt;
        std::string answer;
        std::string result;
    } rows[] = {
        {"Default", 2, "^", "Type the name of the item to which skill defaults:", "4", "ST-4"},
        {"Default", 7, "DX-5^", "Type the name of the item to which skill defaults:", "A", "DX-5, SK:A"},
        {"Gives", 7, "^", "Type the name of the item that will receive the bonus:", "ST", "ST"},
        {"Gives", 11, "a^", "Type the name of the item that will receive the bonus:", "B", "a, GR:B"},
        {"Gives", 14, "a^", "", "", "aSkillPoints"},
        {"Gives", 25, "^", "", "", "prereq"},
        {"Gives2", 3, "^", "Type the name of the item on which the bonus will be based:", "P", "PO:P"},
        {"Gives2", 8, "a^", "", "", "a%level"},
        {"Gives3", 5, "a^", "Type the name of the limiting item:", "S", "a, SP:S"},
        {"Gives3", 9, "^", "", "", "prereq"},
        {"Needs", 7, "a^ b", "Type the name of the needed item:", "Q", "a, QU:Q b"},
        {"Needs", 10, "", "Type the name of the needed item:", "", ""},
        {"Needs", 13, "a^", "", "", "a, "},
        {"Needs", 14, "a^", "", "", "a | "},
        {"Needs", 17, "a^", "", "", "a>="},
        {"Needs", 23, "a^", "Type the ammount of needed items:", "3", "a, 3 Other Colleges"},
        {"Needs", 24, "a", "Type the ammount of needed items:", "", "a"},
        {"Upto", 4, "a^", "Type the name of the limiting item:", "K", "aSK:K"},
        {"Upto", 10, "^", "", "", "lowprereq"},
        {"Functions", 4, "a^", "Type the name of the item:", "Q", "a, QU:Q"},
        // Headings, names of sub-menus, nothing chosen, items of another owner.
        {"Needs", 11, "a", "", "", "a"},
        {"Needs", 12, "a", "", "", "a"},
        {"Default", 1, "a", "", "", "a"},
        {"Upto", 0, "a", "", "", "a"},
        {"Upto", 13, "a", "", "", "a"},
        {"PackMods", 1, "^a", "", "", "a .AND. "},
    };
    for (const auto& row : rows) {
        auto text = row.field;
        const auto caret = text.find('^');
        if (caret != text.npos) text.erase(caret, 1);
        MemoryTextArea field(text);
        field.SetSelStart(static_cast<Position>(std::min(caret, text.size())));
        std::string asked;
        const auto outcome = SyntaxAid(*aidMenu(row.menu), row.position, field, [&](std::string_view prompt) {
            asked = prompt;
            return row.answer;
        });
        EXPECT_EQ(field.Text(), row.result) << row.menu << row.position;
        EXPECT_EQ(asked, row.prompt) << row.menu << row.position;
        EXPECT_EQ(outcome, row.result == text ? AidOutcome::Nothing : AidOutcome::Inserted);
    }
}

TEST(SyntaxAid, LastItemOpensTheFunctions) {
    MemoryTextArea field("a");
    for (const AidMenu& menu : aidMenus()) {
        if (menu.namePrompt.empty()) continue;
        const auto last = static_cast<int>(menu.items.size());
        const auto open = [&](int position) {
            return SyntaxAid(menu, position, field, [](auto) { return ""; }) == AidOutcome::OpensFunctions;
        };
        EXPECT_TRUE(open(last)) << menu.name;
        for (int position = 1; position < last; ++position) EXPECT_FALSE(open(position)) << menu.name;
    }
}

}  // namespace
