#include <array>

#include "language/Functions.h"
#include "wizards/ControlRows.h"
#include "wizards/TableCheck.h"
#include "wizards/Wizard.h"
#include "wizards/Wizards.h"

namespace klt {
namespace {

constexpr size_t kArguments = 3;
constexpr std::array<std::string_view, kArguments> kFields = {"Text(0)", "Text(1)", "Text(2)"};
constexpr std::array<std::string_view, kArguments> kButtons = {"Command3(0)", "Command3(1)", "Command3(2)"};

constexpr ControlRow argument(size_t place, std::string_view labelName) {
    return {.frame = "fraFunction", .name = kFields[place], .labelName = labelName};
}

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
    ControlRow{.frame = "fraFunction", .name = "Combo1", .kind = ControlKind::List, .items = kItems},
    argument(0, "Label1"),
    aidButton("fraFunction", kButtons[0], "Functions", kFields[0]),
    argument(1, "Label2"),
    aidButton("fraFunction", kButtons[1], "Functions", kFields[1]),
    argument(2, "Label3"),
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

constexpr auto kFunction = controlIndex(kControls, "Combo1");
constexpr std::array kArgumentFields = {controlIndex(kControls, kFields[0]),
                                        controlIndex(kControls, kFields[1]),
                                        controlIndex(kControls, kFields[2])};
constexpr std::array kArgumentButtons = {controlIndex(kControls, kButtons[0]),
                                         controlIndex(kControls, kButtons[1]),
                                         controlIndex(kControls, kButtons[2])};

/// One call of an @function, put behind what a field holds. An argument may be made by another one.
class FunctionWizard : public Wizard {
public:
    using Wizard::Wizard;

    void click(std::string_view control, int newState) override {
        Wizard::click(control, newState);
        const int function = state.control(kFunction).state;
        if (function >= 0) showArguments(kLabels[static_cast<size_t>(function)]);
    }

    std::optional<Complaint> check() const override {
        if (state.control(kFunction).state < 0) return Complaint{"Invalid @Function!", "Combo1"};
        return Wizard::check();
    }

    std::string text() const override {
        const bool hasSecond = state.control(kArgumentFields[1]).isEnabled;
        const bool hasThird = state.control(kArgumentFields[2]).isEnabled;
        std::string line = state.text(kFunction) + '(' + state.text(kArgumentFields[0]);
        if (hasSecond) line.append(hasThird ? " THEN " : ", ").append(state.text(kArgumentFields[1]));
        if (hasThird) line.append(" ELSE ").append(state.text(kArgumentFields[2]));
        return line + ')';
    }

protected:
    std::unique_ptr<LineTarget> target() const override {
        return std::make_unique<FieldEnd>(opening().target, ", ");
    }

private:
    void showArguments(const std::array<std::string_view, kArguments>& labels) {
        for (size_t i = 0; i < kArguments; ++i) {
            ControlState& argument = state.control(kArgumentFields[i]);
            argument.label = labels[i];
            argument.isEnabled = !labels[i].empty();
            state.control(kArgumentButtons[i]).isEnabled = argument.isEnabled;
        }
    }
};

}  // namespace

constinit const WizardTable kFunctionsWizard = checked({
    .form = "frmFunctionsWizard",
    .title = "@Functions Wizard",
    .frames = kFrames,
    .controls = kControls,
    .effects = kEffects,
    .rules = kRules,
    .line = {.isBroken = false},
    .closesAfterDone = true,
    .make = makeAs<FunctionWizard>,
});

}  // namespace klt
