#pragma once

#include <QPoint>
#include <functional>
#include <string_view>
#include <vector>

namespace klt {

class LinesKeeper;
class RichTextBox;
class Store;
class WizardForm;
class modKLTSyntaxHighlighter;
struct ItemCall;

/// What the forms need of the program. All of it must outlive them. A function that is empty leaves the
/// buttons that ask for it disabled.
struct WizardServices {
    Store& store;
    modKLTSyntaxHighlighter& highlighter;
    /// Up while a wizard fills itself or writes.
    bool& SuppressCaretUpdate;
    /// The texts of all open documents, whose names the fields offer.
    std::function<std::vector<std::string_view>()> openTexts = {};
    /// Shows the Syntax Aid menu of that name at a place of the screen, for `field`, which stands in `form`.
    std::function<void(WizardForm& form, RichTextBox& field, std::string_view menu, QPoint global)>
        showSyntaxAid = {};
    /// Shows the Gives wizard over `form`, to write into `field`.
    std::function<void(WizardForm& form, RichTextBox& field)> showGivesWizard = {};
    /// Shows the wizard of an item over `form`, for one of its fields.
    std::function<void(WizardForm& form, const ItemCall& call)> showItemWizard = {};
    /// Shows the help on the form of that name.
    std::function<void(std::string_view form)> showHelp = {};
    /// May be null.
    LinesKeeper* keeper = nullptr;
};

}  // namespace klt
