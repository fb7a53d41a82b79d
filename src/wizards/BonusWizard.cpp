#include <array>

#include "platform/CommandKeys.h"
#include "wizards/CollectingWizard.h"
#include "wizards/ComboEntry.h"
#include "wizards/ControlRows.h"
#include "wizards/ItemTypes.h"
#include "wizards/TableCheck.h"
#include "wizards/Wizards.h"

namespace klt {
namespace {

constexpr ItemType kStatType{"Stat"};
constexpr std::array kHeadingTypes = {kAdvantageType, kDisadvantageType, kPowerType,
                                      kSkillType,     kSpellType,        kStatType};
constexpr std::array kTypes = {kAdvantageType,
                               kDisadvantageType,
                               kPowerType,
                               kQuirkType,
                               kSkillType,
                               kSpellType,
                               ItemType{"Group", "GR:"},
                               ItemType{"Class", "CL:"},
                               ItemType{"College", "CO:"},
                               kStatType};
constexpr auto kHeadingTypeNames = namesOf(kHeadingTypes);
constexpr auto kTypeNames = namesOf(kTypes);
constexpr std::array<std::string_view, 5> kEvaluations = {">=", ">", "=", "<", "<="};
constexpr std::array<std::string_view, 1> kSection = {"[BONUS]"};
constexpr std::string_view kNoNumber = "Must be a number!";

constexpr std::array kFrames = {
    FrameRow{"fraHeading", "Bonus Info (Required)"},
    FrameRow{"fraFullHeading", "Full Bonus Line"},
    FrameRow{"fraItem", "Item Info (Required)", "Item"},
    FrameRow{"fraBonus", "Bonus Info (Required)", "Item"},
    FrameRow{"fraFullItem", "Full Item Line", "Item"},
    FrameRow{"fraPreview", {}, "Preview"},
};

constexpr std::array kControls = {
    list("fraHeading", "BonusItemType", "Type:", kHeadingTypeNames),
    field("fraHeading", "BonusItemName", "Name:"),
    list("fraHeading", "Evaluation", "Evaluation:", kEvaluations),
    field("fraHeading", "Score", "Score:"),
    categoryCombo("fraFullHeading", "FullBonusLine"),
    ownButton("fraFullHeading", "Command6", "Preview"),
    list("fraItem", "ItemType", "Type:", kTypeNames),
    field("fraItem", "ItemName", "Name:"),
    option("fraBonus", "Bonus", "Bonus"),
    option("fraBonus", "Penalty", "Penalty"),
    field("fraBonus", "BonusAmount", "Level:"),
    lineField("fraFullItem", "FullItemLine", kSection),
    ownButton("fraFullItem", "Command1", "Preview Item"),
    ownButton("fraFullItem", "Command2", "Add to Group"),
    lineBox("fraPreview", "FullBonus", kSection),
    formButton("Command3", "&Done!", ButtonUse::Done),
    formButton("Command4", "&Cancel", ButtonUse::Cancel),
    formButton("Command5", "&Help", ButtonUse::Help),
};

constexpr std::array kEffects = {
    Effect{kAtLoad, kAnyState, Act::HideFrame, "fraHeading fraFullHeading", {}, kEdit},
    Effect{kAfterDone, kAnyState, Act::SetText, "BonusItemType Evaluation BonusItemName Score FullBonus"},
};

constexpr std::array kRules = {
    CheckRule{.control = "Bonus Penalty",
              .message = "MUST choose whether it is a bonus or a penalty!",
              .focus = "Bonus",
              .of = "Command1"},
    CheckRule{.control = "BonusAmount", .message = "MUST enter a value!", .of = "Command1"},
    CheckRule{.control = "ItemType", .message = "MUST select an Item Type!", .of = "Command1"},
    CheckRule{.control = "ItemName", .message = "MUST type a name!", .of = "Command1"},
    CheckRule{.control = "BonusItemType", .message = "MUST choose a type for the bonus!", .of = "Command6"},
    CheckRule{.control = "BonusItemName", .of = "Command6"},
    CheckRule{.control = "Evaluation", .of = "Command6"},
    CheckRule{.control = "Score", .of = "Command6"},
    CheckRule{.control = "FullBonusLine", .modes = kInsert},
    CheckRule{.control = "FullBonus", .message = "MUST create the bonus first!"},
};

constexpr std::array kPlaces = {PlaceRow{.section = "[Bonus]",
                                         .combo = "FullBonusLine",
                                         .step = ItemStep::BlockIntoBox,
                                         .box = "FullBonus",
                                         .isWholeHeading = true}};

constexpr std::array kTabs = {LineTab{.add = "Command2",
                                      .compose = "Command1",
                                      .full = "FullItemLine",
                                      .emptied = "ItemName BonusAmount",
                                      .turnedOff = "Bonus Penalty",
                                      .focus = "ItemName"}};

constexpr auto kHeadingType = controlIndex(kControls, "BonusItemType");
constexpr auto kHeadingName = controlIndex(kControls, "BonusItemName");
constexpr auto kEvaluation = controlIndex(kControls, "Evaluation");
constexpr auto kScore = controlIndex(kControls, "Score");
constexpr auto kFullHeading = controlIndex(kControls, "FullBonusLine");
constexpr auto kType = controlIndex(kControls, "ItemType");
constexpr auto kName = controlIndex(kControls, "ItemName");
constexpr auto kBonus = controlIndex(kControls, "Bonus");
constexpr auto kPenalty = controlIndex(kControls, "Penalty");
constexpr auto kAmount = controlIndex(kControls, "BonusAmount");
constexpr auto kFullItem = controlIndex(kControls, "FullItemLine");

/// What may become a number as one types on: a sign, digits, a point and digits.
bool startsNumber(std::string_view text) {
    if (text.starts_with('+') || text.starts_with('-')) text.remove_prefix(1);
    const auto point = text.find('.');
    if (point != text.npos && text.find('.', point + 1) != text.npos) return false;
    return std::ranges::all_of(text, [](char c) { return isDigit(c) || c == '.'; });
}

bool isNumberWhole(std::string_view text) {
    return startsNumber(text) && std::ranges::any_of(text, isDigit);
}

/// A condition, and the bonuses that hold under it.
class BonusWizard : public CollectingWizard {
public:
    using CollectingWizard::CollectingWizard;

    PressResult press(std::string_view button, const LineBreakLimits& limits) override {
        if (button != "Command6") return CollectingWizard::press(button, limits);
        if (const auto complaint = firstFailing(button)) return {{*complaint}};
        const auto type = static_cast<size_t>(state.control(kHeadingType).state);
        state.setText("FullBonusLine", std::string(kHeadingTypes[type].prefix) + state.text(kHeadingName) +
                                           state.text(kEvaluation) + state.text(kScore));
        CommitComboEntry(state.control(kFullHeading), EntryMatch::Whole);
        return {};
    }

    ChangeResult changed(std::string_view control) override {
        if (control != "BonusAmount" || startsNumber(state.text(kAmount))) return {};
        state.setText(control, "");
        return {true, Complaint{kNoNumber, control}};
    }

protected:
    std::optional<Complaint> composeLine(const LineTab& tab) override {
        const bool hasAmount = (state.isOn(kBonus) || state.isOn(kPenalty)) && !state.text(kAmount).empty();
        if (hasAmount && !isNumberWhole(state.text(kAmount))) return Complaint{kNoNumber, "BonusAmount"};
        return CollectingWizard::composeLine(tab);
    }

    /// What was previewed before, or typed, passes where the fields make up no line.
    PressResult add(const LineTab& tab, const LineBreakLimits&) override {
        PressResult result;
        const auto complaint = composeLine(tab);
        const std::string line = state.text(kFullItem);
        if (!line.empty()) result = append(tab, line);
        if (complaint) result.complaints.push_back(*complaint);
        if (line.empty()) result.complaints.push_back({"MUST create the item first!", "FullItemLine"});
        return result;
    }

    std::string compose(const LineTab&) const override {
        const auto type = static_cast<size_t>(state.control(kType).state);
        return (state.isOn(kBonus) ? "+" : "-") + state.text(kAmount) + ' ' +
               std::string(kTypes[type].prefix) + state.text(kName);
    }

    const LineTab* loadLine(std::string_view line) override {
        line = trimBlanks(line);
        const auto blank = line.find(' ');
        if (blank == line.npos || (line[0] != '+' && line[0] != '-')) return nullptr;
        click(line[0] == '+' ? "Bonus" : "Penalty", kOn);
        state.setText("BonusAmount", line.substr(1, blank - 1));
        line.remove_prefix(blank + 1);
        const int type = typeOf(kTypes, line);
        click("ItemType", type < 0 ? static_cast<int>(kTypes.size()) - 1 : type);
        state.setText("ItemName",
                      type < 0 ? line : line.substr(kTypes[static_cast<size_t>(type)].prefix.size()));
        return kTabs.data();
    }
};

}  // namespace

constinit const WizardTable kBonusWizard = checked({
    .form = "frmBonusWizard",
    .title = "Bonus Wizard",
    .command = commands::kBonusWizard,
    .frames = kFrames,
    .controls = kControls,
    .effects = kEffects,
    .rules = kRules,
    .places = kPlaces,
    .box = "FullBonus",
    .tabs = kTabs,
    .make = makeAs<BonusWizard>,
});

}  // namespace klt
