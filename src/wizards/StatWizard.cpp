#include <array>

#include "platform/CommandKeys.h"
#include "wizards/ControlRows.h"
#include "wizards/StatNames.h"
#include "wizards/TableCheck.h"
#include "wizards/Wizards.h"

namespace klt {
namespace {

constexpr std::array kFrames = {
    FrameRow{"fraName", "Stat Name (Required)"},
    FrameRow{"fraBaseValue", "Stat's Base Value"},
    FrameRow{"fraStep", "Step"},
    FrameRow{"fraMaxScore", "Stat's Maximum Score"},
    FrameRow{"fraMinScore", "Stat's Minimum Score"},
    FrameRow{"fraUpCost", "Stat's Increasing Cost"},
    FrameRow{"fraDownCost", "Stat's Decreasing Cost"},
    FrameRow{"fraSymbol", "Stat's Symbol"},
    FrameRow{"fraMisc", "Miscellaneous Stat Info"},
};

constexpr std::array kControls = {
    pairing(combo("fraName", "StatName", ControlKind::AutoCombo, "Name:", kStatNames)),
    tagField("fraBaseValue", "StatBaseValue", "basevalue("),
    tagField("fraStep", "StatStep", "step("),
    tagField("fraMaxScore", "StatMaxScore", "maxscore("),
    tagField("fraMinScore", "StatMinScore", "minscore("),
    tagField("fraUpCost", "StatUpCost", "up("),
    tagField("fraDownCost", "StatDownCost", "down("),
    tagField("fraSymbol", "StatSymbol", "symbol("),
    check("fraMisc", "DoubleInPlay", "The Stat's cost doubles in play"),
    check("fraMisc", "DisplayStat", "Display Stat"),
    option("fraMisc", "StatRoundUp", "Round Stat Up"),
    option("fraMisc", "StatRoundDown", "Round Stat Down"),
    option("fraMisc", "StatRoundNo", "Don't Round Stat"),
    formButton("Command1", "&Done!", ButtonUse::Done),
    formButton("Command2", "&Cancel", ButtonUse::Cancel),
    formButton("Command3", "&Help", ButtonUse::Help),
};

// The defaults, which a line leaves out.
constexpr Names kDefaults = "DoubleInPlay DisplayStat StatRoundDown";

constexpr std::array kEffects = {
    Effect{kAtLoad, kAnyState, Act::TurnOn, kDefaults},
    Effect{kAfterDone, kAnyState, Act::SetText,
           "StatName StatBaseValue StatStep StatMaxScore StatMinScore StatUpCost StatDownCost StatSymbol"},
    Effect{kAfterDone, kAnyState, Act::TurnOn, kDefaults},
};

constexpr std::array kRules = {CheckRule{"StatName", "MUST enter a name!"}};

constexpr std::array kPlaces = {PlaceRow{.section = "[Stats]"}};

constexpr std::array kDoubles = {Choice{"No", "DoubleInPlay", kOff}, Choice{"", "DoubleInPlay", kOn, "Yes"}};
constexpr std::array kDisplayed = {Choice{"No", "DisplayStat", kOff}, Choice{"", "DisplayStat", kOn, "Yes"}};
constexpr std::array kRounded = {Choice{"Up", "StatRoundUp"}, Choice{"No", "StatRoundNo"},
                                 Choice{"", "StatRoundDown", kOn, "Down"}};

constexpr std::array kTags = {
    TagRow{"basevalue(", "StatBaseValue"}, TagRow{"step(", "StatStep"},
    TagRow{"maxscore(", "StatMaxScore"},   TagRow{"minscore(", "StatMinScore"},
    TagRow{"up(", "StatUpCost"},           TagRow{"down(", "StatDownCost"},
    TagRow{"symbol(", "StatSymbol"},       TagRow{"doubleinplay(", {}, kDoubles},
    TagRow{"display(", {}, kDisplayed},    TagRow{"round(", {}, kRounded},
};

}  // namespace

constinit const WizardTable kStatWizard = checked({
    .form = "frmStatWizard",
    .title = "Stat Wizard",
    .command = commands::kStatWizard,
    .frames = kFrames,
    .controls = kControls,
    .effects = kEffects,
    .rules = kRules,
    .places = kPlaces,
    .line = {.heads = "StatName", .written = kTags, .loaded = kTags, .nameField = "StatName"},
});

}  // namespace klt
