#include "wizards/GivesWizard.h"

#include <array>

#include "wizards/ControlRows.h"

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
    // A maximum needs the word "to", and without it there is none.
    Effect{"Check2", kAnyState, Act::TurnOn, "Check3"},
    Effect{"Check3", kOff, Act::TurnOff, "Check2"},
};

constexpr std::array kRules = {
    CheckRule{"GivesValue"},
    CheckRule{"GivesTarget"},
    CheckRule{"MaximumGives", kInvalidEntry, kEveryMode, stateIs("Check2")},
};

constinit const WizardTable kGivesWizard = {
    .form = "frmGivesWizard",
    .title = "Gives() Wizard",
    .frames = kFrames,
    .controls = kControls,
    .effects = kEffects,
    .rules = kRules,
    .line = {.isBroken = false},
    .closesAfterDone = true,
};

std::string quoted(const std::string& text) {
    return '"' + text + '"';
}

}  // namespace

GivesWizard::GivesWizard(AreaLookup field) : Wizard(kGivesWizard, {.target = std::move(field)}) {}

std::string GivesWizard::text() const {
    const auto isOn = [this](std::string_view name) { return state.control(name).state == kOn; };
    const auto& value = state.text("GivesValue");
    std::string line;
    if (isOn("Option1")) line = isOn("Check1") ? "+" : "=";
    if (isOn("Option2")) line = isOn("Check1") ? "-" : "=-";
    line += isOn("Check1") ? value : quoted(value);
    if (isOn("Option4")) line += "pts";
    line += isOn("Check3") ? kTo : " ";
    line += quoted(state.text("GivesTarget"));
    if (isOn("Check2")) line.append(kUpto).append(state.text("MaximumGives"));
    return line;
}

std::unique_ptr<LineTarget> GivesWizard::target() const {
    return std::make_unique<FieldEnd>(opening().target, ", ");
}

}  // namespace klt
