#pragma once

#include <array>

#include "wizards/ControlRows.h"
#include "wizards/ItemTypes.h"

// The rows of the Package wizard's table.
namespace klt::package {

inline constexpr std::array kAddTypes = {kAdvantageType,
                                         kDisadvantageType,
                                         kPowerType,
                                         kQuirkType,
                                         kSkillType,
                                         kSpellType,
                                         ItemType{"Another Package", "PA:"},
                                         ItemType{"Attribute Adjust"},
                                         ItemType{"Attribute Increase"}};
inline constexpr std::array kCreateTypes = {
    kAdvantageType, kDisadvantageType,      kPowerType, kQuirkType, kSkillType,
    kSpellType,     ItemType{"Stat", "ST:"}};
inline constexpr auto kAddTypeNames = namesOf(kAddTypes);
inline constexpr auto kCreateTypeNames = namesOf(kCreateTypes);
inline constexpr int kAdjust = 7, kIncrease = 8, kStat = 6;
// Of both lists.
inline constexpr States kCosted{0, 1, 2}, kLevelled{4, 5};

inline constexpr std::array<std::string_view, 1> kPackages = {"[PACKAGES]"};
/// As whose lines the created items are coloured, in the order of their types.
inline constexpr std::array<std::string_view, 7> kItemSections = {
    "[ADS]", "[DISADS]", "[POWERS]", "[QUIRKS]", "[SKILLS]", "[SPELLS]", "[STATS]"};

inline constexpr std::string_view kAdd = "Add", kCreate = "Create", kMessage = "Message",
                                  kEMessage = "EMessage", kSetRace = "Set Race", kView = "View Package";
inline constexpr std::string_view kLevelMayBe = "Level (If Applicable)", kLevelRequired = "Level (Required)";

inline constexpr std::array kFrames = {
    FrameRow{"fraHeading", "Package Heading Info (Required)"},
    FrameRow{"fraAddType", "Item Type (Required)", kAdd},
    FrameRow{"Frame10", "Item Name (Required)", kAdd},
    FrameRow{"Frame15", kLevelMayBe, kAdd},
    FrameRow{"Frame14", "Attribute (Required)", kAdd},
    FrameRow{"Frame13", "Modifiers", kAdd},
    FrameRow{"fraFullItem", "Full Item Line", kAdd},
    FrameRow{"fraCreateType", "Item Type (Required)", kCreate},
    FrameRow{"Frame5", kLevelMayBe, kCreate},
    FrameRow{"Frame3", "Modifiers", kCreate},
    FrameRow{"fraCreated", "Created Item", kCreate},
    FrameRow{"fraFullCreate", "Full Line", kCreate},
    FrameRow{"fraMessage", {}, kMessage},
    FrameRow{"fraEMessage", {}, kEMessage},
    FrameRow{"fraRace", "Race Name (Required)", kSetRace},
    FrameRow{"fraFullRace", "Full Race Line", kSetRace},
    FrameRow{"fraView", {}, kView},
};

inline constexpr std::array kControls = {
    plainField("fraHeading", "PackName", "Name:"),
    plainField("fraHeading", "PackDescription", "Description:"),
    combo("fraHeading", "PackCat", ControlKind::CategoryCombo, "Category:", {}),

    list("fraAddType", "AddItemType", {}, kAddTypeNames),
    field("Frame10", "ItemName", {}),
    plainField("Frame15", "AddLevel", {}),
    check("Frame15", "Check1", "Add points instead of levels"),
    option("Frame14", "AtrST", "ST"),
    option("Frame14", "AtrDX", "DX"),
    option("Frame14", "AtrIQ", "IQ"),
    option("Frame14", "AtrHT", "HT"),
    field("Frame13", "AddMods(0)", {}),
    aidButton("Frame13", "Command5(0)", "PackMods", "AddMods(0)"),
    readOnly(lineField("fraFullItem", "FullItemLine", kPackages)),
    ownButton("fraFullItem", "Command7", "&Preview Item"),
    ownButton("fraFullItem", "Command9", "Add to Package"),

    list("fraCreateType", "CreateItemType", {}, kCreateTypeNames),
    plainField("Frame5", "CreateLevel", {}),
    check("Frame5", "Check2", "Add points instead of levels"),
    field("Frame3", "AddMods(1)", {}),
    aidButton("Frame3", "Command5(1)", "PackMods", "AddMods(1)"),
    chosenBy("CreateItemType", lineField("fraCreated", "RichTextBox1", kItemSections)),
    ownButton("fraCreated", "Command1", "E&dit Current"),
    ownButton("fraCreated", "Command6", "Create &New"),
    readOnly(lineField("fraFullCreate", "FullCreateItem", kPackages)),
    ownButton("fraFullCreate", "Command8", "&Preview Item"),
    ownButton("fraFullCreate", "Command10", "Add to Package"),

    plainField("fraMessage", "Message", "Message Text:"),
    labelled("Full Message Line:", lineField("fraMessage", "FullMessageLine", kPackages)),
    ownButton("fraMessage", "Command12", "Preview"),
    ownButton("fraMessage", "Command13", "Add to Package"),

    plainField("fraEMessage", "DialogCaption", "Dialog Caption"),
    labelled("Message Text:", lineBox("fraEMessage", "EMessage", {})),
    ownButton("fraEMessage", "Command15", "Preview"),
    labelled("Full Message Line:", readOnly(lineField("fraEMessage", "FullEMessage", kPackages))),
    ownButton("fraEMessage", "Command16", "Preview"),
    ownButton("fraEMessage", "Command14", "Add to Package"),

    plainField("fraRace", "RaceName", {}),
    lineField("fraFullRace", "FullRaceLine", kPackages),
    ownButton("fraFullRace", "Command11", "Add to Package"),

    lineBox("fraView", "FullPackage", kPackages),

    formButton("Command3", "&Done!", ButtonUse::Done),
    formButton("Command2", "&Cancel", ButtonUse::Cancel),
    formButton("Command4", "&Help", ButtonUse::Help),
};

constexpr Effect onAdd(States types, Act act, Names on, std::string_view text = {}) {
    return {"AddItemType", types, act, on, text};
}
constexpr Effect onCreate(States types, Act act, Names on, std::string_view text = {}) {
    return {"CreateItemType", types, act, on, text};
}

inline constexpr std::array kEffects = {
    Effect{kAtLoad, kAnyState, Act::Hide, "PackCat", {}, kEdit},
    Effect{kAtLoad, kAnyState, Act::HideFrame, "Frame14 Frame13 Frame3"},
    Effect{kAtLoad, kAnyState, Act::Hide, "Check1 Check2"},
    Effect{kAtLoad, kAnyState, Act::SetText, "FullItemLine", "ADD="},
    Effect{kAtLoad, kAnyState, Act::SetText, "FullCreateItem", "CREATE="},
    Effect{kAtLoad, kAnyState, Act::SetText, "FullMessageLine", "MESSAGE="},
    Effect{kAtLoad, kAnyState, Act::SetText, "FullEMessage", "EMESSAGE="},
    Effect{kAtLoad, kAnyState, Act::SetText, "FullRaceLine", "ADD=Race .AT. "},

    onAdd({0, 1, 2, 3, 4, 5, 6}, Act::ShowFrame, "Frame10"),
    onAdd({kAdjust, kIncrease}, Act::HideFrame, "Frame10"),
    onAdd({0, 1, 2, 4, 5, kAdjust, kIncrease}, Act::ShowFrame, "Frame15"),
    onAdd({3, 6}, Act::HideFrame, "Frame15"),
    onAdd({3, 6}, Act::SetText, "AddLevel"),
    onAdd(kCosted, Act::SetCaption, "Frame15", kLevelMayBe),
    onAdd({4, 5, kAdjust, kIncrease}, Act::SetCaption, "Frame15", kLevelRequired),
    onAdd({0, 1, 2, 3, 4, 5, 6}, Act::HideFrame, "Frame14"),
    onAdd({kAdjust, kIncrease}, Act::ShowFrame, "Frame14"),
    onAdd(kCosted, Act::ShowFrame, "Frame13"),
    onAdd({3, 4, 5, 6, kAdjust, kIncrease}, Act::HideFrame, "Frame13"),
    onAdd({3, 4, 5, 6, kAdjust, kIncrease}, Act::SetText, "AddMods(0)"),
    onAdd({0, 1, 2, 4, 5}, Act::Show, "Check1"),
    onAdd({3, 6, kAdjust, kIncrease}, Act::Hide, "Check1"),
    onAdd({3, 6, kAdjust, kIncrease}, Act::TurnOff, "Check1"),

    onCreate(kCosted, Act::ShowFrame, "Frame3"),
    onCreate({3, 4, 5, kStat}, Act::HideFrame, "Frame3"),
    onCreate({3, 4, 5, kStat}, Act::SetText, "AddMods(1)"),
    onCreate({0, 1, 2, 4, 5, kStat}, Act::ShowFrame, "Frame5"),
    onCreate({3}, Act::HideFrame, "Frame5"),
    onCreate({3}, Act::SetText, "CreateLevel"),
    onCreate(kCosted, Act::SetCaption, "Frame5", kLevelMayBe),
    onCreate(kLevelled, Act::SetCaption, "Frame5", kLevelRequired),
    onCreate({kStat}, Act::SetCaption, "Frame5", "Level (Optional)"),
    onCreate({0, 1, 2, 4, 5}, Act::Show, "Check2"),
    onCreate({3, kStat}, Act::Hide, "Check2"),
    onCreate({3, kStat}, Act::TurnOff, "Check2"),

    Effect{kAfterDone, kAnyState, Act::SetText, "PackName PackDescription FullPackage"},
};

inline constexpr std::string_view kNoType = "MUST select an Item Type!";

inline constexpr std::array kRules = {
    CheckRule{.control = "AddItemType", .message = kNoType, .of = "Command7"},
    CheckRule{.control = "ItemName",
              .message = "MUST select an Item Name!",
              .when = isFrameShown("Frame10"),
              .of = "Command7"},
    CheckRule{.control = "AddLevel",
              .message = "MUST select a level!",
              .when = isCaption("Frame15", kLevelRequired),
              .of = "Command7"},
    CheckRule{.control = "AtrST AtrDX AtrIQ AtrHT",
              .message = "MUST select an Attribute!",
              .when = isFrameShown("Frame14"),
              .focus = "AddItemType",
              .of = "Command7"},
    CheckRule{.control = "RichTextBox1",
              .message = "MUST create item first!",
              .focus = "Command6",
              .of = "Command8"},
    CheckRule{.control = "CreateItemType", .message = kNoType, .of = "Command8 Command1 Command6"},
    CheckRule{.control = "CreateLevel", .when = isCaption("Frame5", kLevelRequired), .of = "Command8"},
    CheckRule{.control = "PackName", .message = "MUST enter a name for the package!", .of = "Command12"},
    CheckRule{.control = "DialogCaption", .message = "Invalid caption!", .of = "Command16"},
    CheckRule{.control = "EMessage", .message = "Invalid message!", .of = "Command16"},
    CheckRule{.control = "FullPackage", .message = "You must create a Package first!"},
    CheckRule{.control = "PackName", .message = "Invalid Name!"},
    CheckRule{.control = "PackCat", .message = "MUST enter a category!", .modes = kInsert},
};

inline constexpr std::array kPlaces = {
    PlaceRow{.section = "[Packages]", .combo = "PackCat", .step = ItemStep::Package, .box = "FullPackage"}};

enum TabPlace : unsigned char { kAddTab, kCreateTab, kMessageTab, kEMessageTab, kRaceTab };
inline constexpr std::array kTabs = {
    LineTab{.add = "Command9",
            .compose = "Command7",
            .full = "FullItemLine",
            .beginning = "ADD=",
            .emptied = "ItemName AddLevel AddMods(0)",
            .turnedOff = "AtrST AtrDX AtrIQ AtrHT",
            .focus = "Command9",
            .isBroken = true},
    LineTab{.add = "Command10",
            .compose = "Command8",
            .full = "FullCreateItem",
            .beginning = "CREATE=",
            .emptied = "RichTextBox1 CreateLevel AddMods(1)",
            .focus = "Command10",
            .isBroken = true},
    LineTab{.add = "Command13",
            .source = "Message",
            .full = "FullMessageLine",
            .beginning = "MESSAGE=",
            .none = "Invalid Message!",
            .emptied = "Message",
            .focus = "Command13"},
    LineTab{.add = "Command14",
            .compose = "Command16",
            .composedFocus = "EMessage",
            .full = "FullEMessage",
            .beginning = "EMESSAGE=",
            .emptied = "DialogCaption EMessage",
            .focus = "Command14"},
    LineTab{.add = "Command11",
            .source = "RaceName",
            .full = "FullRaceLine",
            .beginning = "ADD=Race .AT. ",
            .none = "Invalid Race!",
            .emptied = "RaceName",
            .focus = "Command11"},
};

}  // namespace klt::package
