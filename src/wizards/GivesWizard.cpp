#include <array>

#include "wizards/ControlRows.h"
#include "wizards/TableCheck.h"
#include "wizards/Wizard.h"
#include "wizards/Wizards.h"

namespace klt {
namespace {

constexpr std::array kFrames = {
    FrameRow{"fraType", "Gives() Type (required)"},
    FrameRow{"fraExtended", "Extended Gives() Options"},
};

// The labels of both are what stands in the line.
constexpr std::string_view kTo = " to ";
constexpr std::string_view kUpto = " upto ";

constexpr std::array kControls = {
    option("fraType", "Option1", "Bonus"),
    option("fraType", "Option2", "Penalty"),
    check("fraType", "Check1", "Per level Bonus/Penalty"),
    option("fraExtended", "Option3", "Give Levels"),
    option("fraExtended", "Option4", "Give Points"),
    check("fraExtended", "Check2", "Maximum Bonus/Penalty"),
    check("fraExtended", "Check3", "Use \"to\""),
    field("fraExtended", "GivesValue", "Value:"),
    aidButton("fraExtended", "Command4", "Gives2", "GivesValue"),
    field("fraExtended", "GivesTarget", kTo),
    aidButton("fraExtended", "Command1", "Gives", "GivesTarget"),
    field("fraExtended", "MaximumGives", kUpto),
    aidButton("fraExtended", "Command5", "Gives3", "MaximumGives"),
    formButton("Command2", "&Done!", ButtonUse::Done),
    formButton("Command3", "&Cancel", ButtonUse::Cancel),
};

constexpr Names kMaximum = "MaximumGives Command5";

constexpr std::array kEffects = {
    Effect{kAtLoad, kAnyState, Act::Disable, kMaximum},
    Effect{kAtLoad, kAnyState, Act::SetLabel, "MaximumGives"},
    Effect{"Check2", kOn, Act::Enable, kMaximum},
    Effect{"Check2", kOn, Act::SetLabel, "MaximumGives", kUpto},
    Effect{"Check2 Check3", kOff, Act::Disable, kMaximum},
    Effect{"Check2 Check3", kOff, Act::SetLabel, "MaximumGives"},
    // A maximum stands behind the word "to" only.
    Effect{"Check2", kAnyState, Act::TurnOn, "Check3"},
    Effect{"Check3", kOff, Act::TurnOff, "Check2"},
};

constexpr std::array kRules = {
    CheckRule{"GivesValue"},
    CheckRule{"GivesTarget"},
    CheckRule{"MaximumGives", kInvalidEntry, kEveryMode, stateIs("Check2")},
};

constexpr auto kBonus = controlIndex(kControls, "Option1");
constexpr auto kPenalty = controlIndex(kControls, "Option2");
constexpr auto kPerLevel = controlIndex(kControls, "Check1");
constexpr auto kPoints = controlIndex(kControls, "Option4");
constexpr auto kHasMaximum = controlIndex(kControls, "Check2");
constexpr auto kUsesTo = controlIndex(kControls, "Check3");
constexpr auto kValue = controlIndex(kControls, "GivesValue");
constexpr auto kTarget = controlIndex(kControls, "GivesTarget");
constexpr auto kMaximumValue = controlIndex(kControls, "MaximumGives");

std::string quoted(const std::string& text) {
    return '"' + text + '"';
}

/// One bonus, put behind what a field holds.
class GivesWizard : public Wizard {
public:
    using Wizard::Wizard;

    std::string text() const override {
        const bool isPerLevel = state.isOn(kPerLevel);
        std::string line;
        if (state.isOn(kBonus)) line = isPerLevel ? "+" : "=";
        if (state.isOn(kPenalty)) line = isPerLevel ? "-" : "=-";
        line += isPerLevel ? state.text(kValue) : quoted(state.text(kValue));
        if (state.isOn(kPoints)) line += "pts";
        line += state.isOn(kUsesTo) ? kTo : " ";
        line += quoted(state.text(kTarget));
        if (state.isOn(kHasMaximum)) line.append(kUpto).append(state.text(kMaximumValue));
        return line;
    }

protected:
    std::unique_ptr<LineTarget> target() const override {
        return std::make_unique<FieldEnd>(opening().target, ", ");
    }
};

}  // namespace

constinit const WizardTable kGivesWizard = checked({
    .form = "frmGivesWizard",
    .title = "Gives() Wizard",
    .frames = kFrames,
    .controls = kControls,
    .effects = kEffects,
    .rules = kRules,
    .line = {.isBroken = false},
    .closesAfterDone = true,
    .make = makeAs<GivesWizard>,
});

}  // namespace klt
