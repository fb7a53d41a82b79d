#pragma once

#include <QPoint>
#include <QPointer>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "forms/WizardServices.h"
#include "ui/RichTextBox.h"
#include "wizards/Wizard.h"

namespace klt {

struct PrefixRow;

/// What wizards offer to fill a field with: the Syntax Aid menus, and the wizards of one expression. One
/// object serves all forms, and must outlive them.
class WizardAids {
public:
    /// What `services` lacks of the aids is added.
    explicit WizardAids(WizardServices services);
    WizardAids(const WizardAids&) = delete;
    WizardAids& operator=(const WizardAids&) = delete;

    /// For the forms that offer these aids.
    const WizardServices& services() const { return services_; }

    /// Asks for one line of text over `owner`; empty where the user cancelled. Names of that kind, if any,
    /// are at hand by Ctrl+Space.
    std::string AskFor(std::string_view prompt, QWidget& owner, const PrefixRow* kind = nullptr);

    /// Shows the menu `kind` at a place of the screen, and does with `field` of `form` what the chosen item
    /// stands for. A `kind` that there is not shows nothing.
    void SyntaxAid(std::string_view kind, RichTextBox& field, WizardForm& form, QPoint place);

    /// Shows an @Function wizard over `owner`, to write into `field`, and returns when it has closed. With
    /// `level` others below it, of whose arguments one is to be filled, it is nested, as deep as the setting
    /// allows; beyond that the user is told.
    void ShowFunctionsWizard(QWidget& owner, RichTextBox& field, int level = 0);

    /// Shows a Gives wizard over `owner`, to write into `field`, and returns when it has closed.
    void ShowGivesWizard(QWidget& owner, RichTextBox& field);

    /// Shows the wizard of an item over `form`, to write into a field of it, and returns when it has closed.
    void ShowItemWizard(WizardForm& form, const ItemCall& call);

private:
    class OpenFunction;

    void ShowOver(QWidget& owner, std::unique_ptr<Wizard> wizard);

    WizardServices services_;
    /// The field of each open @Function wizard, the outermost first.
    std::vector<QPointer<RichTextBox>> FunctionTargets;
};

}  // namespace klt
