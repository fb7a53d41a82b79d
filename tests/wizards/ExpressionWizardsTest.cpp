#include <gtest/gtest.h>

#include "support/MemoryTextArea.h"
#include "wizards/NameList.h"
#include "wizards/Wizards.h"

using namespace klt;

namespace {

constexpr DoneResult kCloses{DoneResult::Kind::Closes};

TEST(GivesWizard, WritesBehindWhatTheFieldHolds) {
    const struct {
        const char *held, *on, *value, *target, *maximum, *result;
    } rows[] = {
        {"", "Option1 Check1 Check3", "2", "SK:Climbing", "", "+2 to \"SK:Climbing\""},
        {"", "Option2", "%level", "ST", "", "=-\"%level\" \"ST\""},
        {"", "Option1 Option4 Check1 Check2", "1", "DX", "5", "+1pts to \"DX\" upto 5"},
        {"+1 to ST, ", "Option1 Option3", "\"2\"", "DX", "", "+1 to ST, , =\"\"2\"\" \"DX\""},
        {"", "Check1", "3", "DX", "", "3 \"DX\""},
    };
    for (const auto& row : rows) {
        MemoryTextArea field(row.held);
        const auto made = makeWizard(kGivesWizard, {.target = [&field] { return &field; }});
        Wizard& wizard = *made;
        forEachName(row.on, [&wizard](auto name) { wizard.click(name, kOn); });
        wizard.state.setText("GivesValue", row.value);
        wizard.state.setText("GivesTarget", row.target);
        wizard.state.setText("MaximumGives", row.maximum);
        EXPECT_EQ(wizard.finish({}), kCloses);
        EXPECT_EQ(field.Text(), row.result);
    }
}

TEST(GivesWizard, HasNoMaximumWithoutTo) {
    const auto made = makeWizard(kGivesWizard, {});
    Wizard& wizard = *made;
    const auto isOn = [&wizard](const char* name) { return wizard.state.control(name).state == kOn; };
    const ControlState& maximum = wizard.state.control("MaximumGives");
    EXPECT_FALSE(maximum.isEnabled || wizard.state.control("Command5").isEnabled);
    EXPECT_EQ(maximum.label, "");
    wizard.click("Check2", kOn);
    EXPECT_TRUE(isOn("Check3") && maximum.isEnabled && wizard.state.control("Command5").isEnabled);
    EXPECT_EQ(maximum.label, " upto ");
    for (const auto* name : {"GivesValue", "GivesTarget", "MaximumGives"}) {
        EXPECT_EQ(wizard.check(), (Complaint{kInvalidEntry, name}));
        wizard.state.setText(name, "1");
    }
    wizard.click("Check3", kOff);
    EXPECT_FALSE(isOn("Check2") || isOn("Check3") || maximum.isEnabled);
    EXPECT_EQ(maximum.label, "");
}

TEST(FunctionWizard, WritesEachFunctionBehindWhatTheFieldHolds) {
    const char* const shapes[] = {"@FAC(a)",      "@FIX(a)",    "@IF(a THEN b ELSE c)", "@INT(a)",
                                  "@LOG(a, b)",   "@MAX(a, b)", "@MIN(a, b)",           "@NLOG(a)",
                                  "@POWER(a, b)", "@SQR(a)"};
    MemoryTextArea field;
    std::string expected;
    for (int i = 0; i < 10; ++i) {
        const auto made = makeWizard(kFunctionsWizard, {.target = [&field] { return &field; }});
        Wizard& wizard = *made;
        wizard.click("Combo1", 2);
        wizard.click("Combo1", i);
        for (const auto* name : {"Text(0)", "Text(1)", "Text(2)"}) {
            const bool isArgument = wizard.state.control(name).isEnabled;
            EXPECT_EQ(wizard.state.control(name).label.empty(), !isArgument);
            const Complaint missing{kInvalidEntry, name};
            EXPECT_EQ(wizard.check() == missing, isArgument);
            wizard.state.setText(name, name == std::string("Text(0)") ? "a" : name[5] == '1' ? "b" : "c");
        }
        field.SetSelStart(0);
        EXPECT_EQ(wizard.finish({}), kCloses);
        EXPECT_EQ(field.Text(), expected += (i > 0 ? ", " : "") + std::string(shapes[i]));
    }
}

TEST(FunctionWizard, AsksForAFunction) {
    EXPECT_EQ(makeWizard(kFunctionsWizard, {})->check(), (Complaint{"Invalid @Function!", "Combo1"}));
}

}  // namespace
