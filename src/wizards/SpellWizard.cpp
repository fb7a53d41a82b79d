#include <array>

#include "language/Vocabulary.h"
#include "platform/CommandKeys.h"
#include "wizards/ControlRows.h"
#include "wizards/TableCheck.h"
#include "wizards/Wizards.h"

namespace klt {
namespace {

constexpr std::array kFrames = {
    FrameRow{"fraName", "Spell Name (Required)"},
    FrameRow{"fraCollege", "College (Required)"},
    FrameRow{"fraType", "Spell Type"},
    FrameRow{"fraDuration", "Spell's Duration"},
    FrameRow{"fraCastingCost", "Spell's Casting Cost"},
    FrameRow{"fraPrereqs", "Spell's Prereqs"},
    FrameRow{"fraNotes", "Spell's Notes"},
    FrameRow{"fraPage", "Spell's Page"},
    FrameRow{"fraTime", "Spell's Casting Time"},
    FrameRow{"fraUpto", "Spell Upto"},
    FrameRow{"fraCat", "Alternate Item Categories"},
};

constexpr std::array kControls = {
    field("fraName", "SpellName", "Name:", "name("),
    categoryCombo("fraCollege", "SpellCollege"),
    combo("fraType", "SpellType", ControlKind::FixedCombo, "type(", kSkillTypes.words()),
    tagField("fraDuration", "SpellDuration", "duration("),
    tagField("fraCastingCost", "CastingCost", "castingcost("),
    tagField("fraPrereqs", "SpellPrereq", "needs("),
    aidButton("fraPrereqs", "Command2", "Needs", "SpellPrereq"),
    tagField("fraNotes", "SpellNotes", "notes("),
    tagField("fraPage", "SpellPage", "page("),
    tagField("fraTime", "SpellTime", "time("),
    tagField("fraUpto", "ItemUpto", "upto("),
    aidButton("fraUpto", "Command7", "Upto", "ItemUpto"),
    tagField("fraCat", "ItemCat", "cat("),
    formButton("Command4", "&Done!", ButtonUse::Done),
    formButton("Command5", "&Cancel", ButtonUse::Cancel),
    formButton("Command6", "&Help", ButtonUse::Help),
};

constexpr std::array kEffects = {
    Effect{kAtLoad, kAnyState, Act::HideFrame, "fraCollege", {}, kEdit | kPackage},
    // The older host knows no "upto(" of spells.
    Effect{kAtLoad, kAnyState, Act::DisableFrame, "fraUpto", {}, kInsert | kEdit, isHostOld()},
    Effect{
        kAfterDone, kAnyState, Act::SetText,
        "SpellName SpellType SpellDuration CastingCost SpellPrereq SpellNotes SpellPage SpellTime ItemUpto"},
};

constexpr std::array kRules = {
    CheckRule{"SpellName"},
    CheckRule{"SpellCollege", kInvalidEntry, kInsert},
};

constexpr std::array kPlaces = {PlaceRow{.section = "[Spells]", .combo = "SpellCollege"}};

constexpr std::array kWritten = {
    TagRow{"type(", "SpellType"},
    TagRow{"duration(", "SpellDuration"},
    TagRow{"castingcost(", "CastingCost"},
    TagRow{"needs(", "SpellPrereq"},
    TagRow{"notes(", "SpellNotes"},
    TagRow{"page(", "SpellPage"},
    TagRow{"time(", "SpellTime"},
    TagRow{"upto(", "ItemUpto"},
    TagRow{"cat(", "ItemCat"},
};

// A limit stays in the tag in front of it.
constexpr std::array kLoaded = {
    TagRow{"castingcost(", "CastingCost"}, TagRow{"duration(", "SpellDuration"},
    TagRow{"needs(", "SpellPrereq"},       TagRow{"notes(", "SpellNotes"},
    TagRow{"page(", "SpellPage"},          TagRow{"time(", "SpellTime"},
    TagRow{"type(", "SpellType"},          TagRow{"cat(", "ItemCat"},
};

}  // namespace

constinit const WizardTable kSpellWizard = checked({
    .form = "frmSpellWizard",
    .title = "Spell Wizard",
    .command = commands::kSpellWizard,
    .frames = kFrames,
    .controls = kControls,
    .effects = kEffects,
    .rules = kRules,
    .places = kPlaces,
    .line = {.heads = "SpellName", .written = kWritten, .loaded = kLoaded, .nameField = "SpellName"},
});

}  // namespace klt
