#pragma once

#include <concepts>
#include <memory>
#include <span>
#include <string_view>

namespace klt {

class Wizard;
struct Opening;

/// How a wizard was opened: for a new line in the document, for one that stands there, for a line of the
/// Package wizard. As bits, so that a row can name several.
enum class OpeningMode : unsigned char { Insert = 1, Edit = 2, Package = 4 };

using Modes = unsigned char;
inline constexpr Modes kInsert = static_cast<Modes>(OpeningMode::Insert);
inline constexpr Modes kEdit = static_cast<Modes>(OpeningMode::Edit);
inline constexpr Modes kPackage = static_cast<Modes>(OpeningMode::Package);
inline constexpr Modes kEveryMode = kInsert | kEdit | kPackage;

/// Names of controls or frames, separated by single blanks.
using Names = std::string_view;

/// A control's state in a row: on and off of an option or check, the place of a combo's item from 0.
inline constexpr int kOff = 0;
inline constexpr int kOn = 1;

/// Some of the states of a control; of a combo the items from 0 to 30. Without any it stands for all.
class States {
public:
    constexpr States() = default;
    constexpr States(std::same_as<int> auto... states) : bits_((bitOf(states) | ...)) {}
    constexpr bool hold(int state) const { return bits_ == 0 || (bits_ & bitOf(state)) != 0; }

private:
    static constexpr unsigned bitOf(int state) { return 1U << static_cast<unsigned>(state + 1); }
    unsigned bits_ = 0;
};
inline constexpr States kAnyState;

enum class ControlKind : unsigned char {
    TextField,
    /// Takes any text, unchecked.
    PlainField,
    /// A box of several lines, as those in which lines are collected.
    TextBox,
    /// Filled from the document; completes what is typed and keeps it.
    CategoryCombo,
    /// Completes what is typed among its items; other texts may stand in it.
    AutoCombo,
    /// Takes any text as it is typed.
    FixedCombo,
    /// Takes no text: one of its items or none.
    List,
    Option,
    Check,
    Button,
};

/// What a button does, beyond what its wizard's form wires itself.
enum class ButtonUse : unsigned char { Own, Done, Cancel, Help, SyntaxAid, GivesWizard };

constexpr bool isCombo(ControlKind kind) {
    return kind == ControlKind::CategoryCombo || kind == ControlKind::AutoCombo ||
           kind == ControlKind::FixedCombo || kind == ControlKind::List;
}

/// One control. Options of one frame exclude each other.
struct ControlRow {
    /// The frame's name; empty for the form's own row of buttons.
    std::string_view frame = {};
    std::string_view name = {};
    ControlKind kind = ControlKind::TextField;
    /// In front of a field or combo; the caption of an option, check or button.
    std::string_view label = {};
    /// What the field is checked as, such as "cost("; empty where only its parentheses are counted.
    std::string_view tag = {};
    /// The items of a fixed or completing combo.
    std::span<const std::string_view> items = {};
    ButtonUse use = ButtonUse::Own;
    /// The Syntax Aid menu that a button shows.
    std::string_view menu = {};
    /// The field that a button writes into.
    std::string_view field = {};
    /// Whether a "(" typed into a combo brings its ")", as in every field.
    bool pairsParentheses = false;
    /// Behind a field, where it is not the ")" of a label that ends in "(".
    std::string_view behind = {};
    /// What the label in front is called, where it has a name.
    std::string_view labelName = {};
    /// The section as whose lines its text is coloured; several where a list chooses among them.
    std::span<const std::string_view> sections = {};
    std::string_view sectionChosenBy = {};
    /// Whether it is coloured when it gets the focus, and not at each change.
    bool isColouredAtFocus = false;
    /// Whether it takes no typing.
    bool isReadOnly = false;
};

/// The label behind a control; empty for none.
constexpr std::string_view labelBehind(const ControlRow& row) {
    return row.behind.empty() && row.label.ends_with('(') ? std::string_view(")") : row.behind;
}

struct FrameRow {
    /// No caption names a frame, for some change theirs.
    std::string_view name = {};
    std::string_view caption = {};
    /// The tab on which it stands; empty for the form itself.
    std::string_view tab = {};
};

/// A question to the fields.
struct Condition {
    enum class Asks : unsigned char {
        Nothing,
        StateIs,
        IsEnabled,
        IsFrameShown,
        /// Of a frame that is shown.
        IsCaption,
        /// Of the host's version, as the wizard was opened with it; `of` names nothing.
        IsHostOld
    } asks = Asks::Nothing;
    /// The control, or the frame.
    std::string_view of = {};
    int state = kOn;
    std::string_view caption = {};
};

constexpr Condition stateIs(std::string_view control, int state = kOn) {
    return {Condition::Asks::StateIs, control, state};
}
constexpr Condition isEnabled(std::string_view control) {
    return {Condition::Asks::IsEnabled, control};
}
constexpr Condition isFrameShown(std::string_view frame) {
    return {Condition::Asks::IsFrameShown, frame};
}
constexpr Condition isCaption(std::string_view frame, std::string_view caption) {
    return {Condition::Asks::IsCaption, frame, kOn, caption};
}

constexpr Condition isHostOld() {
    return {Condition::Asks::IsHostOld};
}

/// When an effect comes, where it is no click.
inline constexpr Names kAtLoad = "(load)";
inline constexpr Names kAfterDone = "(done)";

enum class Act : unsigned char {
    Enable,
    Disable,
    Show,
    Hide,
    ShowFrame,
    HideFrame,
    /// With all that stands in it.
    DisableFrame,
    /// Sets the text of a field; chooses no item of a fixed combo where it is empty.
    SetText,
    /// Empties a field that holds exactly the text.
    EmptyIf,
    TurnOn,
    TurnOff,
    /// Sets the label in front; an empty one hides it.
    SetLabel,
    SetCaption,
};

constexpr bool isForFrames(Act act) {
    return act == Act::ShowFrame || act == Act::HideFrame || act == Act::DisableFrame ||
           act == Act::SetCaption;
}

/// What a click on one of `of` does to each of `on`. Effects come in the order of their rows and bring on no
/// further ones.
struct Effect {
    Names of = {};
    States states = {};
    Act act = Act::Enable;
    Names on = {};
    std::string_view text = {};
    Modes modes = kEveryMode;
    Condition when = {};
};

inline constexpr std::string_view kInvalidEntry = "Invalid Entry!";

/// One test of "&Done!" or of a form's own button: that a field holds text (a single blank does), or that one
/// of several options is on. The first test that fails ends it.
struct CheckRule {
    /// One field; or several options.
    Names control = {};
    std::string_view message = kInvalidEntry;
    Modes modes = kEveryMode;
    Condition when = {};
    /// What gets the focus where it is not the field itself.
    std::string_view focus = {};
    /// The own buttons that ask it; empty for "&Done!".
    Names of = {};
};

/// What a control's state reads as in a line. Written is the first row whose control is in that state, unless
/// its text is empty; loaded the first whose text is the value in any case, an empty text standing for every
/// value.
struct Choice {
    std::string_view text = {};
    std::string_view control = {};
    int state = kOn;
    /// The word that says it where its text is empty: a line that holds it says no more than one without.
    std::string_view spelled = {};
};

/// A tag of an item line with the control that holds its value, or the choices that do.
struct TagRow {
    /// With its "(".
    std::string_view tag = {};
    std::string_view control = {};
    std::span<const Choice> choices = {};
};

/// An item line, written as its heads joined by ", ", then each tag that is not empty.
struct ItemShape {
    Names heads = {};
    std::span<const TagRow> written = {};
    /// The tags that the loader knows; not always those that are written.
    std::span<const TagRow> loaded = {};
    /// Takes what is left in front of the tags.
    std::string_view nameField = {};
    /// Takes what stands behind the last comma of that; empty for none.
    std::string_view secondField = {};
    /// Whether a line that is too long is broken.
    bool isBroken = true;
};

/// What one tab makes for the box in which lines are collected.
struct LineTab {
    /// The own button that puts the line into the box.
    std::string_view add = {};
    /// The own button that composes the line, whose rules ask for it; empty where `add` asks.
    std::string_view compose = {};
    /// What has the focus once it is composed.
    std::string_view composedFocus = {};
    /// The field of which each change composes the line, behind its beginning.
    std::string_view source = {};
    /// Where the line stands; empty where it goes to the box at once.
    std::string_view full = {};
    /// How it begins: a line that is no more than that is none, and what is told then of the source.
    std::string_view beginning = {};
    std::string_view none = {};
    /// What adding empties and turns off, and what has the focus then.
    Names emptied = {};
    Names turnedOff = {};
    std::string_view focus = {};
    /// Whether a line that is too long is broken.
    bool isBroken = false;
};

/// How an item of a section is taken out of the document for its form.
enum class ItemStep : unsigned char { SingleLine, BlockIntoBox, Package };

/// A section into which a wizard writes and whose items it edits. A new line goes into the first whose option
/// is on, or that needs none.
struct PlaceRow {
    std::string_view option = {};
    /// With its brackets, as it is written.
    std::string_view section = {};
    /// The category combo; empty where the section has no subsections.
    std::string_view combo = {};
    ItemStep step = ItemStep::SingleLine;
    /// The box that takes what is no single line.
    std::string_view box = {};
    /// Whether the subsection is all of its heading behind the "<", and not what stands in front of the ">".
    bool isWholeHeading = false;
};

/// Makes a wizard to which its table is not all.
using WizardMaker = std::unique_ptr<Wizard> (*)(const struct WizardTable& table, Opening opening);

/// A wizard in one piece: what its form shows, and what its line is made of. Where its form opens stands
/// under the form's name in the catalogue of settings.
struct WizardTable {
    std::string_view form = {};
    std::string_view title = {};
    /// The key of the menu command that opens it for new lines; empty where only forms open it.
    std::string_view command = {};
    std::span<const FrameRow> frames = {};
    /// In the order in which the focus goes through them.
    std::span<const ControlRow> controls = {};
    std::span<const Effect> effects = {};
    std::span<const CheckRule> rules = {};
    std::span<const PlaceRow> places = {};
    ItemShape line = {};
    /// Where lines are collected, the box and the tabs that make them. In edit mode such a form is not modal.
    std::string_view box = {};
    std::span<const LineTab> tabs = {};
    /// Whether it closes in every mode, and not only where it had one line to make.
    bool closesAfterDone = false;
    /// Null where the table says it all.
    WizardMaker make = nullptr;
};

}  // namespace klt
