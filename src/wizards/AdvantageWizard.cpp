#include <array>

#include "platform/CommandKeys.h"
#include "wizards/ControlRows.h"
#include "wizards/TableCheck.h"
#include "wizards/Wizards.h"

namespace klt {
namespace {

constexpr std::array kFrames = {
    FrameRow{"fraName", "Item Name (Required)"},
    FrameRow{"fraCost", "Item Cost (Required)"},
    FrameRow{"fraType", "Item Type (Required)"},
    FrameRow{"fraCategory", "Category (Required)"},
    FrameRow{"fraGives", "Item Bonuses"},
    FrameRow{"fraMods", "Item Modifiers"},
    FrameRow{"fraNeeds", "Item Needs"},
    FrameRow{"fraNotes", "Item Notes"},
    FrameRow{"fraPage", "Item Page"},
    FrameRow{"fraUpto", "Item Limits"},
    FrameRow{"fraCat", "Alternate Item Categories"},
};

constexpr std::array kControls = {
    field("fraName", "rtbItemName", "Name:", "name("),
    field("fraCost", "rtbItemCost", "Cost:", "cost("),
    option("fraType", "optAdType", "Advantage"),
    option("fraType", "optDisadType", "Disadvantage"),
    option("fraType", "optPoType", "Power"),
    option("fraType", "optQuirkType", "Quirk"),
    categoryCombo("fraCategory", "cmbAdCat"),
    categoryCombo("fraCategory", "cmbDisadCat"),
    categoryCombo("fraCategory", "cmbPoCat"),
    categoryCombo("fraCategory", "cmbQuirkCat"),
    tagField("fraGives", "rtbItemGives", "gives("),
    givesButton("fraGives", "cmdGivesWizard", "rtbItemGives"),
    tagField("fraMods", "rtbItemMods", "mods("),
    tagField("fraNeeds", "rtbItemNeeds", "needs("),
    aidButton("fraNeeds", "cmdNeeds", "Needs", "rtbItemNeeds"),
    tagField("fraNotes", "rtbItemNotes", "notes("),
    tagField("fraPage", "rtbItemPage", "page("),
    tagField("fraUpto", "rtbItemUpto", "upto("),
    aidButton("fraUpto", "cmdUpto", "Upto", "rtbItemUpto"),
    tagField("fraCat", "rtbItemCat", "cat("),
    formButton("cmdOK", "&Done!", ButtonUse::Done),
    formButton("cmdCancel", "&Cancel", ButtonUse::Cancel),
    formButton("cmdHelp", "&Help", ButtonUse::Help),
};

constexpr Names kEveryType = "optAdType optDisadType optPoType optQuirkType";
constexpr Names kCostedTypes = "optAdType optDisadType optPoType";
constexpr Names kQuirk = "optQuirkType";
constexpr Names kCombos = "cmbAdCat cmbDisadCat cmbPoCat cmbQuirkCat";
// What a quirk has none of.
constexpr Names kCostedFields = "rtbItemCost rtbItemGives rtbItemMods rtbItemUpto";
constexpr Names kCostedButtons = "cmdGivesWizard cmdUpto";
constexpr std::string_view kQuirkCost = "-1";

constexpr std::array kEffects = {
    Effect{kAtLoad, kAnyState, Act::HideFrame, "fraType", {}, kEdit | kPackage},
    Effect{kAtLoad, kAnyState, Act::HideFrame, "fraCategory"},
    Effect{kCostedTypes, kOn, Act::EmptyIf, "rtbItemCost", kQuirkCost},
    Effect{kQuirk, kOn, Act::SetText, "rtbItemCost", kQuirkCost},
    Effect{kCostedTypes, kOn, Act::Enable, kCostedFields},
    Effect{kQuirk, kOn, Act::Disable, kCostedFields},
    Effect{kEveryType, kOn, Act::ShowFrame, "fraCategory", {}, kInsert},
    Effect{kEveryType, kOn, Act::Hide, kCombos, {}, kInsert},
    Effect{"optAdType", kOn, Act::Show, "cmbAdCat", {}, kInsert},
    Effect{"optDisadType", kOn, Act::Show, "cmbDisadCat", {}, kInsert},
    Effect{"optPoType", kOn, Act::Show, "cmbPoCat", {}, kInsert},
    Effect{"optQuirkType", kOn, Act::Show, "cmbQuirkCat", {}, kInsert},
    Effect{kCostedTypes, kOn, Act::Enable, kCostedButtons, {}, kInsert},
    Effect{kQuirk, kOn, Act::Disable, kCostedButtons, {}, kInsert},
    Effect{kAfterDone, kAnyState, Act::SetText,
           "rtbItemName rtbItemGives rtbItemMods rtbItemNeeds rtbItemNotes rtbItemPage rtbItemUpto"},
    // A quirk's cost is kept for the next quirk.
    Effect{kAfterDone, kAnyState, Act::SetText, "rtbItemCost", {}, kEveryMode, stateIs(kQuirk, kOff)},
};

constexpr std::array kRules = {
    CheckRule{"rtbItemName"},
    CheckRule{"rtbItemCost"},
    CheckRule{kEveryType, "You MUST select an rtbItem Type!"},
    // An item that is edited keeps its place: its category, hidden then, need not be known.
    CheckRule{"cmbAdCat", kInvalidEntry, kInsert, stateIs("optAdType")},
    CheckRule{"cmbDisadCat", kInvalidEntry, kInsert, stateIs("optDisadType")},
    CheckRule{"cmbPoCat", kInvalidEntry, kInsert, stateIs("optPoType")},
    CheckRule{"cmbQuirkCat", kInvalidEntry, kInsert, stateIs("optQuirkType")},
};

constexpr std::array kPlaces = {
    PlaceRow{"optAdType", "[Ads]", "cmbAdCat"},
    PlaceRow{"optDisadType", "[Disads]", "cmbDisadCat"},
    PlaceRow{"optPoType", "[Powers]", "cmbPoCat"},
    PlaceRow{"optQuirkType", "[Quirks]", "cmbQuirkCat"},
};

constexpr std::array kTags = {
    TagRow{"gives(", "rtbItemGives"}, TagRow{"mods(", "rtbItemMods"}, TagRow{"needs(", "rtbItemNeeds"},
    TagRow{"notes(", "rtbItemNotes"}, TagRow{"page(", "rtbItemPage"}, TagRow{"upto(", "rtbItemUpto"},
    TagRow{"cat(", "rtbItemCat"},
};

}  // namespace

constinit const WizardTable kAdWizard = checked({
    .form = "frmAdWizard",
    .title = "Ad/Disad/Quirk/Power Wizard",
    .command = commands::kAdvantageWizard,
    .frames = kFrames,
    .controls = kControls,
    .effects = kEffects,
    .rules = kRules,
    .places = kPlaces,
    .line = {.heads = "rtbItemName rtbItemCost",
             .written = kTags,
             .loaded = kTags,
             .nameField = "rtbItemName",
             .secondField = "rtbItemCost"},
});

}  // namespace klt
