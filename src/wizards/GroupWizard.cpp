#include <array>

#include "platform/CommandKeys.h"
#include "wizards/CollectingWizard.h"
#include "wizards/ControlRows.h"
#include "wizards/ItemTypes.h"
#include "wizards/TableCheck.h"
#include "wizards/Wizards.h"

namespace klt {
namespace {

constexpr std::array kTypes = {kAdvantageType, kDisadvantageType, kPowerType,
                               kQuirkType,     kSkillType,        kSpellType};
constexpr auto kTypeNames = namesOf(kTypes);
// Lines of groups have the form of those of bonuses.
constexpr std::array<std::string_view, 1> kLineSection = {"[BONUS]"};

constexpr std::array kFrames = {
    FrameRow{"fraGroup", "Group Name (Required)"},
    FrameRow{"fraItem", "Item Info (Required)", "Item"},
    FrameRow{"fraPreview", {}, "Preview"},
};

constexpr std::array kControls = {
    categoryCombo("fraGroup", "GroupName"),
    list("fraItem", "ItemType", "Type:", kTypeNames),
    field("fraItem", "ItemName", "Name:"),
    ownButton("fraItem", "Command2", "Add to Group"),
    atFocus(lineBox("fraPreview", "FullGroup", kLineSection)),
    formButton("Command3", "&Done!", ButtonUse::Done),
    formButton("Command4", "&Cancel", ButtonUse::Cancel),
    formButton("Command5", "&Help", ButtonUse::Help),
};

constexpr std::array kEffects = {
    Effect{kAtLoad, kAnyState, Act::HideFrame, "fraGroup", {}, kEdit},
    Effect{kAfterDone, kAnyState, Act::SetText, "FullGroup"},
};

constexpr std::array kRules = {
    CheckRule{.control = "ItemType", .of = "Command2"},
    CheckRule{.control = "ItemName", .message = "MUST type a name!", .of = "Command2"},
    CheckRule{.control = "GroupName", .modes = kInsert},
    CheckRule{.control = "FullGroup", .message = "MUST create the group first!"},
};

constexpr std::array kPlaces = {PlaceRow{
    .section = "[Groups]", .combo = "GroupName", .step = ItemStep::BlockIntoBox, .box = "FullGroup"}};

constexpr std::array kTabs = {LineTab{.add = "Command2", .emptied = "ItemName", .focus = "ItemName"}};

constexpr auto kType = controlIndex(kControls, "ItemType");
constexpr auto kName = controlIndex(kControls, "ItemName");

/// The members of one group.
class GroupWizard : public CollectingWizard {
public:
    using CollectingWizard::CollectingWizard;

protected:
    std::string compose(const LineTab&) const override {
        const auto type = static_cast<size_t>(state.control(kType).state);
        return std::string(kTypes[type].prefix) + state.text(kName);
    }

    const LineTab* loadLine(std::string_view line) override {
        const auto colon = line.find(':');
        const bool isComment = trimBlanks(line).starts_with('*') || trimBlanks(line).starts_with("//");
        if (isComment || colon == line.npos) return nullptr;
        const int type = typeOf(kTypes, line, 2);
        if (type >= 0) click("ItemType", type);
        state.setText("ItemName", line.substr(colon + 1));
        return kTabs.data();
    }
};

}  // namespace

constinit const WizardTable kGroupWizard = checked({
    .form = "frmGroupWizard",
    .title = "Group Wizard",
    .command = commands::kGroupWizard,
    .frames = kFrames,
    .controls = kControls,
    .effects = kEffects,
    .rules = kRules,
    .places = kPlaces,
    .box = "FullGroup",
    .tabs = kTabs,
    .make = makeAs<GroupWizard>,
});

}  // namespace klt
