#include <array>

#include "platform/CommandKeys.h"
#include "wizards/CollectingWizard.h"
#include "wizards/ControlRows.h"
#include "wizards/ItemTypes.h"
#include "wizards/LineLoss.h"
#include "wizards/PackageLine.h"
#include "wizards/TableCheck.h"
#include "wizards/Wizards.h"

namespace klt {
namespace {

constexpr std::array kAddTypes = {kAdvantageType,
                                  kDisadvantageType,
                                  kPowerType,
                                  kQuirkType,
                                  kSkillType,
                                  kSpellType,
                                  ItemType{"Another Package", "PA:"},
                                  ItemType{"Attribute Adjust"},
                                  ItemType{"Attribute Increase"}};
constexpr std::array kCreateTypes = {
    kAdvantageType, kDisadvantageType,      kPowerType, kQuirkType, kSkillType,
    kSpellType,     ItemType{"Stat", "ST:"}};
constexpr auto kAddTypeNames = namesOf(kAddTypes);
constexpr auto kCreateTypeNames = namesOf(kCreateTypes);
constexpr int kAdjust = 7, kIncrease = 8, kStat = 6;
// Of both lists.
constexpr States kCosted{0, 1, 2}, kLevelled{4, 5};

constexpr std::array<std::string_view, 1> kPackages = {"[PACKAGES]"};
/// As whose lines the created items are coloured, in the order of their types.
constexpr std::array<std::string_view, 7> kItemSections = {"[ADS]",    "[DISADS]", "[POWERS]", "[QUIRKS]",
                                                           "[SKILLS]", "[SPELLS]", "[STATS]"};

constexpr std::string_view kAdd = "Add", kCreate = "Create", kMessage = "Message", kEMessage = "EMessage",
                           kSetRace = "Set Race", kView = "View Package";
constexpr std::string_view kLevelMayBe = "Level (If Applicable)", kLevelRequired = "Level (Required)";

constexpr std::array kFrames = {
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

constexpr std::array kControls = {
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

constexpr std::array kEffects = {
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

constexpr std::string_view kNoType = "MUST select an Item Type!";

constexpr std::array kRules = {
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

constexpr std::array kPlaces = {
    PlaceRow{.section = "[Packages]", .combo = "PackCat", .step = ItemStep::Package, .box = "FullPackage"}};

enum TabPlace : unsigned char { kAddTab, kCreateTab, kMessageTab, kEMessageTab, kRaceTab };
constexpr std::array kTabs = {
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

constexpr auto kPackName = controlIndex(kControls, "PackName");
constexpr auto kDescription = controlIndex(kControls, "PackDescription");
constexpr auto kAddType = controlIndex(kControls, "AddItemType");
constexpr auto kItemName = controlIndex(kControls, "ItemName");
constexpr auto kAddLevel = controlIndex(kControls, "AddLevel");
constexpr auto kAddPoints = controlIndex(kControls, "Check1");
constexpr auto kAddMods = controlIndex(kControls, "AddMods(0)");
constexpr auto kCreateType = controlIndex(kControls, "CreateItemType");
constexpr auto kCreateLevel = controlIndex(kControls, "CreateLevel");
constexpr auto kCreatePoints = controlIndex(kControls, "Check2");
constexpr auto kCreateMods = controlIndex(kControls, "AddMods(1)");
constexpr auto kCreatedItem = controlIndex(kControls, "RichTextBox1");
constexpr auto kMessageField = controlIndex(kControls, "Message");
constexpr auto kFullMessage = controlIndex(kControls, "FullMessageLine");
constexpr auto kCaption = controlIndex(kControls, "DialogCaption");
constexpr auto kEMessageBox = controlIndex(kControls, "EMessage");

struct Attribute {
    std::string_view option;
    ControlIndex index;
    std::string_view name;
};
constexpr std::array kAttributes = {Attribute{"AtrST", controlIndex(kControls, "AtrST"), "ST"},
                                    Attribute{"AtrDX", controlIndex(kControls, "AtrDX"), "DX"},
                                    Attribute{"AtrIQ", controlIndex(kControls, "AtrIQ"), "IQ"},
                                    Attribute{"AtrHT", controlIndex(kControls, "AtrHT"), "HT"}};
constexpr std::string_view kAdjusted = "Adj";

std::string_view behind(std::string_view text, char c) {
    const auto place = text.find(c);
    return place == text.npos ? text : text.substr(place + 1);
}

/// The line with no more than two letters of its prefix, which say all: "ADD=POWERS:" is "ADD=PO:".
std::string withShortPrefix(std::string_view line) {
    const auto start = line.find('=') + 1, colon = line.find(':');
    const auto prefix = colon == line.npos ? std::string_view() : line.substr(start, colon - start);
    const bool isWord =
        std::ranges::all_of(prefix, [](char c) { return toLower(c) >= 'a' && toLower(c) <= 'z'; });
    if (prefix.size() < 2 || !isWord) return std::string(line);
    return std::string(line.substr(0, start + 2)).append(line.substr(colon));
}

bool isSame(std::string_view read, std::string_view written) {
    return lineLoss({}, withShortPrefix(read), withShortPrefix(written)).empty();
}

/// A package with its header, its lines made on one tab for each kind.
class PackageWizard : public CollectingWizard {
public:
    using CollectingWizard::CollectingWizard;

    PressResult press(std::string_view button, const LineBreakLimits& limits) override {
        if (button == "Command12") return previewMessage();
        if (button == "Command15") return previewEMessage();
        if (button != "Command1" && button != "Command6") return CollectingWizard::press(button, limits);
        if (const auto complaint = firstFailing(button)) return {{*complaint}};
        const auto type = static_cast<size_t>(state.control(kCreateType).state);
        return {.call = ItemCall{sectionOf(kItemSections[type]), "RichTextBox1", button == "Command1"}};
    }

    void load() override {
        CollectingWizard::load();
        std::string_view header = opening().item.line;
        const std::string read = '{' + std::string(header) + '}';
        const auto equals = header.find('=');
        if (equals != header.npos) state.setText("PackDescription", header.substr(equals + 1));
        state.setText("PackName", header.substr(0, equals));
        noteLoaded();
        // A description that says nothing needs no sign.
        if (!header.ends_with('=')) setLoss(lineLoss({}, read, headerLine()));
    }

protected:
    std::string heading() const override { return headerLine() + opening().item.comment + "\r\n"; }

    std::string compose(const LineTab& tab) const override {
        const std::string start(tab.beginning);
        if (&tab == &kTabs[kEMessageTab])
            return start + packageMessageText({state.text(kCaption), state.text(kEMessageBox)});
        if (&tab == &kTabs[kAddTab])
            return start + packageItemText({addedItem(), state.text(kAddLevel), state.isOn(kAddPoints),
                                            state.text(kAddMods)});
        const auto type = static_cast<size_t>(state.control(kCreateType).state);
        return start + packageItemText({std::string(kCreateTypes[type].prefix) + state.text(kCreatedItem),
                                        state.text(kCreateLevel), state.isOn(kCreatePoints),
                                        state.text(kCreateMods)});
    }

    EditedLine lineAt(Position start) const override { return GetLogicalLine(box().Text(), start); }

    const LineTab* loadLine(std::string_view logicalLine) override {
        const std::string joined = joinPackageLine(logicalLine);
        const auto line = trimBlanks(joined);
        const LineTab* const tab = tabOf(line);
        if (tab == nullptr) return nullptr;
        const WizardState before = state;
        emptyTab(*tab);
        loadInto(*tab, line.substr(line.find('=') + 1));
        const bool isComposed = !composeLine(*tab) && state.text(tab->full) != tab->beginning;
        if (isComposed && isSame(line, state.text(tab->full))) return tab;
        state = before;
        return nullptr;
    }

private:
    std::string headerLine() const {
        const auto& description = state.text(kDescription);
        return '{' + state.text(kPackName) + (description.empty() ? "" : '=' + description) + '}';
    }

    /// What an ADD= line names: an item with its prefix, or an attribute.
    std::string addedItem() const {
        const int type = state.control(kAddType).state;
        if (type < kAdjust)
            return std::string(kAddTypes[static_cast<size_t>(type)].prefix) + state.text(kItemName);
        std::string item;
        for (const Attribute& attribute : kAttributes)
            if (state.isOn(attribute.index)) item = attribute.name;
        return type == kAdjust ? item + std::string(kAdjusted) : item;
    }

    PressResult previewMessage() {
        if (const auto complaint = firstFailing("Command12")) return {{*complaint}};
        const LineTab& tab = kTabs[kMessageTab];
        if (state.text(kFullMessage) == tab.beginning) return {{{tab.none, tab.source}}};
        return {.preview = MessagePreview{state.text(kMessageField), state.text(kPackName)}};
    }

    PressResult previewEMessage() {
        if (const auto complaint = composeLine(kTabs[kEMessageTab])) return {{*complaint}};
        return {.preview = MessagePreview{state.text(kEMessageBox), state.text(kCaption)}};
    }

    static const LineTab* tabOf(std::string_view line) {
        const auto starts = [line](std::string_view word) {
            return equalIgnoringAsciiCase(line.substr(0, word.size()), word);
        };
        if (starts("ADD=RACE")) return &kTabs[kRaceTab];
        const auto tab =
            std::ranges::find_if(kTabs, [&starts](const LineTab& each) { return starts(each.beginning); });
        return tab == kTabs.end() ? nullptr : tab;
    }

    void loadInto(const LineTab& tab, std::string_view rest) {
        if (&tab == &kTabs[kAddTab]) return loadAdded(rest);
        if (&tab == &kTabs[kCreateTab]) return loadCreated(rest);
        if (&tab == &kTabs[kEMessageTab]) {
            const auto message = packageMessageOf(rest);
            state.setText("DialogCaption", message.caption);
            return state.setText("EMessage", message.text);
        }
        state.setText(tab.source, &tab == &kTabs[kRaceTab] ? levelOf(rest) : rest);
        changed(tab.source);
    }

    void loadAdded(std::string_view rest) {
        const int type = typeOf(kAddTypes, rest, 2);
        if (type < 0) return loadAttribute(rest);
        click("AddItemType", type);
        const auto parts = packageItemOf(behind(rest, ':'));
        const bool isPackage = kAddTypes[static_cast<size_t>(type)].prefix == "PA:";
        state.setText("ItemName", isPackage ? std::string(behind(rest, ':')) : parts.item);
        if (isPackage) return;
        state.setText("AddLevel", parts.level);
        state.setText("AddMods(0)", parts.mods);
        state.setState("Check1", parts.isPoints ? kOn : kOff);
    }

    void loadAttribute(std::string_view rest) {
        const auto parts = packageItemOf(rest);
        const auto word = std::string_view(parts.item);
        const bool isAdjusted = word.size() > 2 && equalIgnoringAsciiCase(word.substr(2), kAdjusted);
        click("AddItemType", isAdjusted ? kAdjust : kIncrease);
        for (const Attribute& attribute : kAttributes)
            if (equalIgnoringAsciiCase(word.substr(0, 2), attribute.name)) click(attribute.option, kOn);
        state.setText("AddLevel", levelOf(rest));
    }

    void loadCreated(std::string_view rest) {
        const int type = typeOf(kCreateTypes, rest, 2);
        click("CreateItemType", type < 0 ? kStat : type);
        auto parts = packageItemOf(behind(rest, ':'));
        state.setText("RichTextBox1", parts.item);
        state.setText("CreateLevel", parts.level);
        state.setText("AddMods(1)", parts.mods);
        state.setState("Check2", parts.isPoints ? kOn : kOff);
    }
};

}  // namespace

constinit const WizardTable kPackWizard = checked({
    .form = "frmPackWizard",
    .title = "Package Wizard",
    .command = commands::kPackageWizard,
    .frames = kFrames,
    .controls = kControls,
    .effects = kEffects,
    .rules = kRules,
    .places = kPlaces,
    .box = "FullPackage",
    .tabs = kTabs,
    .make = makeAs<PackageWizard>,
});

}  // namespace klt
