#include <array>

#include "platform/CommandKeys.h"
#include "wizards/CollectingWizard.h"
#include "wizards/LineLoss.h"
#include "wizards/PackageParts.h"
#include "wizards/PackageRows.h"
#include "wizards/TableCheck.h"
#include "wizards/Wizards.h"

namespace klt {
namespace {

using namespace package;

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
    const bool isWord = std::ranges::all_of(prefix, isLetter);
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
        // A mark behind the box's last line was put there by the walk.
        constexpr std::string_view kOpenEnd = " _\r\n";
        if (logicalLine.ends_with(kOpenEnd)) logicalLine.remove_suffix(kOpenEnd.size());
        const std::string joined = joinPackageLine(logicalLine);
        const auto line = trimBlanks(joined);
        const LineTab* const tab = tabOf(line);
        // Lines that can't be joined fit no field.
        if (tab == nullptr || line.find("\r\n") != line.npos) return nullptr;
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
        const LineTab& tab = kTabs[kEMessageTab];
        if (const auto complaint = composeLine(tab)) return {{*complaint}};
        return {.preview = MessagePreview{state.text(kEMessageBox), state.text(kCaption)},
                .focus = tab.composedFocus};
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
        // What a stat's frames do not show stays in its level.
        if (type < 0 || type == kStat) {
            parts = {.item = parts.item, .level = std::string(levelOf(behind(rest, ':')))};
        }
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
