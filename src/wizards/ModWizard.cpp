#include <array>

#include "platform/CommandKeys.h"
#include "wizards/ControlRows.h"
#include "wizards/TableCheck.h"
#include "wizards/Wizard.h"
#include "wizards/Wizards.h"

namespace klt {
namespace {

constexpr std::array kFrames = {
    FrameRow{"fraGroup", "Mod Group (Required)"},
    FrameRow{"fraInfo", "Mod Info (Required)"},
    FrameRow{"fraUpto", "Upto"},
    FrameRow{"fraRound", "Round"},
    FrameRow{"fraGives", "Bonuses"},
};

constexpr std::array kControls = {
    categoryCombo("fraGroup", "ModGroup"),
    field("fraInfo", "ModName", "Name:", "name("),
    field("fraInfo", "ModValue", "Value:", "value("),
    field("fraUpto", "ItemUpto", "", "upto("),
    aidButton("fraUpto", "Command4", "Upto", "ItemUpto"),
    option("fraRound", "RoundUp", "Up"),
    option("fraRound", "RoundDown", "Down"),
    field("fraGives", "ItemGives", "", "gives("),
    givesButton("fraGives", "Command5", "ItemGives"),
    formButton("Command1", "&Done!", ButtonUse::Done),
    formButton("Command2", "&Cancel", ButtonUse::Cancel),
    formButton("Command3", "&Help", ButtonUse::Help),
};

constexpr std::array kEffects = {
    Effect{kAtLoad, kAnyState, Act::HideFrame, "fraGroup", {}, kEdit | kPackage},
    Effect{kAtLoad, kAnyState, Act::TurnOn, "RoundDown"},
    Effect{kAfterDone, kAnyState, Act::SetText, "ModName ModValue ItemUpto ItemGives"},
    Effect{kAfterDone, kAnyState, Act::TurnOn, "RoundDown"},
};

constexpr std::array kRules = {
    CheckRule{"ModGroup", kInvalidEntry, kEveryMode, isFrameShown("fraGroup")},
    CheckRule{"ModName"},
    CheckRule{"ModValue"},
};

constexpr std::array kPlaces = {PlaceRow{.section = "[Mods]", .combo = "ModGroup"}};

constexpr std::array kRounded = {Choice{"Up", "RoundUp"}, Choice{"", "RoundDown", kOn, "Down"}};

constexpr std::array kTags = {
    TagRow{"upto(", "ItemUpto"},
    TagRow{"round(", {}, kRounded},
    TagRow{"gives(", "ItemGives"},
};

/// A package's field of modifiers holds several of them.
class ModWizard : public Wizard {
public:
    using Wizard::Wizard;

protected:
    std::unique_ptr<LineTarget> target() const override {
        if (opening().mode != OpeningMode::Package) return Wizard::target();
        return std::make_unique<FieldEnd>(opening().target, " .AND. ");
    }
};

}  // namespace

constinit const WizardTable kModWizard = checked({
    .form = "frmModWizard",
    .title = "Mod Wizard",
    .command = commands::kModWizard,
    .frames = kFrames,
    .controls = kControls,
    .effects = kEffects,
    .rules = kRules,
    .places = kPlaces,
    .line = {.heads = "ModName ModValue",
             .written = kTags,
             .loaded = kTags,
             .nameField = "ModName",
             .secondField = "ModValue",
             .isBroken = false},
    .make = makeAs<ModWizard>,
});

}  // namespace klt
