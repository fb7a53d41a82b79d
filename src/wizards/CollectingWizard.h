#pragma once

#include "language/EditedLine.h"
#include "wizards/Wizard.h"

namespace klt {

/// A wizard whose tabs make lines for one box, and whose "&Done!" writes what the box holds, in its colours.
class CollectingWizard : public Wizard {
public:
    using Wizard::Wizard;

    PressResult press(std::string_view button, const LineBreakLimits& limits) override;
    ChangeResult changed(std::string_view control) override;
    const LineTab* takeBack() override;
    std::string text() const override { return state.text(table().box); }
    /// Fills the box from the lines that are edited.
    void load() override;
    bool hasUnwritten() const override { return heading() + text() != loaded_; }

protected:
    /// The line that a tab's fields make up.
    virtual std::string compose(const LineTab& tab) const = 0;
    /// Fills a tab's fields from a line; null, with nothing changed, where no tab takes it.
    virtual const LineTab* loadLine(std::string_view line) = 0;
    /// The line of the box that begins at `start`, as it is put back.
    virtual EditedLine lineAt(Position start) const;
    /// What stands in front of the lines in the document.
    virtual std::string heading() const { return {}; }

    FinishedText finished(const LineBreakLimits& limits) const override;
    /// Shows the tab's line, if its rules hold.
    virtual std::optional<Complaint> composeLine(const LineTab& tab);
    /// Puts the tab's line into the box, if there is one.
    virtual PressResult add(const LineTab& tab, const LineBreakLimits& limits);
    /// Puts a line into the box, and empties the tab.
    PressResult append(const LineTab& tab, std::string_view line);
    void emptyTab(const LineTab& tab);

    /// What is filled in now is what is written.
    void noteLoaded() { loaded_ = heading() + text(); }

private:
    void boxChanged();

    std::string loaded_;
};

}  // namespace klt
