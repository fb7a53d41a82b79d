#include "wizards/SyntaxAid.h"

#include <gtest/gtest.h>

#include "support/MemoryTextArea.h"

using namespace klt;

namespace {

TEST(SyntaxAid, DoesWhatTheItemStandsFor) {
    // The field with its caret as "^", what is asked and answered, and the field then.
    const std::tuple<const char*, int, std::string, const char*, const char*, const char*> rows[] = {
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
    for (const auto& [menu, position, before, prompt, answer, result] : rows) {
        auto text = before;
        const auto caret = std::min(text.find('^'), text.size());
        MemoryTextArea field(text.erase(caret, 1));
        field.SetSelStart(static_cast<Position>(caret));
        std::string asked;
        const auto outcome =
            SyntaxAid(*aidMenu(menu), position, field, [&](std::string_view question, const PrefixRow*) {
                asked = question;
                return answer;
            });
        EXPECT_EQ(field.Text(), result) << menu << position;
        EXPECT_EQ(asked, prompt) << menu << position;
        EXPECT_EQ(outcome, result == text ? AidOutcome::Nothing : AidOutcome::Inserted);
    }
}

TEST(SyntaxAid, LastItemOpensTheFunctions) {
    MemoryTextArea field("a");
    for (const AidMenu& menu : aidMenus()) {
        if (menu.namePrompt.empty()) continue;
        const auto last = static_cast<int>(menu.items.size());
        const auto open = [&](int position) {
            return SyntaxAid(menu, position, field, [](auto, auto) { return ""; }) ==
                   AidOutcome::OpensFunctions;
        };
        EXPECT_TRUE(open(last)) << menu.name;
        for (int position = 1; position < last; ++position) EXPECT_FALSE(open(position)) << menu.name;
    }
}

}  // namespace
