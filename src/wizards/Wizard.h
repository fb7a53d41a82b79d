#pragma once

#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>

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
    void load() { load(opening_.item.line); }
    /// What of the line loaded last the form would not keep; empty where it keeps all.
    const std::string& loss() const { return loss_; }

    /// "&Done!": checks, breaks the line, writes it to where it belongs and, if the wizard stays open,
    /// empties the fields. A refusal changes nothing.
    DoneResult finish(const LineBreakLimits& limits);

protected:
    /// Where the line is written in each mode.
    virtual std::unique_ptr<LineTarget> target() const;
    /// The first of the rules that fails.
    std::optional<Complaint> firstFailing(std::span<const CheckRule> rules) const;
    /// Does all that follows from a click on `of` that brought it to `newState`, or from an occasion.
    void applyEffects(Names of, int newState = kAnyState);

private:
    bool isCalledFor(Modes modes) const { return (modes & static_cast<Modes>(opening_.mode)) != 0; }
    std::string finishedText(const LineBreakLimits& limits) const;

    std::string_view firstEmptied() const;

    const WizardTable& table_;
    Opening opening_;
    std::string loss_;
};

/// What a table names that its wizard is made as.
template <typename Special>
std::unique_ptr<Wizard> makeAs(const WizardTable& table, Opening opening) {
    return std::make_unique<Special>(table, std::move(opening));
}

/// The wizard of that table, which must outlive it.
std::unique_ptr<Wizard> makeWizard(const WizardTable& table, Opening opening);

}  // namespace klt
