#include "wizards/FunctionWizard.h"

#include <array>

#include "language/Functions.h"
#include "wizards/ControlRows.h"

namespace klt {
namespace {

constexpr size_t kArguments = 3;
constexpr std::array<std::string_view, kArguments> kFields = {"Text(0)", "Text(1)", "Text(2)"};
constexpr std::array<std::string_view, kArguments> kButtons = {"Command3(0)", "Command3(1)", "Command3(2)"};

/// What the arguments of an @function are called, in the order of the list; an empty name is none.
constexpr std::array<std::array<std::string_view, kArguments>, kFunctionNames.words().size()> kLabels = {{
    {"Number:"},                      // @FAC
    {"Number:"},                      // @FIX
    {"IF", "THEN", "ELSE"},           // @IF
    {"Number:"},                      // @INT
    {"Base:", "Number:"},             // @LOG
    {"First Item:", "Second Item:"},  // @MAX
    {"First Item:", "Second Item:"},  // @MIN
    {"Number:"},                      // @NLOG
    {"Base:", "Power:"},              // @POWER
    {"Number:"},                      // @SQR
}};

/// The names without the parenthesis.
constexpr auto kItems = [] {
    std::array<std::string_view, kFunctionNames.words().size()> items{};
    for (size_t i = 0; i < items.size(); ++i) {
        items[i] = kFunctionNames.words()[i];
        items[i].remove_suffix(1);
    }
    return items;
}();

constexpr std::array kFrames = {FrameRow{"fraFunction", "@Function"}};

constexpr std::array kControls = {
    ControlRow{.frame = "fraFunction", .name = "Combo1", .kind = ControlKind::FixedCombo, .items = kItems},
    field("fraFunction", kFields[0], ""),
    aidButton("fraFunction", kButtons[0], "Functions", kFields[0]),
    field("fraFunction", kFields[1], ""),
    aidButton("fraFunction", kButtons[1], "Functions", kFields[1]),
    field("fraFunction", kFields[2], ""),
    aidButton("fraFunction", kButtons[2], "Functions", kFields[2]),
    formButton("Command1", "&Done!", ButtonUse::Done),
    formButton("Command2", "&Cancel", ButtonUse::Cancel),
    formButton("Command4", "&Help", ButtonUse::Help),
};

constexpr std::array kEffects = {
    Effect{kAtLoad, kAnyState, Act::Disable, "Text(0) Text(1) Text(2) Command3(0) Command3(1) Command3(2)"},
};

constexpr std::array kRules = {
    CheckRule{"Text(0)"},
    CheckRule{"Text(1)", kInvalidEntry, kEveryMode, isEnabled("Text(1)")},
    CheckRule{"Text(2)", kInvalidEntry, kEveryMode, isEnabled("Text(2)")},
};

constinit const WizardTable kFunctionsWizard = {
    .form = "frmFunctionsWizard",
    .title = "@Functions Wizard",
    .frames = kFrames,
    .controls = kControls,
    .effects = kEffects,
    .rules = kRules,
    .line = {.isBroken = false},
    .closesAfterDone = true,
};

}  // namespace

FunctionWizard::FunctionWizard(AreaLookup field, int level)
    : Wizard(kFunctionsWizard, {.target = std::move(field)}), level_(level) {}

void FunctionWizard::click(std::string_view control, int newState) {
    Wizard::click(control, newState);
    if (control != "Combo1" || newState < 0) return;
    const auto& labels = kLabels[static_cast<size_t>(newState)];
    for (size_t i = 0; i < kArguments; ++i) {
        ControlState& argument = state.control(kFields[i]);
        argument.label = labels[i];
        argument.isEnabled = !labels[i].empty();
        state.control(kButtons[i]).isEnabled = argument.isEnabled;
    }
}

std::optional<Complaint> FunctionWizard::check() const {
    if (state.control("Combo1").state < 0) return Complaint{"Invalid @Function!", "Combo1"};
    return Wizard::check();
}

std::string FunctionWizard::text() const {
    const bool hasSecond = state.control(kFields[1]).isEnabled;
    const bool hasThird = state.control(kFields[2]).isEnabled;
    std::string line = state.text("Combo1") + '(' + state.text(kFields[0]);
    if (hasSecond) line.append(hasThird ? " THEN " : ", ").append(state.text(kFields[1]));
    if (hasThird) line.append(" ELSE ").append(state.text(kFields[2]));
    return line + ')';
}

std::unique_ptr<LineTarget> FunctionWizard::target() const {
    return std::make_unique<FieldEnd>(opening().target, ", ");
}

}  // namespace klt
