#pragma once

#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "wizards/EditLine.h"
#include "wizards/LineBreaker.h"
#include "wizards/LineTarget.h"
#include "wizards/WizardState.h"

namespace klt {

/// How a wizard was opened. It keeps its own copy: what is shared changes under a form that is not modal.
struct Opening {
    OpeningMode mode = OpeningMode::Insert;
    /// The document, the caller's line box or the field to be written into.
    AreaLookup target = {};
    /// What is edited.
    EditedItem item = {};
    /// Whether lines are for the older host, which does not know all that a line may hold.
    bool isHostOld = false;
    /// How many @Function wizards are open up to this one.
    int level = 0;
};

/// Why something was not done: the text of the box that tells it, and the control that gets the focus (empty:
/// none). The box has the exclamation icon and the application's title.
struct Complaint {
    std::string_view message;
    std::string_view focus = {};

    bool operator==(const Complaint&) const = default;
};

/// The item that was opened for editing is no longer there.
inline constexpr std::string_view kTextHasChanged =
    "The line that was to be replaced has changed or its document was closed. Nothing was written.";

struct DoneResult {
    enum class Kind : unsigned char { Refused, StaysOpen, Closes } kind = Kind::Refused;
    /// Why it was refused.
    Complaint complaint = {};
    /// What gets the focus where it stays open: the first control that was emptied.
    std::string_view focus = {};

    bool operator==(const DoneResult&) const = default;
};

/// A wizard that a button opens over the form, for one line of a section in a field of the form.
struct ItemCall {
    Section section = Section::Other;
    std::string_view field = {};
    /// Whether it is filled from what the field holds.
    bool isFilled = false;
};

/// A message as the host will show it.
struct MessagePreview {
    std::string text;
    std::string title;
};

/// What the form does after one of its own buttons was pressed, in this order.
struct PressResult {
    std::vector<Complaint> complaints = {};
    std::optional<MessagePreview> preview = {};
    std::optional<ItemCall> call = {};
    std::string_view focus = {};
};

/// What a change of a field by the user brought on.
struct ChangeResult {
    /// Whether other fields are to be shown anew.
    bool isFollowed = false;
    std::optional<Complaint> complaint = {};
};

/// What "&Done!" writes.
struct FinishedText {
    std::string text = {};
    /// A style for each byte, where it brings its colours along.
    std::optional<std::string> styles = {};
};

/// A wizard without its window: a table, the state of its fields and how it was opened. What is special to a
/// wizard is overridden.
class Wizard {
public:
    /// The fields in their first state. The table must outlive the wizard.
    Wizard(const WizardTable& table, Opening opening);
    virtual ~Wizard() = default;
    Wizard(const Wizard&) = delete;
    Wizard& operator=(const Wizard&) = delete;

    const WizardTable& table() const { return table_; }
    const Opening& opening() const { return opening_; }

    /// The fields. What the user types, a form writes here; what the functions below change in it, it shows.
    WizardState state;

    /// Fills each category combo from its section of the document's text.
    void fillCombos(std::string_view document);
    /// Chooses what an item at that place is: its type, and its subsection where the list has it (the last
    /// equal one, in any case).
    void SelectSubsection(const PlaceRow& place, std::string_view subsection);

    /// A click that turns an option or check on or off, or chooses a combo's item: sets it, then does
    /// whatever follows from it.
    virtual void click(std::string_view control, int newState);

    /// A press of one of the form's own buttons; lines that are added are broken by `limits`.
    virtual PressResult press(std::string_view button, const LineBreakLimits& limits);
    /// A field whose text, which the state holds already, was changed.
    virtual ChangeResult changed(std::string_view control);

    /// The box in which lines are collected takes what the state holds for it. It must outlive the wizard.
    void attach(TextArea& box);
    /// Puts the line at the caret of that box back on its tab. The tab; null, with nothing changed, where
    /// none takes it.
    virtual const LineTab* takeBack() { return nullptr; }

    /// Whether the frame is shown, or a click could show it.
    bool canShow(std::string_view frame) const;

    /// Where a new line goes as the fields stand; null where no type is chosen yet.
    const PlaceRow* place() const;

    /// The first test that fails.
    virtual std::optional<Complaint> check() const;
    /// The line that the fields make up, unbroken. What `check` would refuse gives a line all the same.
    virtual std::string text() const;
    /// Fills the fields from a line. Any text is taken.
    void load(std::string_view line);
    /// The same from the item that is edited.
    virtual void load() { load(opening_.item.line); }
    /// Whether lines that were collected are not in the document yet.
    virtual bool hasUnwritten() const { return false; }
    /// What of the line loaded last the form would not keep; empty where it keeps all.
    const std::string& loss() const { return loss_; }

    /// "&Done!": checks, breaks the line, writes it to where it belongs and, if the wizard stays open,
    /// empties the fields. A refusal changes nothing.
    DoneResult finish(const LineBreakLimits& limits);

protected:
    /// Where the line is written in each mode.
    virtual std::unique_ptr<LineTarget> target() const;
    virtual FinishedText finished(const LineBreakLimits& limits) const;
    /// The first that fails of the rules that an own button asks; of those of "&Done!" without one.
    std::optional<Complaint> firstFailing(std::string_view button) const;
    /// Does all that follows from a click on `of` that brought it to `newState`, or from an occasion.
    void applyEffects(Names of, int newState = kOff);
    /// Sets texts and states by their names.
    void empty(Names controls);
    void turnOff(Names controls);
    TextArea& box() const { return *box_; }
    void setLoss(std::string loss) { loss_ = std::move(loss); }

private:
    bool isCalledFor(Modes modes) const { return (modes & static_cast<Modes>(opening_.mode)) != 0; }

    std::string_view firstEmptied() const;

    const WizardTable& table_;
    Opening opening_;
    std::string loss_;
    TextArea* box_ = nullptr;
};

/// What a table names that its wizard is made as.
template <typename Special>
std::unique_ptr<Wizard> makeAs(const WizardTable& table, Opening opening) {
    return std::make_unique<Special>(table, std::move(opening));
}

/// The wizard of that table, which must outlive it.
std::unique_ptr<Wizard> makeWizard(const WizardTable& table, Opening opening);

}  // namespace klt
