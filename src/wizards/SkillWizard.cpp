#include <array>

#include "language/Vocabulary.h"
#include "platform/CommandKeys.h"
#include "wizards/ControlRows.h"
#include "wizards/StatNames.h"
#include "wizards/TableCheck.h"
#include "wizards/Wizards.h"

namespace klt {
namespace {

constexpr std::string_view kDefault = "Skill Default";
constexpr std::string_view kDefaultRequired = "Skill Default (Required)";

constexpr std::array kFrames = {
    FrameRow{"fraName", "Skill Name (Required)"},
    FrameRow{"fraType", "Skill Type (Required)"},
    FrameRow{"fraClass", "Class (Required)"},
    FrameRow{"fraDefault", kDefault},
    FrameRow{"fraGives", "Skill Gives"},
    FrameRow{"fraMods", "Skill Mods"},
    FrameRow{"fraNeeds", "Skill Needs"},
    FrameRow{"fraNotes", "Skill Notes"},
    FrameRow{"fraPage", "Skill Page"},
    FrameRow{"fraStat", "Skill Base Stat"},
    FrameRow{"fraUpto", "Skill Upto"},
    FrameRow{"fraCat", "Alternate Item Categories"},
};

constexpr std::array kControls = {
    field("fraName", "rtbItemName", "Name:", "name("),
    combo("fraType", "cmbItemType", ControlKind::FixedCombo, "Type:", kSkillTypes.words()),
    categoryCombo("fraClass", "cmbItemClass"),
    tagField("fraDefault", "rtbItemDefault", "default("),
    aidButton("fraDefault", "cmdDefault", "Default", "rtbItemDefault"),
    tagField("fraGives", "rtbItemGives", "gives("),
    givesButton("fraGives", "cmdGivesWizard", "rtbItemGives"),
    tagField("fraMods", "rtbItemMods", "mods("),
    tagField("fraNeeds", "rtbItemNeeds", "needs("),
    aidButton("fraNeeds", "cmdNeeds", "Needs", "rtbItemNeeds"),
    tagField("fraNotes", "rtbItemNotes", "notes("),
    tagField("fraPage", "rtbItemPage", "page("),
    combo("fraStat", "cmbItemStat", ControlKind::AutoCombo, "stat(", kStatNames),
    tagField("fraUpto", "rtbItemUpto", "upto("),
    aidButton("fraUpto", "cmdUpto", "Upto", "rtbItemUpto"),
    tagField("fraCat", "rtbItemCat", "cat("),
    formButton("cmdOK", "&Done!", ButtonUse::Done),
    formButton("cmdCancel", "&Cancel", ButtonUse::Cancel),
    formButton("cmdHelp", "&Help", ButtonUse::Help),
};

constexpr Effect requiresDefault(std::string_view type) {
    return {"cmbItemType", kSkillTypes.find(type), Act::SetCaption, "fraDefault", kDefaultRequired};
}

constexpr std::array kEffects = {
    Effect{kAtLoad, kAnyState, Act::HideFrame, "fraClass", {}, kEdit | kPackage},
    Effect{"cmbItemType", kAnyState, Act::SetCaption, "fraDefault", kDefault},
    requiresDefault("MA/A"),
    requiresDefault("MA/H"),
    requiresDefault("MA/VH"),
    Effect{kAfterDone, kAnyState, Act::SetText,
           "rtbItemName cmbItemType cmbItemStat rtbItemDefault rtbItemGives rtbItemMods rtbItemNeeds "
           "rtbItemNotes rtbItemPage rtbItemUpto"},
    // No type is chosen then.
    Effect{kAfterDone, kAnyState, Act::SetCaption, "fraDefault", kDefault},
};

constexpr std::array kRules = {
    CheckRule{"rtbItemName"},
    CheckRule{"cmbItemType"},
    CheckRule{"rtbItemDefault", kInvalidEntry, kEveryMode, isCaption("fraDefault", kDefaultRequired)},
    CheckRule{"cmbItemClass", kInvalidEntry, kInsert},
};

constexpr std::array kPlaces = {PlaceRow{.section = "[Skills]", .combo = "cmbItemClass"}};

constexpr std::array kTags = {
    TagRow{"default(", "rtbItemDefault"}, TagRow{"gives(", "rtbItemGives"}, TagRow{"mods(", "rtbItemMods"},
    TagRow{"needs(", "rtbItemNeeds"},     TagRow{"notes(", "rtbItemNotes"}, TagRow{"page(", "rtbItemPage"},
    TagRow{"stat(", "cmbItemStat"},       TagRow{"upto(", "rtbItemUpto"},   TagRow{"cat(", "rtbItemCat"},
};

}  // namespace

constinit const WizardTable kSkillWizard = checked({
    .form = "frmSkillWizard",
    .title = "Skill Wizard",
    .command = commands::kSkillWizard,
    .frames = kFrames,
    .controls = kControls,
    .effects = kEffects,
    .rules = kRules,
    .places = kPlaces,
    .line = {.heads = "rtbItemName cmbItemType",
             .written = kTags,
             .loaded = kTags,
             .nameField = "rtbItemName",
             .secondField = "cmbItemType"},
});

}  // namespace klt
